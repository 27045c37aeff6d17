#include "widgets/outlined_style.h"

#include "widgets/validation_palette.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString needy = u"fusion"_s;

bool hasOutline(QStyle::PrimitiveElement element)
{
    switch (element) {
    case QStyle::PE_Frame:
    case QStyle::PE_FrameGroupBox:
    case QStyle::PE_FrameLineEdit:
    case QStyle::PE_IndicatorCheckBox:
    case QStyle::PE_IndicatorItemViewItemCheck:
    case QStyle::PE_PanelButtonCommand:
        return true;
    default:
        return false;
    }
}

void drawFrame(const QRect &place, QPainter &painter, const QColor &colour)
{
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(colour);
    painter.drawRect(place.adjusted(0, 0, -1, -1));
    painter.restore();
}

void drawOutline(const QStyleOption &option, QPainter &painter)
{
    static constexpr double leastContrast = 1.25; // Of a shade that still shows.
    static constexpr int shade = 140;
    const QColor ground = option.palette.color(QPalette::Window);
    if (contrast(ground, ground.darker(shade)) >= leastContrast)
        return;
    const bool hasFocus = option.state.testFlag(QStyle::State_HasFocus);
    drawFrame(option.rect, painter,
              hasFocus ? option.palette.color(QPalette::Highlight)
                       : mutedColour(option.palette, QPalette::WindowText, QPalette::Window));
}

} // namespace

void OutlinedStyle::install()
{
    if (QApplication::style()->name() == needy)
        QApplication::setStyle(new OutlinedStyle(needy));
}

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                                  const QWidget *widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    // Otherwise a button that Return presses looks as if it always had the keyboard.
    if (element == PE_PanelButtonCommand &&
        option->state.testFlags(State_HasFocus | State_KeyboardFocusChange))
        drawFrame(option->rect.adjusted(3, 3, -3, -3), *painter, option->palette.color(QPalette::Highlight));
    if (hasOutline(element))
        drawOutline(*option, *painter);
}

void OutlinedStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                       QPainter *painter, const QWidget *widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox || control == CC_SpinBox)
        drawOutline(*option, *painter);
}

} // namespace quillon
