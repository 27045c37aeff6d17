#include "store/add_delete_import_edit.h"

#include "pad/pad_document.h"
#include "pad/pad_writer.h"
#include "platform/atomic_file.h"
#include "platform/property_list.h"
#include "platform/staged_folder.h"
#include "platform/unfinished_name.h"
#include "store/process_state.h"
#include "store/site_images.h"
#include "store/site_list.h"
#include "store/storage_status.h"
#include "store/summary_file.h"
#include "store/title_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class AddDeleteImportEditText
{
    Q_DECLARE_TR_FUNCTIONS(AddDeleteImportEdit)
};

Q_LOGGING_CATEGORY(log, "quillon.store")

/// A file of a title, with the key that reads it and the two that write it.
struct TitleFile
{
    QStringView readKey;
    QStringView capitalKey;
    QStringView fileName;
};

constexpr std::array<TitleFile, 3> titleFiles = {{
    {u"data", u"Data", title_folder::padFile},
    {u"general", u"General", title_folder::summaryFile},
    {u"error", u"Error", title_folder::errorLog},
}};

QString inFolder(const QString &folder, QStringView fileName)
{
    return folder + u'/' + fileName;
}

QString dataFolder()
{
    return QDir::cleanPath(mwqnAppSuppLoc);
}

/// The data folder itself, whose failures are those of its list of titles.
Error ofDataFolder(const Error &error)
{
    return {error.kind, dataFolder(), error.reason};
}

Error refused(const QString &path, const QString &reason)
{
    return {Error::Kind::Refused, path, reason};
}

/// The folder of a title that is listed. One inside another folder is listed, but cannot be opened: then what
/// was to be done to it is told as not done.
Result<QString> listedFolder(const QString &name)
{
    if (std::optional<QString> folder = title_folder::path(name))
        return *std::move(folder);
    const Error error = refused(mwqnAppSuppLoc + name,
                                AddDeleteImportEditText::tr("titles inside other folders cannot be changed"));
    reportFailure(error);
    return error;
}

/// The file of the selected title that @p key writes.
Result<QString> selectedFile(QStringView key)
{
    if (!mwqnSelSW)
        return refused({}, AddDeleteImportEditText::tr("no title is selected"));
    Result<QString> folder = listedFolder(*mwqnSelSW);
    if (!folder)
        return folder;
    for (const TitleFile &file : titleFiles) {
        if (file.readKey == key || file.capitalKey == key)
            return inFolder(*folder, file.fileName);
    }
    return refused(*folder, AddDeleteImportEditText::tr("a title has no file %1").arg(key));
}

/// The files of a title, by their names.
using Files = std::array<std::pair<QStringView, QByteArray>, 3>;

/// Makes the title's folder with its files. It comes into being whole or, whatever happens, not at all.
Result<> makeTitle(const QString &folderName, const Files &files)
{
    auto staged = StagedFolder::in(dataFolder());
    if (!staged)
        return staged.error();
    for (const auto &[fileName, bytes] : files) {
        if (Result<> written = staged->folder().write(fileName.toUtf8(), bytes); !written)
            return written;
    }
    return staged->putInPlace(folderName, StagedFolder::Content::Files);
}

/// Replaces the files in a folder that is there already.
Result<> replaceFiles(const QString &folder, const Files &files)
{
    for (const auto &[fileName, bytes] : files) {
        if (Result<> written = atomic_file::write(inFolder(folder, fileName), bytes); !written)
            return written;
    }
    return {};
}

/// Forgets what failed in the data folder itself once its list of names is on the disk.
void settleDataFolder()
{
    if (mwqnFailedWrites.contains(dataFolder()) && atomic_file::syncEntry(mwqnAppSuppLoc))
        forgetFailure(dataFolder());
}

/// Gives an entry of the data folder another name.
Result<> moved(const QString &path, const QByteArray &to)
{
    const auto data = FolderHandle::open(dataFolder());
    if (!data)
        return Error{.path = path, .reason = data.error().reason};
    const Result<> moved = data->move(QFile::encodeName(QFileInfo(path).fileName()), *data, to);
    return moved ? data->sync() : moved;
}

/// Removes what has an unfinished name; what cannot be removed now goes at the next start.
void removeLeft(const QString &path)
{
    if (const Result<> removed = atomic_file::removeAll(path); !removed)
        qCWarning(log).noquote() << path << "stays:" << removed.error().reason;
}

void removeUnfinishedIn(const FolderHandle &folder)
{
    const auto entries = folder.entries();
    if (!entries)
        return reportFailure(entries.error());
    for (const FolderHandle::Entry &entry : *entries) {
        const auto isLeft = [&entry](QByteArrayView end) { return unfinished_name::is(entry.name, end); };
        if (isLeft(unfinished_name::file) || isLeft(unfinished_name::folder) ||
            isLeft(unfinished_name::deleted))
            removeLeft(inFolder(folder.path(), QFile::decodeName(entry.name)));
    }
}

} // namespace

Result<> AddDeleteImportEdit::checkAppSuppExists()
{
    const auto there = FolderHandle::open(dataFolder());
    if (there)
        settleDataFolder();
    if (!there.isError(Error::Kind::Missing))
        return there ? Result<>() : reported(dataFolder(), there.error());
    if (!QDir().mkpath(mwqnAppSuppLoc))
        return reported(dataFolder(),
                        Error{.path = dataFolder(),
                              .reason = AddDeleteImportEditText::tr("the data folder could not be made")});
    forgetFailure(dataFolder());
    Result<> made;
    for (const QStringView siteList : {site_list::userSites, site_list::ignoredSites}) {
        if (const auto sites = site_list::read(siteList); !sites)
            made = sites.error();
    }
    return made;
}

