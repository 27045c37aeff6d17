#pragma once

#include "controls/controls.h"

#include <QColor>
#include <QPalette>
#include <QWidget>

namespace quillon {

/// How much one colour stands out from the other, from 1 to 21: the ratio of their luminances, as
/// accessibility guidelines have it. Texts want 4.5 at least.
double contrast(const QColor &one, const QColor &other);

/// The red of a broken rule, readable on what @p palette has for @p ground, or the palette's own text where
/// no red is; black is always that.
QColor validationColour(const QPalette &palette, Colour colour,
                        QPalette::ColorRole ground = QPalette::Window);

/// A paler text, readable on the ground; the palette's own text where nothing paler is.
QColor mutedColour(const QPalette &palette, QPalette::ColorRole text, QPalette::ColorRole ground);

/// Gives the text of @p widget the colour of a judgement.
void setValidationColour(QWidget &widget, Colour colour);

/// The same for a caption, which is bold too while it is red: nobody has to tell colours apart.
void setCaptionColour(QWidget &widget, Colour colour);

} // namespace quillon
