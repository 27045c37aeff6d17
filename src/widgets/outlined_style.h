#pragma once

#include <QProxyStyle>

namespace quillon {

/// Outlines of fields, buttons, check boxes and sliders, and a mark on the tab on show, that can be seen on
/// every ground, where the usual style draws them in darker shades of the window's colour and a dark one has
/// none; and a frame in the button that has the keyboard.
class OutlinedStyle : public QProxyStyle
{
    Q_OBJECT
public:
    /// Becomes that of the application, if its style is one that needs it.
    static void install();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;

private:
    using QProxyStyle::QProxyStyle;
};

} // namespace quillon
