#include "shell/site_jump.h"

#include "overview/overview_controller.h"
#include "shell/submission_opener.h"
#include "shell/toolbar_control.h"
#include "store/process_state.h"
#include "submission/submit_window.h"

using namespace Qt::StringLiterals;

namespace quillon {

SiteJump::SiteJump(OverviewController &overview, ToolbarControl &toolbar, SubmissionOpener &submission,
                   AlertSheets &alerts)
    : m_overview(overview), m_toolbar(toolbar), m_submission(submission), m_alerts(alerts)
{
    connect(&toolbar, &ToolbarControl::openSubmitWindow, this, &SiteJump::arrive);
    connect(&toolbar, &ToolbarControl::showView, this, [this](ContentView view) {
        if (view == ContentView::Editor) // The author corrects errors first.
            m_site.clear();
    });
}

bool SiteJump::select(const QString &title)
{
    if (mwqnSelSW == title)
        return true;
    const int row = int(m_overview.softwareTable().swNameArray().indexOf(title));
    if (row < 0 || !m_overview.tableViewShouldSelectRow(row))
        return false;
    m_toolbar.overviewTBI();
    m_overview.tableViewSelectionDidChange(int(m_overview.softwareTable().swNameArray().indexOf(title)));
    return mwqnSelSW == title;
}

void SiteJump::go(const QString &title, const QString &site)
{
    if (!select(title)) // Before the first selection there is no catalogue either.
        return;
    if (!mwqnSCPreallSitesDict.contains(site)) {
        m_alerts.show(SheetWindow::Main, {tr("%1 is no longer in the list of sites.").arg(site)});
        return;
    }
    m_site = site;
    const SubmitWindow *window = m_submission.window();
    if (window && window->isVisible())
        arrive();
    else
        m_toolbar.submitTBI();
}

void SiteJump::arrive()
{
    SubmitWindow *window = m_submission.window();
    const QString site = std::exchange(m_site, QString());
    if (!window || !window->isVisible() || site.isEmpty())
        return;
    window->control().goToSite(site);
    window->bringToFront();
}

} // namespace quillon
