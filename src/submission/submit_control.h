#pragma once

#include "platform/result.h"
#include "submission/browser.h"
#include "submission/default_sites.h"
#include "submission/field_copy.h"
#include "submission/script_alerts.h"
#include "submission/submission_sites_table.h"

#include <QObject>
#include <QRectF>

#include <chrono>
#include <memory>

namespace quillon {

class AlertSheets;
class DelayedCalls;

/**
 * The submission window without its screen: the table of sites, the page of the selected one, its progress,
 * the marks and the field copy panel.
 *
 * Nothing is loaded while the process's flag says that the window is closed.
 */
class SubmitControl : public QObject, private BrowserDelegate
{
    Q_OBJECT
public:
    /// What the window is made of; all must outlive the control.
    struct Parts
    {
        Browser &qnWebView;
        Browser &popUpWebView; ///< Takes every page that asks for a window of its own.
        AlertSheets &alerts;
        Desktop &desktop;
        DelayedCalls &delayedCalls;
    };

    /// How often the progress is looked at while a page loads.
    static constexpr std::chrono::milliseconds progressInterval{200};

    explicit SubmitControl(const Parts &parts, QObject *parent = nullptr);
    ~SubmitControl() override;

    /// Builds the process's table of default sites, once.
    static void setDefaultSites() { quillon::setDefaultSites(); }

    /// Begins to observe. Once, before the window is first opened.
    void awakeFromNib();

    /// Reads the catalogue and the selected title's marks anew. As long as no mark was set or removed in this
    /// run, the first site is selected and its page loaded. The selection is kept by the site's name and
    /// given up when the site is gone.
    void loadSitesList();

    /// The site in @p row was selected, -1 for none: loads its page. The site that is selected already stays
    /// as it is.
    void tableViewSelectionDidChange(int row);

    /// Marks the selected site as submitted, or takes its mark away; nothing without a selected site.
    void markSubmitted();
    void removeMark();

    /// Begins to load @p url into the browser, unless the window is closed.
    void loadSiteToWebview(const QString &url);

    /// Opens the address field's text in the author's own browser when it is a web address.
    void openInDefaultBrowserAction();
    void closePopUpWindowAction() { Q_EMIT closePopUpWindow(); }

    /// Where the progress bar is drawn, in points of its view.
    void setProgressBarBounds(const QRectF &bounds) { m_progressBarBounds = bounds; }
    /// The window, and with it the progress bar, has another size.
    void windowDidResize() { showProgress(); }
    void windowWillClose();
    /// The author has pressed a key or a mouse button in the window or in the pop-up window.
    void authorActed() { m_scriptAlerts.authorActed(); }

    [[nodiscard]] const QStringList &allSitesArray() const { return m_allSitesArray; }
    [[nodiscard]] const QList<SiteState> &submittedToArray() const { return m_submittedToArray; }
    /// "1" for each site that the title is marked for, in any version, else "0".
    [[nodiscard]] const QStringList &submittedToArraySTR() const { return m_submittedToArraySTR; }
    [[nodiscard]] SubmissionSitesTable &sitesTable() { return m_sitesTable; }
    [[nodiscard]] FieldCopyPanel &fieldCopyPanel() { return m_fieldCopyPanel; }
    /// -1 when none is selected.
    [[nodiscard]] int selectedRow() const { return m_sitesTable.rowOf(m_selectedSite); }

    /// Whether a rebuilt list may select the first site and load it.
    [[nodiscard]] bool reloadWebView() const { return m_reloadWebView; }
    /// Whether the main page is loading; the activity indicator shows then.
    [[nodiscard]] bool continueViewUpdate() const { return m_continueViewUpdate; }
    /// How much of the page is there, from 0.0 to 1.0, as last looked at.
    [[nodiscard]] double webViewLoadProgress() const { return m_webViewLoadProgress; }
    [[nodiscard]] QString urlField() const { return m_urlField; }
    void setUrlField(const QString &text);
    [[nodiscard]] QString submittingToField() const { return m_submittingToField; }
    [[nodiscard]] QString markSubmittedButtonTitle() const { return m_markSubmittedButtonTitle; }

Q_SIGNALS:
    /// Make sure that the drawer with the sites is open.
    void openSitesDrawer();
    /// The row to be shown as selected; -1 for none.
    void selectedRowChanged(int row);
    /// The activity indicator, or one of the texts, is to be shown anew.
    void loadStateChanged();
    void urlFieldChanged();
    void submittingToFieldChanged();
    void markSubmittedButtonTitleChanged();
    /// Put the keyboard focus into the table of sites.
    void focusSitesTable();
    /// Bring the window of popUpWebView to the front, or hide it.
    void openPopUpWindow();
    void closePopUpWindow();

private:
    class PopUpDelegate;

    void didStartProvisionalLoad() override;
    void didFinishLoad() override;
    void didFailLoad(const QString &description) override;
    Browser &createWebView() override;
    void runJavaScriptAlertPanel(const QString &message) override;
    void runJavaScriptConfirmPanel(const QString &message, Confirmed confirmed) override;
    void runOpenPanelForFileButton(FileChosen chosen) override;

    void showSite(const QString &site);
    void readStates(const QByteArray &summary);
    void changeMark(Result<> (*change)(const QString &site), bool isMarkedThen);
    void setMarkSubmittedButtonTitle(bool isMarked);
    void endLoad();
    void showProgress();
    void loadProgressUpdate();
    void scheduleProgressUpdate(int timer);

    Parts m_parts;
    FieldCopyPanel m_fieldCopyPanel;
    SubmissionSitesTable m_sitesTable;
    ScriptAlerts m_scriptAlerts;
    std::unique_ptr<PopUpDelegate> m_popUpDelegate;

    QStringList m_allSitesArray;
    QList<SiteState> m_submittedToArray;
    QStringList m_submittedToArraySTR;
    QString m_selectedSite;

    bool m_reloadWebView = false;
    bool m_continueViewUpdate = false;
    bool m_showsErrorPage = false; ///< From the begin of its load to the end, or to another load.
    int m_timer = 0;               ///< The running one; others have been stopped.
    double m_webViewLoadProgress = 0;
    QRectF m_progressBarBounds;
    QString m_urlField;
    QString m_submittingToField;
    QString m_markSubmittedButtonTitle;
};

} // namespace quillon
