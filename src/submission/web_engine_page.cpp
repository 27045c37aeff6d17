#include "submission/web_engine_page.h"

#include "platform/web_address.h"
#include "submission/web_engine_paste_watch.h"

#include <QAuthenticator>
#include <QCoreApplication>
#include <QEventLoop>
#include <QPointer>
#include <QWebEngineFileSystemAccessRequest>
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
#include <QWebEnginePermission>
#endif
#if QT_VERSION < QT_VERSION_CHECK(6, 5, 0)
#include <QWebEngineQuotaRequest>
#endif
#include <QWebEngineRegisterProtocolHandlerRequest>
#include <QWebEngineScriptCollection>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// What frames inside a page, and windows that it opens, may show beside pages of the web: what the page
/// itself made.
constexpr std::array<QStringView, 3> innerSchemes = {u"about", u"blob", u"data"};

template<size_t count>
bool isOneOf(const std::array<QStringView, count> &schemes, const QUrl &url)
{
    return std::ranges::find(schemes, QStringView(url.scheme())) != schemes.end();
}

} // namespace

WebEnginePage::WebEnginePage(const std::shared_ptr<QWebEngineProfile> &profile, QObject *parent)
    : QWebEnginePage(profile.get(), parent), m_asker(std::make_unique<QObject>())
{
    // Members go before the engine's page, and that needs the profile; connections go after it.
    connect(
        this, &QObject::destroyed, this, [kept = profile] {}, Qt::DirectConnection);
    refusePermissions();
    refuseToLogIn();
    QWebEngineScript watch;
    watch.setInjectionPoint(QWebEngineScript::DocumentCreation);
    watch.setWorldId(ownWorld);
    watch.setRunsOnSubFrames(true);
    watch.setSourceCode(pasteWatch());
    scripts().insert(watch);
}

/// The engine takes a page's question as a call and the answer as its result: its page waits for it, and
/// there is no way to give the answer later. Sheets answer later. So here, and nowhere else, one event loop
/// runs inside another; it ends with the answer, or when the sheet has let go of the call that would bring
/// it, or when the page is given up, and those that were begun after it have ended.
template<typename Answer>
Answer WebEnginePage::awaited(const std::function<void(std::function<void(Answer)>)> &ask, const Answer &none)
{
    QEventLoop loop;
    connect(this, &WebEnginePage::givenUp, &loop, &QEventLoop::quit);
    const auto answer = std::make_shared<std::optional<Answer>>();
    const std::weak_ptr<void> pending = [&] {
        std::shared_ptr<void> ticket(nullptr, [loop = QPointer(&loop)](void *) {
            if (loop)
                loop->quit();
        });
        ask([answer, ticket, loop = QPointer(&loop)](const Answer &given) {
            *answer = given;
            if (loop)
                loop->quit();
        });
        return ticket;
    }();
    if (answer->has_value() || pending.expired())
        return answer->value_or(none);
    const QPointer page(this);
    ++m_openQuestions;
    loop.exec();
    if (page && --m_openQuestions == 0 && m_isGivenUp)
        deleteLater(); // Once the engine, which called this, has come to its end.
    return answer->value_or(none);
}

void WebEnginePage::giveUp()
{
    m_delegate = nullptr;
    m_pasteGuard = nullptr;
    m_isGivenUp = true;
    m_asker.reset();
    if (m_openQuestions == 0)
        deleteLater();
    else
        Q_EMIT givenUp();
}

void WebEnginePage::ask(const QString &script, std::function<void(const QVariant &)> answer)
{
    runJavaScript(script, ownWorld,
                  [asker = QPointer(m_asker.get()), answer = std::move(answer)](const QVariant &value) {
                      if (asker && answer)
                          answer(value);
                  });
}

void WebEnginePage::watchForPastes()
{
    ask(pasteWatch());
}

void WebEnginePage::refusePermissions()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    connect(this, &QWebEnginePage::permissionRequested, this,
            [](const QWebEnginePermission &permission) { permission.deny(); });
#else
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl &origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
#endif
#if QT_VERSION < QT_VERSION_CHECK(6, 5, 0) // Later engines ask no more.
    connect(this, &QWebEnginePage::quotaRequested, this,
            [](QWebEngineQuotaRequest request) { request.reject(); });
