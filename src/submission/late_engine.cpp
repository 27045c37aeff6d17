#include "submission/late_engine.h"

#include "submission/late_browser.h"

#include <QCoreApplication>

#include <utility>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class LateEngineText
{
    Q_DECLARE_TR_FUNCTIONS(LateEngine)
};

} // namespace

void LateEngine::begin(std::unique_ptr<BrowserEngine> engine)
{
    m_engine = std::move(engine);
    const QList<QPointer<LateBrowser>> waiting = std::exchange(m_waiting, {});
    for (const QPointer<LateBrowser> &browser : waiting) {
        if (browser)
            browser->begin(*m_engine);
    }
}

WindowBrowser &LateEngine::newBrowser(const QString &name, BrowserObserver &observer)
{
    auto *browser = new LateBrowser(name, observer);
    if (m_engine)
        browser->begin(*m_engine);
    else
        m_waiting.append(browser);
    return *browser;
}

Result<> LateEngine::clearStorage()
{
    if (m_engine)
        return m_engine->clearStorage();
    return Error{.kind = Error::Kind::Refused,
                 .reason = LateEngineText::tr("Pages are not there yet; try again in a moment.")};
}

} // namespace quillon
