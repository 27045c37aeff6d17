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
        const auto bytes = data ? data->read(name) : std::nullopt;
        if (!bytes)
            return u"%1 cannot be read"_s.arg(list);
        if (const auto failure = folder.write(name, *bytes))
            return u"%1: %2"_s.arg(list, *failure);
    }
    return {};
}

/// The reason when no backup of the site lists could be made at @p to.
QString makeSitesBackup(const QString &to, Existing existing)
{
    const QFileInfo place(QDir::cleanPath(QFileInfo(to).absoluteFilePath()));
    auto staged = StagedFolder::in(place.path());
    if (const auto *const reason = std::get_if<QString>(&staged))
        return *reason;
    auto &folder = std::get<StagedFolder>(staged);
    if (QString reason = copySiteLists(folder.folder()); !reason.isEmpty())
        return reason;
    return folder.putInPlace(place.fileName(), StagedFolder::Content::Files, existing == Existing::Replace)
        .value_or(QString());
}

/// The entries of one list in a backup; @p result tells when the file is there but no list.
StringDictionary listIn(const FolderHandle &backup, QStringView list, BackupResult &result)
{
    const QByteArray name = list.toUtf8();
    if (!backup.exists(name))
        return {};
    const auto bytes = backup.read(name);
    const auto entries = bytes ? property_list::read(*bytes) : std::nullopt;
    if (!entries) {
        result.details.append(u"%1 was passed over: it cannot be read"_s.arg(list));
        result.fileFailed = true;
        qCWarning(log).noquote() << result.details.last();
    }
    return entries.value_or(StringDictionary());
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
        entries += int(site_list::read(list).value_or(StringDictionary()).size());
        isKnown = isKnown && site_list::isUnderstood(list);
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
        return failed({}, u"the folder %1 cannot be opened"_s.arg(from));
    for (const QStringView list : siteLists) {
        const StringDictionary present = site_list::read(list).value_or(StringDictionary());
        StringDictionary merged = present;
        for (const auto &[name, url] : listIn(*backup, list, result))
            merged.emplace(name, url);
        result.copied += int(merged.size() - present.size());
        if (merged != present && !site_list::write(list, merged))
            result = failed({}, u"%1 could not be stored"_s.arg(list));
    }
    return result;
}

} // namespace quillon::backups
