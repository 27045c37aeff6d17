#pragma once

#include <QDialog>

class QAction;
class QStackedWidget;
class QToolBar;

namespace quillon {

class PreferencesController;

/// The preferences window over the main window: the site list and the backups, chosen in its toolbar. It
/// opens and closes as the controller says.
class PreferencesWindow : public QDialog
{
    Q_OBJECT
public:
    PreferencesWindow(PreferencesController &preferences, QWidget *parent);
    ~PreferencesWindow() override;

    /// Closes by the controller, whatever asked for it.
    void reject() override;

private:
    QToolBar *newToolbar();
    QLayout *newBottomRow();
    void showPage();

    PreferencesController &m_preferences;
    QStackedWidget *m_pages;
    QAction *m_sitesListAction = nullptr;
    QAction *m_backupsAction = nullptr;
};

} // namespace quillon
