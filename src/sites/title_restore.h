#pragma once

#include "sites/title_copying.h"

namespace quillon {

/// Adds the titles of a backup to the data folder (backups.h); finish() makes them titles.
class TitleRestore final : public TitleCopying
{
public:
    explicit TitleRestore(const QString &from, backups::Mode mode = backups::Mode::Do);

    BackupResult finish() override;

private:
    // Whatever lies in the data folder under a title's name is listed; so a staged title has another one.
    [[nodiscard]] QByteArray stagedName(qsizetype place) const override { return QByteArray::number(place); }
    Result<> place();
    void keepOriginals() const;
    [[nodiscard]] QString sentence() const;
    [[nodiscard]] QString explanation() const;

    QList<QByteArray> m_ignored;
    QList<QByteArray> m_restored;
    int m_imported = 0;
};

} // namespace quillon
