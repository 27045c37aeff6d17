#include "store/add_delete_import_edit.h"

#include "pad/pad_writer.h"
#include "platform/property_list.h"
#include "platform/staged_folder.h"
#include "store/process_state.h"
#include "store/site_list.h"
#include "store/storage_status.h"
#include "store/summary_file.h"
#include "store/title_folder.h"

#include <QDir>
#include <QFileInfo>

#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

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

/// The folder of a title that is listed. Where it lies in another one no title can be opened, and what was to
/// be done to it is told as not done.
std::optional<QString> listedFolder(const QString &name)
{
    std::optional<QString> folder = title_folder::path(name);
    if (!folder)
        reportFailure(mwqnAppSuppLoc + name, u"titles inside other folders cannot be changed"_s);
    return folder;
}

/// The files of a title, by their names.
using Files = std::array<std::pair<QStringView, QByteArray>, 3>;

/// Makes the title's folder with its files. It comes into being whole or, whatever happens, not at all; else
/// the reason.
FolderHandle::Failure makeTitle(const QString &folderName, const Files &files)
{
    auto made = StagedFolder::in(dataFolder());
    if (const auto *const reason = std::get_if<QString>(&made))
        return *reason;
    auto &staged = std::get<StagedFolder>(made);
    for (const auto &[fileName, bytes] : files) {
        if (auto failure = staged.folder().write(fileName.toUtf8(), bytes))
            return failure;
    }
    return staged.putInPlace(folderName, StagedFolder::Content::Files);
}

/// Replaces the files in a folder that is there already; the reason when that fails.
FolderHandle::Failure replaceFiles(const QString &folder, const Files &files)
{
    for (const auto &[fileName, bytes] : files) {
        if (const auto error = atomic_file::write(inFolder(folder, fileName), bytes))
            return error->reason;
    }
    return std::nullopt;
}

} // namespace

void AddDeleteImportEdit::checkAppSuppExists()
{
    const bool isNew = !QFileInfo::exists(mwqnAppSuppLoc);
    if (isNew && !QDir().mkpath(mwqnAppSuppLoc)) {
        reportFailure(dataFolder(), u"the data folder could not be made"_s);
        return;
    }
    forgetFailure(dataFolder());
    if (!isNew)
        return;
    for (const QStringView siteList : {site_list::userSites, site_list::ignoredSites})
        storeFile(mwqnAppSuppLoc + siteList, property_list::emptyText());
}

void AddDeleteImportEdit::removeUnfinished()
{
    const auto removeIn = [](const FolderHandle &folder, const QString &path) {
        for (const FolderHandle::Entry &entry : folder.entries()) {
            const QString name = QFile::decodeName(entry.name);
            if (name.startsWith(atomic_file::unfinishedPrefix) && !name.endsWith(title_folder::extension))
                atomic_file::removeAll(path + name);
        }
    };
    const auto data = FolderHandle::open(mwqnAppSuppLoc);
    if (!data)
        return;
    removeIn(*data, mwqnAppSuppLoc);
    for (const FolderHandle::Entry &entry : data->entries()) {
        const QString path = mwqnAppSuppLoc + QFile::decodeName(entry.name);
        if (const auto title =
                path.endsWith(title_folder::extension) ? data->openFolder(entry.name) : std::nullopt)
            removeIn(*title, path + u'/');
    }
}

bool AddDeleteImportEdit::createNewListing(const QString &name)
{
    return title_folder::exists(name) ||
           storeTitle(name, summary_file::emptyText().toUtf8(), pad_writer::skeleton());
}

bool AddDeleteImportEdit::importExistingFile(const QString &name, const QByteArray &content)
{
    return storeTitle(name, summary_file::textForImport(content).toUtf8(), content);
}

bool AddDeleteImportEdit::storeTitle(const QString &name, const QByteArray &summary, const QByteArray &pad)
{
    const std::optional<QString> folder = title_folder::path(name);
    if (!folder)
        return false;
    const Files files = {{{title_folder::summaryFile, summary},
                          {title_folder::padFile, pad},
                          {title_folder::errorLog, property_list::emptyText()}}};
    const QFileInfo there(*folder);
    if (const auto failure =
            there.isDir() ? replaceFiles(*folder, files) : makeTitle(there.fileName(), files)) {
        reportFailure(dataFolder(), u"%1: %2"_s.arg(there.fileName(), *failure));
        return false;
    }
    forgetFailures(*folder);
    forgetFailure(dataFolder());
    return true;
}

std::optional<QByteArray> AddDeleteImportEdit::returnDataObjectFor(QStringView key)
{
    if (!mwqnCurrentSWBundle)
        return std::nullopt;
    QStringView fileName = title_folder::errorLog;
    for (const TitleFile &file : titleFiles) {
        if (file.readKey == key)
            fileName = file.fileName;
    }
    return atomic_file::read(inFolder(*mwqnCurrentSWBundle, fileName));
}

bool AddDeleteImportEdit::writeToFile(QStringView key, const QByteArray &data)
{
    const std::optional<QString> folder = mwqnSelSW ? listedFolder(*mwqnSelSW) : std::nullopt;
    if (!folder)
        return false;
    for (const TitleFile &file : titleFiles) {
        if (file.readKey == key || file.capitalKey == key)
            return storeFile(inFolder(*folder, file.fileName), data);
    }
    return false;
}

bool AddDeleteImportEdit::writeErrors(const StringDictionary &errors)
{
    return writeToFile(u"error", property_list::write(errors));
}

bool AddDeleteImportEdit::renameExistingQnDataFile(const QString &oldName, const QString &newName)
{
    const std::optional<QString> from = listedFolder(oldName);
    const std::optional<QString> to = title_folder::path(newName);
    if (!from || !to || !title_folder::exists(oldName))
        return false;
    if (const auto error = atomic_file::moveFolder(*from, *to)) {
        reportFailure(*from, error->reason); // Mended when the title is renamed after all, or deleted.
        return false;
    }
    forgetFailures(*from);
    return true;
}

bool AddDeleteImportEdit::deleteQnDataFile(const QString &name)
{
    const std::optional<QString> folder = listedFolder(name);
    if (!folder || !title_folder::exists(name))
        return false;
    if (!atomic_file::removeAll(*folder)) {
        reportFailure(*folder, u"the title could not be deleted"_s);
        return false;
    }
    forgetFailures(*folder);
    return true;
}

std::optional<StringDictionary> AddDeleteImportEdit::returnUserSitesDict()
{
    return site_list::read(site_list::userSites);
}

std::optional<StringDictionary> AddDeleteImportEdit::returnIgnoredSitesDict()
{
    return site_list::read(site_list::ignoredSites);
}

} // namespace quillon
