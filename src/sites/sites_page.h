#pragma once

#include <QWidget>

class QAction;
class QLabel;
class QPushButton;
class QSortFilterProxyModel;
class QSplitter;
class QTableView;

namespace quillon {

class PreferencesController;
class SiteListTable;

/// The preferences window's page of sites: those of the catalogue and the default ones that were removed,
/// with what can be done to them. A filter by name leaves out of sight what does not match.
class SitesPage : public QWidget
{
    Q_OBJECT
public:
    explicit SitesPage(PreferencesController &preferences, QWidget *parent = nullptr);
    ~SitesPage() override;

private:
    /// A table of sites as the filter leaves it, under a caption that counts its rows.
    struct SiteTable
    {
        QString caption; ///< With the mark of its key.
        QSortFilterProxyModel *rows = nullptr;
        QTableView *view = nullptr;
        QLabel *label = nullptr;
    };

    QLayout *newFilterRow();
    QWidget *newSitesPanel();
    QWidget *newIgnoredPanel();
    SiteTable newSiteTable(const QString &name, const QString &caption, SiteListTable &sites,
                           void (PreferencesController::*select)(const QList<int> &));
    void addKeys();
    void showCount(const SiteTable &table) const;
    void setFilter(const QString &text);
    void editSelected();
    void updateButtons();
    void saveLayout() const;
    void restoreLayout();

    PreferencesController &m_preferences;
    SiteTable m_sites;
    SiteTable m_ignored;
    QSplitter *m_splitter;
    QPushButton *m_editSiteButton = nullptr;
    QPushButton *m_removeSiteButton = nullptr;
    QPushButton *m_restoreSiteButton = nullptr;
    QAction *m_editAction = nullptr;
    QAction *m_removeAction = nullptr;
};

} // namespace quillon
