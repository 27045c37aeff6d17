#include "widgets/elided_label.h"

#include "platform/plain_text.h"

#include <QHelpEvent>
#include <QStyle>
#include <QStylePainter>
#include <QToolTip>

namespace quillon {

ElidedLabel::ElidedLabel(const QString &name, QWidget *parent) : QLabel(parent)
{
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

QString ElidedLabel::shownText() const
{
    return fontMetrics().elidedText(text().simplified(), Qt::ElideRight, contentsRect().width());
}

QSize ElidedLabel::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(text().simplified()) + 1, fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, fontMetrics().height()};
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    const QString whole = shownText() == text().simplified() ? QString() : plainToolTip(text());
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), whole, this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    painter.drawItemText(contentsRect(), int(alignment()) | Qt::TextSingleLine, palette(), isEnabled(),
                         shownText(), foregroundRole());
}

} // namespace quillon
