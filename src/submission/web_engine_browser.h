#pragma once

#include "submission/browser_module.h"
#include "submission/web_engine_loading.h"
#include "submission/web_engine_pasting.h"
#include "submission/web_engine_watch.h"
#include "submission/web_engine_windows.h"

#include <QPointer>
#include <QWidget>

class QWebEngineNewWindowRequest;

namespace quillon {

class HangBar;
class WebEnginePage;
class WebEngineStorage;
class WebEngineView;

/// The browser on Qt's web engine: one view, and its page with what it loads, pastes and opens.
class WebEngineBrowser final : public QWidget, public WindowBrowser
{
    Q_OBJECT
public:
    /// @p storage and @p pastes, which all browsers share, must outlive the browser; @p name is the inner
    /// view's object name.
    WebEngineBrowser(WebEngineStorage &storage, PasteQueue &pastes, const QString &name,
                     QWidget *parent = nullptr);
    ~WebEngineBrowser() override;

    void setDelegate(BrowserDelegate *delegate) override;
    void loadUrl(const QString &url) override { m_loading.loadUrl(url); }
    void loadHtml(const QString &html, const QString &baseUrl) override { m_loading.loadHtml(html, baseUrl); }
    [[nodiscard]] double estimatedProgress() const override { return m_loading.progress(); }
    [[nodiscard]] QString currentUrl() const override { return m_loading.address(); }
    void paste(const QString &text) override;
    void runFormTask(const QString &task, const QVariantList &values, FormAnswer answer) override;
    void goBack() override;
    void goForward() override;
    void reload() override { m_loading.reload(); }
    void stop() override;
    [[nodiscard]] double zoomFactor() const override { return m_zoomFactor; }
    /// Holds for every page, from now on.
    void setZoomFactor(double factor) override;

    QWidget &widget() override { return *this; }
    void setPasteTarget(WindowBrowser *browser) override;
    void authorActed(bool isMouse) override;
    [[nodiscard]] QString host() const override { return m_loading.host(); }
    void renew() override;
    void restWhileHidden() override;
    [[nodiscard]] bool canGoBack() const override;
    [[nodiscard]] bool canGoForward() const override;
    [[nodiscard]] bool isLoading() const override { return m_loading.isLoading(); }

    /// Shows what @p request, of another page, asks for in a page of its own.
    void open(QWebEngineNewWindowRequest &request);

Q_SIGNALS:
    /// For all of them see BrowserObserver.
    void stateChanged();
    void titleChanged(const QString &title);
    void loadFailed(const QString &description);
    void closeRequested();
    void notice(const QString &text);
    void pasted(const QString &text);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void storageCleared(const QString &reason);
    void connectParts();
    void connectPage();
    void showLink(const QString &url);

    WebEngineStorage &m_storage;
    WebEngineView *m_view;
    HangBar *m_hangBar;
    WebEnginePage *m_page;
    BrowserDelegate *m_delegate = nullptr;
    WebEngineLoading m_loading;
    WebEnginePasting m_pasting;
    WebEngineWindows m_windows;
    WebEngineWatch m_watch;
    QPointer<WebEngineBrowser> m_pasteTarget;
    double m_zoomFactor = 1;
    bool m_showsLink = false;
};

} // namespace quillon
