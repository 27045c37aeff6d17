#pragma once

#include "sites/backups.h"
#include "sites/title_transfer.h"

#include <QObject>

#include <memory>

namespace quillon {

class AlertSheets;
class DelayedCalls;
struct Alert;

/// The backups of the preferences window, without its screen. Each action asks where, does it, and tells the
/// result. Only one backup or restore of titles runs at a time; a further one is not begun.
class PreferencesBackups : public QObject
{
    Q_OBJECT
public:
    PreferencesBackups(AlertSheets &alerts, DelayedCalls &delayedCalls);
    ~PreferencesBackups() override;

    void backupSoftwareAction();
    void importSoftwareListAction();
    void backupSitesListAction();
    void importSitesAction();
    /// Backs everything up into one folder, and brings back what is missing of it.
    void backupAllAction();
    void importAllAction();
    /// Stops the backup or restore of titles that is running; what it began is removed.
    void cancelTransfer();

Q_SIGNALS:
    /// @p done of @p total titles are copied; equal numbers end the progress.
    void transferProgress(int done, int total);
    /// The two site lists hold what a backup added.
    void sitesRestored();

private:
    void beginTransfer(std::unique_ptr<TitleTransfer> transfer,
                       void (PreferencesBackups::*ended)(const BackupResult &));
    void continueTransfer();
    void backupEnded(const BackupResult &result);
    void restoreEnded(const BackupResult &result);
    void restoreAllEnded(const BackupResult &result);
    void tellLater(const Alert &alert);

    AlertSheets &m_alerts;
    DelayedCalls &m_delayedCalls;
    std::unique_ptr<TitleTransfer> m_transfer;
    void (PreferencesBackups::*m_transferEnded)(const BackupResult &) = nullptr;
};

} // namespace quillon
