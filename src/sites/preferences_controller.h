#pragma once

#include "sites/backups.h"
#include "sites/site_editing.h"
#include "sites/site_list_table.h"

#include <QObject>

#include <functional>
#include <memory>

namespace quillon {

class AlertSheets;
class DelayedCalls;
struct Alert;

/// The two pages of the preferences window.
enum class PreferencesPage
{
    SitesList,
    Backups
};

/// The panel in which a site is added or changed.
struct AddEditPanel
{
    enum class Field
    {
        Name,
        Url
    };
    bool isOpen = false;
    QString addEditSentFrom; ///< "add" or "edit".
    QString addEditPanelTitle;
    QString siteNameField;
    QString siteURLField;
    Field focus = Field::Name;     ///< The field to get the keyboard focus,
    bool selectsWholeText = false; ///< with all of its text selected.
};

/**
 * The preferences window without its screen: the list of sites with what can be changed in it, and the
 * backups. It owns the catalogue and rebuilds it whenever somebody asks for that.
 */
class PreferencesController : public QObject
{
    Q_OBJECT
public:
    PreferencesController(AlertSheets &alerts, DelayedCalls &delayedCalls, QObject *parent = nullptr);
    ~PreferencesController() override;

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

    void addNewSiteAction();
    /// Opens the panel on the site in @p row; nothing for a row that does not exist.
    void doubleClick(int row);
    void cancelAddEditAction();
    /// Adds or changes a site by what is typed in the panel. What is refused is told, and the panel opens
    /// again with its text; with a list that cannot be stored the panel stays open.
    void addSaveButtonAction(const QString &name, const QString &url);
    /// Asks, and then removes the sites that are selected now.
    void removeSiteAction();
    void restoreSiteAction();

    /// Each asks where, does it, and tells the result. Only one backup or restore of titles runs at a time; a
    /// further one is not begun.
    void backupSoftwareAction();
    void importSoftwareListAction();
    void backupSitesListAction();
    void importSitesAction();
    /// Stops the backup or restore of titles that is running; what it began is removed.
    void cancelTransfer();

    [[nodiscard]] const QStringList &sitesMArray() const { return m_catalogue.sites; }
    [[nodiscard]] const QStringList &siteURLsMArray() const { return m_catalogue.urls; }
    [[nodiscard]] const QStringList &ignoredMArray() const { return m_catalogue.ignored; }
    [[nodiscard]] const QStringList &ignoredURLsMArray() const { return m_catalogue.ignoredUrls; }
    [[nodiscard]] const StringDictionary &siteURLDict() const { return m_catalogue.urlByName; }

    [[nodiscard]] SiteListTable &sitesTable() { return m_sitesTable; }
    [[nodiscard]] SiteListTable &ignoredTable() { return m_ignoredTable; }
    [[nodiscard]] bool canRemove() const { return !m_selectedSites.isEmpty(); }
    [[nodiscard]] bool canRestore() const { return !m_selectedIgnoredSites.isEmpty(); }
    [[nodiscard]] const AddEditPanel &addEditPanel() const { return m_panel; }
    [[nodiscard]] PreferencesPage currentPage() const { return m_page; }

Q_SIGNALS:
    void showPreferences();
    void hidePreferences();
    void pageChanged();
    /// The add/edit panel is to be opened, shown anew or closed.
    void addEditPanelChanged();
    /// The remove or the restore button can be used, or no longer.
    void buttonsChanged();
    /// Leave no row of either table selected.
    void deselectTables();
    /// @p done of @p total titles are copied; equal numbers end the progress.
    void transferProgress(int done, int total);

private:
    void setPage(PreferencesPage page);
    void openAddEditPanel(const QString &mode, const QString &title, const Site &site);
    void closeAddEditPanel();
    void addEditSiteCheckAndWrite();
    void refuse(const SiteEdit &edit);
    void addEditErrorReopenForInput();
    void aedpause();
    void alertDidEndOKToDelete(const QStringList &names);
    void deselectAll();

    void beginTransfer(std::unique_ptr<TitleTransfer> transfer,
                       void (PreferencesController::*ended)(const BackupResult &));
    void continueTransfer();
    void backupEnded(const BackupResult &result);
    void restoreEnded(const BackupResult &result);
    void tellLater(const Alert &alert);

    AlertSheets &m_alerts;
    DelayedCalls &m_delayedCalls;

    SiteCatalogue m_catalogue;
    SiteListTable m_sitesTable;
    SiteListTable m_ignoredTable;
    QStringList m_selectedSites;
    QStringList m_selectedIgnoredSites;
    AddEditPanel m_panel;
    bool m_panelReopens = false; ///< A refusal is told, and the panel opens after it.
    Site m_editedSite;           ///< As it was when the panel opened.
    PreferencesPage m_page = PreferencesPage::SitesList;

    std::unique_ptr<TitleTransfer> m_transfer;
    void (PreferencesController::*m_transferEnded)(const BackupResult &) = nullptr;
};

} // namespace quillon
