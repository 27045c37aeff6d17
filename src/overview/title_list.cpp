#include "overview/title_list.h"

#include "platform/atomic_file.h"
#include "platform/folder_handle.h"
#include "platform/string_dictionary.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "store/title_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <algorithm>
#include <climits>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

Q_LOGGING_CATEGORY(log, "quillon.overview")

constexpr QStringView oldSummaryExtension = u".qnxmld";
constexpr QStringView oldPadExtension = u".qnxml";

/// What a walk through the data folder finds.
struct Found
{
    QList<Title> titles;
    QStringList oldFolders; ///< Of the older layout, each with its name's files in it, as relative paths.
};

Summary summaryIn(const std::optional<FolderHandle> &folder, const QString &name)
{
    static const QByteArray file = title_folder::summaryFile.toUtf8();
    const auto bytes = folder ? folder->read(file) : std::nullopt;
    // Where a link stands for the folder or the file, the path leads over it as for every other reader.
    return bytes ? summary_file::parse(*bytes) : loadSummary(name);
}

/// Adds to @p found what lies in @p folder at every depth; @p path leads to it from the data folder, with "/"
/// at its end, or is empty.
void walk(const FolderHandle &folder, const QString &path, Found &found)
{
    const QStringView parent = QStringView(path).chopped(path.isEmpty() ? 0 : 1);
    for (const FolderHandle::Entry &entry : folder.entries()) {
        const QString place = path + QFile::decodeName(entry.name);
        const auto inside =
            entry.kind == FolderHandle::Kind::Folder ? folder.openFolder(entry.name) : std::nullopt;
        if (place.endsWith(title_folder::extension) && place.size() > title_folder::extension.size()) {
            const QString name = place.chopped(title_folder::extension.size());
            found.titles.append({name, summaryIn(inside, name)});
        } else if (place.endsWith(oldSummaryExtension) && !parent.isEmpty() &&
                   !parent.endsWith(title_folder::extension)) {
            found.oldFolders.append(parent.toString());
        }
        // No path leads deeper than this, so nothing there can be a title that is opened.
        if (inside && place.size() < PATH_MAX)
            walk(*inside, place + u'/', found);
    }
}

Found walkDataFolder()
{
    Found found;
    if (const auto dataFolder = FolderHandle::open(mwqnAppSuppLoc))
        walk(*dataFolder, {}, found);
    return found;
}

/// Makes a title folder of @p folder. What else lies in the old folder stays there.
void convertOldFolder(const QString &folder)
{
    const QString oldPath = mwqnAppSuppLoc + folder;
    const QString base = oldPath + u'/' + folder;
    const QFileInfo padFile(base + oldPadExtension);
    const QFileInfo summaryFile(base + oldSummaryExtension);
    if (!summaryFile.exists()) // Some other file of that kind, in a folder that is no title's.
        return;
    const auto summary = atomic_file::read(summaryFile.filePath());
    const auto pad = atomic_file::read(padFile.filePath());
    const bool isPadLost = !pad && (padFile.exists() || padFile.isSymLink());
    if (title_folder::exists(folder) || !summary || isPadLost) {
        qCWarning(log).noquote() << oldPath << "is left as it is: a title has its name, or it cannot be read";
        return;
    }
    if (!AddDeleteImportEdit::storeTitle(folder, *summary, pad.value_or(QByteArray())))
        return;
    QFile::remove(base + oldSummaryExtension);
    QFile::remove(base + oldPadExtension);
    QDir().rmdir(oldPath);
}

} // namespace

QList<Title> loadTitles(OldLayout oldLayout)
{
    if (const auto failure = dataFolderFailure())
        qCWarning(log).noquote() << *failure;
    Found found = walkDataFolder();
    if (oldLayout == OldLayout::Convert && !found.oldFolders.isEmpty()) {
        for (const QString &folder : std::as_const(found.oldFolders)) {
            if (title_folder::isUsableName(folder)) // Elsewhere no title could be opened.
                convertOldFolder(folder);
        }
        found = walkDataFolder();
    }
    std::ranges::sort(found.titles, CaseInsensitiveOrder(), &Title::name);
    return found.titles;
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
    const auto bytes =
        atomic_file::read(mwqnAppSuppLoc + name + title_folder::extension + u'/' + title_folder::summaryFile);
    return bytes ? summary_file::parse(*bytes) : Summary();
}

} // namespace quillon
