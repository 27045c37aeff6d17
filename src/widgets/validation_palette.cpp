#include "widgets/validation_palette.h"

namespace quillon {

QColor validationColour(const QPalette &palette, Colour colour)
{
    if (colour == Colour::Black)
        return palette.color(QPalette::Active, QPalette::WindowText);
    static constexpr int middleLightness = 128;
    const bool dark = palette.color(QPalette::Window).lightness() < middleLightness;
    return dark ? QColor(0xff, 0x7b, 0x72) : QColor(0xc6, 0x1a, 0x1a);
}

void setValidationColour(QWidget &widget, Colour colour)
{
    if (colour == Colour::Black) {
        widget.setPalette(QPalette()); // Back to what the style gives.
        return;
    }
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, validationColour(palette, colour));
    widget.setPalette(palette);
}

} // namespace quillon