#endif
    connect(this, &QWebEnginePage::registerProtocolHandlerRequested, this,
            [](QWebEngineRegisterProtocolHandlerRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::fileSystemAccessRequested, this,
            [](QWebEngineFileSystemAccessRequest request) { request.reject(); });
}

/// What the server sends along is shown then. An authenticator that is left as it is would be tried again and
/// again.
void WebEnginePage::refuseToLogIn()
{
    connect(this, &QWebEnginePage::authenticationRequired, this,
            [](const QUrl &, QAuthenticator *authenticator) { *authenticator = QAuthenticator(); });
    connect(this, &QWebEnginePage::proxyAuthenticationRequired, this,
            [](const QUrl &, QAuthenticator *authenticator, const QString &) {
                *authenticator = QAuthenticator();
            });
}

std::optional<int> WebEnginePage::navigationTo(const QUrl &url) const
{
    const auto isSame = url.matches(m_navigationUrl, QUrl::RemoveFragment);
    return isSame ? std::optional(m_navigation) : std::nullopt;
}

bool WebEnginePage::isWebPage(const QUrl &url)
{
    return isWebAddress(url) || url == QUrl(u"about:blank"_s);
}

bool WebEnginePage::acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame)
{
    const bool isAsked =
        type == NavigationTypeTyped || type == NavigationTypeBackForward || type == NavigationTypeReload;
    const bool isInner = isOneOf(innerSchemes, url) && (!isOwnPage(url) || !isMainFrame || isAsked);
    if (!hasWebScheme(url) && !isInner) {
        if (isMainFrame)
            Q_EMIT navigationRefused(url);
        return false;
    }
    if (isMainFrame) {
        m_navigationUrl = url;
        if (type != NavigationTypeRedirect) {
            ++m_navigation;
            Q_EMIT navigationAccepted(url);
        }
    }
    return true;
}

QStringList WebEnginePage::chooseFiles(FileSelectionMode mode, const QStringList &, const QStringList &)
{
    // A script that wants to write a file asks here too, and the engine would empty the file that it gets.
    const bool isForm = mode == FileSelectOpen || mode == FileSelectOpenMultiple;
    if (!m_delegate || !isForm)
        return {};
    const QString path = awaited<QString>(
        [delegate = m_delegate](std::function<void(QString)> chosen) {
            delegate->runOpenPanelForFileButton(std::move(chosen));
        },
        QString());
    return path.isEmpty() ? QStringList() : QStringList{path};
}

void WebEnginePage::javaScriptAlert(const QUrl &, const QString &message)
{
    if (m_delegate)
        m_delegate->runJavaScriptAlertPanel(message);
}

bool WebEnginePage::javaScriptConfirm(const QUrl &, const QString &message)
{
    // The engine's own question before a page with unsaved text is left, in the words of Qt's catalogue. The
    // author has chosen another site by then, and a page has no say in that.
    if (message ==
        QCoreApplication::translate("QWebEnginePage",
                                    "Are you sure you want to leave this page? Changes that you made may "
                                    "not be saved."))
        return true;
    if (!m_delegate)
        return false;
    return awaited<bool>(
        [delegate = m_delegate, &message](std::function<void(bool)> confirmed) {
            delegate->runJavaScriptConfirmPanel(message, std::move(confirmed));
        },
        false);
}

bool WebEnginePage::javaScriptPrompt(const QUrl &securityOrigin, const QString &message, const QString &,
                                     QString *result)
{
    if (!message.startsWith(pasteToken()))
        return false; // As if the author had cancelled it.
    const QStringList words = message.sliced(pasteToken().size()).split(u' ', Qt::SkipEmptyParts);
    *result = mayPaste(securityOrigin, words) ? u"yes"_s : u"no"_s;
    return true;
}

bool WebEnginePage::mayPaste(const QUrl &origin, const QStringList &words)
{
    if (!m_pasteGuard)
        return false;
    return words.value(0) == u"paste" ? m_pasteGuard->mayPaste(pastePlace(origin, words))
                                      : m_pasteGuard->mayInsert();
}

void WebEnginePage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString &message, int,
                                             const QString &)
{
    // What the page's own scripts write for their makers is no message of this program.
    if (m_pasteGuard && message == pasteToken())
        m_pasteGuard->pasteEnded();
}

} // namespace quillon
