#include "submission/web_engine_browser.h"

#include "platform/web_address.h"
#include "submission/hang_bar.h"
#include "submission/web_engine_page.h"
#include "submission/web_engine_scripts.h"
#include "submission/web_engine_storage.h"
#include "submission/web_engine_view.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QVBoxLayout>
#include <QWebEngineHistory>
#include <QWebEngineNewWindowRequest>

#include <initializer_list>

using namespace Qt::StringLiterals;

namespace quillon {

WebEngineBrowser::WebEngineBrowser(WebEngineStorage &storage, PasteQueue &pastes, const QString &name,
                                   QWidget *parent)
    : QWidget(parent)
    , m_storage(storage)
    , m_view(new WebEngineView(this))
    , m_hangBar(new HangBar)
    , m_page(new WebEnginePage(storage.profile(), this))
    , m_pasting(pastes)
{
    setObjectName(name + u"Browser"_s);
    m_view->setObjectName(name);
    m_view->setPage(m_page);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_hangBar);
    layout->addWidget(m_view, 1);
    m_hangBar->hide();
    setFocusProxy(m_view);
    connectParts();
    connectPage();
}

WebEngineBrowser::~WebEngineBrowser() = default;

void WebEngineBrowser::connectParts()
{
    connect(&m_loading, &WebEngineLoading::stateChanged, this, &WebEngineBrowser::stateChanged);
    connect(&m_loading, &WebEngineLoading::failed, this, &WebEngineBrowser::loadFailed);
    connect(&m_loading, &WebEngineLoading::noticeOutdated, this, [this] { Q_EMIT notice({}); });
    connect(&m_loading, &WebEngineLoading::documentGoes, &m_pasting, &WebEnginePasting::documentGoes);
    connect(&m_loading, &WebEngineLoading::documentCame, this, [this] {
        m_page->setZoomFactor(m_zoomFactor); // The engine remembers it for each server.
        m_pasting.documentCame();
    });
    connect(&m_pasting, &WebEnginePasting::notice, this, &WebEngineBrowser::notice);
    connect(&m_pasting, &WebEnginePasting::pasted, this, &WebEngineBrowser::pasted);
    connect(&m_watch, &WebEngineWatch::hangChanged, m_hangBar, &QWidget::setVisible);
    connect(&m_watch, &WebEngineWatch::looked, &m_storage, &WebEngineStorage::look);
    connect(&m_storage, &WebEngineStorage::cleared, this, &WebEngineBrowser::storageCleared);
    connect(m_hangBar, &HangBar::endRequested, this, [this] {
        m_loading.processEnds();
        m_watch.endProcess();
    });
    connect(&m_windows, &WebEngineWindows::refused, this,
            [this] { Q_EMIT notice(tr("The page wanted to open a window by itself; it was not opened.")); });
}

void WebEngineBrowser::connectPage()
{
    m_loading.setPage(*m_page);
    m_pasting.setPage(*m_page);
    m_windows.setPage(*m_page);
    m_watch.setPage(*m_page);
    connect(m_page, &QWebEnginePage::titleChanged, this, &WebEngineBrowser::titleChanged);
    connect(m_page, &QWebEnginePage::windowCloseRequested, this, &WebEngineBrowser::closeRequested);
    connect(m_page, &QWebEnginePage::linkHovered, this, &WebEngineBrowser::showLink);
    connect(m_page, &WebEnginePage::fileRefused, this, [this](const QString &name) {
        Q_EMIT notice(tr("The page offers the file “%1”; files are not stored here.").arg(name));
    });
    connect(m_page, &WebEnginePage::navigationRefused, this, [this](const QUrl &url) {
        Q_EMIT notice(tr("Addresses of the kind “%1:” are not opened here.").arg(url.scheme()));
    });
}

void WebEngineBrowser::renew()
{
    WebEnginePage *const old = m_page;
    for (const QObject *listener :
         std::initializer_list<const QObject *>{this, &m_loading, &m_windows, &m_watch})
        old->disconnect(listener);
    m_page = new WebEnginePage(m_storage.profile(), this);
    m_page->setDelegate(m_delegate);
    connectPage();
    m_view->setPage(m_page);
    old->giveUp(); // It may be the one that asks for this.
    Q_EMIT stateChanged();
}

void WebEngineBrowser::storageCleared(const QString &reason)
{
    const QString address = currentUrl();
    renew();
    if (address.isEmpty())
        return;
    if (reason.isEmpty())
        loadUrl(address);
    else
        m_loading.refuse(address, reason);
}

void WebEngineBrowser::showEvent(QShowEvent *event)
{
    m_watch.setRunning(true);
    QWidget::showEvent(event);
}

void WebEngineBrowser::hideEvent(QHideEvent *event)
{
    m_watch.setRunning(false);
    QWidget::hideEvent(event);
}

void WebEngineBrowser::open(QWebEngineNewWindowRequest &request)
{
    renew(); // A page cannot take its own place, and keeps the name that another page gave it.
    request.openIn(m_page);
}

void WebEngineBrowser::setDelegate(BrowserDelegate *delegate)
{
    m_delegate = delegate;
    m_page->setDelegate(delegate);
    m_loading.setDelegate(delegate);
    m_windows.setDelegate(delegate);
}

void WebEngineBrowser::setPasteTarget(WindowBrowser *browser)
{
    m_pasteTarget = static_cast<WebEngineBrowser *>(browser); // The engine has no others.
}

void WebEngineBrowser::authorActed(bool isMouse)
{
    m_windows.authorActed();
    if (isMouse)
        m_pasting.mousePressed();
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

void WebEngineBrowser::paste(const QString &text)
{
    (m_pasteTarget ? *m_pasteTarget : *this).m_pasting.paste(text);
}

void WebEngineBrowser::runFormTask(const QString &task, const QVariantList &values, FormAnswer answer)
{
    static const QString script = u"(globalThis.quillonForms ||= %1)."_s.arg(ownScript(u"form-filling.js"_s));
    const QByteArray arguments =
        QJsonDocument(QJsonArray::fromVariantList(values)).toJson(QJsonDocument::Compact);
    const QString call = task + u"(..."_s + QString::fromUtf8(arguments) + u')';
    (m_pasteTarget ? *m_pasteTarget : *this).m_page->ask(script + call, std::move(answer));
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

void WebEngineBrowser::stop()
{
    m_page->triggerAction(QWebEnginePage::Stop);
}

void WebEngineBrowser::setZoomFactor(double factor)
{
    m_zoomFactor = factor;
    m_page->setZoomFactor(factor);
}

void WebEngineBrowser::showLink(const QString &url)
{
    // The engine tells of no link also when there was none; another notice stays then.
    if (!url.isEmpty() || m_showsLink)
        Q_EMIT notice(unmistakableAddress(QUrl(url).adjusted(QUrl::RemoveUserInfo)));
    m_showsLink = !url.isEmpty();
}

} // namespace quillon
