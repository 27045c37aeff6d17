#include "submission/submit_control.h"

#include "platform/alert_sheets.h"
#include "platform/delayed_calls.h"
#include "platform/desktop.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "submission/load_error_page.h"
#include "submission/prog_view.h"
#include "submission/submission_marks.h"

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// Whether @p url may be handed to the desktop: what a page's address says must not start other programs.
bool isWebAddress(const QUrl &url)
{
    const QString scheme = url.scheme();
    return url.isValid() && !url.host().isEmpty() &&
           (scheme == u"http" || scheme == u"https" || scheme == u"ftp");
}

} // namespace

/// Reports of the pop-up window's browser: what a page asks for is answered as in the main one, its loads are
/// nobody's concern.
class SubmitControl::PopUpDelegate final : public BrowserDelegate
{
public:
    explicit PopUpDelegate(SubmitControl &control) : m_control(control) {}

    void didStartProvisionalLoad() override {}
    void didFinishLoad() override {}
    void didFailLoad(const QString &) override {}
    Browser &createWebView() override { return m_control.createWebView(); }
    void runJavaScriptAlertPanel(const QString &message) override
    {
        m_control.runJavaScriptAlertPanel(message);
    }
    void runJavaScriptConfirmPanel(const QString &message, Confirmed confirmed) override
    {
        m_control.runJavaScriptConfirmPanel(message, std::move(confirmed));
    }
    void runOpenPanelForFileButton(FileChosen chosen) override
    {
        m_control.runOpenPanelForFileButton(std::move(chosen));
    }

private:
    SubmitControl &m_control;
};

SubmitControl::SubmitControl(const Parts &parts, QObject *parent)
    : QObject(parent)
    , m_parts(parts)
    , m_fieldCopyPanel(parts.qnWebView, parts.desktop)
    , m_scriptAlerts(parts.alerts)
    , m_popUpDelegate(std::make_unique<PopUpDelegate>(*this))
{
    m_parts.qnWebView.setDelegate(this);
    m_parts.popUpWebView.setDelegate(m_popUpDelegate.get());
}

SubmitControl::~SubmitControl()
{
    m_parts.qnWebView.setDelegate(nullptr);
    m_parts.popUpWebView.setDelegate(nullptr);
}

void SubmitControl::awakeFromNib()
{
    m_reloadWebView = true;
    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(notification::mwqnLSLsc, this, [this] { loadSitesList(); });
    center.addObserver(notification::mwqnSClpd, this, [this] { m_fieldCopyPanel.setPasteData(); });
}

void SubmitControl::loadSitesList()
{
    if (!mwqnWOSi78tgsda)
        Q_EMIT openSitesDrawer();
    NotificationCenter::defaultCenter().post(notification::mwqnPClSiL432ds);
    m_allSitesArray.clear();
    for (const auto &[site, url] : mwqnSCPreallSitesDict)
        m_allSitesArray.append(site);

    const auto summary = AddDeleteImportEdit::returnDataObjectFor(u"general");
    if (!summary)
        return;
    readStates(*summary);
    m_sitesTable.setSites(m_allSitesArray, m_submittedToArray);

    const bool selectsFirst = m_reloadWebView && !m_allSitesArray.isEmpty();
    if (selectsFirst)
        m_selectedSite = m_allSitesArray.first();
    else if (!m_allSitesArray.contains(m_selectedSite))
        m_selectedSite.clear();
    // Views lose the selection when all rows are new.
    Q_EMIT selectedRowChanged(selectedRow());
    if (selectsFirst)
        showSite(m_selectedSite);
    else if (selectedRow() >= 0)
        setMarkSubmittedButtonTitle(m_submittedToArraySTR[selectedRow()] == u"1");
}

void SubmitControl::readStates(const QByteArray &summary)
{
    m_submittedToArray = siteStates(m_allSitesArray, summary_file::parse(summary));
    m_submittedToArraySTR.clear();
    for (const SiteState state : std::as_const(m_submittedToArray))
        m_submittedToArraySTR.append(state == SiteState::NotValidated ? u"0"_s : u"1"_s);
}

void SubmitControl::tableViewSelectionDidChange(int row)
{
    const QString site = m_sitesTable.siteAt(row);
    if (site == m_selectedSite)
        return;
    m_selectedSite = site;
    if (row >= 0)
        showSite(site);
}

void SubmitControl::showSite(const QString &site)
{
    setMarkSubmittedButtonTitle(m_submittedToArraySTR.value(m_sitesTable.rowOf(site)) == u"1");
    m_submittingToField = u"Submitting To "_s + site;
    Q_EMIT submittingToFieldChanged();
    const auto url = mwqnSCPreallSitesDict.find(site);
    if (url != mwqnSCPreallSitesDict.end())
        loadSiteToWebview(url->second);
}

void SubmitControl::markSubmitted()
{
    changeMark(submission_marks::markSubmitted, true);
}

