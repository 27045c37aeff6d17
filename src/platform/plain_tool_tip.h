#pragma once

#include <QString>

namespace quillon {

/// @p text for a tool tip that shows it as it stands: tool tips would take a text with tags in it for markup.
inline QString plainToolTip(const QString &text)
{
    return text.isEmpty() ? QString() : QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped());
}

} // namespace quillon
