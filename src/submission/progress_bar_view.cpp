#include "submission/progress_bar_view.h"

#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/process_state.h"
#include "submission/prog_view.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr int usualWidth = 240;

/// The rectangle on whose middle a line of width 1 is drawn that stays inside @p outer.
QRectF line(const QRectF &outer)
{
    return outer.adjusted(0.5, 0.5, -0.5, -0.5);
}

} // namespace

ProgView::ProgView(QWidget *parent) : QWidget(parent)
{
    setAccessibleName(u"Load progress"_s);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFixedHeight(prog_view::frameHeight);
    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(notification::mwqnPVdr, this, [this] { update(); });
    center.addObserver(notification::mwqnPVjhj342sa9, this, [this] { updateUrlView(); });
}

QSize ProgView::sizeHint() const
{
    return {usualWidth, prog_view::frameHeight};
}

void ProgView::paintEvent(QPaintEvent *)
{
    prog_view::setViewWidth(width());
    const ProgressBarState &state = progressBarState;
    const QRectF frame(0, 0, state.barWidth, prog_view::frameHeight);
    const QRectF loaded(state.x, state.y, state.width, state.height);

    QPainter painter(this);
    painter.fillRect(frame, Qt::white);
    painter.setPen(Qt::gray);
    if (state.isReset) {
        painter.fillRect(loaded, Qt::white);
    } else {
        painter.fillRect(loaded, QColor(prog_view::red, prog_view::green, prog_view::blue));
        if (state.width >= 1)
            painter.drawRect(line(loaded));
    }
    painter.drawRect(line(frame));
    NotificationCenter::defaultCenter().post(notification::mwqnTCRstVw);
}

void ProgView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Q_EMIT resized(rect());
}

} // namespace quillon
