#pragma once

#include "sites/add_edit_panel.h"
#include "sites/preferences_backups.h"
#include "sites/site_list_table.h"

namespace quillon {

/// The two pages of the preferences window.
enum class PreferencesPage
{
    SitesList,
    Backups
};

/**
 * The preferences window without its screen: which page shows, and the list of sites; what is typed into the
 * panel over it and the backups have classes of their own. It owns the catalogue and rebuilds it whenever
 * somebody asks for that.
 */
class PreferencesController : public QObject
{
    Q_OBJECT
public:
    PreferencesController(AlertSheets &alerts, DelayedCalls &delayedCalls, QObject *parent = nullptr);

    /// Empties the process's catalogue and begins to observe. Once, before anybody asks for the catalogue.
    void awakeFromNib();

    /// Merges the catalogue anew from the default sites and the two site lists.
    void loadSitesIntoList();

    /// Shows the preferences window, on the page of last time or on that of the backups.
    void openPrefsWindow();
    void openPrefsBackupWindow();
    void importBackupMenuAction() { openPrefsBackupWindow(); }
    void closePrefs();
    void sitesListViewAction() { setPage(PreferencesPage::SitesList); }
    void backupViewAction() { setPage(PreferencesPage::Backups); }

    /// Rows that are selected in each table; those that do not exist are ignored.
    void setSelectedSites(const QList<int> &rows);
    void setSelectedIgnoredSites(const QList<int> &rows);

    /// Opens the panel on the site in @p row; nothing for a row that does not exist.
    void doubleClick(int row);
    /// Asks, and then removes the sites that are selected now.
    void removeSiteAction();
    void restoreSiteAction();

    [[nodiscard]] AddEditPanel &addEditPanel() { return m_panel; }
    [[nodiscard]] PreferencesBackups &backups() { return m_backups; }

    [[nodiscard]] const QStringList &sitesMArray() const { return m_catalogue.sites; }
    [[nodiscard]] const QStringList &siteURLsMArray() const { return m_catalogue.urls; }
    [[nodiscard]] const QStringList &ignoredMArray() const { return m_catalogue.ignored; }
    [[nodiscard]] const QStringList &ignoredURLsMArray() const { return m_catalogue.ignoredUrls; }
    [[nodiscard]] const StringDictionary &siteURLDict() const { return m_catalogue.urlByName; }

    [[nodiscard]] SiteListTable &sitesTable() { return m_sitesTable; }
    [[nodiscard]] SiteListTable &ignoredTable() { return m_ignoredTable; }
    [[nodiscard]] bool canRemove() const { return !m_selectedSites.isEmpty(); }
    [[nodiscard]] bool canRestore() const { return !m_selectedIgnoredSites.isEmpty(); }
    [[nodiscard]] PreferencesPage currentPage() const { return m_page; }

Q_SIGNALS:
    void showPreferences();
    void hidePreferences();
    void pageChanged();
    /// The remove or the restore button can be used, or no longer.
    void buttonsChanged();
    /// Leave no row of either table selected.
    void deselectTables();

private:
    void setPage(PreferencesPage page);
    void alertDidEndOKToDelete(const QStringList &names);
    void deselectAll();

    AlertSheets &m_alerts;
    AddEditPanel m_panel;
    PreferencesBackups m_backups;

    SiteCatalogue m_catalogue;
    SiteListTable m_sitesTable;
    SiteListTable m_ignoredTable;
    QStringList m_selectedSites;
    QStringList m_selectedIgnoredSites;
    PreferencesPage m_page = PreferencesPage::SitesList;
};

} // namespace quillon
