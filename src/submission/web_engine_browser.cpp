#include "submission/web_engine_browser.h"

#include "platform/web_address.h"
#include "submission/load_error_page.h"
#include "submission/load_errors.h"
#include "submission/web_engine_page.h"
#include "submission/web_engine_view.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTimer>
#include <QVBoxLayout>
#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>
#include <QWebEngineNewWindowRequest>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString contentScript =
    u"!!document.body && (document.body.childNodes.length > 0 || document.body.tagName == 'FRAMESET')"_s;

/// How long after the author's press a page may open a window.
constexpr std::chrono::seconds windowPatience{5};

constexpr double smallestZoom = 0.25;
constexpr double greatestZoom = 5.0;

/// Why @p address cannot be loaded.
QString refusal(const QString &address)
{
    const QString scheme = QUrl(address.trimmed()).scheme();
    if (scheme.isEmpty() || scheme.startsWith(u"http"))
        return u"The address is not one of the web."_s;
    return u"Addresses of the kind “%1:” are not opened here."_s.arg(scheme);
}

/// @p text as the literal of a script.
QString scriptLiteral(const QString &text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.sliced(1, array.size() - 2));
}

} // namespace

WebEngineBrowser::WebEngineBrowser(QWebEngineProfile &profile, PasteQueue &pastes, const QString &name,
                                   QWidget *parent)
    : QWidget(parent)
    , m_profile(profile)
    , m_view(new WebEngineView(this))
    , m_page(new WebEnginePage(&profile, this))
    , m_pasting(pastes)
{
    setObjectName(name + u"Browser"_s);
    m_view->setObjectName(name);
    m_view->setPage(m_page);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    setFocusProxy(m_view);
    connect(&m_pasting, &WebEnginePasting::notice, this, &WebEngineBrowser::notice);
    connectPage();
}

WebEngineBrowser::~WebEngineBrowser() = default;

void WebEngineBrowser::connectPage()
{
    m_pasting.setPage(*m_page);
    connect(m_page, &QWebEnginePage::loadingChanged, this, &WebEngineBrowser::loadingChanged);
    connect(m_page, &QWebEnginePage::loadProgress, this, [this](int percent) {
        if (m_isLoading)
            m_progress = percent / 100.0;
    });
    connect(m_page, &QWebEnginePage::urlChanged, this, &WebEngineBrowser::addressChanged);
    connect(m_page, &QWebEnginePage::titleChanged, this, &WebEngineBrowser::titleChanged);
    connect(m_page, &QWebEnginePage::newWindowRequested, this, &WebEngineBrowser::openWindow);
    connect(m_page, &QWebEnginePage::windowCloseRequested, this, &WebEngineBrowser::closeRequested);
    connect(m_page, &QWebEnginePage::renderProcessTerminated, this,
            [this](QWebEnginePage::RenderProcessTerminationStatus status) {
                if (status != QWebEnginePage::NormalTerminationStatus)
                    renderProcessEnded();
            });
    connect(m_page, &QWebEnginePage::linkHovered, this, &WebEngineBrowser::showLink);
    connect(m_page, &WebEnginePage::fileOffered, this, &WebEngineBrowser::showFile);
    connect(m_page, &WebEnginePage::fileRefused, this, [this](const QString &name) {
        Q_EMIT notice(u"The page offers the file “%1”; files are not stored here."_s.arg(name));
    });
    connect(m_page, &WebEnginePage::navigationAccepted, this, [this](const QUrl &url) {
        // A load that takes another one's place is not told as begun.
        if (m_page->isLoading())
            begin(url, unmistakableAddress(url));
    });
    connect(m_page, &WebEnginePage::navigationRefused, this, [this](const QUrl &url) {
        Q_EMIT notice(u"Addresses of the kind “%1:” are not opened here."_s.arg(url.scheme()));
    });
}

