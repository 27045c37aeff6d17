#include "sites/title_backup.h"

#include "platform/abandoned.h"
#include "platform/translated_text.h"
#include "sites/backups.h"
#include "store/process_state.h"
#include "store/storage_status.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace quillon {

TitleBackup::TitleBackup(const QString &to, backups::Existing existing, backups::Mode mode,
                         const QString &older)
    : TitleCopying(mode), m_place(QDir::cleanPath(QFileInfo(to).absoluteFilePath())), m_existing(existing)
{
    m_state = backups::mayBeMade(to, backups::titlesExtension, existing);
    m_isRefused = !m_state;
    m_older = older.isEmpty() ? m_place : older;
    if (m_state)
        m_state = open(mwqnAppSuppLoc, QFileInfo(m_place).path());
    if (isTrial() && !m_source && m_state.isError(Error::Kind::Missing)) { // It would have been made.
        m_state = {};
        return;
    }
    auto found = m_state ? findTitles() : m_state.error();
    if (found)
        m_titles = *std::move(found);
    else
        m_state = found.error();
}

BackupResult TitleBackup::finish()
{
    if (m_state && m_titles.isEmpty() && !m_fileFailed)
        return {.outcome = BackupResult::Nothing,
                .sentence = translated("Backups", backups::nothingToBackup),
                .details = details()};
    if (m_state)
        m_state = put();
    if (!m_state)
        qCWarning(backupsLog).noquote() << backups::detail(m_state.error());
    // Only now: an older backup may still bear such a name while the new one is not safe.
    else if (!isTrial())
        removeAbandoned(QFileInfo(m_place).path());
    return result();
}

Result<> TitleBackup::put()
{
    const QString name = QFileInfo(m_place).fileName();
    if (m_copied.isEmpty())
        return Error{.path = m_place, .reason = TitleTransferText::tr("no title could be read")};
    if (isTrial())
        return {};
    // The older backup may hold what could not be read now.
    if (m_fileFailed && m_staged->parent().exists(QFile::encodeName(name)))
        return Error{.path = m_place,
                     .reason =
                         TitleTransferText::tr("it was not replaced, since not everything could be read")};
    return m_staged->putInPlace(name, StagedFolder::Content::Folders,
                                m_existing == backups::Existing::Replace);
}

BackupResult TitleBackup::result() const
{
    const bool isWhole = m_state && !m_fileFailed;
    BackupResult result{.outcome = isWhole       ? BackupResult::Done
                                   : m_isRefused ? BackupResult::Refused
                                                 : BackupResult::Failed,
                        .sentence =
                            translated("Backups", isWhole ? backups::backupSucceeded : backups::backupFailed),
                        .details = details(),
                        .fileFailed = !isWhole && !m_isRefused};
    if (m_state.isDone()) {
        result.copied = int(m_copied.size());
        for (const qsizetype place : m_copied)
            result.items.append(item(m_titles[place]));
    }
    if (m_state.isDone() && m_fileFailed)
        result.informativeText =
            TitleTransferText::tr("%1 holds what could be read, but not all").arg(m_place);
    else if (m_state.isDone() && !m_state)
        result.sentence = failureLine(m_state.error());
    return result;
}

} // namespace quillon
