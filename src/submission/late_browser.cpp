#include "submission/late_browser.h"

#include <QCoreApplication>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class LateBrowserText
{
    Q_DECLARE_TR_FUNCTIONS(LateBrowser)
};

constexpr double smallestZoom = 0.25;
constexpr double greatestZoom = 5.0;

} // namespace

LateBrowser::LateBrowser(QString name, BrowserObserver &observer)
    : m_name(std::move(name)), m_observer(observer)
{
    setObjectName(m_name + u"Place"_s);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

LateBrowser::~LateBrowser()
{
    if (m_inner)
        delete &m_inner->widget(); // It tells the observer, which may be a child of this widget, to the end.
}

void LateBrowser::begin(BrowserEngine &engine)
{
    const bool hadFocus = hasFocus();
    m_inner = &engine.newBrowser(m_name, m_observer);
    QWidget &inner = m_inner->widget();
    layout()->addWidget(&inner);
    setFocusProxy(&inner);
    inner.show(); // The layout would do so later, and what is hidden takes no focus.
    if (hadFocus)
        inner.setFocus();
    setDelegate(m_delegate);
    m_inner->setZoomFactor(m_zoomFactor);
    if (m_load)
        std::exchange(m_load, {})(*m_inner);
}

void LateBrowser::setDelegate(BrowserDelegate *delegate)
{
    m_delegate = delegate;
    if (m_inner)
        m_inner->setDelegate(delegate ? this : nullptr);
}

void LateBrowser::loadUrl(const QString &url)
{
    ask(url, [url](Browser &browser) { browser.loadUrl(url); });
}

void LateBrowser::loadHtml(const QString &html, const QString &baseUrl)
{
    ask(baseUrl, [html, baseUrl](Browser &browser) { browser.loadHtml(html, baseUrl); });
}

void LateBrowser::ask(const QString &address, Load load)
{
    m_isStartTold = false;
    if (m_inner) {
        load(*m_inner);
        return;
    }
    m_address = address;
    m_load = std::move(load);
    // Like the engine: not before whoever asks has done.
    QMetaObject::invokeMethod(this, &LateBrowser::tellStart, Qt::QueuedConnection);
}

void LateBrowser::tellStart()
{
    if (!m_load || std::exchange(m_isStartTold, true))
        return;
    if (m_delegate)
        m_delegate->didStartProvisionalLoad();
    m_observer.browserChanged();
}

void LateBrowser::stop()
{
    if (m_inner) {
        m_inner->stop();
        return;
    }
    const bool wasStartTold = m_isStartTold;
    renew();
    if (m_delegate && wasStartTold)
        m_delegate->didFinishLoad();
}

void LateBrowser::renew()
{
    if (m_inner) {
        m_inner->renew();
        return;
    }
    m_load = {};
    m_address.clear();
    m_isStartTold = false;
    m_observer.browserChanged();
}

void LateBrowser::paste(const QString &text)
{
    if (m_inner)
        m_inner->paste(text);
    else
        m_observer.browserNotice(LateBrowserText::tr("Nothing was pasted: the page is not there yet."));
}

void LateBrowser::runFormTask(const QString &task, const QVariantList &values, FormAnswer answer)
{
    if (m_inner)
        m_inner->runFormTask(task, values, std::move(answer));
    else
        QMetaObject::invokeMethod(
            this, [answer = std::move(answer)] { answer({}); }, Qt::QueuedConnection);
}

void LateBrowser::setZoomFactor(double factor)
{
    m_zoomFactor = std::clamp(factor, smallestZoom, greatestZoom);
    if (m_inner)
        m_inner->setZoomFactor(m_zoomFactor);
}

void LateBrowser::setPasteTarget(WindowBrowser *browser)
{
    if (m_inner)
        m_inner->setPasteTarget(browser ? static_cast<LateBrowser *>(browser)->m_inner : nullptr);
}

double LateBrowser::estimatedProgress() const
{
    return m_inner ? m_inner->estimatedProgress() : 0;
}

QString LateBrowser::currentUrl() const
{
    return m_inner ? m_inner->currentUrl() : m_address;
}

bool LateBrowser::isLoading() const
{
    return m_inner ? m_inner->isLoading() : bool(m_load);
}

QString LateBrowser::host() const
{
    return m_inner ? m_inner->host() : QString();
}

bool LateBrowser::canGoBack() const
{
    return m_inner && m_inner->canGoBack();
}

bool LateBrowser::canGoForward() const
{
    return m_inner && m_inner->canGoForward();
}

void LateBrowser::goBack()
{
    if (m_inner)
        m_inner->goBack();
}

void LateBrowser::goForward()
{
    if (m_inner)
        m_inner->goForward();
}

void LateBrowser::reload()
{
    if (m_inner)
        m_inner->reload();
}

void LateBrowser::authorActed(bool isMouse)
{
    if (m_inner)
        m_inner->authorActed(isMouse);
}

void LateBrowser::restWhileHidden()
{
    if (m_inner)
        m_inner->restWhileHidden();
}

void LateBrowser::didStartProvisionalLoad()
{
    if (!m_isStartTold)
        m_delegate->didStartProvisionalLoad();
}

void LateBrowser::didFinishLoad()
{
    m_isStartTold = false;
    m_delegate->didFinishLoad();
}

void LateBrowser::didFailLoad(const QString &description)
{
    m_isStartTold = false;
    m_delegate->didFailLoad(description);
}

Browser &LateBrowser::createWebView()
{
    return *static_cast<LateBrowser &>(m_delegate->createWebView()).m_inner;
}

void LateBrowser::runJavaScriptAlertPanel(const QString &message)
{
    m_delegate->runJavaScriptAlertPanel(message);
}

void LateBrowser::runJavaScriptConfirmPanel(const QString &message, Confirmed confirmed)
{
    m_delegate->runJavaScriptConfirmPanel(message, std::move(confirmed));
}

void LateBrowser::runOpenPanelForFileButton(FileChosen chosen)
{
    m_delegate->runOpenPanelForFileButton(std::move(chosen));
}

} // namespace quillon
