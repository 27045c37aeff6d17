#include "widgets/scroll_area.h"

#include <QEvent>
#include <QLayout>

namespace quillon {

ScrollArea::ScrollArea(QWidget *content)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidget(content);
    content->setAutoFillBackground(false);
}

/// The toolkit would make a content with texts of several lines as high as it would like to be.
void ScrollArea::fit()
{
    const QLayout *layout = widget()->layout();
    QSize least = widget()->minimumSizeHint();
    if (layout && layout->hasHeightForWidth())
        least.setHeight(layout->minimumHeightForWidth(qMax(least.width(), viewport()->width())));
    widget()->resize(viewport()->size().expandedTo(least));
}

void ScrollArea::resizeEvent(QResizeEvent *event)
{
    fit();
    QScrollArea::resizeEvent(event);
}

bool ScrollArea::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        fit();
    return QScrollArea::eventFilter(watched, event);
}

} // namespace quillon
