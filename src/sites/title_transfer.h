#pragma once

#include "sites/backup_result.h"

namespace quillon {

/**
 * A backup or a restore of titles, one title at each step, so that a window stays alive meanwhile.
 *
 * Dropped before finish() it removes what it began.
 */
class TitleTransfer
{
public:
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
