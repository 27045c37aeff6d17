#include "overview/title_list.h"

#include "platform/atomic_file.h"
#include "platform/property_list.h"
#include "platform/string_dictionary.h"
#include "store/process_state.h"
#include "store/storage_status.h"
#include "store/title_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <algorithm>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

Q_LOGGING_CATEGORY(log, "quillon.overview")

constexpr QStringView oldSummaryExtension = u".qnxmld";
constexpr QStringView oldPadExtension = u".qnxml";

/// What a walk through the data folder finds, as paths relative to it.
struct Found
{
    QStringList titleFolders;
    QStringList oldFolders; ///< Folders of the older layout, each with its name's files in it.
};

Found walkDataFolder()
{
    namespace fs = std::filesystem;
    const fs::path top(QFile::encodeName(mwqnAppSuppLoc).toStdString());
    std::error_code error;
    Found found;
    fs::recursive_directory_iterator walk(top, fs::directory_options::skip_permission_denied, error);
    for (; !error && walk != fs::recursive_directory_iterator(); walk.increment(error)) {
        const std::string &native = walk->path().native();
        const QString entry = QFile::decodeName(native.c_str()).sliced(mwqnAppSuppLoc.size());
        if (entry.endsWith(title_folder::extension) && entry.size() > title_folder::extension.size()) {
            found.titleFolders.append(entry);
        } else if (entry.endsWith(oldSummaryExtension)) {
            const QString folder = entry.left(qMax(entry.lastIndexOf(u'/'), qsizetype(0)));
            if (!folder.isEmpty() && !folder.endsWith(title_folder::extension))
                found.oldFolders.append(folder);
        }
    }
    return found;
}

/// Whether there can be a title @p name; says so in the log when not.
bool isListed(const QString &name)
{
    const bool isUsable = title_folder::isUsableName(name);
    if (!isUsable)
        qCWarning(log).noquote() << "not a title's folder:" << name;
    return isUsable;
}

/// Makes a title folder of @p folder. What else lies in the old folder stays there.
void convertOldFolder(const QString &folder)
{
    const QString oldPath = mwqnAppSuppLoc + folder;
    const QString newPath = oldPath + title_folder::extension;
    const QString base = oldPath + u'/' + QFileInfo(folder).fileName();
    const auto summary = atomic_file::read(base + oldSummaryExtension);
    const auto pad = atomic_file::read(base + oldPadExtension);
    if (!summary || QFileInfo::exists(newPath))
        return;
    if (const auto error = atomic_file::makeFolder(newPath)) {
        reportFailure(error->path, error->reason);
        return;
    }
    const bool stored = storeFile(newPath + u'/' + title_folder::summaryFile, *summary) &&
                        storeFile(newPath + u'/' + title_folder::padFile, pad.value_or(QByteArray())) &&
                        storeFile(newPath + u'/' + title_folder::errorLog, property_list::emptyText());
    if (!stored) {
        QDir(newPath).removeRecursively();
        return;
    }
    QFile::remove(base + oldSummaryExtension);
    QFile::remove(base + oldPadExtension);
    QDir().rmdir(oldPath);
}

Summary summaryIn(const QString &folder)
{
    const auto bytes = atomic_file::read(folder + u'/' + title_folder::summaryFile);
    return bytes ? summary_file::parse(*bytes) : Summary();
}

} // namespace

QList<Title> loadTitles(OldLayout oldLayout)
{
    if (const auto failure = dataFolderFailure())
        qCWarning(log).noquote() << *failure;
    Found found = walkDataFolder();
    if (oldLayout == OldLayout::Convert && !found.oldFolders.isEmpty()) {
        for (const QString &folder : std::as_const(found.oldFolders)) {
            if (isListed(folder))
                convertOldFolder(folder);
        }
        found = walkDataFolder();
    }
    QStringList names;
    names.reserve(found.titleFolders.size());
    for (const QString &folder : std::as_const(found.titleFolders))
        names.append(folder.chopped(title_folder::extension.size()));
    names.removeIf([](const QString &name) { return !isListed(name); });
    std::sort(names.begin(), names.end(), CaseInsensitiveOrder());

    QList<Title> titles;
    titles.reserve(names.size());
    for (const QString &name : std::as_const(names))
        titles.append({name, loadSummary(name)});
    return titles;
}

std::optional<QString> dataFolderFailure()
{
    std::error_code error;
    const std::filesystem::directory_iterator look(QFile::encodeName(mwqnAppSuppLoc).toStdString(), error);
    if (!error || error == std::errc::no_such_file_or_directory)
        return std::nullopt;
    return u"%1 cannot be listed: %2"_s.arg(mwqnAppSuppLoc, QString::fromStdString(error.message()));
}

Summary loadSummary(const QString &name)
{
    return summaryIn(mwqnAppSuppLoc + name + title_folder::extension);
}

} // namespace quillon
