#include "sites/backups.h"

#include "platform/abandoned.h"
#include "platform/property_list.h"
#include "platform/staged_folder.h"
#include "platform/translated_text.h"
#include "sites/title_backup.h"
#include "sites/title_restore.h"
#include "sites/whole_backup.h"
#include "store/process_state.h"
#include "store/site_list.h"
#include "store/storage_status.h"

#include <QDir>
#include <QFileInfo>

#include <array>

using namespace Qt::StringLiterals;

namespace quillon::backups {

namespace {

class BackupsText
{
    Q_DECLARE_TR_FUNCTIONS(Backups)
};

constexpr std::array<QStringView, 2> siteLists = {site_list::ignoredSites, site_list::userSites};

/// Adds @p error, which is logged as well, to what @p result tells.
void note(const Error &error, BackupResult &result)
{
    result.details.append(detail(error));
    result.fileFailed = true;
    qCWarning(backupsLog).noquote() << result.details.last();
}

BackupResult run(const std::unique_ptr<TitleTransfer> &transfer, const Progress &progress)
{
    while (transfer->step()) {
        if (progress && !progress(transfer->done(), transfer->total()))
            return {.outcome = BackupResult::Cancelled};
    }
    if (progress)
        progress(transfer->total(), transfer->total());
    return transfer->finish();
}

/// Whether @p path is @p folder or lies in it; both canonical.
bool isInside(const QString &path, const QString &folder)
{
    return path == folder || path.startsWith(folder + u'/');
}

Error refused(const QString &reason)
{
    return {.kind = Error::Kind::Refused, .reason = reason};
}

/// A site list as it is. A missing one has no sites, and is made unless this is a trial.
Result<StringDictionary> siteList(QStringView list, Mode mode)
{
    if (mode == Mode::Do)
        return site_list::read(list);
    auto sites = site_list::stored(list);
    return sites.isError(Error::Kind::Missing) ? StringDictionary() : sites;
}

/// The same to add to: one that is unintelligible has no sites either.
Result<site_list::ReadList> siteListToChange(QStringView list, Mode mode)
{
    if (mode == Mode::Do)
        return site_list::readToChange(list);
    auto sites = siteList(list, mode);
    if (!sites && !sites.isError(Error::Kind::Unintelligible))
        return sites.error();
    return site_list::ReadList{.sites = sites.valueOr({}), .bytes = {}};
}

/// Fills @p folder with the data folder's two site lists; a trial has none, and only reads them.
Result<> copySiteLists(const FolderHandle *folder)
{
    const auto data = FolderHandle::open(mwqnAppSuppLoc);
    for (const QStringView list : siteLists) {
        const QByteArray name = list.toUtf8();
        const auto bytes = data ? data->read(name) : data.error();
        if (!folder && bytes.isError(Error::Kind::Missing)) // It would have been made.
            continue;
        if (!bytes)
            return Error{.reason = BackupsText::tr("%1 cannot be read: %2").arg(list, bytes.error().reason)};
        if (const Result<> written = folder ? folder->write(name, *bytes) : Result<>(); !written)
            return Error{written.error().kind, list.toString(), written.error().reason};
    }
    return {};
}

Result<> makeSitesBackup(const QString &to, Existing existing)
{
    const QFileInfo place(QDir::cleanPath(QFileInfo(to).absoluteFilePath()));
    auto staged = StagedFolder::in(place.path());
    if (!staged)
        return staged.error();
    if (Result<> copied = copySiteLists(&staged->folder()); !copied)
        return copied;
    return staged->putInPlace(place.fileName(), StagedFolder::Content::Files, existing == Existing::Replace);
}

/// The entries of one list in a backup; @p result tells when the file is there but no list.
StringDictionary listIn(const FolderHandle &backup, QStringView list, BackupResult &result)
{
    const auto bytes = backup.read(list.toUtf8());
    if (bytes.isError(Error::Kind::Missing))
        return {};
    const auto entries = bytes ? property_list::read(*bytes) : bytes.error();
    if (!entries)
        note({.reason = BackupsText::tr("%1 was passed over: %2").arg(list, entries.error().reason)}, result);
    return entries.valueOr({});
}

BackupItem item(QStringView list, const QString &name, const QString &url, bool isKept = false)
{
    return {.kind = list == site_list::userSites ? BackupItem::Site : BackupItem::RemovedSite,
            .name = name,
            .address = url,
            .isKept = isKept};
}

/// Adds to @p present the entries of one list in a backup that it has not.
StringDictionary merged(StringDictionary present, const FolderHandle &backup, QStringView list,
                        BackupResult &result)
{
    for (const auto &[name, url] : listIn(backup, list, result)) {
        if (site_list::canHold(name) && site_list::canHold(url))
            result.items.append(item(list, name, url, !present.emplace(name, url).second));
        else
            note({.reason = BackupsText::tr("%1 in %2 was passed over: it holds a control character")
                                .arg(name, list)},
                 result);
    }
    return present;
}

void restoreList(const FolderHandle &backup, QStringView list, Mode mode, BackupResult &result)
{
    const auto present = siteListToChange(list, mode);
    if (!present)
        return note(present.error(), result);
    const StringDictionary all = merged(present->sites, backup, list, result);
    const bool isToBeWritten = all != present->sites && mode == Mode::Do;
    const Result<> written = isToBeWritten ? site_list::write(list, all, present->bytes) : Result<>();
    if (written.isDone())
        result.copied += int(all.size() - present->sites.size());
    if (!written)
        note(written.error(), result);
}

} // namespace

QString detail(const Error &error)
{
    if (error.kind == Error::Kind::NotYetSafe)
        return failureLine(error);
    return error.path.isEmpty() ? error.reason : u"%1: %2"_s.arg(error.path, error.reason);
}

Result<> mayBeMade(const QString &to, QStringView extension, Existing existing)
{
    const QFileInfo place(QDir::cleanPath(QFileInfo(to).absoluteFilePath()));
    const QString parent = QFileInfo(place.path()).canonicalFilePath();
    if (to.isEmpty() || place.fileName().isEmpty() || parent.isEmpty())
        return refused(BackupsText::tr("there is no folder %1 to make it in").arg(place.path()));
    const QString path = QDir::cleanPath(parent + u'/' + place.fileName());
    const QString dataFolder = QFileInfo(mwqnAppSuppLoc).canonicalFilePath();
    if (!dataFolder.isEmpty() && (isInside(path, dataFolder) || isInside(dataFolder, path)))
        return refused(BackupsText::tr("a backup cannot lie in the data folder nor hold it"));
    if (!place.exists() && !place.isSymLink())
        return {};
    if (existing == Existing::Refuse)
        return refused(BackupsText::tr("something is at %1 already").arg(path));
    if (!place.fileName().endsWith(u'.' + extension))
        return refused(
            BackupsText::tr("%1 is not the name of such a backup, so it is not replaced").arg(path));
    return {};
}

BackupResult backupTitles(const QString &to, Existing existing, const Progress &progress, Mode mode)
{
    return run(std::make_unique<TitleBackup>(to, existing, mode), progress);
}

BackupResult restoreTitles(const QString &from, const Progress &progress, Mode mode)
{
    return run(std::make_unique<TitleRestore>(from, mode), progress);
}

BackupResult backupAll(const QString &to, Existing existing, Mode mode)
{
    return run(whole_backup::backup(to, existing, mode), {});
}

BackupResult restoreAll(const QString &from, Mode mode)
{
    return run(whole_backup::restore(from, mode), {});
}

BackupResult backupSites(const QString &to, Existing existing, Mode mode)
{
    QList<BackupItem> items;
    bool isKnown = true;
    for (const QStringView list : siteLists) {
        const auto sites = siteList(list, mode);
        for (const auto &[name, url] : sites.valueOr({}))
            items.append(item(list, name, url));
        isKnown = isKnown && sites;
    }
    if (items.isEmpty() && isKnown)
        return {.outcome = BackupResult::Nothing, .sentence = translated("Backups", nothingToBackup)};

    BackupResult result{.outcome = BackupResult::Done, .sentence = translated("Backups", backupSucceeded)};
    const Result<> may = mayBeMade(to, sitesExtension, existing);
    const Result<> made = !may                   ? may
                          : mode == Mode::TryOut ? copySiteLists(nullptr)
                                                 : makeSitesBackup(to, existing);
    if (made.isDone()) {
        result.copied = int(items.size());
        result.items = items;
    }
    if (made && mode == Mode::Do)
        removeAbandoned(QFileInfo(QFileInfo(to).absoluteFilePath()).path());
    if (!made) {
        note(made.error(), result);
        result.outcome = may ? BackupResult::Failed : BackupResult::Refused;
        result.sentence = made.isDone() ? failureLine(made.error()) : translated("Backups", backupFailed);
    }
    return result;
}

BackupResult restoreSites(const QString &from, Mode mode)
{
    BackupResult result{.outcome = BackupResult::Done};
    const auto backup = FolderHandle::open(from);
    if (!backup) {
        note(backup.error(), result);
        result.outcome = BackupResult::Failed;
    }
    for (const QStringView list : siteLists) {
        if (backup)
            restoreList(*backup, list, mode, result);
    }
    if (result.fileFailed)
        result.sentence = BackupsText::tr("Not all changes to the site list were restored");
    return result;
}

} // namespace quillon::backups
