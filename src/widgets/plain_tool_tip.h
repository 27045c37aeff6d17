#pragma once

#include "platform/plain_text.h"

#include <QWidget>

namespace quillon {

/// Gives @p widget a tool tip of plain @p text. Screen readers would read out the markup that keeps it plain;
/// they get the text itself.
inline void setPlainToolTip(QWidget &widget, const QString &text)
{
    widget.setToolTip(plainToolTip(text));
    widget.setAccessibleDescription(text);
}

} // namespace quillon
