#pragma once

#include <QHash>
#include <QIcon>
#include <QStyledItemDelegate>

namespace quillon {

/// Draws cells of small pictures; where a cell has several, each has a tool tip of its own. Names that have
/// no picture of their own are drawn as @p fallback; pictures that do not fit into the cell are counted.
/// Among the program's pictures those of the folder @p own, which ends in "/", go before the others of their
/// name.
class IconCellDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit IconCellDelegate(const QString &fallback, QObject *parent = nullptr, const QString &own = {});

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

private:
    /// Where the pictures of one cell stand.
    struct Places
    {
        QList<QRect> icons;
        QRect rest; ///< Where the number of pictures that do not fit is written.
        int hidden = 0;
    };
    [[nodiscard]] Places placesIn(const QRect &cell, const QModelIndex &index) const;
    void paintIcon(QPainter *painter, const QRect &place, const QString &name, const QBrush &backing) const;
    [[nodiscard]] const QIcon &icon(const QString &name) const;

    QString m_fallback;
    QString m_own;
    mutable QHash<QString, QIcon> m_icons;
};

} // namespace quillon
