#pragma once

#include "submission/browser.h"
#include "submission/download_page.h"
#include "submission/web_engine_pasting.h"

#include <QWebEnginePage>
#include <QWebEngineScript>

#include <functional>
#include <memory>
#include <optional>

namespace quillon {

/// The engine's page with our rules: where it may go, and who answers when it asks for something.
class WebEnginePage : public QWebEnginePage
{
    Q_OBJECT
public:
    /// Holds @p profile until the page has gone whole.
    WebEnginePage(const std::shared_ptr<QWebEngineProfile> &profile, QObject *parent);

    void setDelegate(BrowserDelegate *delegate) { m_delegate = delegate; }

    /// Nobody shows the page any more: what it is asking gets no answer, and it is deleted as soon as it is
    /// not at work.
    void giveUp();

    /// Whether pages with this address can be shown: those of the web, and the empty one.
    static bool isWebPage(const QUrl &url);

    /// The page's content came from setHtml(): no site can show an address of that kind in the main frame.
    static bool isOwnPage(const QUrl &url) { return url.scheme() == QStringLiteral("data"); }

    /// Gives the result of @p script, which runs beside the page's own scripts, unseen by them; none when the
    /// page it ran in is gone. Not answered when this object is given up or goes first.
    void ask(const QString &script, std::function<void(const QVariant &)> answer = {});

    /// Whether the page waits for an answer of the author's.
    [[nodiscard]] bool isAsking() const { return m_openQuestions > 0; }

    /// Who is asked before something is pasted; without one nothing is. It must outlive the page, or be taken
    /// away by null.
    void setPasteGuard(PasteGuard *guard) { m_pasteGuard = guard; }
    /// Has the guard asked also for the frames that there are by now and that have no address of their own.
    void watchForPastes();

    /// The number of the main frame's navigation that asks for @p url; none when it is something else that
    /// does, such as a frame inside or a link that is meant for storing.
    [[nodiscard]] std::optional<int> navigationTo(const QUrl &url) const;
    /// Whether the main frame has gone nowhere else since the navigation @p number.
    [[nodiscard]] bool isCurrent(int number) const { return number == m_navigation; }

Q_SIGNALS:
    /// The main frame goes elsewhere, but for the steps of a redirection.
    void navigationAccepted(const QUrl &url);
    void navigationRefused(const QUrl &url);
    /// The page offers a file for download; this is to be shown.
    void fileOffered(const quillon::OfferedFile &file);
    /// Something in the page offers a file without the page being left for it; nothing is fetched.
    void fileRefused(const QString &name);
    /// giveUp() was called.
    void givenUp();

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList &oldFiles,
                            const QStringList &acceptedMimeTypes) override;
    void javaScriptAlert(const QUrl &securityOrigin, const QString &message) override;
    bool javaScriptConfirm(const QUrl &securityOrigin, const QString &message) override;
    bool javaScriptPrompt(const QUrl &securityOrigin, const QString &message, const QString &defaultValue,
                          QString *result) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString &message, int line,
                                  const QString &source) override;

private:
    static constexpr quint32 ownWorld = QWebEngineScript::ApplicationWorld;

    /// What @p ask is answered, or @p none when it can no longer be answered.
    template<typename Answer>
    Answer awaited(const std::function<void(std::function<void(Answer)>)> &ask, const Answer &none);

    /// The answer to what a script of ours asks the paste guard.
    bool mayPaste(const QUrl &origin, const QStringList &words);
    void refusePermissions();
    void refuseToLogIn();

    BrowserDelegate *m_delegate = nullptr;
    PasteGuard *m_pasteGuard = nullptr;
    int m_openQuestions = 0; ///< awaited() is at work for so many.
    bool m_isGivenUp = false;
    int m_navigation = 0; ///< Number of the main frame's last one.
    QUrl m_navigationUrl; ///< Where it goes, after the redirections so far.
    /// Gone when the page is given up, or before the engine's page, which answers what is still open then.
    std::unique_ptr<QObject> m_asker;
};

} // namespace quillon
