#include "shell/submission_opener.h"

#include "overview/overview_controller.h"
#include "overview/title_operations.h"
#include "platform/delayed_calls.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "platform/plain_text.h"
#include "platform/settings.h"
#include "shell/message_box_sheets.h"
#include "shell/toolbar_control.h"
#include "store/process_state.h"
#include "store/storage_status.h"
#include "submission/browser_module.h"
#include "submission/submit_window.h"
#include "visits/online_check_window.h"
#include "visits/site_check.h"
#include "visits/title_check.h"

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
    if (!m_module && !isBrowserInPlace(m_browserModule)) {
        if (const Result<> loaded = loadEngine(); !loaded) {
            refuse(loaded.error().reason);
            return;
        }
    }
    if (!m_window)
        makeWindow();
    m_window->bringToFront();
}

void SubmissionOpener::makeWindow()
{
    m_window = std::make_unique<SubmitWindow>(m_engine, m_alerts, m_desktop, m_delayedCalls);
    m_window->setWindowTitle(plainWindowTitle(m_title));
    m_alerts.setWidget(SheetWindow::Submission, m_window.get());
    connect(m_window.get(), &SubmitWindow::drawn, this, [this] {
        m_delayedCalls.after({}, this, [this] { bringPages(); }); // When it is on the screen.
    });
    connect(m_window.get(), &SubmitWindow::checkSites, this, &SubmissionOpener::checkSites);
    connect(m_window.get(), &SubmitWindow::checkTitle, this, &SubmissionOpener::checkTitle);
    // What was posted before there was a window to observe it.
    SubmitControl &control = m_window->control();
    control.awakeFromNib();
    control.loadSitesList();
}

/// Loads the engine for a window that is still open. What was typed meanwhile is handled before the engine
/// begins: then the window gets another one of the window system's.
void SubmissionOpener::bringPages()
{
    if (!m_window || !m_window->isVisible())
        return;
    if (const Result<> loaded = loadEngine(); !loaded)
        refuse(loaded.error().reason);
    else
        m_delayedCalls.after({}, this, [this] { beginEngine(); });
}

Result<> SubmissionOpener::loadEngine()
{
    if (m_module)
        return {};
    const Result<BrowserModule *> module = loadBrowserModule(m_browserModule);
    if (!module)
        return module.error();
    m_module = *module;
    return {};
}

void SubmissionOpener::beginEngine()
{
    if (m_engine.hasBegun() || !m_window || !m_window->isVisible())
        return;
    const bool isActive = m_window->isActiveWindow();
    m_engine.begin(m_module->newEngine(webFolder(), m_desktop));
    if (isActive)
        m_window->activateWindow(); // The new one has no keyboard by itself.
}

void SubmissionOpener::refuse(const QString &reason)
{
    m_window.reset();
    // What closing the window does: the list can be selected in again.
    mwqnWOSi78tgsda = true;
    NotificationCenter::defaultCenter().post(notification::mwqnRS87968tJHKgfds);
    m_alerts.show(SheetWindow::Main, {reason}, {});
}

/// Null before the engine has come, which the author is told.
std::unique_ptr<Visitor> SubmissionOpener::newVisitor()
{
    auto visitor = m_engine.newVisitor();
    if (!visitor)
        m_alerts.show(SheetWindow::Submission, {tr("Pages are not there yet; try again in a moment.")}, {});
    return visitor;
}

void SubmissionOpener::checkSites()
{
    auto sites = SiteCheck::usedSites();
    if (!sites) {
        tell(sites.error());
        return;
    }
    if (auto visitor = newVisitor()) {
        auto check = std::make_unique<SiteCheck>(*std::move(sites), std::move(visitor), m_delayedCalls);
        auto *window = new OnlineCheckWindow(std::move(check), tr("Check Sites"),
                                             tr("&Sites that your titles were sent to. They are visited one "
                                                "after the other, without cookies:"),
                                             m_window.get());
        window->show();
    }
}

void SubmissionOpener::checkTitle()
{
    const QString title = *mwqnSelSW;
    const auto pad = title_operations::exportedPad(title);
    if (!pad) {
        tell(pad.error());
        return;
    }
    if (auto visitor = newVisitor()) {
        auto check = std::make_unique<TitleCheck>(*pad, std::move(visitor), m_delayedCalls);
        auto *window = new OnlineCheckWindow(
            std::move(check), tr("Check %1 Online").arg(title),
            tr("&Addresses of the title, and what is there. Nothing is judged an error by it:"),
            m_window.get());
        window->show();
    }
}

void SubmissionOpener::tell(const Error &error)
{
    m_alerts.show(SheetWindow::Submission, {failureLine(error)}, {});
}

void SubmissionOpener::setTitle(const QString &title)
{
    m_title = title;
    if (m_window)
        m_window->setWindowTitle(plainWindowTitle(title));
}

void SubmissionOpener::titleIsGone()
{
    setTitle(tr("Submitting"));
    if (m_window)
        m_window->control().titleIsGone();
}

void SubmissionOpener::close()
{
    if (m_window)
        m_window->close();
}

} // namespace quillon
