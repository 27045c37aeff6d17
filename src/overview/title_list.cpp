#include "overview/title_list.h"

#include "journal/originals.h"
#include "platform/atomic_file.h"
#include "platform/folder_handle.h"
#include "platform/string_dictionary.h"
#include "platform/text_decoding.h"
#include "platform/unfinished_name.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "store/storage_status.h"
#include "store/title_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

#include <algorithm>
#include <climits>
#include <future>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class TitleListText
{
    Q_DECLARE_TR_FUNCTIONS(TitleList)
};

Q_LOGGING_CATEGORY(log, "quillon.overview")

constexpr QStringView oldSummaryExtension = u".qnxmld";
constexpr QStringView oldPadExtension = u".qnxml";

/// What a walk through the data folder finds.
struct Found
{
    TitleList list;
    QStringList oldFolders;  ///< Of the older layout, each with its name's files in it, as relative paths.
    bool hasChanged = false; ///< A folder has gone since it was listed.
};

Result<QByteArray> storedSummary(const QString &name)
{
    return atomic_file::read(mwqnAppSuppLoc + name + title_folder::extension + u'/' +
                             title_folder::summaryFile);
}

/// The summary of the title @p name, whose folder is @p folder; what cannot be read is among the @p failures.
Summary summaryIn(const std::optional<FolderHandle> &folder, const QString &name, QList<Error> &failures)
{
    static const QByteArray file = title_folder::summaryFile.toUtf8();
    Result<QByteArray> bytes = folder ? folder->read(file) : storedSummary(name);
    // Where a link stands for the file, the path leads over it as for every other reader.
    if (folder && bytes.isError(Error::Kind::Unreadable))
        bytes = storedSummary(name);
    if (bytes.isError(Error::Kind::Unreadable))
        failures.append(bytes.error());
    return summary_file::parse(bytes.valueOr({}));
}

/// Notes in @p found that a folder could not be opened or listed.
void note(const Error &error, Found &found)
{
    if (error.kind == Error::Kind::Missing)
        found.hasChanged = true;
    else
        found.list.failures.append(error);
}

/// The folder that @p entry of @p folder is; none for anything else, or when it cannot be opened.
std::optional<FolderHandle> folderIn(const FolderHandle &folder, const FolderHandle::Entry &entry,
                                     Found &found)
{
    // What is half made or half removed holds no titles.
    if (entry.kind != FolderHandle::Kind::Folder ||
        unfinished_name::is(entry.name, unfinished_name::folder) ||
        unfinished_name::is(entry.name, unfinished_name::deleted))
        return std::nullopt;
    auto inside = folder.openFolder(entry.name);
    if (inside)
        return *std::move(inside);
    note(inside.error(), found);
    return std::nullopt;
}

/// Adds to @p found what lies in @p folder at every depth; @p path leads to it from the data folder, with "/"
/// at its end, or is empty.
Result<> walk(const FolderHandle &folder, const QString &path, Found &found)
{
    const auto entries = folder.entries();
    if (!entries)
        return entries.error();
    const QStringView parent = QStringView(path).chopped(path.isEmpty() ? 0 : 1);
    for (const FolderHandle::Entry &entry : *entries) {
        const QString place = path + exactText(entry.name);
        const auto inside = folderIn(folder, entry, found);
        if (place.endsWith(title_folder::extension) && place.size() > title_folder::extension.size()) {
            const QString name = place.chopped(title_folder::extension.size());
            found.list.titles.append({name, summaryIn(inside, name, found.list.failures)});
        } else if (place.endsWith(oldSummaryExtension) && !parent.isEmpty() &&
                   !parent.endsWith(title_folder::extension)) {
            found.oldFolders.append(parent.toString());
        }
        // No path leads deeper than this, so nothing there can be a title that is opened.
        if (!inside || place.size() >= PATH_MAX)
            continue;
        if (const Result<> walked = walk(*inside, place + u'/', found); !walked)
            note(walked.error(), found);
    }
    return {};
}

Result<Found> walkDataFolder()
{
    const auto dataFolder = FolderHandle::open(mwqnAppSuppLoc);
    if (dataFolder.isError(Error::Kind::Missing))
        return Found();
    if (!dataFolder)
        return dataFolder.error();
    // Another program may be renaming what was listed; so the list is taken anew.
    static constexpr int mostTurns = 20;
    for (int turn = 1;; ++turn) {
        Found found;
        if (const Result<> walked = walk(*dataFolder, {}, found); !walked)
            return walked.error();
        if (!found.hasChanged || turn == mostTurns)
            return found;
    }
}

