#include "widgets/validation_palette.h"

#include <cmath>

namespace quillon {

namespace {

constexpr double readable = 4.5;

/// From 0 for black to 1 for white.
double luminance(const QColor &colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

} // namespace

double contrast(const QColor &one, const QColor &other)
{
    static constexpr double flare = 0.05; // Of the light that falls on every screen.
    const double first = luminance(one) + flare;
    const double second = luminance(other) + flare;
    return qMax(first, second) / qMin(first, second);
}

QColor validationColour(const QPalette &palette, Colour colour, QPalette::ColorRole ground)
{
    if (colour == Colour::Red) {
        const QColor back = palette.color(QPalette::Active, ground);
        for (const QRgb red : {0xffc61a1a, 0xffff7b72, 0xff8f0f0f, 0xffffb3ad}) {
            if (contrast(QColor(red), back) >= readable)
                return QColor(red);
        }
    }
    return palette.color(QPalette::Active, ground == QPalette::Base ? QPalette::Text : QPalette::WindowText);
}

QColor mutedColour(const QPalette &palette, QPalette::ColorRole text, QPalette::ColorRole ground)
{
    static constexpr float share = 0.4F; // Of the ground.
    const QColor full = palette.color(text);
    const QColor back = palette.color(ground);
    const auto mixed = [](float one, float other) { return one + (other - one) * share; };
    const QColor paler =
        QColor::fromRgbF(mixed(full.redF(), back.redF()), mixed(full.greenF(), back.greenF()),
                         mixed(full.blueF(), back.blueF()));
    return contrast(paler, back) >= readable ? paler : full;
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

void setCaptionColour(QWidget &widget, Colour colour)
{
    setValidationColour(widget, colour);
    QFont font = widget.font();
    font.setBold(colour == Colour::Red);
    widget.setFont(font);
}

} // namespace quillon
