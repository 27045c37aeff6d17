#pragma once

#include <QString>
#include <QVariant>

#include <functional>

namespace quillon {

class Browser;

/// What a browser tells of its main frame and asks for; frames inside the page are never reported.
class BrowserDelegate
{
public:
    using FileChosen = std::function<void(const QString &path)>;
    using Confirmed = std::function<void(bool agreed)>;

    virtual ~BrowserDelegate() = default;

    virtual void didStartProvisionalLoad() = 0;
    virtual void didFinishLoad() = 0;
    /// The page could not be loaded, before or after its first byte; @p description is the engine's sentence
    /// and may hold anything. A load that was stopped, or that another one replaced, is no failure.
    virtual void didFailLoad(const QString &description) = 0;

    /// A page opens a new window: the browser in which that is to load.
    virtual Browser &createWebView() = 0;

    /// A page's script calls alert with @p message.
    virtual void runJavaScriptAlertPanel(const QString &message) = 0;

    /// A page's script asks @p message with confirm; @p confirmed may be called later, or never for no.
    virtual void runJavaScriptConfirmPanel(const QString &message, Confirmed confirmed) = 0;

    /// A page's form asks for a file; @p chosen is not called when none is chosen.
    virtual void runOpenPanelForFileButton(FileChosen chosen) = 0;
};

/**
 * The web browser in a window, whatever engine it is made of.
 *
 * Every navigation is allowed, and every type of content is shown in the page. Nothing here waits: loads are
 * reported to the delegate.
 */
class Browser
{
public:
    virtual ~Browser() = default;

    /// Reports go to @p delegate, which must outlive the browser or be taken away by null.
    virtual void setDelegate(BrowserDelegate *delegate) = 0;

    /// Begins to load @p url into the main frame.
    virtual void loadUrl(const QString &url) = 0;
    /// Shows @p html in the main frame as if it came from @p baseUrl.
    virtual void loadHtml(const QString &html, const QString &baseUrl) = 0;

    /// How much of the page is there, from 0.0 to 1.0.
    [[nodiscard]] virtual double estimatedProgress() const = 0;
    /// The address of the main frame.
    [[nodiscard]] virtual QString currentUrl() const = 0;

    /// Pastes @p text through the clipboard into the page's focused field; nothing when none has the focus.
    /// Pastes wait for one another: the clipboard holds @p text when all before it are done. Nothing but
    /// @p text is ever pasted, and into no other page.
    virtual void paste(const QString &text) = 0;

    using FormAnswer = std::function<void(const QVariant &)>;
    /// Has the script that fills forms do @p task with @p values, in the page that paste() pastes into, and
    /// gives @p answer what it tells; nothing valid when the page is left meanwhile. Never before this has
    /// returned, and not at all when the browser goes, or begins anew, first.
    virtual void runFormTask(const QString &task, const QVariantList &values, FormAnswer answer) = 0;

    virtual void goBack() = 0;
    virtual void goForward() = 0;
    virtual void reload() = 0;
    virtual void stop() = 0;

    [[nodiscard]] virtual double zoomFactor() const = 0;
    /// 1.0 is the page's own size; it stays between 0.25 and 5.0.
    virtual void setZoomFactor(double factor) = 0;
};

} // namespace quillon
