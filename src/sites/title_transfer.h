#pragma once

#include "sites/backup_result.h"

#include <memory>

namespace quillon {

/**
 * A backup or a restore of titles, one title at each step, so that a window stays alive meanwhile.
 *
 * Dropped before finish() it removes what it began.
 */
class TitleTransfer
{
public:
    static std::unique_ptr<TitleTransfer> backup(const QString &to, backups::Existing existing,
                                                 backups::Mode mode = backups::Mode::Do);
    static std::unique_ptr<TitleTransfer> restore(const QString &from,
                                                  backups::Mode mode = backups::Mode::Do);
    virtual ~TitleTransfer() = default;

    /// How many titles there are to copy, and how many have had their turn.
    [[nodiscard]] virtual int total() const = 0;
    [[nodiscard]] virtual int done() const = 0;

    /// Copies the next title; false when none is left, or when it makes no sense to go on.
    virtual bool step() = 0;

    /// Syncs what was copied and puts it into its place. Once.
    virtual BackupResult finish() = 0;
};

} // namespace quillon
