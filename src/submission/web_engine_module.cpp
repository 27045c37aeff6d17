#include "submission/web_engine_module.h"

#include "submission/paste_queue.h"
#include "submission/web_engine_browser.h"
#include "submission/web_engine_storage.h"
#include "submission/web_engine_visitor.h"

namespace quillon {

namespace {

class WebEngine final : public BrowserEngine
{
public:
    WebEngine(const QString &folder, Desktop &desktop)
        : m_folder(folder), m_storage(folder), m_pastes(desktop)
    {
    }

    WindowBrowser &newBrowser(const QString &name, BrowserObserver &observer) override
    {
        auto *browser = new WebEngineBrowser(m_storage, m_pastes, name);
        const auto tell = [&](auto signal, auto report) {
            QObject::connect(browser, signal, browser, std::bind_front(report, &observer));
        };
        tell(&WebEngineBrowser::stateChanged, &BrowserObserver::browserChanged);
        tell(&WebEngineBrowser::titleChanged, &BrowserObserver::browserTitleChanged);
        tell(&WebEngineBrowser::loadFailed, &BrowserObserver::browserLoadFailed);
        tell(&WebEngineBrowser::closeRequested, &BrowserObserver::browserCloseRequested);
        tell(&WebEngineBrowser::notice, &BrowserObserver::browserNotice);
        tell(&WebEngineBrowser::pasted, &BrowserObserver::browserPasted);
        return *browser;
    }

    std::unique_ptr<Visitor> newVisitor() override { return std::make_unique<WebEngineVisitor>(m_folder); }

    Result<> clearStorage() override { return m_storage.clear(); }

private:
    QString m_folder; ///< Whatever an earlier run has left in it is cleared away by m_storage.
    WebEngineStorage m_storage;
    PasteQueue m_pastes;
};

} // namespace

std::unique_ptr<BrowserEngine> WebEngineModule::newEngine(const QString &folder, Desktop &desktop)
{
    return std::make_unique<WebEngine>(folder, desktop);
}

} // namespace quillon
