#include "sites/site_renaming.h"

#include "journal/form_fields.h"
#include "journal/journal.h"
#include "journal/ledger.h"
#include "journal/site_knowledge.h"
#include "platform/atomic_file.h"
#include "platform/folder_handle.h"
#include "platform/regex.h"
#include "platform/text_decoding.h"
#include "store/process_state.h"
#include "store/site_images.h"
#include "store/storage_status.h"
#include "store/summary_file.h"
#include "store/title_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class SiteRenamingText
{
    Q_DECLARE_TR_FUNCTIONS(SiteRenaming)
};

QStringList marks(const QByteArray &summary)
{
    QString sites = summary_file::parse(summary).sites.value_or(QString());
    while (sites.endsWith(u','))
        sites.chop(1);
    return sites.split(u',');
}

/// The program's picture of @p site among its @p images; they are files to Qt alone.
std::optional<QByteArray> programImage(const QString &site, const QString &images)
{
    QFile file(site_images::programImage(site, images));
    return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

Result<QStringList> titleFolders()
{
    const auto dataFolder = FolderHandle::open(mwqnAppSuppLoc);
    const auto entries = dataFolder ? dataFolder->entries() : dataFolder.error();
    if (!entries)
        return entries.error();
    QStringList folders;
    for (const FolderHandle::Entry &entry : *entries) {
        const QString path = mwqnAppSuppLoc + exactText(entry.name);
        if (path.endsWith(title_folder::extension))
            folders.append(path);
    }
    return folders;
}

QString summaryPath(const QString &titleFolder)
{
    return titleFolder + u'/' + title_folder::summaryFile;
}

Result<> renameMark(const QString &titleFolder, const QString &from, const QString &to)
{
    const QString path = summaryPath(titleFolder);
    const auto bytes = atomic_file::read(path);
    if (bytes.isError(Error::Kind::Missing))
        return {};
    if (!bytes)
        return reported(path, bytes.error());
    const QString text = decodedXmlText(*bytes);
    const QString renamed = withRenamedMark(text, from, to);
    return renamed == text ? Result<>() : storeFile(path, renamed.toUtf8(), bytes);
}

/// What cannot be renamed there is told in the status bar.
void renameInJournal(const QString &from, const QString &to)
{
    (void)Journal::ofDataFolder().changeExisting([&](Database &database) -> Result<> {
        for (const auto rename : {ledger::renameSite, site_knowledge::renameSite, form_fields::renameSite}) {
            if (Result<> renamed = rename(database, from, to); !renamed)
                return renamed;
        }
        return {};
    });
}

Result<> removePicture(const QString &path)
{
    QFile file(path);
    if (file.remove())
        return reported(path, atomic_file::syncEntry(path));
    return reported(path, file.exists() ? Error{.path = path, .reason = file.errorString()} : Result<>());
}

} // namespace

QString withRenamedMark(const QString &summary, const QString &from, const QString &to)
{
    if (!marks(summary.toUtf8()).contains(from))
        return summary;
    struct Neighbours
    {
        QStringView before;
        QStringView after;
    };
    static constexpr std::array<Neighbours, 3> patterns = {{{u">", u","}, {u",", u","}, {u",", u"<"}}};
    QString text = summary;
    for (const auto &[before, after] : patterns)
        text = Regex(QString(before + from + after)).replaceAll(text, QString(before + to + after));
    return text;
}

Result<bool> isMarkedAnywhere(const QString &site)
{
    const auto folders = titleFolders();
    if (!folders)
        return folders.error();
    for (const QString &folder : *folders) {
        const auto bytes = atomic_file::read(summaryPath(folder));
        if (bytes.isError(Error::Kind::Unreadable))
            return bytes.error();
        if (bytes && marks(*bytes).contains(site))
            return true;
    }
    return false;
}

Result<> renameSite(const QString &from, const QString &to)
{
    if (from == to)
        return {};
    const auto folders = titleFolders();
    if (!folders)
        return reported(mwqnAppSuppLoc, folders.error());
    renameInJournal(from, to);
    Result<> outcome;
    for (const QString &folder : *folders) {
        if (Result<> renamed = renameMark(folder, from, to); !renamed.isDone())
            outcome = std::move(renamed);
    }
    return folders->isEmpty() || !outcome ? outcome : renameSiteImage(from, to);
}

Result<> renameSiteImage(const QString &from, const QString &to, const QString &programImages)
{
    if (from == to)
        return {};
    const QString folder = QDir::cleanPath(site_images::folder());
    if (!QDir().mkpath(folder))
        return reported(
            folder, Error{.path = folder, .reason = SiteRenamingText::tr("the folder could not be made")});
    forgetFailure(folder);
    const auto oldPath = site_images::authorImage(from);
    const auto newPath = site_images::authorImage(to);
    if (!oldPath || !newPath)
        return {};
    const auto own = programImage(from, programImages);
    const Result<QByteArray> picture = own ? *own : atomic_file::read(*oldPath);
    if (picture.isError(Error::Kind::Missing))
        return {};
    if (!picture)
        return reported(*oldPath, picture.error());
    // Under a name that the program has a picture for, the author's would never be shown.
    const bool isShadowed = !own && programImage(to, programImages);
    const Result<> placed = isShadowed ? removePicture(*newPath) : storeFile(*newPath, *picture);
    return placed.isDone() ? removePicture(*oldPath) : placed;
}

} // namespace quillon