void AddDeleteImportEdit::removeUnfinished()
{
    const auto data = FolderHandle::open(dataFolder());
    if (!data)
        return;
    removeUnfinishedIn(*data);
    const auto entries = data->entries();
    if (!entries)
        return;
    for (const FolderHandle::Entry &entry : *entries) {
        const QString name = QFile::decodeName(entry.name);
        if (!name.endsWith(title_folder::extension) && mwqnAppSuppLoc + name + u'/' != site_images::folder())
            continue;
        if (const auto title = data->openFolder(entry.name))
            removeUnfinishedIn(*title);
    }
}

Result<> AddDeleteImportEdit::createNewListing(const QString &name)
{
    const Result<bool> isThere = title_folder::isThere(name);
    if (!isThere)
        return reported(dataFolder(), ofDataFolder(isThere.error()));
    if (*isThere)
        return {};
    return storeTitle(name, summary_file::emptyText().toUtf8(), pad_writer::skeleton());
}

Result<> AddDeleteImportEdit::importExistingFile(const QString &name, const PadDocument &content)
{
    return storeTitle(name, summary_file::textForImport(content).toUtf8(), content.text().toUtf8());
}

Result<> AddDeleteImportEdit::storeTitle(const QString &name, const QByteArray &summary,
                                         const QByteArray &pad)
{
    const std::optional<QString> folder = title_folder::path(name);
    if (!folder)
        return refused(mwqnAppSuppLoc + name, AddDeleteImportEditText::tr("no folder can have this name"));
    const Files files = {{{title_folder::summaryFile, summary},
                          {title_folder::padFile, pad},
                          {title_folder::errorLog, property_list::emptyText()}}};
    const QFileInfo there(*folder);
    Result<> stored = there.isDir() ? replaceFiles(*folder, files) : makeTitle(there.fileName(), files);
    if (stored.isDone())
        forgetFailures(*folder);
    if (!stored) {
        const QString reason = u"%1: %2"_s.arg(there.fileName(), stored.error().reason);
        stored = Error{stored.error().kind, dataFolder(), reason};
    }
    return reported(dataFolder(), stored);
}

Result<QByteArray> AddDeleteImportEdit::returnDataObjectFor(QStringView key)
{
    if (!mwqnCurrentSWBundle)
        return Error{.kind = Error::Kind::Missing,
                     .reason = AddDeleteImportEditText::tr("no title is selected")};
    QStringView fileName = title_folder::errorLog;
    for (const TitleFile &file : titleFiles) {
        if (file.readKey == key)
            fileName = file.fileName;
    }
    return atomic_file::read(inFolder(*mwqnCurrentSWBundle, fileName));
}

Result<> AddDeleteImportEdit::writeToFile(QStringView key, const QByteArray &data)
{
    const Result<QString> path = selectedFile(key);
    return path ? storeFile(*path, data) : path.error();
}

Result<> AddDeleteImportEdit::writeToFile(QStringView key, const QByteArray &data,
                                          const Result<QByteArray> &old)
{
    const Result<QString> path = selectedFile(key);
    return path ? storeFile(*path, data, old) : path.error();
}

Result<> AddDeleteImportEdit::writeErrors(const StringDictionary &errors)
{
    return writeToFile(u"error", property_list::write(errors));
}

Result<> AddDeleteImportEdit::renameExistingQnDataFile(const QString &oldName, const QString &newName)
{
    const Result<QString> from = listedFolder(oldName);
    const std::optional<QString> to = title_folder::path(newName);
    if (!from)
        return from.error();
    if (!to || !title_folder::exists(oldName))
        return refused(
            *from, AddDeleteImportEditText::tr("there is no such title, or no folder can have the new name"));
    Result<> renamed = moved(*from, QFile::encodeName(QFileInfo(*to).fileName()));
    if (!renamed.isDone())
        return reported(*from, Error{renamed.error().kind, *from, renamed.error().reason});
    forgetFailures(*from);
    return renamed ? renamed : reported(dataFolder(), ofDataFolder(renamed.error()));
}

Result<> AddDeleteImportEdit::deleteQnDataFile(const QString &name)
{
    const Result<QString> folder = listedFolder(name);
    if (!folder)
        return folder.error();
    if (!title_folder::exists(name))
        return refused(*folder, AddDeleteImportEditText::tr("there is no such title"));
    // Renamed first, so that no crash leaves half of a title; removed when no crash can bring it back.
    const QByteArray gone = unfinished_name::make(unfinished_name::deleted);
    const Result<> hidden = moved(*folder, gone);
    if (!hidden.isDone())
        return reported(*folder, Error{hidden.error().kind, *folder, hidden.error().reason});
    forgetFailures(*folder);
    if (!hidden)
        return reported(dataFolder(), ofDataFolder(hidden.error()));
    removeLeft(inFolder(dataFolder(), QFile::decodeName(gone)));
    return {};
}

Result<StringDictionary> AddDeleteImportEdit::returnUserSitesDict()
{
    return site_list::read(site_list::userSites);
}

Result<StringDictionary> AddDeleteImportEdit::returnIgnoredSitesDict()
{
    return site_list::read(site_list::ignoredSites);
}

} // namespace quillon