void WebEngineBrowser::renew()
{
    WebEnginePage *const old = m_page;
    old->disconnect(this);
    m_page = new WebEnginePage(&m_profile, this);
    m_page->setDelegate(m_delegate);
    connectPage();
    m_view->setPage(m_page);
    old->giveUp(); // It may be the one that asks for this.
    ++m_loads;
    m_isLoading = false;
    m_showsOwnPage = false;
    m_ownPageAddress.reset();
    m_fileText.reset();
    m_address.clear();
    m_progress = 0;
    Q_EMIT stateChanged();
}

void WebEngineBrowser::restWhileHidden()
{
    // The engine lets no page rest that can be seen; when it is shown again, it wakes by itself.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!m_page->isVisible())
                m_page->setLifecycleState(QWebEnginePage::LifecycleState::Frozen);
        },
        Qt::QueuedConnection);
}

void WebEngineBrowser::setDelegate(BrowserDelegate *delegate)
{
    m_delegate = delegate;
    m_page->setDelegate(delegate);
}

void WebEngineBrowser::loadUrl(const QString &text)
{
    const QUrl url = QUrl::fromUserInput(text);
    if (WebEnginePage::isWebPage(url) && url.scheme() != u"ftp") { // The engine has unlearned that one.
        m_page->load(url);
        return;
    }
    m_page->triggerAction(QWebEnginePage::Stop);
    begin(QUrl(), text);
    failLater(refusal(text));
}

void WebEngineBrowser::loadHtml(const QString &html, const QString &baseUrl)
{
    m_ownPageAddress = baseUrl;
    // What the author typed may be anything, and must not become a page's origin.
    const QUrl base(baseUrl);
    m_page->setHtml(html, WebEnginePage::isWebPage(base) ? base : QUrl(u"about:blank"_s));
}

void WebEngineBrowser::paste(const QString &text)
{
    (m_pasteTarget ? *m_pasteTarget : *this).m_pasting.paste(text);
}

void WebEngineBrowser::authorActed(bool isMouse)
{
    m_mayOpenWindow.setRemainingTime(windowPatience);
    if (isMouse)
        m_pasting.mousePressed();
}

QString WebEngineBrowser::host() const
{
    return unmistakableHost(m_showsOwnPage ? QUrl(m_address) : m_page->url());
}

void WebEngineBrowser::goBack()
{
    m_page->triggerAction(QWebEnginePage::Back);
}

void WebEngineBrowser::goForward()
{
    m_page->triggerAction(QWebEnginePage::Forward);
}

bool WebEngineBrowser::canGoBack() const
{
    return m_page->history()->canGoBack();
}

bool WebEngineBrowser::canGoForward() const
{
    return m_page->history()->canGoForward();
}

void WebEngineBrowser::reload()
{
    if (m_showsOwnPage)
        loadUrl(m_address);
    else
        m_page->triggerAction(QWebEnginePage::Reload);
}

void WebEngineBrowser::stop()
{
    m_page->triggerAction(QWebEnginePage::Stop);
}

void WebEngineBrowser::setZoomFactor(double factor)
{
    m_zoomFactor = std::clamp(factor, smallestZoom, greatestZoom);
    m_page->setZoomFactor(m_zoomFactor);
}

void WebEngineBrowser::loadingChanged(const QWebEngineLoadingInfo &info)
{
    switch (info.status()) {
    case QWebEngineLoadingInfo::LoadStartedStatus:
        begin(info.url(), unmistakableAddress(info.url()));
        break;
    case QWebEngineLoadingInfo::LoadSucceededStatus:
        end();
        break;
    case QWebEngineLoadingInfo::LoadStoppedStatus:
        // The page before it is still there.
        addressChanged(m_page->url());
        if (!WebEnginePage::isWebPage(info.url()) && !WebEnginePage::isOwnPage(info.url()))
            Q_EMIT m_page->navigationRefused(info.url());
        end();
        break;
    case QWebEngineLoadingInfo::LoadFailedStatus:
        if (info.errorDomain() == QWebEngineLoadingInfo::HttpStatusCodeDomain)
            failUnlessPageHasContent(info.errorCode());
        else
            fail(loadErrorDescription(info.errorString()));
        break;
    }
}

