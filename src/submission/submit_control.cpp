#include "submission/submit_control.h"

#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/add_delete_import_edit.h"
#include "store/error_tracking.h"
#include "store/process_state.h"
#include "store/storage_status.h"
#include "submission/submission_marks.h"

using namespace Qt::StringLiterals;

namespace quillon {

/// Passes on what a browser reports: its loads to @p load, where anybody cares for them, and what its pages
/// ask for.
class SubmitControl::Reports final : public BrowserDelegate
{
public:
    Reports(SubmitControl &control, PageLoad *load) : m_control(control), m_load(load) {}

    void didStartProvisionalLoad() override
    {
        if (m_load)
            m_load->didStartProvisionalLoad();
    }
    void didFinishLoad() override
    {
        if (m_load)
            m_load->didFinishLoad();
    }
    void didFailLoad(const QString &description) override
    {
        if (m_load)
            m_load->didFailLoad(description);
    }
    Browser &createWebView() override
    {
        Q_EMIT m_control.openPopUpWindow();
        return m_control.m_parts.popUpWebView;
    }
    void runJavaScriptAlertPanel(const QString &message) override
    {
        m_control.m_questions.runJavaScriptAlertPanel(message);
    }
    void runJavaScriptConfirmPanel(const QString &message, Confirmed confirmed) override
    {
        m_control.m_questions.runJavaScriptConfirmPanel(message, std::move(confirmed));
    }
    void runOpenPanelForFileButton(FileChosen chosen) override
    {
        m_control.m_questions.runOpenPanelForFileButton(std::move(chosen));
    }

private:
    SubmitControl &m_control;
    PageLoad *m_load;
};

SubmitControl::SubmitControl(const Parts &parts, QObject *parent)
    : QObject(parent)
    , m_parts(parts)
    , m_pageLoad(parts.qnWebView, parts.desktop, parts.delayedCalls)
    , m_questions(parts.alerts)
    , m_fieldCopyPanel(parts.qnWebView)
    , m_reports(std::make_unique<Reports>(*this, &m_pageLoad))
    , m_popUpReports(std::make_unique<Reports>(*this, nullptr))
{
    m_parts.qnWebView.setDelegate(m_reports.get());
    m_parts.popUpWebView.setDelegate(m_popUpReports.get());
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
    m_sites.takeCatalogue();
    takeTitle();
    const Result<QByteArray> summary = AddDeleteImportEdit::returnDataObjectFor(u"general");
    const bool isMissing = summary.isError(Error::Kind::Missing);
    m_marksError = summary || isMissing ? std::nullopt : std::optional(summary.error());
    Q_EMIT hindranceChanged();
    if (isMissing)
        return; // With the marks on show as they are, on purpose.
    if (!summary) {
        m_sites.forgetMarks();
        return;
    }
    m_sites.showMarks(summary_file::parse(*summary));
    if (m_reloadWebView && !m_sites.allSitesArray().isEmpty()) {
        m_sites.selectFirst();
        showSite();
        return;
    }
    m_sites.keepSelection();
    if (m_sites.selectedRow() >= 0)
        m_sites.setMarkSubmittedButtonTitle(m_sites.isMarked());
}

void SubmitControl::takeTitle()
{
    if (m_title == mwqnSelSW)
        return;
    m_title = mwqnSelSW;
    m_refusal.clear();
    m_fieldCopyPanel.setPasteData();
    Q_EMIT hindranceChanged();
}

void SubmitControl::titleIsGone()
{
    m_sites.forgetMarks();
    takeTitle();
}

QString SubmitControl::hindrance() const
{
    if (!m_title)
        return tr("The title is no longer selected. To go on, close this window, select a title in the main "
                  "window and submit it.");
    if (m_marksError)
        return tr("Nothing can be marked, because the marks that are there could not be read. %1")
            .arg(failureLine(*m_marksError));
    if (const auto error = m_fieldCopyPanel.readError())
        return tr("Nothing can be pasted, because the PAD file could not be read. %1")
            .arg(failureLine(*error));
    return m_refusal;
}

QString SubmitControl::whyNoPages() const
{
    if (!mwqnWOSi78tgsda || !m_title) // Of a title that is gone hindrance() tells.
        return {};
    if (ErrorTracking::returnErrorDictionary().valueOr({}).empty())
        return tr("Pages of sites are loaded once the title is submitted: press Submit in the main window.");
    return tr("Pages of sites are not loaded while errors are left in the title's PAD file.\n\n"
              "Correct them in the editor, close this window and submit the title again.");
}

void SubmitControl::tableViewSelectionDidChange(int row)
{
    if (m_sites.select(row) && row >= 0)
        showChosen();
}

void SubmitControl::goToSite(const QString &site)
{
    if (m_sites.allSitesArray().contains(site) && m_sites.selectSite(site))
        showChosen();
}

void SubmitControl::showChosen()
{
    showSite();
    Q_EMIT siteChosen();
}

void SubmitControl::showSite()
{
    m_sites.showSelected();
    m_refusal.clear();
    Q_EMIT hindranceChanged();
    const auto url = mwqnSCPreallSitesDict.find(m_sites.selectedSite());
    if (url != mwqnSCPreallSitesDict.end())
        m_pageLoad.loadSiteToWebview(url->second);
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
    if (!canMark())
        return;
    m_reloadWebView = false;
    const Result<> changed = change(m_sites.selectedSite());
    m_refusal = changed ? QString() : failureSentence(changed.error());
    loadSitesList();
    if (changed.isDone())
        m_sites.setMarkSubmittedButtonTitle(isMarkedThen);
    NotificationCenter::defaultCenter().post(notification::mwqnOvLSlst);
    if (changed)
        Q_EMIT markChanged(isMarkedThen);
}

void SubmitControl::windowWillClose()
{
    mwqnWOSi78tgsda = true;
    m_questions.clear();
    NotificationCenter::defaultCenter().post(notification::mwqnRS87968tJHKgfds);
}

} // namespace quillon
