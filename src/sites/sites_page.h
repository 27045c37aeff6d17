#pragma once

#include <QWidget>

class QAction;
class QPushButton;
class QSplitter;

namespace quillon {

class PreferencesController;
class SitesTableView;

/// The preferences window's page of sites: those of the catalogue and the default ones that were removed,
/// with what can be done to them, and one filter for both.
class SitesPage : public QWidget
{
    Q_OBJECT
public:
    explicit SitesPage(PreferencesController &preferences, QWidget *parent = nullptr);
    ~SitesPage() override;

private:
    QLayout *newFilterRow();
    void buildSites();
    void buildIgnoredSites();
    QAction *newKey(const QString &text, const QKeySequence &key);
    void editSelected();
    void updateButtons();

    PreferencesController &m_preferences;
    SitesTableView *m_sites;
    SitesTableView *m_ignored;
    QSplitter *m_splitter;
    QPushButton *m_editSiteButton = nullptr;
    QPushButton *m_removeSiteButton = nullptr;
    QPushButton *m_restoreSiteButton = nullptr;
    QAction *m_editAction = nullptr;
    QAction *m_removeAction = nullptr;
};

} // namespace quillon
