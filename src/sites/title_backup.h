#pragma once

#include "sites/title_copying.h"

namespace quillon {

/// Makes a backup of all titles (backups.h); put into its place by finish().
class TitleBackup final : public TitleCopying
{
public:
    /// With @p older, it is a part of a larger backup, and that is the same part of the one in its place.
    TitleBackup(const QString &to, backups::Existing existing, backups::Mode mode = backups::Mode::Do,
                const QString &older = {});

    BackupResult finish() override;

private:
    [[nodiscard]] QByteArray stagedName(qsizetype place) const override { return m_titles[place]; }
    Result<> put();
    [[nodiscard]] BackupResult result() const;

    QString m_place;
    backups::Existing m_existing;
    bool m_isRefused = false;
};

} // namespace quillon
