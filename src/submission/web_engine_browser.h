#pragma once

#include "submission/browser.h"
#include "submission/web_engine_loading.h"
#include "submission/web_engine_pasting.h"
#include "submission/web_engine_windows.h"

#include <QPointer>
#include <QWidget>

class QWebEngineNewWindowRequest;
class QWebEngineProfile;

namespace quillon {

class WebEnginePage;
class WebEngineView;

/**
 * The browser on Qt's web engine: one view, and its page with what it loads, pastes and opens.
 *
 * It begins with an empty page.
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
    void loadUrl(const QString &url) override { m_loading.loadUrl(url); }
    void loadHtml(const QString &html, const QString &baseUrl) override { m_loading.loadHtml(html, baseUrl); }
    [[nodiscard]] double estimatedProgress() const override { return m_loading.progress(); }
    [[nodiscard]] QString currentUrl() const override { return m_loading.address(); }
    void paste(const QString &text) override;
    void goBack() override;
    void goForward() override;
    void reload() override { m_loading.reload(); }
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

    /// As WebEngineLoading::host().
    [[nodiscard]] QString host() const { return m_loading.host(); }

    /// Shows what @p request, of another page, asks for in a page of its own.
    void open(QWebEngineNewWindowRequest &request);

    /// Begins anew with an empty page; what the old one would still do does not happen.
    void renew();
    /// Has the page do nothing from the moment that it is hidden until it is shown again.
    void restWhileHidden();

    [[nodiscard]] bool canGoBack() const;
    [[nodiscard]] bool canGoForward() const;
    [[nodiscard]] bool isLoading() const { return m_loading.isLoading(); }

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
    void connectParts();
    void connectPage();
    void showLink(const QString &url);

    QWebEngineProfile &m_profile;
    WebEngineView *m_view;
    WebEnginePage *m_page;
    BrowserDelegate *m_delegate = nullptr;
    WebEngineLoading m_loading;
    WebEnginePasting m_pasting;
    WebEngineWindows m_windows;
    QPointer<WebEngineBrowser> m_pasteTarget;
    double m_zoomFactor = 1;
    bool m_showsLink = false;
};

} // namespace quillon
