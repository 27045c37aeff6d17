#include "submission/hover_button.h"

#include <QIcon>
#include <QStyleOptionButton>
#include <QStylePainter>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr int imageSize = 12;
constexpr int gap = 6;
constexpr qsizetype longTitle = 15; ///< UTF-16 units.
constexpr int smallestWidth = 90;

const QString blanks = u"        "_s;

/// Whether @p title moves aside under the mouse, to make room for the image there.
bool makesRoom(const QString &title)
{
    return title.size() > longTitle || title == u"Company Website" || title == u"Company Country";
}

/// A tick in @p place: what is on says so without its colour, too.
void drawTick(QPainter &painter, const QRect &place, const QColor &colour)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QRectF box = QRectF(place).adjusted(1, 2, -1, -2);
    painter.drawPolyline(QPolygonF({QPointF(box.left(), box.center().y()),
                                    QPointF(box.left() + box.width() * 0.35, box.bottom()), box.topRight()}));
    painter.restore();
}

} // namespace

HoverButtonControl::HoverButtonControl(const QString &title, QWidget *parent) : QPushButton(title, parent)
{
    setAccessibleName(title);
    setCheckable(true);
    setAutoDefault(false);
    setFocusPolicy(Qt::NoFocus);
    setIconSize({imageSize, imageSize});
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setImage(u"HoverOff"_s);
}

void HoverButtonControl::setImage(const QString &image)
{
    setIcon(QIcon(u":/icons/%1.svg"_s.arg(image)));
}

QSize HoverButtonControl::sizeHint() const
{
    const QString title = text().trimmed();
    const QSize contents(fontMetrics().horizontalAdvance(makesRoom(title) ? QString(blanks + title) : title) +
                             2 * (imageSize + gap),
                         qMax(fontMetrics().height(), imageSize));
    QStyleOptionButton option;
    initStyleOption(&option);
    return style()->sizeFromContents(QStyle::CT_PushButton, &option, contents, this);
}

QSize HoverButtonControl::minimumSizeHint() const
{
    return {smallestWidth, sizeHint().height()};
}

void HoverButtonControl::enterEvent(QEnterEvent *event)
{
    if (isActiveWindow() && isEnabled() && isChecked()) {
        setImage(u"HoverButton"_s);
        if (makesRoom(text()))
            setText(blanks + text());
    }
    QPushButton::enterEvent(event);
}

void HoverButtonControl::leaveEvent(QEvent *event)
{
    if (isEnabled()) {
        setImage(u"HoverOff"_s);
        setText(text().trimmed());
    }
    QPushButton::leaveEvent(event);
}

void HoverButtonControl::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);

    // Titles begin one below the other, which styles do not offer.
    QRect room =
        style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).adjusted(gap, 0, -gap, 0);
    const auto placed = [this, &room](Qt::Alignment side) {
        return QStyle::alignedRect(layoutDirection(), side | Qt::AlignVCenter, iconSize(), room);
    };
    icon().paint(&painter, placed(Qt::AlignLeft), Qt::AlignCenter,
                 isEnabled() ? QIcon::Normal : QIcon::Disabled);
    const QColor colour = option.palette.color(QPalette::ButtonText);
    if (isChecked())
        drawTick(painter, placed(Qt::AlignRight), colour);
    room.adjust(imageSize + gap, 0, -(imageSize + gap), 0);
    painter.setPen(colour);
    painter.drawText(room, Qt::AlignVCenter | int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)),
                     fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

} // namespace quillon
