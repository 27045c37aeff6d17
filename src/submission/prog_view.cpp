#include "submission/prog_view.h"

#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/process_state.h"
#include "submission/load_progress.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr int usualWidth = 240;
constexpr int smallestBarWidth = 40;

/// The rectangle on whose middle a line of width 1 is drawn that stays inside @p outer.
QRectF line(const QRectF &outer)
{
    return outer.adjusted(0.5, 0.5, -0.5, -0.5);
}

} // namespace

ProgView::ProgView(QWidget *parent) : QProgressBar(parent)
{
    setAccessibleName(tr("Load progress"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFixedHeight(load_progress::frameHeight);
    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(notification::mwqnPVdr, this, [this] { showState(); });
    center.addObserver(notification::mwqnPVjhj342sa9, this, [this] { updateUrlView(); });
}

QSize ProgView::sizeHint() const
{
    return {usualWidth, load_progress::frameHeight};
}

QSize ProgView::minimumSizeHint() const
{
    return {smallestBarWidth, load_progress::frameHeight};
}

void ProgView::showState()
{
    const ProgressBarState &state = progressBarState;
    const double part = state.isReset || width() == 0 ? 0 : double(state.width) / width();
    setUpdatesEnabled(false); // A new value would be drawn at once, and then again.
    setValue(qRound(part * maximum()));
    setUpdatesEnabled(true);
}

void ProgView::paintEvent(QPaintEvent *)
{
    load_progress::setViewWidth(width());
    const ProgressBarState &state = progressBarState;
    const QRectF frame(0, 0, state.barWidth, load_progress::frameHeight);
    const QRectF loaded(state.x, state.y, state.width, state.height);

    QPainter painter(this);
    painter.fillRect(frame, Qt::white);
    painter.setPen(Qt::gray);
    if (state.isReset) {
        painter.fillRect(loaded, Qt::white);
    } else {
        painter.fillRect(loaded, QColor(load_progress::red, load_progress::green, load_progress::blue));
        if (state.width >= 1)
            painter.drawRect(line(loaded));
    }
    painter.drawRect(line(frame));
    NotificationCenter::defaultCenter().post(notification::mwqnTCRstVw);
}

void ProgView::resizeEvent(QResizeEvent *event)
{
    QProgressBar::resizeEvent(event);
    Q_EMIT resized(rect());
}

} // namespace quillon
