#pragma once

#include "submission/browser.h"
#include "submission/download_page.h"
#include "submission/web_engine_pasting.h"

#include <QDeadlineTimer>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>

class QWebEngineLoadingInfo;
class QWebEngineNewWindowRequest;
class QWebEngineProfile;

namespace quillon {

class WebEnginePage;
class WebEngineView;

/**
 * The browser on Qt's web engine.
 *
 * It begins with an empty page. Two kinds of page are the program's own: what loadHtml() is given, and what
 * is shown instead of a file that is offered for download; reload() of one of them loads its address.
 */
class WebEngineBrowser final : public QWidget, public Browser
{
    Q_OBJECT
public:
    /// @p profile and @p pastes, which all browsers share, must outlive the browser; @p name is the inner
    /// view's object name.
    WebEngineBrowser(QWebEngineProfile &profile, PasteQueue &pastes, const QString &name,
                     QWidget *parent = nullptr);
    ~WebEngineBrowser() override;

    void setDelegate(BrowserDelegate *delegate) override;
    /// @p url may lack its scheme, as people type it. What is no web address fails.
    void loadUrl(const QString &url) override;
    /// Content that the engine finds too long, some 2 MB, is a failed load.
    void loadHtml(const QString &html, const QString &baseUrl) override;
    [[nodiscard]] double estimatedProgress() const override { return m_progress; }
    [[nodiscard]] QString currentUrl() const override { return m_address; }
    void paste(const QString &text) override;
    void goBack() override;
    void goForward() override;
    void reload() override;
    void stop() override;
    [[nodiscard]] double zoomFactor() const override { return m_zoomFactor; }
    /// Holds for every page, from now on; from 0.25 to 5.0.
    void setZoomFactor(double factor) override;

    /// Has paste() paste into the page of @p browser, which is then the one that the author works in; null
    /// for the own page.
    void setPasteTarget(WebEngineBrowser *browser) { m_pasteTarget = browser; }

    /// The author has pressed a key or, with @p isMouse, a mouse button in the page; the page may open one
    /// window for it, soon.
    void authorActed(bool isMouse);

    /// The server of the page on show, as nobody can mistake it; empty for an empty page or one of the
    /// program's own without an address.
    [[nodiscard]] QString host() const;

    /// Begins anew with an empty page; what the old one would still do does not happen.
    void renew();
    /// Has the page do nothing from the moment that it is hidden until it is shown again.
    void restWhileHidden();

    [[nodiscard]] bool canGoBack() const;
    [[nodiscard]] bool canGoForward() const;
    [[nodiscard]] bool isLoading() const { return m_isLoading; }

Q_SIGNALS:
    /// currentUrl() is another one, also when a script of the page says so, or a load has begun or ended.
    void stateChanged();
    void titleChanged(const QString &title);
    /// A load failed, and the page is not one of the program's own.
    void loadFailed(const QString &description);
    /// A script of the page closes its window.
    void closeRequested();
    /// Something that the author should know, in a sentence; empty when it no longer holds.
    void notice(const QString &text);

private:
    void connectPage();
    void loadingChanged(const QWebEngineLoadingInfo &info);
    void begin(const QUrl &url, const QString &address);
    void end();
    void fail(const QString &description);
    void failLater(const QString &description);
    void failUnlessPageHasContent(int httpStatus);
    void renderProcessEnded();
    void addressChanged(const QUrl &url);
    void showLink(const QString &url);
    void openWindow(QWebEngineNewWindowRequest &request);
    void showFile(const OfferedFile &file);
    void showFileText();

    QWebEngineProfile &m_profile;
    WebEngineView *m_view;
    WebEnginePage *m_page;
    BrowserDelegate *m_delegate = nullptr;
    WebEnginePasting m_pasting;
    QDeadlineTimer m_mayOpenWindow{0};
    QPointer<WebEngineBrowser> m_pasteTarget;
    QString m_address;
    std::optional<QString> m_ownPageAddress; ///< That of the page that loadHtml() was given last.
    std::optional<QString> m_fileText;       ///< To be put into the page when it is there.
    double m_progress = 0;
    double m_zoomFactor = 1;
    bool m_isLoading = false;
    bool m_showsLink = false;
    bool m_showsOwnPage = false;
    int m_loads = 0; ///< Number of the load that is under way or was the last.
};

} // namespace quillon
