#include "shell/submission_opener.h"

#include "overview/overview_controller.h"
#include "platform/plain_text.h"
#include "shell/message_box_sheets.h"
#include "shell/toolbar_control.h"
#include "submission/submit_window.h"
#include "submission/web_engine_profile.h"

#include <QWebEngineProfile>

using namespace Qt::StringLiterals;

namespace quillon {

SubmissionOpener::SubmissionOpener(ToolbarControl &toolbar, OverviewController &overview,
                                   MessageBoxSheets &alerts, DelayedCalls &delayedCalls)
    : m_alerts(alerts), m_delayedCalls(delayedCalls)
{
    connect(&toolbar, &ToolbarControl::openSubmitWindow, this, &SubmissionOpener::open);
    connect(&overview, &OverviewController::submissionTitleChanged, this, &SubmissionOpener::setTitle);
    connect(&overview, &OverviewController::selectedRowChanged, this, [this](int row) {
        if (row < 0)
            titleIsGone();
    });
}

SubmissionOpener::~SubmissionOpener() = default;

void SubmissionOpener::open()
{
    if (!m_window) {
        m_profile = newWebEngineProfile(webEngineFolder());
        m_window = std::make_unique<SubmitWindow>(*m_profile, m_alerts, m_desktop, m_delayedCalls);
        m_window->setWindowTitle(plainWindowTitle(m_title));
        m_alerts.setWidget(SheetWindow::Submission, m_window.get());
        // What was posted before there was a window to observe it.
        SubmitControl &control = m_window->control();
        control.awakeFromNib();
        control.loadSitesList();
    }
    m_window->bringToFront();
}

void SubmissionOpener::setTitle(const QString &title)
{
    m_title = title;
    if (m_window)
        m_window->setWindowTitle(plainWindowTitle(title));
}

void SubmissionOpener::titleIsGone()
{
    setTitle(u"Submitting"_s);
    if (m_window)
        m_window->control().titleIsGone();
}

void SubmissionOpener::close()
{
    if (m_window)
        m_window->close();
}

} // namespace quillon
