#include "widgets/icon_cell_delegate.h"

#include "controls/icon_cell.h"
#include "platform/plain_text.h"
#include "store/site_images.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFile>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr int gap = 3;
constexpr int step = iconCellSize + gap;

/// The picture that the program, first in its folder @p own, or for a site the data folder has under @p name;
/// empty when neither has one.
QString picturePath(const QString &own, const QString &name)
{
    for (const QString &image : {QString(own + name), name}) {
        if (QString path = site_images::programImage(image); QFile::exists(path))
            return path;
    }
    const auto kept = site_images::authorImage(name);
    return kept && QFile::exists(*kept) ? *kept : QString();
}

} // namespace

IconCellDelegate::IconCellDelegate(const QString &fallback, QObject *parent, const QString &own)
    : QStyledItemDelegate(parent), m_fallback(fallback), m_own(own)
{
}

const QIcon &IconCellDelegate::icon(const QString &name) const
{
    auto found = m_icons.constFind(name);
    if (found == m_icons.cend()) {
        const QString path = picturePath(m_own, name);
        found = m_icons.insert(name, QIcon(path.isEmpty() ? m_fallback : path));
    }
    return *found;
}

IconCellDelegate::Places IconCellDelegate::placesIn(const QRect &cell, const QModelIndex &index) const
{
    const int count = int(index.data(IconsRole).toStringList().size());
    const int fitting = qMax(0, (cell.width() - gap) / step);
    // The last place tells how many there are beyond it.
    const int shown = count <= fitting ? count : qMax(0, fitting - 2);
    const int width = (count <= fitting ? count : fitting) * step - gap;
    const auto alignment = Qt::Alignment::fromInt(index.data(Qt::TextAlignmentRole).toInt());
    const QRect row = QStyle::alignedRect(QApplication::layoutDirection(), alignment, {width, iconCellSize},
                                          cell.adjusted(gap, 0, -gap, 0));
    Places places;
    for (int at = 0; at < shown; ++at)
        places.icons.append({row.left() + at * step, row.top(), iconCellSize, iconCellSize});
    places.hidden = count - shown;
    places.rest = QRect(row.left() + shown * step, row.top(), 2 * step, iconCellSize);
    return places;
}

void IconCellDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index); // Background, selection and focus.
    const QStringList names = index.data(IconsRole).toStringList();
    const Places places = placesIn(option.rect, index);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    for (qsizetype at = 0; at < places.icons.size(); ++at)
        paintIcon(painter, places.icons[at], names[at], selected ? option.palette.base() : QBrush());
    if (places.hidden > 0) {
        painter->setPen(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(places.rest, Qt::AlignCenter, u"+%L1"_s.arg(places.hidden));
    }
}

void IconCellDelegate::paintIcon(QPainter *painter, const QRect &place, const QString &name,
                                 const QBrush &backing) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (backing.style() != Qt::NoBrush) { // The pictures are drawn for the colour of an unselected row.
        painter->setPen(Qt::NoPen);
        painter->setBrush(backing);
        painter->drawRoundedRect(place.adjusted(-1, -1, 1, 1), 3, 3);
    }
    if (const QIcon &picture = icon(name); !picture.isNull()) {
        picture.paint(painter, place);
    } else {
        painter->setPen(QPen(QColor(Qt::gray), 1, Qt::DotLine));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(place).adjusted(2.5, 2.5, -2.5, -2.5), 2, 2);
    }
    painter->restore();
}

QSize IconCellDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const auto count = int(index.data(IconsRole).toStringList().size());
    const QSize text = QStyledItemDelegate::sizeHint(option, index);
    return text.expandedTo({gap + count * step, iconCellSize + 2 * gap});
}

bool IconCellDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                 const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const QStringList names = index.data(IconsRole).toStringList();
    const Places places = placesIn(option.rect, index);
    const bool haveOwnTips = event->type() == QEvent::ToolTip && names.size() > 1;
    for (qsizetype at = 0; haveOwnTips && at < places.icons.size(); ++at) {
        if (places.icons[at].contains(event->pos())) {
            QToolTip::showText(event->globalPos(), plainToolTip(iconDescription(names[at])), view);
            return true;
        }
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

} // namespace quillon