void SubmitControl::removeMark()
{
    changeMark(submission_marks::removeMark, false);
}

void SubmitControl::changeMark(Result<> (*change)(const QString &site), bool isMarkedThen)
{
    if (selectedRow() < 0)
        return;
    m_reloadWebView = false;
    const Result<> changed = change(m_selectedSite);
    if (changed.isError(Error::Kind::Refused))
        m_parts.alerts.show(SheetWindow::Submission, {changed.error().reason});
    loadSitesList();
    if (changed.isDone())
        setMarkSubmittedButtonTitle(isMarkedThen);
    NotificationCenter::defaultCenter().post(notification::mwqnOvLSlst);
}

void SubmitControl::setMarkSubmittedButtonTitle(bool isMarked)
{
    m_markSubmittedButtonTitle = isMarked ? u"Mark Re-Submitted"_s : u"Mark As Submitted"_s;
    Q_EMIT markSubmittedButtonTitleChanged();
}

void SubmitControl::loadSiteToWebview(const QString &url)
{
    if (mwqnWOSi78tgsda)
        return;
    m_showsErrorPage = false;
    m_parts.qnWebView.loadUrl(url);
}

void SubmitControl::openInDefaultBrowserAction()
{
    if (const QUrl url(m_urlField); isWebAddress(url))
        m_parts.desktop.openWebAddress(url);
}

void SubmitControl::windowWillClose()
{
    mwqnWOSi78tgsda = true;
    m_scriptAlerts.clear();
    NotificationCenter::defaultCenter().post(notification::mwqnRS87968tJHKgfds);
}

void SubmitControl::setUrlField(const QString &text)
{
    if (text == m_urlField)
        return;
    m_urlField = text;
    Q_EMIT urlFieldChanged();
}

void SubmitControl::didStartProvisionalLoad()
{
    if (!mwqnWOSi78tgsda) {
        Q_EMIT focusSitesTable();
        m_continueViewUpdate = true;
        scheduleProgressUpdate(++m_timer);
    }
    setUrlField(m_parts.qnWebView.currentUrl());
    Q_EMIT loadStateChanged();
}

void SubmitControl::didFinishLoad()
{
    m_showsErrorPage = false;
    endLoad();
}

void SubmitControl::didFailLoad(const QString &description)
{
    // An engine that fails on the error page itself must not be asked for another one.
    m_showsErrorPage = !m_showsErrorPage;
    if (m_showsErrorPage)
        m_parts.qnWebView.loadHtml(loadErrorPage(description), m_urlField);
    endLoad();
}

void SubmitControl::endLoad()
{
    ++m_timer;
    m_continueViewUpdate = false;
    const QRectF &bounds = m_progressBarBounds;
    prog_view::resetRectProgress(int(bounds.x()), int(bounds.y()), int(bounds.width()), int(bounds.height()));
    Q_EMIT loadStateChanged();
}

void SubmitControl::showProgress()
{
    const QRectF &bounds = m_progressBarBounds;
    const double width = bounds.width() * m_parts.qnWebView.estimatedProgress();
    prog_view::updateRectProgress(int(bounds.x()), int(bounds.y()), int(width), int(bounds.height()));
}

void SubmitControl::loadProgressUpdate()
{
    if (m_continueViewUpdate)
        showProgress();
    m_webViewLoadProgress = m_parts.qnWebView.estimatedProgress();
    Q_EMIT loadStateChanged();
}

void SubmitControl::scheduleProgressUpdate(int timer)
{
    m_parts.delayedCalls.after(progressInterval, this, [this, timer] {
        if (timer != m_timer)
            return;
        loadProgressUpdate();
        scheduleProgressUpdate(timer);
    });
}

Browser &SubmitControl::createWebView()
{
    Q_EMIT openPopUpWindow();
    return m_parts.popUpWebView;
}

void SubmitControl::runJavaScriptAlertPanel(const QString &message)
{
    m_scriptAlerts.show(message);
}

void SubmitControl::runJavaScriptConfirmPanel(const QString &message, Confirmed confirmed)
{
    if (!m_scriptAlerts.mayAsk()) {
        confirmed(false);
        return;
    }
    const Alert question{u"JavaScript Confirm"_s, message.left(ScriptAlerts::longestMessage), u"OK"_s,
                         u"Cancel"_s};
    m_parts.alerts.show(SheetWindow::Submission, question,
                        [confirmed = std::move(confirmed)](AlertAnswer answer) {
                            confirmed(answer == AlertAnswer::Default);
                        });
}

void SubmitControl::runOpenPanelForFileButton(FileChosen chosen)
{
    m_parts.alerts.chooseFiles(SheetWindow::Submission, {u"Choose"_s, {}},
                               [chosen = std::move(chosen)](const QStringList &paths) {
                                   if (!paths.isEmpty())
                                       chosen(paths.first());
                               });
}

} // namespace quillon
