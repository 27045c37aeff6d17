#include "shell/submission_opener.h"

#include "overview/overview_controller.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "platform/plain_text.h"
#include "platform/settings.h"
#include "shell/message_box_sheets.h"
#include "shell/toolbar_control.h"
#include "store/process_state.h"
#include "submission/browser_module.h"
#include "submission/submit_window.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// What pages of the user store: beside the settings, away from the titles.
QString webFolder()
{
    return QFileInfo(settings().fileName()).path() + u"/Quillon-web"_s;
}

} // namespace

SubmissionOpener::SubmissionOpener(ToolbarControl &toolbar, OverviewController &overview,
                                   MessageBoxSheets &alerts, DelayedCalls &delayedCalls,
                                   QString browserModule)
    : m_alerts(alerts), m_delayedCalls(delayedCalls), m_browserModule(std::move(browserModule))
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
    const Result<> made = m_window ? Result<>() : makeWindow();
    if (made) {
        m_window->bringToFront();
        return;
    }
    // What closing the window does: the list can be selected in again.
    mwqnWOSi78tgsda = true;
    NotificationCenter::defaultCenter().post(notification::mwqnRS87968tJHKgfds);
    m_alerts.show(SheetWindow::Main, {made.error().reason}, {});
}

Result<> SubmissionOpener::makeWindow()
{
    const Result<BrowserModule *> module = loadBrowserModule(m_browserModule);
    if (!module)
        return module.error();
    m_engine = (*module)->newEngine(webFolder(), m_desktop);
    m_window = std::make_unique<SubmitWindow>(*m_engine, m_alerts, m_desktop, m_delayedCalls);
    m_window->setWindowTitle(plainWindowTitle(m_title));
    m_alerts.setWidget(SheetWindow::Submission, m_window.get());
    // What was posted before there was a window to observe it.
    SubmitControl &control = m_window->control();
    control.awakeFromNib();
    control.loadSitesList();
    return {};
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
