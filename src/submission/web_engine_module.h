#pragma once

#include "submission/browser_module.h"

#include <QObject>

namespace quillon {

/// The module's entry: browsers on Qt's web engine.
class WebEngineModule final : public QObject, public BrowserModule
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QUILLON_BROWSER_MODULE)
    Q_INTERFACES(quillon::BrowserModule)
public:
    std::unique_ptr<BrowserEngine> newEngine(const QString &folder, Desktop &desktop) override;
};

} // namespace quillon
