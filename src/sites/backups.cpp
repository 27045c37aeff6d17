#include "sites/backups.h"

#include "platform/property_list.h"
#include "platform/staged_folder.h"
#include "store/process_state.h"
#include "store/site_list.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

#include <array>

using namespace Qt::StringLiterals;

namespace quillon::backups {

namespace {

Q_LOGGING_CATEGORY(log, "quillon.backups")

constexpr std::array<QStringView, 2> siteLists = {site_list::ignoredSites, site_list::userSites};

/// A failure of @p reason, which is logged as well.
BackupResult failed(const QString &sentence, const QString &reason)
{
    qCWarning(log).noquote() << reason;
    return {BackupResult::Failed, 0, 0, sentence, {}, {reason}};
}

BackupResult run(TitleTransfer &transfer, const Progress &progress)
{
    while (transfer.step()) {
        if (progress && !progress(transfer.done(), transfer.total()))
            return {BackupResult::Cancelled};
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

/// Fills @p folder with the data folder's two site lists; the reason when that fails.
QString copySiteLists(const FolderHandle &folder)
{
    const auto data = FolderHandle::open(mwqnAppSuppLoc);
    for (const QStringView list : siteLists) {
        const QByteArray name = list.toUtf8();
        const auto bytes = data ? data->read(name) : data.error();
        if (!bytes)
            return u"%1 cannot be read: %2"_s.arg(list, bytes.error().reason);
        if (const Result<> written = folder.write(name, *bytes); !written)
            return u"%1: %2"_s.arg(list, written.error().reason);
    }
    return {};
}

/// The reason when no backup of the site lists could be made at @p to.
QString makeSitesBackup(const QString &to, Existing existing)
{
    const QFileInfo place(QDir::cleanPath(QFileInfo(to).absoluteFilePath()));
    auto staged = StagedFolder::in(place.path());
    if (!staged)
        return u"%1: %2"_s.arg(place.path(), staged.error().reason);
    if (QString reason = copySiteLists(staged->folder()); !reason.isEmpty())
        return reason;
    const Result<> placed =
        staged->putInPlace(place.fileName(), StagedFolder::Content::Files, existing == Existing::Replace);
    return placed ? QString() : placed.error().reason;
}

void passOver(const QString &what, const QString &reason, BackupResult &result)
{
    result.details.append(u"%1 was passed over: %2"_s.arg(what, reason));
    result.fileFailed = true;
    qCWarning(log).noquote() << result.details.last();
}

/// The entries of one list in a backup; @p result tells when the file is there but no list.
StringDictionary listIn(const FolderHandle &backup, QStringView list, BackupResult &result)
{
    const QByteArray name = list.toUtf8();
    if (!backup.exists(name))
        return {};
    const auto bytes = backup.read(name);
    const auto entries = bytes ? property_list::read(*bytes) : bytes.error();
    if (!entries) {
        passOver(list.toString(), entries.error().reason, result);
    }
    return entries.valueOr({});
}

} // namespace

QString refusal(const QString &to, QStringView extension, Existing existing)
{
    const QFileInfo place(QDir::cleanPath(QFileInfo(to).absoluteFilePath()));
    const QString parent = QFileInfo(place.path()).canonicalFilePath();
    if (to.isEmpty() || place.fileName().isEmpty() || parent.isEmpty())
        return u"there is no folder %1 to make it in"_s.arg(place.path());
    const QString path = QDir::cleanPath(parent + u'/' + place.fileName());
    const QString dataFolder = QFileInfo(mwqnAppSuppLoc).canonicalFilePath();
    if (isInside(path, dataFolder) || isInside(dataFolder, path))
        return u"a backup cannot lie in the data folder nor hold it"_s;
    if (!place.exists() && !place.isSymLink())
        return {};
    if (existing == Existing::Refuse)
        return u"something is at %1 already"_s.arg(path);
    return place.fileName().endsWith(u'.' + extension)
               ? QString()
               : u"%1 is not the name of such a backup, so it is not replaced"_s.arg(path);
}

BackupResult backupTitles(const QString &to, Existing existing, const Progress &progress)
{
    return run(*TitleTransfer::backup(to, existing), progress);
}

BackupResult restoreTitles(const QString &from, const Progress &progress)
{
    return run(*TitleTransfer::restore(from), progress);
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
        return {BackupResult::Nothing, 0, 0, nothingToBackup};
    if (const QString reason = refusal(to, sitesExtension, existing); !reason.isEmpty()) {
        BackupResult refused = failed(backupFailed, reason);
        refused.outcome = BackupResult::Refused;
        return refused;
    }
    const QString reason = makeSitesBackup(to, existing);
    if (reason.isEmpty())
        return {BackupResult::Done, entries, 0, backupSucceeded};
    return failed(backupFailed, reason);
}

BackupResult restoreSites(const QString &from)
{
    BackupResult result{BackupResult::Done};
    const auto backup = FolderHandle::open(from);
    if (!backup)
        return failed({}, u"%1: %2"_s.arg(from, backup.error().reason));
    for (const QStringView list : siteLists) {
        const auto present = site_list::readToChange(list);
        if (!present) {
            result = failed({}, u"%1: %2"_s.arg(list, present.error().reason));
            continue;
        }
        StringDictionary merged = *present;
        for (const auto &[name, url] : listIn(*backup, list, result)) {
            if (site_list::canHold(name) && site_list::canHold(url))
                merged.emplace(name, url);
            else
                passOver(u"%1 in %2"_s.arg(name, list), u"it holds a control character"_s, result);
        }
        result.copied += int(merged.size() - present->size());
        const Result<> written = merged == *present ? Result<>() : site_list::write(list, merged);
        if (!written)
            result = failed({}, u"%1 could not be stored: %2"_s.arg(list, written.error().reason));
    }
    return result;
}

} // namespace quillon::backups
