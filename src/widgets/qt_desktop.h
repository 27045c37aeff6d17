#pragma once

#include "platform/desktop.h"

namespace quillon {

/// The desktop by way of Qt.
class QtDesktop final : public Desktop
{
public:
    void setClipboardText(const QString &text) override;

    /// Only addresses of the web are opened; others could start other programs.
    void openWebAddress(const QUrl &address) override;

    bool openSoftwareCentre() override;
};

} // namespace quillon
