#pragma once

#include "controls/controls.h"

#include <QColor>
#include <QPalette>
#include <QWidget>

namespace quillon {

/// The red of a broken rule, readable on the background that @p palette has; black is the palette's own text.
QColor validationColour(const QPalette &palette, Colour colour);

/// Gives the text of @p widget that colour.
void setValidationColour(QWidget &widget, Colour colour);

} // namespace quillon
