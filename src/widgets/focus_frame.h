#pragma once

#include <QAbstractScrollArea>
#include <QEvent>
#include <QPainter>

namespace quillon {

/// A text or list of the kind @p Area that shows by a frame in the colour of selections that it has the
/// keyboard. Single lines have one in every style, the others in some styles none.
template<typename Area>
class WithFocusFrame : public Area
{
public:
    using Area::Area;

protected:
    bool event(QEvent *event) override
    {
        const bool handled = Area::event(event);
        switch (event->type()) {
        case QEvent::Polish:
            this->setViewportMargins(1, 1, 1, 1); // Room for the frame, one more than the style's own.
            break;
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            QAbstractScrollArea::update();
            break;
        case QEvent::Paint:
            paintFrame();
            break;
        default:
            break;
        }
        return handled;
    }

private:
    void paintFrame()
    {
        const int own = this->hasFocus() ? 0 : this->frameWidth();
        const auto ground = this->viewport()->autoFillBackground() ? QPalette::Base : QPalette::Window;
        const auto colour = this->hasFocus() ? QPalette::Highlight : ground;
        QPainter painter(this);
        for (int at = own; at <= this->frameWidth(); ++at) {
            painter.setPen(this->palette().color(colour));
            painter.drawRect(this->rect().adjusted(at, at, -at - 1, -at - 1));
        }
    }
};

} // namespace quillon
