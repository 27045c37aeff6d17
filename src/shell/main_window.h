#pragma once

#include "pad/field_catalogue.h"
#include "platform/result.h"
#include "shell/toolbar_control.h"

#include <QMainWindow>

class QLabel;
class QProgressBar;
class QStackedWidget;

namespace quillon {

class CommandSet;
class DeletedTitles;
class EditHistory;
class Editor;
class EditorView;
class MainToolbar;
class OverviewView;
class PreferencesController;
class TitleCommands;

/// The main window: the overview and the editor in turn, the customisable toolbar, the menus, and a status
/// bar that tells what could not be stored for as long as it is so.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// All must outlive the window.
    MainWindow(ToolbarControl &toolbar, OverviewController &overview, TitleCommands &titles, Editor &editor,
               PreferencesController &preferences, EditHistory &edits, DeletedTitles &deleted);

    /// Shows the window above all others, also when it is minimised.
    void bringToFront();
    void customiseToolbar();

    /// Whether a sheet or a window over this one has to be closed first.
    [[nodiscard]] bool isBlocked() const { return m_isBlocked; }
    /// Says in the status bar what is waited for, until it is told otherwise; empty for nothing.
    void showWaiting(const QString &sentence);

    /// Whether the editor is on show and something in it can be taken back, or done again.
    [[nodiscard]] bool isEditorShown() const { return m_isEditorShown; }
    [[nodiscard]] bool canUndo() const;
    [[nodiscard]] bool canRedo() const;
    /// Takes back the last step in the selected title, and shows the page and the field that it was in. What
    /// is being typed goes back as the field itself does it.
    void undo();
    void redo();
    /// Opens the history of the selected title, or of @p field in it.
    void openHistory(const std::optional<FieldId> &field);
    void openRulePacks();
    /// Opens the window of which version is on which site, or brings it to the front.
    void openMatrix();
    void openAboutPanelAction();

    /// What a right click on the toolbar or on the menu bar offers.
    QMenu *createPopupMenu() override;

Q_SIGNALS:
    /// isBlocked() has changed.
    void blockedChanged();
    /// The window was closed, and with it the program's other windows are to be.
    void closed();
    /// The manual is asked for, at the page of what is shown.
    void manualRequested();
    /// The author wants to know of updates.
    void updatesRequested();
    /// The author wants to submit @p title to @p site.
    void submissionRequested(const QString &title, const QString &site);

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void buildContent(OverviewController &overview, TitleCommands &titles);
    void buildStatusBar();
    void restoreLayout();
    void showContent(ContentView view);
    void checkShownView();
    /// Made when it is first asked for.
    EditorView &editView();
    void showImportProgress(int done, int total);
    void editField(const QString &key);
    /// Shows what of @p fields has changed, or says why it has not.
    void showChanged(const Result<QList<FieldId>> &fields);

    ToolbarControl &m_toolbarControl;
    Editor &m_editor;
    EditHistory &m_edits;
    bool m_isEditorShown = false;
    bool m_isBlocked = false;
    CommandSet *m_commands;
    QStackedWidget *m_content;
    OverviewView *m_overviewView = nullptr;
    EditorView *m_editView = nullptr; ///< Null before it is first shown.
    MainToolbar *m_toolbar;
    QProgressBar *m_importProgress;
    QLabel *m_waiting;
};

} // namespace quillon
