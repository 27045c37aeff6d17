#pragma once

#include "submission/browser_module.h"

#include <QWidget>

#include <functional>

namespace quillon {

/**
 * The browser of a window that is shown before its engine has come.
 *
 * Until then it is a browser with an empty page: the page that is asked for counts as loading, the last one
 * is loaded when the engine is there, and nothing can be pasted. From then on a browser of the engine does
 * everything.
 */
class LateBrowser final : public QWidget, public WindowBrowser, private BrowserDelegate
{
public:
    /// @p name and @p observer are those of BrowserEngine::newBrowser().
    LateBrowser(QString name, BrowserObserver &observer);
    ~LateBrowser() override;

    /// The engine has come, once; it outlives the browser, and all other browsers have it, too.
    void begin(BrowserEngine &engine);

    void setDelegate(BrowserDelegate *delegate) override;
    void loadUrl(const QString &url) override;
    void loadHtml(const QString &html, const QString &baseUrl) override;
    [[nodiscard]] double estimatedProgress() const override;
    [[nodiscard]] QString currentUrl() const override;
    void paste(const QString &text) override;
    void runFormTask(const QString &task, const QVariantList &values, FormAnswer answer) override;
    void goBack() override;
    void goForward() override;
    void reload() override;
    void stop() override;
    [[nodiscard]] double zoomFactor() const override { return m_zoomFactor; }
    void setZoomFactor(double factor) override;

    QWidget &widget() override { return *this; }
    [[nodiscard]] bool canGoBack() const override;
    [[nodiscard]] bool canGoForward() const override;
    [[nodiscard]] bool isLoading() const override;
    [[nodiscard]] QString host() const override;
    /// @p browser is a late one as well.
    void setPasteTarget(WindowBrowser *browser) override;
    void authorActed(bool isMouse) override;
    void renew() override;
    void restWhileHidden() override;

private:
    using Load = std::function<void(Browser &)>;
    void ask(const QString &address, Load load);
    void tellStart();

    void didStartProvisionalLoad() override;
    void didFinishLoad() override;
    void didFailLoad(const QString &description) override;
    Browser &createWebView() override;
    void runJavaScriptAlertPanel(const QString &message) override;
    void runJavaScriptConfirmPanel(const QString &message, Confirmed confirmed) override;
    void runOpenPanelForFileButton(FileChosen chosen) override;

    QString m_name;
    BrowserObserver &m_observer;
    BrowserDelegate *m_delegate = nullptr;
    WindowBrowser *m_inner = nullptr; ///< The engine's.
    QString m_address;                ///< Of what is to be loaded when that is there.
    Load m_load;                      ///< None when nothing is to be loaded.
    bool m_isStartTold = false;       ///< The load under way was told of before the engine begins it.
    double m_zoomFactor = 1;
};

} // namespace quillon
