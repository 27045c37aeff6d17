#pragma once

#include "sites/title_copying.h"

namespace quillon {

/// Makes a backup of all titles (backups.h); put into its place by finish().
class TitleBackup final : public TitleCopying
{
public:
    TitleBackup(const QString &to, backups::Existing existing, backups::Mode mode = backups::Mode::Do);

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
