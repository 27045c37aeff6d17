#pragma once

#include <QObject>
#include <QRectF>

#include <chrono>

namespace quillon {

class Browser;
class DelayedCalls;
class Desktop;

/// The page in the submission window's browser: what is asked for, how much of it is there, and its address.
///
/// Nothing is loaded while the process's flag says that the window is closed.
class PageLoad : public QObject
{
    Q_OBJECT
public:
    /// How often the progress is looked at while a page loads.
    static constexpr std::chrono::milliseconds progressInterval{200};

    /// All must outlive the load.
    PageLoad(Browser &qnWebView, Desktop &desktop, DelayedCalls &delayedCalls, QObject *parent = nullptr);

    /// Begins to load @p url into the browser, unless the window is closed.
    void loadSiteToWebview(const QString &url);

    /// Opens the address field's text in the author's own browser when it is a web address.
    void openInDefaultBrowserAction();

    [[nodiscard]] QString urlField() const { return m_urlField; }
    void setUrlField(const QString &text);

    /// The progress bar is drawn in @p bounds now, in points of its view.
    void windowDidResize(const QRectF &bounds);

    /// Whether the page is loading; the activity indicator shows then.
    [[nodiscard]] bool continueViewUpdate() const { return m_continueViewUpdate; }
    /// How much of the page is there, from 0.0 to 1.0, as last looked at.
    [[nodiscard]] double webViewLoadProgress() const { return m_webViewLoadProgress; }

    /// What the browser reports, see BrowserDelegate.
    void didStartProvisionalLoad();
    void didFinishLoad();
    void didFailLoad(const QString &description);

Q_SIGNALS:
    /// continueViewUpdate() or webViewLoadProgress() may have changed.
    void loadStateChanged();
    void urlFieldChanged();
    /// What was asked for is there or was stopped, or it failed, with the reason.
    void ended(const QString &failure);
    /// Put the keyboard focus into the table of sites.
    void focusSitesTable();

private:
    void endLoad();
    void showProgress();
    void loadProgressUpdate();
    void scheduleProgressUpdate(int timer);

    Browser &m_qnWebView;
    Desktop &m_desktop;
    DelayedCalls &m_delayedCalls;
    bool m_continueViewUpdate = false;
    bool m_showsErrorPage = false; ///< From the begin of its load to the end, or to another load.
    int m_timer = 0;               ///< The running one; others have been stopped.
    double m_webViewLoadProgress = 0;
    QRectF m_progressBarBounds;
    QString m_urlField;
};

} // namespace quillon
