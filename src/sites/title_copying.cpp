#include "sites/title_copying.h"

#include "platform/text_decoding.h"
#include "sites/backups.h"
#include "store/title_folder.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

Q_LOGGING_CATEGORY(backupsLog, "quillon.backups")

namespace {

constexpr std::array<QStringView, 3> titleFiles = {title_folder::padFile, title_folder::summaryFile,
                                                   title_folder::errorLog};

bool isTitleFolder(const QByteArray &name)
{
    const QString entry = exactText(name);
    return entry.endsWith(title_folder::extension) &&
           title_folder::isUsableName(QStringView(entry).chopped(title_folder::extension.size()));
}

} // namespace

bool TitleCopying::step()
{
    if (!m_state || m_next == m_titles.size())
        return false;
    m_state = copyTitle(m_next++);
    return m_state && m_next < m_titles.size();
}

Result<> TitleCopying::open(const QString &source, const QString &parent)
{
    auto folder = FolderHandle::open(source);
    if (!folder)
        return folder.error();
    m_source.emplace(*std::move(folder));
    if (isTrial())
        return lookAt(parent);
    auto staged = StagedFolder::in(parent);
    if (!staged)
        return staged.error();
    m_staged.emplace(*std::move(staged));
    return {};
}

/// Opens the folder @p parent, which a trial may find missing.
Result<> TitleCopying::lookAt(const QString &parent)
{
    auto folder = FolderHandle::open(parent);
    if (!folder)
        return folder.isError(Error::Kind::Missing) ? Result<>() : folder.error();
    m_parent.emplace(*std::move(folder));
    return {};
}

Result<bool> TitleCopying::isInParent(const QByteArray &name) const
{
    return m_staged ? m_staged->parent().isThere(name) : m_parent ? m_parent->isThere(name) : false;
}

Result<QList<QByteArray>> TitleCopying::findTitles()
{
    QList<QByteArray> found;
    const auto entries = m_source->entries();
    if (!entries)
        return entries.error();
    for (const FolderHandle::Entry &entry : *entries) {
        const bool isTitle = isTitleFolder(entry.name);
        if (isTitle && entry.kind == FolderHandle::Kind::Folder)
            found.append(entry.name);
        else if (isTitle)
            note(entry.name, TitleTransferText::tr("it is no folder"));
        else if (entry.kind == FolderHandle::Kind::Folder)
            noteTitlesInside(entry.name);
    }
    return found;
}

void TitleCopying::noteTitlesInside(const QByteArray &folder)
{
    const auto inside = m_source->openFolder(folder);
    const auto entries = inside ? inside->entries() : inside.error();
    if (!entries)
        return noteFailure(folder, entries.error().reason);
    for (const FolderHandle::Entry &entry : *entries) {
        if (isTitleFolder(entry.name))
            note(folder + '/' + entry.name, TitleTransferText::tr("it lies in another folder"));
    }
}

/// Copies the title at @p place; a trial reads it only. What of it cannot be read is noted; the error is that
/// of writing.
Result<> TitleCopying::copyTitle(qsizetype place)
{
    const QByteArray &name = m_titles[place];
    const auto from = m_source->openFolder(name);
    if (!from) {
        noteFailure(name, from.error().reason);
        return {};
    }
    noteTitlesInside(name);
    std::optional<FolderHandle> to;
    if (!isTrial()) {
        auto made = m_staged->folder().makeFolder(stagedName(place));
        if (!made)
            return Error{.path = exactText(name), .reason = made.error().reason};
        to.emplace(*std::move(made));
    }
    if (Result<> copied = copyFiles(name, *from, to ? &*to : nullptr); !copied)
        return copied;
    m_copied.append(place);
    return {};
}

/// Copies the files of @p title; without @p to they are only read.
Result<> TitleCopying::copyFiles(const QByteArray &title, const FolderHandle &from, const FolderHandle *to)
{
    for (const QStringView titleFile : titleFiles) {
        const QByteArray file = title + '/' + titleFile.toUtf8();
        const auto bytes = from.read(titleFile.toUtf8());
        if (bytes.isError(Error::Kind::Missing))
            note(file, TitleTransferText::tr("it is missing"));
        else if (!bytes)
            noteFailure(file, bytes.error().reason);
        else if (const Result<> written = to ? to->write(titleFile.toUtf8(), *bytes) : Result<>(); !written)
            return Error{.path = exactText(file), .reason = written.error().reason};
    }
    return {};
}

void TitleCopying::note(const QByteArray &entry, const QString &reason)
{
    const QString line = TitleTransferText::tr("%1 was passed over: %2").arg(exactText(entry), reason);
    qCWarning(backupsLog).noquote() << line;
    m_notes.append(line);
    const auto older = m_older.isEmpty() ? Result<FolderHandle>(Error{}) : FolderHandle::open(m_older);
    m_fileFailed = m_fileFailed || (older && older->exists(entry));
}

void TitleCopying::noteFailure(const QByteArray &entry, const QString &reason)
{
    m_fileFailed = true;
    note(entry, reason);
}

QStringList TitleCopying::details() const
{
    return m_state ? m_notes : QStringList{backups::detail(m_state.error())} + m_notes;
}

QString TitleCopying::titleOf(const QByteArray &folder)
{
    return exactText(folder.chopped(title_folder::extension.size()));
}

BackupItem TitleCopying::item(const QByteArray &folder, bool isKept)
{
    return {.kind = BackupItem::Title, .name = titleOf(folder), .isKept = isKept};
}

} // namespace quillon
