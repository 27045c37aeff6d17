#pragma once

#include "changes/edit_history.h"
#include "editor/editor.h"
#include "overview/overview_controller.h"
#include "overview/title_commands.h"
#include "platform/delayed_calls.h"
#include "shell/main_window.h"
#include "shell/manual_opener.h"
#include "shell/message_box_sheets.h"
#include "shell/pending_requests.h"
#include "shell/single_instance.h"
#include "shell/site_jump.h"
#include "shell/submission_opener.h"
#include "shell/toolbar_control.h"
#include "shell/update_check.h"
#include "sites/deleted_titles.h"
#include "sites/preferences_controller.h"
#include "widgets/qt_desktop.h"

namespace quillon {

/**
 * All of the program but its process: every controller and window, made and wired in the order in which they
 * need one another. The program runs one, and so do tests and benchmarks of windows.
 *
 * The settings' home and the data folder are set, and the folder's lock is held, before one is made.
 */
class Workbench
{
public:
    Workbench();

    /// From now on another start of the program hands over to this one what it was started for.
    void listen() { m_instance.listen(); }
    /// Does what the program was started for, as soon as it can be done.
    void take(const StartRequest &request) { m_requests.take(request); }

    [[nodiscard]] OverviewController &overview() { return m_overview; }
    [[nodiscard]] TitleCommands &titles() { return m_titles; }
    [[nodiscard]] ToolbarControl &toolbar() { return m_toolbar; }
    [[nodiscard]] SubmissionOpener &submission() { return m_submission; }
    [[nodiscard]] MainWindow &window() { return m_window; }

private:
    void openPreferences();
    void openDeletedTitles();

    MessageBoxSheets m_alerts;
    TimedCalls m_delayedCalls;
    QtDesktop m_desktop;
    OverviewController m_overview{m_alerts};
    TitleCommands m_titles{m_overview, m_alerts, m_delayedCalls};
    ToolbarControl m_toolbar{m_overview, m_alerts};
    Editor m_editor{m_alerts};
    EditHistory m_edits{m_editor, m_delayedCalls};
    PreferencesController m_preferences{m_alerts, m_delayedCalls};
    SubmissionOpener m_submission{m_toolbar, m_overview, m_alerts, m_delayedCalls};
    SiteJump m_siteJump{m_overview, m_toolbar, m_submission, m_alerts};
    DeletedTitles m_deleted{m_alerts};
    MainWindow m_window{m_toolbar, m_overview, m_titles, m_editor, m_preferences, m_edits, m_deleted};
    ManualOpener m_manual{m_desktop};
    UpdateCheck m_updates{m_desktop, m_alerts, m_delayedCalls};
    PendingRequests m_requests{m_window, m_overview, m_titles};
    SingleInstance m_instance;
};

} // namespace quillon
