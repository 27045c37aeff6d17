#include "submission/page_load.h"

#include "platform/delayed_calls.h"
#include "platform/desktop.h"
#include "platform/web_address.h"
#include "store/process_state.h"
#include "submission/browser.h"
#include "submission/load_error_page.h"
#include "submission/load_progress.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quillon {

PageLoad::PageLoad(Browser &qnWebView, Desktop &desktop, DelayedCalls &delayedCalls, QObject *parent)
    : QObject(parent), m_qnWebView(qnWebView), m_desktop(desktop), m_delayedCalls(delayedCalls)
{
}

void PageLoad::loadSiteToWebview(const QString &url)
{
    if (mwqnWOSi78tgsda)
        return;
    m_showsErrorPage = false;
    m_qnWebView.loadUrl(url);
}

void PageLoad::openInDefaultBrowserAction()
{
    if (const QUrl url(m_urlField); isWebAddress(url))
        m_desktop.openWebAddress(url);
}

void PageLoad::setUrlField(const QString &text)
{
    if (text == m_urlField)
        return;
    m_urlField = text;
    Q_EMIT urlFieldChanged();
}

void PageLoad::didStartProvisionalLoad()
{
    if (!mwqnWOSi78tgsda) {
        Q_EMIT focusSitesTable();
        m_continueViewUpdate = true;
        scheduleProgressUpdate(++m_timer);
    }
    setUrlField(m_qnWebView.currentUrl());
    Q_EMIT loadStateChanged();
}

void PageLoad::didFinishLoad()
{
    const bool wasErrorPage = std::exchange(m_showsErrorPage, false);
    endLoad();
    if (!wasErrorPage)
        Q_EMIT ended({});
}

void PageLoad::didFailLoad(const QString &description)
{
    const bool wasErrorPage = std::exchange(m_showsErrorPage, false);
    if (!wasErrorPage) { // An engine that fails on that page must not be asked for it again.
        m_showsErrorPage = true;
        m_qnWebView.loadHtml(loadErrorPage(description), m_urlField);
    }
    endLoad();
    if (!wasErrorPage)
        Q_EMIT ended(description);
}

void PageLoad::endLoad()
{
    ++m_timer;
    m_continueViewUpdate = false;
    const QRectF &bounds = m_progressBarBounds;
    load_progress::resetRectProgress(int(bounds.x()), int(bounds.y()), int(bounds.width()),
                                     int(bounds.height()));
    Q_EMIT loadStateChanged();
}

void PageLoad::windowDidResize(const QRectF &bounds)
{
    m_progressBarBounds = bounds;
    showProgress();
}

void PageLoad::showProgress()
{
    const QRectF &bounds = m_progressBarBounds;
    const double width = bounds.width() * m_qnWebView.estimatedProgress();
    load_progress::updateRectProgress(int(bounds.x()), int(bounds.y()), int(width), int(bounds.height()));
}

void PageLoad::loadProgressUpdate()
{
    if (m_continueViewUpdate)
        showProgress();
    m_webViewLoadProgress = m_qnWebView.estimatedProgress();
    Q_EMIT loadStateChanged();
}

void PageLoad::scheduleProgressUpdate(int timer)
{
    m_delayedCalls.after(progressInterval, this, [this, timer] {
        if (timer != m_timer)
            return;
        loadProgressUpdate();
        scheduleProgressUpdate(timer);
    });
}

} // namespace quillon
