#include "overview/title_deletion.h"

#include "overview/title_operations.h"
#include "platform/staged_folder.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "store/storage_status.h"
#include "store/title_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace quillon::title_operations {

namespace {

class TitleDeletionText
{
    Q_DECLARE_TR_FUNCTIONS(TitleDeletion)
};

Q_LOGGING_CATEGORY(log, "quillon.overview")

using deleted_items::File;

/// Larger titles (bytes) are kept without the files that the author put beside.
constexpr qsizetype mostBytes = 67'108'864;

bool isTitleFile(const QByteArray &name)
{
    return name == title_folder::padFile.toUtf8() || name == title_folder::summaryFile.toUtf8() ||
           name == title_folder::errorLog.toUtf8();
}

/// Adds the file @p name of @p folder to @p files; what is not kept is logged.
void take(const FolderHandle &folder, const FolderHandle::Entry &entry, qsizetype &room, QList<File> &files)
{
    const auto bytes = entry.kind == FolderHandle::Kind::File
                           ? folder.read(entry.name)
                           : Error{.reason = TitleDeletionText::tr("it is no file")};
    if (!bytes || bytes->size() > room) {
        const QString reason =
            bytes ? TitleDeletionText::tr("there is no room for it") : bytes.error().reason;
        qCWarning(log).noquote() << QFile::decodeName(entry.name)
                                 << "goes with the title for good:" << reason;
        return;
    }
    room -= bytes->size();
    files.append({entry.name, *bytes});
}

/// What the title's folder holds, its own files first.
QList<File> filesOf(const QString &name)
{
    QList<File> files;
    const auto path = title_folder::path(name);
    const auto data = FolderHandle::open(QDir::cleanPath(mwqnAppSuppLoc));
    const auto folder = path && data ? data->openFolder(QFile::encodeName(QFileInfo(*path).fileName()))
                                     : Result<FolderHandle>(data ? Error{} : data.error());
    const auto entries = folder ? folder->entries() : folder.error();
    if (!entries) {
        qCWarning(log).noquote() << name << "goes for good:" << entries.error().reason;
        return {};
    }
    qsizetype room = mostBytes;
    for (const bool own : {true, false}) {
        for (const FolderHandle::Entry &entry : *entries) {
            if (isTitleFile(entry.name) == own)
                take(*folder, entry, room, files);
        }
    }
    return files;
}

/// Whether the database of extras, which anybody could have changed, names a file of a folder.
bool isFileName(const QByteArray &name)
{
    return !name.isEmpty() && name != "." && name != ".." && !name.contains('/') && !name.contains('\0');
}

Result<> makeFolder(const QString &folderName, const QList<File> &files)
{
    auto staged = StagedFolder::in(QDir::cleanPath(mwqnAppSuppLoc));
    if (!staged)
        return staged.error();
    for (const File &file : files) {
        if (!isFileName(file.name))
            return Error{Error::Kind::Unintelligible, folderName,
                         TitleDeletionText::tr("a file of it has no name")};
        if (Result<> written = staged->folder().write(file.name, file.bytes); !written)
            return written;
    }
    return staged->putInPlace(folderName, StagedFolder::Content::Files);
}

} // namespace

Result<> deleteTitle(const QString &name)
{
    const QList<File> files = title_folder::exists(name) ? filesOf(name) : QList<File>();
    const auto kept =
        files.isEmpty() ? Result<deleted_items::Item>(Error{}) : deleted_items::keepTitle(name, files);
    Result<> deleted = AddDeleteImportEdit::deleteQnDataFile(name);
    if (kept && !deleted.isDone())
        (void)deleted_items::release(*kept, name);
    return deleted;
}

Result<> undeleteTitle(const deleted_items::Item &title, const QString &name)
{
    if (const NameVerdict verdict = judgeName(name); verdict != NameVerdict::Free)
        return Error{Error::Kind::Refused, name, sentence(verdict)};
    const auto files = deleted_items::filesOf(title);
    if (!files || files->isEmpty())
        return files ? Error{Error::Kind::Missing, name, TitleDeletionText::tr("nothing was kept of it")}
                     : files.error();
    Result<> made = makeFolder(QFileInfo(*title_folder::path(name)).fileName(), *files);
    if (!made.isDone())
        return made;
    forgetFailures(*title_folder::path(name));
    (void)deleted_items::release(title, name); // The status bar tells.
    return made;
}

} // namespace quillon::title_operations
