#pragma once

#include "shell/toolbar_control.h"

#include <QMainWindow>

class QLabel;
class QProgressBar;
class QStackedWidget;

namespace quillon {

class Editor;
class EditorView;
class OverviewView;
class TitleCommands;

/// The main window: the overview and the editor in turn, the customisable toolbar, the menus, and a status
/// bar that tells what could not be stored for as long as it is so.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    MainWindow(ToolbarControl &toolbar, OverviewController &overview, TitleCommands &commands,
               Editor &editor);
    ~MainWindow() override;

    /// Shows the window above all others, also when it is minimised.
    void bringToFront();

Q_SIGNALS:
    void preferencesRequested();
    void backupRequested();
    /// The window was closed, and with it the program's other windows are to be.
    void closed();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void buildActions();
    void buildMenus();
    void buildToolbar();
    void buildStatusBar();
    void fillToolbar();
    void customiseToolbar();
    void updateFileMenu();
    void checkShownView();
    void showContent(ContentView view);
    void showFailedWrites();
    void showImportProgress(int done, int total);
    void editField(const QString &key);
    void openAboutPanelAction();
    QAction *newAction(const QString &name, const QString &text, const QString &icon,
                       const QKeySequence &shortcut, std::function<void()> run);

    ToolbarControl &m_toolbarControl;
    OverviewController &m_overview;
    TitleCommands &m_commands;
    QHash<QString, QAction *> m_actions;
    QStackedWidget *m_content = nullptr;
    OverviewView *m_overviewView = nullptr;
    EditorView *m_editView = nullptr;
    QToolBar *m_toolbar = nullptr;
    QLabel *m_failedWrites = nullptr;
    QProgressBar *m_importProgress = nullptr;
};

} // namespace quillon
