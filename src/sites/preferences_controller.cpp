#include "sites/preferences_controller.h"

#include "platform/alert_sheets.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/process_state.h"
#include "submission/default_sites.h"

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

void post(QStringView name)
{
    NotificationCenter::defaultCenter().post(name);
}

QStringList at(const QList<int> &rows, const QStringList &names)
{
    QStringList selected;
    for (const int row : rows) {
        if (row >= 0 && row < names.size())
            selected.append(names[row]);
    }
    return selected;
}

} // namespace

PreferencesController::PreferencesController(AlertSheets &alerts, DelayedCalls &delayedCalls, QObject *parent)
    : QObject(parent), m_alerts(alerts), m_panel(alerts, delayedCalls), m_backups(alerts, delayedCalls)
{
    connect(&m_panel, &AddEditPanel::sitesChanged, this, &PreferencesController::loadSitesIntoList);
    connect(&m_backups, &PreferencesBackups::sitesRestored, this, [this] {
        sitesListViewAction();
        loadSitesIntoList();
    });
}

void PreferencesController::awakeFromNib()
{
    mwqnSCPreallSitesDict.clear();
    NotificationCenter::defaultCenter().addObserver(notification::mwqnPClSiL432ds, this,
                                                    [this] { loadSitesIntoList(); });
}

void PreferencesController::loadSitesIntoList()
{
    m_catalogue = site_editing::currentCatalogue();
    mwqnSCPreallSitesDict = m_catalogue.urlByName;
    // A table whose rows are new has none selected.
    if (m_sitesTable.setSites(m_catalogue.sites, m_catalogue.urls))
        setSelectedSites({});
    if (m_ignoredTable.setSites(m_catalogue.ignored, m_catalogue.ignoredUrls))
        setSelectedIgnoredSites({});
}

void PreferencesController::openPrefsWindow()
{
    loadSitesIntoList();
    Q_EMIT showPreferences();
}

void PreferencesController::openPrefsBackupWindow()
{
    backupViewAction();
    openPrefsWindow();
}

void PreferencesController::closePrefs()
{
    m_panel.windowCloses();
    Q_EMIT hidePreferences();
}

void PreferencesController::setPage(PreferencesPage page)
{
    if (page == m_page)
        return;
    m_page = page;
    Q_EMIT pageChanged();
}

void PreferencesController::setSelectedSites(const QList<int> &rows)
{
    m_selectedSites = at(rows, m_catalogue.sites);
    Q_EMIT buttonsChanged();
}

void PreferencesController::setSelectedIgnoredSites(const QList<int> &rows)
{
    m_selectedIgnoredSites = at(rows, m_catalogue.ignored);
    Q_EMIT buttonsChanged();
}

void PreferencesController::deselectAll()
{
    Q_EMIT deselectTables();
    setSelectedSites({});
    setSelectedIgnoredSites({});
}

void PreferencesController::doubleClick(int row)
{
    if (row >= 0 && row < m_catalogue.sites.size())
        m_panel.editSite({m_catalogue.sites[row], m_catalogue.urls[row]});
}

void PreferencesController::removeSiteAction()
{
    if (!canRemove())
        return;
    const Alert alert{tr("Are you sure you want to remove the selected sites?"),
                      tr("Only removed default sites can be restored"), tr("Delete"), tr("Cancel")};
    // The sites are those that are selected now, whatever happens to the table while the sheet is open.
    m_alerts.show(SheetWindow::Preferences, alert, [this, names = m_selectedSites](AlertAnswer answer) {
        if (answer == AlertAnswer::Default)
            alertDidEndOKToDelete(names);
    });
}

void PreferencesController::alertDidEndOKToDelete(const QStringList &names)
{
    (void)site_editing::removeSites(names); // The line of failed writes tells.
    deselectAll();
    loadSitesIntoList();
    post(notification::mwqnLSLsc);
    post(notification::mwqnOCu432hjiudsh);
}

void PreferencesController::restoreSiteAction()
{
    if (!canRestore())
        return;
    (void)site_editing::restoreSites(m_selectedIgnoredSites); // The line of failed writes tells.
    deselectAll();
    loadSitesIntoList();
}

} // namespace quillon
