#include "editor/error_badge.h"

#include <QLocale>
#include <QPainter>
#include <QWidget>

namespace quillon {

QIcon errorBadge(int count, const QWidget &widget)
{
    const int height = widget.fontMetrics().height();
    const QString text = QLocale().toString(count);
    const QSize size(qMax(height, widget.fontMetrics().horizontalAdvance(text) + height / 2), height);
    QPixmap pixmap(size * widget.devicePixelRatioF());
    pixmap.setDevicePixelRatio(widget.devicePixelRatioF());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xc6, 0x1a, 0x1a));
    painter.drawRoundedRect(QRect(QPoint(0, 0), size), height / 2.0, height / 2.0);
    painter.setPen(Qt::white);
    painter.setFont(widget.font());
    painter.drawText(QRect(QPoint(0, 0), size), Qt::AlignCenter, text);
    return pixmap;
}

} // namespace quillon
