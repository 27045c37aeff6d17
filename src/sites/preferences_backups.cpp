#include "sites/preferences_backups.h"

#include "platform/alert_sheets.h"
#include "platform/delayed_calls.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "platform/translated_text.h"
#include "sites/title_backup.h"
#include "sites/title_restore.h"
#include "sites/whole_backup.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// A chooser of one backup folder.
FileRequest request(const QString &prompt, QStringView extension, const QString &proposedName = {})
{
    FileRequest request{prompt, extension.toString(), proposedName};
    request.isFolder = true;
    return request;
}

Alert alertOf(const BackupResult &result)
{
    return {result.sentence, result.informativeText, PreferencesBackups::tr("OK"), {}, result.details};
}

} // namespace

PreferencesBackups::PreferencesBackups(AlertSheets &alerts, DelayedCalls &delayedCalls)
    : m_alerts(alerts), m_delayedCalls(delayedCalls)
{
}

PreferencesBackups::~PreferencesBackups() = default;

void PreferencesBackups::backupSoftwareAction()
{
    m_alerts.chooseSaveFile(SheetWindow::Preferences,
                            request(tr("Save Backup"), backups::titlesExtension,
                                    fixedEnglish(u"Quillon Software List Backup.swback")),
                            [this](const QString &path) {
                                beginTransfer(std::make_unique<TitleBackup>(path, backups::Existing::Replace),
                                              &PreferencesBackups::backupEnded);
                            });
}

void PreferencesBackups::importSoftwareListAction()
{
    m_alerts.chooseFiles(SheetWindow::Preferences, request(tr("Choose Backup"), backups::titlesExtension),
                         [this](const QStringList &paths) {
                             if (!paths.isEmpty())
                                 beginTransfer(std::make_unique<TitleRestore>(paths.first()),
                                               &PreferencesBackups::restoreEnded);
                         });
}

void PreferencesBackups::backupSitesListAction()
{
    m_alerts.chooseSaveFile(
        SheetWindow::Preferences,
        request(tr("Save Backup"), backups::sitesExtension, fixedEnglish(u"Quillon Site List Backup.qnback")),
        [this](const QString &path) {
            tellLater(alertOf(backups::backupSites(path, backups::Existing::Replace)));
        });
}

void PreferencesBackups::importSitesAction()
{
    m_alerts.chooseFiles(SheetWindow::Preferences, request(tr("Choose Backup"), backups::sitesExtension),
                         [this](const QStringList &paths) {
                             if (paths.isEmpty())
                                 return;
                             const BackupResult result = backups::restoreSites(paths.first());
                             if (!result.sentence.isEmpty())
                                 tellLater(alertOf(result));
                             Q_EMIT sitesRestored();
                         });
}

void PreferencesBackups::backupAllAction()
{
    m_alerts.chooseSaveFile(
        SheetWindow::Preferences,
        request(tr("Save Backup"), whole_backup::extension, fixedEnglish(u"Quillon Backup.qnall")),
        [this](const QString &path) {
            beginTransfer(whole_backup::backup(path, backups::Existing::Replace),
                          &PreferencesBackups::backupEnded);
        });
}

void PreferencesBackups::importAllAction()
{
    m_alerts.chooseFiles(SheetWindow::Preferences, request(tr("Choose Backup"), whole_backup::extension),
                         [this](const QStringList &paths) {
                             if (!paths.isEmpty())
                                 beginTransfer(whole_backup::restore(paths.first()),
                                               &PreferencesBackups::restoreAllEnded);
                         });
}

void PreferencesBackups::beginTransfer(std::unique_ptr<TitleTransfer> transfer,
                                       void (PreferencesBackups::*ended)(const BackupResult &))
{
    if (m_transfer)
        return;
    m_transfer = std::move(transfer);
    m_transferEnded = ended;
    continueTransfer();
}

void PreferencesBackups::continueTransfer()
{
    if (!m_transfer)
        return;
    // Short enough for the window to answer at once, long enough for the turns between to cost nothing.
    static constexpr std::chrono::milliseconds turn{30};
    QElapsedTimer elapsed;
    elapsed.start();
    bool goesOn = true;
    while (goesOn && !elapsed.hasExpired(turn.count()))
        goesOn = m_transfer->step();
    if (goesOn) {
        m_delayedCalls.after(std::chrono::milliseconds(0), this, [this] { continueTransfer(); });
        Q_EMIT transferProgress(m_transfer->done(), m_transfer->total());
        return;
    }
    const std::unique_ptr<TitleTransfer> transfer = std::move(m_transfer);
    const BackupResult result = transfer->finish();
    Q_EMIT transferProgress(transfer->total(), transfer->total());
    (this->*m_transferEnded)(result);
}

void PreferencesBackups::cancelTransfer()
{
    if (const std::unique_ptr<TitleTransfer> transfer = std::move(m_transfer))
        Q_EMIT transferProgress(transfer->total(), transfer->total());
}

void PreferencesBackups::backupEnded(const BackupResult &result)
{
    tellLater(alertOf(result));
}

void PreferencesBackups::restoreEnded(const BackupResult &result)
{
    tellLater(alertOf(result));
    NotificationCenter::defaultCenter().post(notification::mwqnOvLSlst);
}

void PreferencesBackups::restoreAllEnded(const BackupResult &result)
{
    restoreEnded(result);
    NotificationCenter::defaultCenter().post(notification::mwqnPClSiL432ds);
}

void PreferencesBackups::tellLater(const Alert &alert)
{
    m_delayedCalls.after(resultDelay, this,
                         [this, alert] { m_alerts.show(SheetWindow::Preferences, alert); });
}

} // namespace quillon
