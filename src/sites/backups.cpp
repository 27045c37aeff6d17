#include "sites/backups.h"

#include "platform/abandoned.h"
#include "platform/property_list.h"
#include "platform/staged_folder.h"
#include "platform/translated_text.h"
#include "sites/whole_backup.h"
#include "store/process_state.h"
#include "store/site_list.h"
#include "store/storage_status.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

#include <array>

using namespace Qt::StringLiterals;

namespace quillon::backups {

namespace {

class BackupsText
{
    Q_DECLARE_TR_FUNCTIONS(Backups)
};

Q_LOGGING_CATEGORY(log, "quillon.backups")

constexpr std::array<QStringView, 2> siteLists = {site_list::ignoredSites, site_list::userSites};

/// Adds @p error, which is logged as well, to what @p result tells.
void note(const Error &error, BackupResult &result)
{
    result.details.append(detail(error));
    result.fileFailed = true;
    qCWarning(log).noquote() << result.details.last();
}

BackupResult run(TitleTransfer &transfer, const Progress &progress)
{
    while (transfer.step()) {
        if (progress && !progress(transfer.done(), transfer.total()))
            return {.outcome = BackupResult::Cancelled};
    }
    if (progress)
        progress(transfer.total(), transfer.total());
    return transfer.finish();
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

/// Fills @p folder with the data folder's two site lists.
Result<> copySiteLists(const FolderHandle &folder)
{
    const auto data = FolderHandle::open(mwqnAppSuppLoc);
    for (const QStringView list : siteLists) {
        const QByteArray name = list.toUtf8();
        const auto bytes = data ? data->read(name) : data.error();
        if (!bytes)
            return Error{.reason = BackupsText::tr("%1 cannot be read: %2").arg(list, bytes.error().reason)};
        if (const Result<> written = folder.write(name, *bytes); !written)
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
    if (Result<> copied = copySiteLists(staged->folder()); !copied)
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

/// Adds to @p present the entries of one list in a backup that it has not.
StringDictionary merged(StringDictionary present, const FolderHandle &backup, QStringView list,
                        BackupResult &result)
{
    for (const auto &[name, url] : listIn(backup, list, result)) {
        if (site_list::canHold(name) && site_list::canHold(url))
            present.emplace(name, url);
        else
            note({.reason = BackupsText::tr("%1 in %2 was passed over: it holds a control character")
                                .arg(name, list)},
                 result);
    }
    return present;
}

void restoreList(const FolderHandle &backup, QStringView list, BackupResult &result)
{
    const auto present = site_list::readToChange(list);
    if (!present)
        return note(present.error(), result);
    const StringDictionary all = merged(present->sites, backup, list, result);
    const Result<> written = all == present->sites ? Result<>() : site_list::write(list, all, present->bytes);
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
    if (isInside(path, dataFolder) || isInside(dataFolder, path))
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

BackupResult backupTitles(const QString &to, Existing existing, const Progress &progress)
{
    return run(*TitleTransfer::backup(to, existing), progress);
}

BackupResult restoreTitles(const QString &from, const Progress &progress)
{
    return run(*TitleTransfer::restore(from), progress);
}

BackupResult backupAll(const QString &to, Existing existing)
{
    return run(*whole_backup::backup(to, existing), {});
}

BackupResult restoreAll(const QString &from)
{
    return run(*whole_backup::restore(from), {});
}

BackupResult backupSites(const QString &to, Existing existing)
{
    int entries = 0;
    bool isKnown = true;
    for (const QStringView list : siteLists) {
        const auto sites = site_list::read(list);
        entries += sites ? int(sites->size()) : 0;
        isKnown = isKnown && sites;
    }
    if (entries == 0 && isKnown)
        return {.outcome = BackupResult::Nothing, .sentence = translated("Backups", nothingToBackup)};

    BackupResult result{.outcome = BackupResult::Done, .sentence = translated("Backups", backupSucceeded)};
    const Result<> may = mayBeMade(to, sitesExtension, existing);
    const Result<> made = may ? makeSitesBackup(to, existing) : may;
    if (made.isDone())
        result.copied = entries;
    if (made)
        removeAbandoned(QFileInfo(QFileInfo(to).absoluteFilePath()).path());
    if (!made) {
        note(made.error(), result);
        result.outcome = may ? BackupResult::Failed : BackupResult::Refused;
        result.sentence = made.isDone() ? failureLine(made.error()) : translated("Backups", backupFailed);
    }
    return result;
}

BackupResult restoreSites(const QString &from)
{
    BackupResult result{.outcome = BackupResult::Done};
    const auto backup = FolderHandle::open(from);
    if (!backup) {
        note(backup.error(), result);
        result.outcome = BackupResult::Failed;
    }
    for (const QStringView list : siteLists) {
        if (backup)
            restoreList(*backup, list, result);
    }
    if (result.fileFailed)
        result.sentence = BackupsText::tr("Not all changes to the site list were restored");
    return result;
}

} // namespace quillon::backups
