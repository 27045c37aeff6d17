#include "submission/web_engine_windows.h"

#include "submission/browser.h"
#include "submission/web_engine_browser.h"
#include "submission/web_engine_page.h"

#include <chrono>

namespace quillon {

namespace {

/// How long after the author's press a page may open a window.
constexpr std::chrono::seconds pressCounts{5};

} // namespace

void WebEngineWindows::setPage(WebEnginePage &page)
{
    connect(&page, &QWebEnginePage::newWindowRequested, this, &WebEngineWindows::open);
}

void WebEngineWindows::authorActed()
{
    m_mayOpen.setRemainingTime(pressCounts);
}

void WebEngineWindows::open(QWebEngineNewWindowRequest &request)
{
    if (!m_delegate)
        return;
    if (m_mayOpen.hasExpired()) {
        Q_EMIT refused();
        return;
    }
    m_mayOpen.setRemainingTime(0);
    // The delegate has no other browsers than those of this engine.
    static_cast<WebEngineBrowser &>(m_delegate->createWebView()).open(request);
}

} // namespace quillon
