#pragma once

#include "submission/browser_module.h"

#include <QList>
#include <QPointer>

namespace quillon {

class LateBrowser;

/// A web engine that windows can be made with before it has come; see LateBrowser.
class LateEngine final : public BrowserEngine
{
public:
    /// @p engine has come, once.
    void begin(std::unique_ptr<BrowserEngine> engine);
    [[nodiscard]] bool hasBegun() const { return m_engine != nullptr; }

    WindowBrowser &newBrowser(const QString &name, BrowserObserver &observer) override;
    /// Null before the engine has come.
    std::unique_ptr<Visitor> newVisitor() override { return m_engine ? m_engine->newVisitor() : nullptr; }
    /// Refused before the engine has come.
    Result<> clearStorage() override;

private:
    std::unique_ptr<BrowserEngine> m_engine;
    QList<QPointer<LateBrowser>> m_waiting;
};

} // namespace quillon