void WebEngineBrowser::begin(const QUrl &url, const QString &address)
{
    if (!m_isLoading) // Else what was told of this load stays.
        Q_EMIT notice({});
    ++m_loads;
    m_isLoading = true;
    m_progress = 0;
    m_pasting.documentGoes();
    m_showsOwnPage = WebEnginePage::isOwnPage(url);
    if (!m_showsOwnPage) {
        m_address = address;
        m_ownPageAddress.reset();
        m_fileText.reset();
    } else if (m_ownPageAddress) {
        m_address = *m_ownPageAddress;
    }
    if (m_delegate)
        m_delegate->didStartProvisionalLoad();
    Q_EMIT stateChanged();
}

void WebEngineBrowser::end()
{
    if (!m_isLoading)
        return;
    m_isLoading = false;
    m_page->setZoomFactor(m_zoomFactor); // The engine remembers it for each server.
    showFileText();
    m_pasting.documentCame();
    if (m_delegate)
        m_delegate->didFinishLoad();
    m_progress = 0;
    Q_EMIT stateChanged();
}

void WebEngineBrowser::fail(const QString &description)
{
    const bool wasOwnPage = m_showsOwnPage;
    m_isLoading = false;
    if (m_delegate)
        m_delegate->didFailLoad(description);
    m_progress = 0;
    if (!wasOwnPage)
        Q_EMIT loadFailed(description);
    Q_EMIT stateChanged();
}

void WebEngineBrowser::failLater(const QString &description)
{
    QMetaObject::invokeMethod(
        this,
        [this, description, load = m_loads] {
            if (load == m_loads)
                fail(description);
        },
        Qt::QueuedConnection);
}

void WebEngineBrowser::failUnlessPageHasContent(int httpStatus)
{
    // Most servers send a page along that says what is wrong; that is shown as any other.
    m_page->ask(contentScript, [this, httpStatus, load = m_loads](const QVariant &hasContent) {
        if (load != m_loads)
            return;
        if (hasContent.toBool())
            end();
        else
            fail(u"The server answered with status %1 and an empty page."_s.arg(httpStatus));
    });
}

void WebEngineBrowser::renderProcessEnded()
{
    m_pasting.documentGoes();
    failLater(u"The process that shows the page has ended unexpectedly. Reload the page to try again."_s);
}

void WebEngineBrowser::addressChanged(const QUrl &url)
{
    if (!m_showsOwnPage || !m_ownPageAddress)
        m_address = unmistakableAddress(url);
    Q_EMIT stateChanged();
}

void WebEngineBrowser::showLink(const QString &url)
{
    // The engine tells of no link also when there was none; another notice stays then.
    if (!url.isEmpty() || m_showsLink)
        Q_EMIT notice(unmistakableAddress(QUrl(url)));
    m_showsLink = !url.isEmpty();
}

void WebEngineBrowser::openWindow(QWebEngineNewWindowRequest &request)
{
    if (!m_delegate)
        return;
    if (m_mayOpenWindow.hasExpired()) {
        Q_EMIT notice(u"The page wanted to open a window by itself; it was not opened."_s);
        return;
    }
    m_mayOpenWindow.setRemainingTime(0);
    // The delegate has no other browsers than those of this engine.
    auto &target = static_cast<WebEngineBrowser &>(m_delegate->createWebView());
    target.renew(); // A page cannot take its own place, and keeps the name that another page gave it.
    request.openIn(target.m_page);
}

void WebEngineBrowser::showFile(const OfferedFile &file)
{
    loadHtml(downloadPage(file), file.address);
    m_fileText = file.text;
}

void WebEngineBrowser::showFileText()
{
    if (!m_fileText)
        return;
    m_page->ask(u"document.getElementById(%1).textContent = %2"_s.arg(scriptLiteral(shownTextId.toString()),
                                                                      scriptLiteral(*m_fileText)));
    m_fileText.reset();
}

} // namespace quillon
