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

/// Whether what the usual style draws in shades of the window's colour can be seen.
bool areShadesSeen(const QPalette &palette)
{
    static constexpr double leastContrast = 1.25; // Of a shade that still shows.
    static constexpr int shade = 140;
    const QColor ground = palette.color(QPalette::Window);
    return contrast(ground, ground.darker(shade)) >= leastContrast;
}

void drawOutline(const QStyleOption &option, const QRect &place, QPainter &painter)
{
    if (areShadesSeen(option.palette))
        return;
    const bool hasFocus = option.state.testFlag(QStyle::State_HasFocus);
    drawFrame(place, painter,
              hasFocus ? option.palette.color(QPalette::Highlight)
                       : mutedColour(option.palette, QPalette::WindowText, QPalette::Window));
}

/// Where the frame of a group stands in @p option: its title is above, as the usual style has it.
QRect groupFrame(const QStyleOption &option, const QStyle &style)
{
    static constexpr int gap = 3;
    const int title = qMax(style.pixelMetric(QStyle::PM_IndicatorHeight), option.fontMetrics.height());
    return option.rect.adjusted(0, title + gap, 0, 0);
}

/// Marks the tab that is on show; all tabs of the program stand above their pages.
void drawTabMark(const QStyleOptionTab &tab, QPainter &painter)
{
    static constexpr int thickness = 3;
    painter.fillRect(QRect(tab.rect.topLeft(), QSize(tab.rect.width(), thickness)),
                     tab.palette.color(QPalette::Highlight));
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
        drawOutline(*option, element == PE_FrameGroupBox ? groupFrame(*option, *this) : option->rect,
                    *painter);
}

void OutlinedStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                                const QWidget *widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    const auto *tab = qstyleoption_cast<const QStyleOptionTab *>(option);
    if (element == CE_TabBarTabShape && tab && tab->state.testFlag(State_Selected) &&
        !areShadesSeen(tab->palette))
        drawTabMark(*tab, *painter);
}

void OutlinedStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                       QPainter *painter, const QWidget *widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox || control == CC_SpinBox)
        drawOutline(*option, option->rect, *painter);
    if (control == CC_ScrollBar)
        drawOutline(*option, subControlRect(control, option, SC_ScrollBarSlider, widget), *painter);
}

} // namespace quillon
