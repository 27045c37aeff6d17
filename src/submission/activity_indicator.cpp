#include "submission/activity_indicator.h"

#include <QPainter>
#include <QTimerEvent>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr int spokes = 12;
constexpr int stepInterval = 80; ///< Milliseconds.
constexpr int diameter = 20;

} // namespace

ActivityIndicator::ActivityIndicator(QWidget *parent) : QWidget(parent)
{
    QSizePolicy policy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    setAccessibleName(tr("Loading"));
}

void ActivityIndicator::setValue(double value)
{
    const QString percent = u"%L1 %"_s.arg(qRound(value * 100));
    if (percent == accessibleDescription())
        return;
    setAccessibleDescription(percent);
    setToolTip(percent);
}

QSize ActivityIndicator::sizeHint() const
{
    return {diameter, diameter};
}

void ActivityIndicator::showEvent(QShowEvent *event)
{
    m_timer.start(stepInterval, this);
    QWidget::showEvent(event);
}

void ActivityIndicator::hideEvent(QHideEvent *event)
{
    m_timer.stop();
    QWidget::hideEvent(event);
}

void ActivityIndicator::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_timer.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    m_step = (m_step + 1) % spokes;
    update();
}

void ActivityIndicator::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect().center() + QPointF(0.5, 0.5));
    const double radius = qMin(width(), height()) / 2.0 - 1;
    QColor colour = palette().color(QPalette::WindowText);
    painter.rotate(m_step * 360.0 / spokes);
    for (int spoke = 0; spoke < spokes; ++spoke) {
        colour.setAlphaF(float(spoke + 1) / spokes);
        painter.setPen(QPen(colour, 2, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(0, -radius * 0.5), QPointF(0, -radius));
        painter.rotate(360.0 / spokes);
    }
}

} // namespace quillon
