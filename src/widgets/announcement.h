#pragma once

#include <QString>

class QWidget;

namespace quillon {

/// Has screen readers say @p text, which has come up by itself in the window of @p widget, when they have
/// said what they are at. The keyboard stays where it is, and an empty text says nothing.
void announce(const QWidget &widget, const QString &text);

} // namespace quillon
