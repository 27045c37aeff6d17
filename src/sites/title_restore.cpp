#include "sites/title_restore.h"

#include "journal/journal.h"
#include "journal/originals.h"
#include "platform/text_decoding.h"
#include "store/process_state.h"
#include "store/title_folder.h"

namespace quillon {

namespace {

void logImported(const QByteArray &title)
{
    qCInfo(backupsLog).noquote() << "imported" << exactText(title);
}

} // namespace

TitleRestore::TitleRestore(const QString &from, backups::Mode mode) : TitleCopying(mode)
{
    m_state = open(from, mwqnAppSuppLoc);
    const auto found = m_state ? findTitles() : m_state.error();
    if (!found) {
        m_state = found.error();
        return;
    }
    for (const QByteArray &title : *found) {
        const Result<bool> isThere = isInParent(title);
        if (isThere)
            (*isThere ? m_ignored : m_titles).append(title);
        else
            noteFailure(title, isThere.error().reason);
    }
}

BackupResult TitleRestore::finish()
{
    if (isTrial()) {
        for (const qsizetype place : std::as_const(m_copied))
            m_restored.append(m_titles[place]);
    } else if (!m_copied.isEmpty()) {
        // Also when the last title could not be written: the others come in.
        if (const Result<> placed = place(); !placed && m_state)
            m_state = placed;
        if (!m_restored.isEmpty())
            keepOriginals();
    }
    QList<BackupItem> items;
    for (const QByteArray &title : std::as_const(m_restored))
        items.append(item(title));
    for (const QByteArray &title : std::as_const(m_ignored)) {
        items.append(item(title, true));
        if (!isTrial())
            logImported(title);
    }
    return {.outcome = m_state ? BackupResult::Done : BackupResult::Failed,
            .copied = m_imported,
            .ignored = int(m_ignored.size()),
            .sentence = sentence(),
            .informativeText = explanation(),
            .items = items,
            .details = details(),
            .fileFailed = m_fileFailed || !m_state};
}

/// Syncs the staged titles and moves them into the data folder; one that cannot be moved is noted.
Result<> TitleRestore::place()
{
    if (const Result<> synced = m_staged->folder().syncFileSystem(); !synced)
        return Error{.path = mwqnAppSuppLoc, .reason = synced.error().reason};
    for (const qsizetype place : std::as_const(m_copied)) {
        const QByteArray &title = m_titles[place];
        const Result<> moved = m_staged->folder().move(stagedName(place), m_staged->parent(), title);
        if (!moved) {
            noteFailure(title, moved.error().reason);
            continue;
        }
        ++m_imported;
        logImported(title);
        m_restored.append(title);
    }
    return m_staged->parent().sync();
}

/// Keeps the files of the restored titles as what they came from, where nothing is known of them.
void TitleRestore::keepOriginals() const
{
    (void)Journal::ofDataFolder().change([this](Database &) -> Result<> {
        for (const QByteArray &title : m_restored) {
            const auto folder = m_staged->parent().openFolder(title);
            const auto pad = folder ? folder->read(title_folder::padFile.toUtf8()) : folder.error();
            if (!pad)
                continue;
            if (Result<> kept = originals::keep(titleOf(title), {*pad, title_folder::padFile.toString()},
                                                originals::Keeping::First);
                !kept)
                return kept;
        }
        return {};
    });
}

QString TitleRestore::sentence() const
{
    if (m_imported == 0)
        return TitleTransferText::tr("No software titles were imported.");
    const QString imported = TitleTransferText::tr("%n software titles were imported.", nullptr, m_imported);
    return m_ignored.isEmpty() ? imported
                               : imported + u'\n' +
                                     TitleTransferText::tr("%n software titles were ignored.", nullptr,
                                                           int(m_ignored.size()));
}

QString TitleRestore::explanation() const
{
    return m_imported > 0 && m_ignored.isEmpty()
               ? QString()
               : TitleTransferText::tr("Software titles are not imported if an item exists in the "
                                       "software list with the same "
                                       "name.");
}

} // namespace quillon
