#pragma once

#include "overview/overview_controller.h"
#include "platform/delayed_calls.h"
#include "shell/message_box_sheets.h"
#include "shell/submission_opener.h"
#include "shell/toolbar_control.h"
#include "submission/submit_window.h"

namespace quillon {

/// What of the program opens the submission window. The first title is selected, and submitted.
struct SubmitProgram
{
    explicit SubmitProgram(const QString &browserModule = browserModulePath())
        : submission(toolbar, overview, sheets, calls, browserModule)
    {
        toolbar.awakeFromNib();
        overview.awakeFromNib();
        overview.tableViewSelectionDidChange(0);
        toolbar.submitTBI();
    }
    QWidget *shownWindow() { return submission.window(); }

    MessageBoxSheets sheets;
    TimedCalls calls;
    OverviewController overview{sheets};
    ToolbarControl toolbar{overview, sheets};
    SubmissionOpener submission;
};

} // namespace quillon