/// What readTitlesAhead() has begun and nobody has taken.
std::future<Result<Found>> foundAhead;

/// The two files of a title in a folder of the older layout.
struct OldTitle
{
    QString folder;
    QString summaryPath;
    QString padPath;
    Result<QByteArray> summary;
    Result<QByteArray> pad;
};

OldTitle oldTitle(const QString &name)
{
    const QString folder = mwqnAppSuppLoc + name;
    const QString base = folder + u'/' + name;
    const QString summary = base + oldSummaryExtension;
    const QString pad = base + oldPadExtension;
    return {folder, summary, pad, atomic_file::read(summary), atomic_file::read(pad)};
}

/// Whether a title folder holds just what @p old has: then it was made of it, and what was left to do is to
/// remove the old one.
bool isConverted(const OldTitle &old, const QString &titleFolder)
{
    const auto holds = [&titleFolder](QStringView file, const Result<QByteArray> &bytes) {
        return atomic_file::read(titleFolder + u'/' + file) == bytes.valueOr({});
    };
    return holds(title_folder::summaryFile, old.summary) &&
           (old.pad.isError(Error::Kind::Missing) || holds(title_folder::padFile, old.pad));
}

/// Removes the files of @p old, the summary last, for by that it is known. What else lies in its folder stays
/// there. Files that came back with a loss of power would be in the way of a title that was edited since.
Result<> removeOld(const OldTitle &old)
{
    for (const QString &path : {old.padPath, old.summaryPath}) {
        if (Result<> removed = atomic_file::removeAll(path); !removed && QFileInfo::exists(path))
            return removed;
    }
    return atomic_file::syncEntry(QDir().rmdir(old.folder) ? old.folder : old.summaryPath);
}

/// Makes a title folder of the folder @p name.
Result<> convertOldFolder(const QString &name)
{
    const OldTitle old = oldTitle(name);
    if (old.summary.isError(
            Error::Kind::Missing)) // Some other file of that kind, in a folder that is no title's.
        return {};
    if (!old.summary)
        return old.summary.error();
    if (!old.pad && !old.pad.isError(Error::Kind::Missing))
        return old.pad.error();
    if (!title_folder::exists(name)) {
        if (Result<> stored = AddDeleteImportEdit::storeTitle(name, *old.summary, old.pad.valueOr({}));
            !stored)
            return stored;
        if (old.pad)
            (void)originals::keep(name, {*old.pad, QFileInfo(old.padPath).fileName()},
                                  originals::Keeping::Newest);
    } else if (!isConverted(old, *title_folder::path(name))) {
        return Error{Error::Kind::Refused, old.folder,
                     TitleListText::tr("it is left as it is: a title has its name")};
    }
    return removeOld(old);
}

/// Makes title folders of @p oldFolders; what could not be done is among the @p failures.
void convert(const QStringList &oldFolders, QList<Error> &failures)
{
    for (const QString &folder : oldFolders) {
        if (!title_folder::isUsableName(folder)) // Elsewhere no title could be opened.
            continue;
        if (const Result<> converted = convertOldFolder(folder); !converted)
            failures.append(converted.error());
    }
}

} // namespace

void readTitlesAhead()
{
    foundAhead = std::async(walkDataFolder);
}

Result<TitleList> loadTitles(OldLayout oldLayout)
{
    Result<Found> found = foundAhead.valid() ? foundAhead.get() : walkDataFolder();
    QList<Error> failures;
    if (found && oldLayout == OldLayout::Convert && !found->oldFolders.isEmpty()) {
        convert(found->oldFolders, failures);
        found = walkDataFolder();
    }
    if (!found)
        return found.error();
    found->list.failures += failures;
    found->list.hasOldLayout = !found->oldFolders.isEmpty();
    for (const Error &failure : std::as_const(found->list.failures))
        qCWarning(log).noquote() << failureLine(failure);
    std::ranges::sort(found->list.titles, CaseInsensitiveOrder(), &Title::name);
    return found->list;
}

Result<Summary> loadSummary(const QString &name)
{
    const auto bytes = storedSummary(name);
    return bytes ? summary_file::parse(*bytes) : Result<Summary>(bytes.error());
}

} // namespace quillon
