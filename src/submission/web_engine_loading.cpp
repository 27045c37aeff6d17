#include "submission/web_engine_loading.h"

#include "platform/web_address.h"
#include "submission/load_errors.h"
#include "submission/web_engine_page.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QWebEngineLoadingInfo>

#include <utility>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString contentScript =
    u"!!document.body && (document.body.childNodes.length > 0 || document.body.tagName == 'FRAMESET')"_s;

/// Why @p address cannot be loaded.
QString refusal(const QString &address)
{
    const QString scheme = QUrl(address.trimmed()).scheme();
    if (scheme.isEmpty() || scheme.startsWith(u"http"))
        return WebEngineLoading::tr("The address is not one of the web.");
    return WebEngineLoading::tr("Addresses of the kind “%1:” are not opened here.").arg(scheme);
}

/// @p text as the literal of a script.
QString scriptLiteral(const QString &text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.sliced(1, array.size() - 2));
}

} // namespace

void WebEngineLoading::setPage(WebEnginePage &page)
{
    m_page = &page;
    ++m_loads;
    m_isLoading = false;
    m_showsOwnPage = false;
    m_isEnding = false;
    m_ownPageAddress.reset();
    m_fileText.reset();
    m_address.clear();
    m_progress = 0;
    connect(&page, &QWebEnginePage::loadingChanged, this, &WebEngineLoading::loadingChanged);
    connect(&page, &QWebEnginePage::loadProgress, this, &WebEngineLoading::progressChanged);
    connect(&page, &QWebEnginePage::urlChanged, this, [this](const QUrl &url) {
        if (!m_isLoading ||
            !url.isEmpty()) // A first load that fails may take its address back before it says so.
            addressChanged(url);
    });
    connect(&page, &QWebEnginePage::renderProcessTerminated, this, &WebEngineLoading::processEnded);
    connect(&page, &WebEnginePage::fileOffered, this, &WebEngineLoading::showFile);
    connect(&page, &WebEnginePage::navigationAccepted, this, &WebEngineLoading::navigationAccepted);
}

void WebEngineLoading::loadUrl(const QString &text)
{
    const QUrl url = QUrl::fromUserInput(text);
    if (WebEnginePage::isWebPage(url) && url.scheme() != u"ftp") { // The engine has unlearned that one.
        m_page->load(url);
        return;
    }
    refuse(text, refusal(text));
}

void WebEngineLoading::refuse(const QString &address, const QString &reason)
{
    m_page->triggerAction(QWebEnginePage::Stop);
    begin(QUrl(), address);
    failLater(reason);
}

void WebEngineLoading::loadHtml(const QString &html, const QString &baseUrl)
{
    m_ownPageAddress = baseUrl;
    // What the author typed may be anything, and must not become a page's origin.
    const QUrl base(baseUrl);
    m_page->setHtml(html, WebEnginePage::isWebPage(base) ? base : QUrl(u"about:blank"_s));
}

void WebEngineLoading::reload()
{
    if (m_showsOwnPage)
        loadUrl(m_address);
    else
        m_page->triggerAction(QWebEnginePage::Reload);
}

QString WebEngineLoading::host() const
{
    const QUrl shown = m_showsOwnPage ? QUrl(m_address) : m_page->url();
    // What a page made itself has the address that it was made at behind its scheme.
    return unmistakableHost(shown.scheme() == u"blob" ? QUrl(shown.path()) : shown);
}

void WebEngineLoading::progressChanged(int percent)
{
    if (m_isLoading)
        m_progress = percent / 100.0;
}

void WebEngineLoading::navigationAccepted(const QUrl &url)
{
    // A load that takes another one's place is not told as begun.
    if (m_page->isLoading())
        begin(url, unmistakableAddress(url));
}

void WebEngineLoading::loadingChanged(const QWebEngineLoadingInfo &info)
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

void WebEngineLoading::begin(const QUrl &url, const QString &address)
{
    if (!m_isLoading) // Else what was told of this load stays.
        Q_EMIT noticeOutdated();
    ++m_loads;
    m_isLoading = true;
    m_progress = 0;
    Q_EMIT documentGoes();
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

void WebEngineLoading::end()
{
    if (!m_isLoading)
        return;
    m_isLoading = false;
    showFileText();
    Q_EMIT documentCame();
    if (m_delegate)
        m_delegate->didFinishLoad();
    m_progress = 0;
    Q_EMIT stateChanged();
}

void WebEngineLoading::fail(const QString &description)
{
    const bool wasOwnPage = m_showsOwnPage;
    m_isLoading = false;
    if (m_delegate)
        m_delegate->didFailLoad(description);
    m_progress = 0;
    if (!wasOwnPage)
        Q_EMIT failed(description);
    Q_EMIT stateChanged();
}

void WebEngineLoading::failLater(const QString &description)
{
    QMetaObject::invokeMethod(
        this,
        [this, description, load = m_loads] {
            if (load == m_loads)
                fail(description);
        },
        Qt::QueuedConnection);
}

void WebEngineLoading::failUnlessPageHasContent(int httpStatus)
{
    // Most servers send a page along that says what is wrong; that is shown as any other.
    m_page->ask(contentScript, [this, httpStatus, load = m_loads](const QVariant &hasContent) {
        if (load != m_loads)
            return;
        if (hasContent.toBool())
            end();
        else
            fail(tr("The server answered with status %1 and an empty page.").arg(httpStatus));
    });
}

void WebEngineLoading::processEnded(QWebEnginePage::RenderProcessTerminationStatus status)
{
    if (status == QWebEnginePage::NormalTerminationStatus)
        return;
    Q_EMIT documentGoes();
    failLater(
        std::exchange(m_isEnding, false)
            ? tr("The page was ended, because it did not answer. Reload the page to try again.")
            : tr("The process that shows the page has ended unexpectedly. Reload the page to try again."));
}

void WebEngineLoading::addressChanged(const QUrl &url)
{
    if (!m_showsOwnPage || !m_ownPageAddress)
        m_address = unmistakableAddress(url);
    Q_EMIT stateChanged();
}

void WebEngineLoading::showFile(const OfferedFile &file)
{
    loadHtml(downloadPage(file), file.address);
    m_fileText = file.text;
}

void WebEngineLoading::showFileText()
{
    if (!m_fileText)
        return;
    m_page->ask(u"document.getElementById(%1).textContent = %2"_s.arg(scriptLiteral(shownTextId.toString()),
                                                                      scriptLiteral(*m_fileText)));
    m_fileText.reset();
}

} // namespace quillon
