#include "widgets/row_table.h"

#include "controls/icon_cell.h"
#include "widgets/focus_frame.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTableView>

namespace quillon {

namespace {

/// A table in which keys go from row to row, and sort.
class RowTable final : public WithFocusFrame<QTableView>
{
public:
    using WithFocusFrame::WithFocusFrame;

    /// Finds the row by its first column, whichever column was clicked.
    void keyboardSearch(const QString &text) override
    {
        if (currentIndex().column() > 0)
            selectionModel()->setCurrentIndex(currentIndex().siblingAtColumn(0),
                                              QItemSelectionModel::NoUpdate);
        QTableView::keyboardSearch(text);
    }

protected:
    /// A window that comes to the front frames no row that nobody went to.
    void focusInEvent(QFocusEvent *event) override
    {
        const bool hadPlace = currentIndex().isValid();
        QTableView::focusInEvent(event);
        if (!hadPlace && event->reason() == Qt::ActiveWindowFocusReason)
            selectionModel()->clearCurrentIndex();
    }
    void keyPressEvent(QKeyEvent *event) override
    {
        if (isSortingEnabled() && event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier) &&
            sortBy(Qt::Key(event->key())))
            return;
        // Where no row is selected, as when the list has been loaded anew, the one that has the focus is what
        // the key selects first.
        const QModelIndex place = currentIndex();
        const bool moves = (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) &&
                           !(event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier));
        const bool opens = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if ((moves || opens) && place.isValid() && !selectionModel()->hasSelection()) {
            selectionModel()->select(place, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
            if (moves)
                return;
        }
        QTableView::keyPressEvent(event);
    }

    /// Left and Right sort by the next column to there that is shown, Up and Down the other way round; false
    /// for other keys.
    bool sortBy(Qt::Key key)
    {
        const QHeaderView *header = horizontalHeader();
        const int column = header->sortIndicatorSection();
        if (key == Qt::Key_Up || key == Qt::Key_Down)
            sortByColumn(column, key == Qt::Key_Up ? Qt::AscendingOrder : Qt::DescendingOrder);
        if (key != Qt::Key_Left && key != Qt::Key_Right)
            return key == Qt::Key_Up || key == Qt::Key_Down;
        const int step = key == Qt::Key_Right ? 1 : header->count() - 1;
        int place = header->visualIndex(column);
        do
            place = (place + step) % header->count();
        while (header->isSectionHidden(header->logicalIndex(place)));
        sortByColumn(header->logicalIndex(place), header->sortIndicatorOrder());
        return true;
    }

    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override
    {
        if (action != MoveHome && action != MoveEnd)
            return QTableView::moveCursor(action, modifiers);
        return model()->index(action == MoveHome ? 0 : model()->rowCount() - 1,
                              qMax(currentIndex().column(), 0));
    }
};

/// Fits the last column whenever its table has another width.
class LastColumn final : public QObject
{
public:
    explicit LastColumn(QTableView &table) : QObject(&table), m_table(table)
    {
        table.viewport()->installEventFilter(this);
        fit();
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Resize)
            fit();
        return false;
    }

private:
    void fit()
    {
        QHeaderView *header = m_table.horizontalHeader();
        int last = header->logicalIndex(header->count() - 1);
        for (int place = header->count() - 1; place > 0 && header->isSectionHidden(last); --place)
            last = header->logicalIndex(place - 1);
        const int head = header->sectionSizeHint(last);
        const int others = header->length() - header->sectionSize(last);
        const bool hasRoom = others + head <= m_table.viewport()->width();
        header->setStretchLastSection(hasRoom);
        if (!hasRoom)
            header->resizeSection(last, qMax(header->sectionSize(last), head));
    }

    QTableView &m_table;
};

/// Says what @p table is sorted by, and how that is changed without a mouse.
void describeSorting(QTableView &table)
{
    const QHeaderView *header = table.horizontalHeader();
    if (!table.isSortingEnabled() || !table.model())
        return;
    const QString column =
        table.model()->headerData(header->sortIndicatorSection(), Qt::Horizontal).toString();
    const QString order = header->sortIndicatorOrder() == Qt::AscendingOrder
                              ? QTableView::tr("Sorted by %1, ascending.").arg(column)
                              : QTableView::tr("Sorted by %1, descending.").arg(column);
    const QString keys =
        QTableView::tr("Ctrl+Shift with the arrow keys sorts by another column, or the other way round.");
    table.setAccessibleDescription(order + u' ' + keys);
    table.horizontalHeader()->setToolTip(order + u'\n' + keys);
}

} // namespace

QTableView *newRowTable(const QString &name, const QString &accessibleName, QWidget *parent)
{
    auto *table = new RowTable(parent);
    table->setObjectName(name);
    table->setAccessibleName(accessibleName);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setAlternatingRowColors(true);
    table->setShowGrid(false);
    table->setTabKeyNavigation(false);
    table->setWordWrap(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 8);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    QObject::connect(table->horizontalHeader(), &QHeaderView::sortIndicatorChanged, table,
                     [table] { describeSorting(*table); });
    return table;
}

QTableView *newIconRowTable(const QString &name, const QString &accessibleName, QWidget *parent)
{
    QTableView *table = newRowTable(name, accessibleName, parent);
    QHeaderView *rows = table->verticalHeader();
    rows->setDefaultSectionSize(qMax(rows->defaultSectionSize(), iconCellSize + 8));
    return table;
}

void setColumnWidths(QTableView &table, std::initializer_list<int> digits)
{
    QHeaderView *header = table.horizontalHeader();
    int column = 0;
    for (const int width : digits) {
        const int wanted = width * table.fontMetrics().horizontalAdvance(u'0');
        header->resizeSection(column, qMax(wanted, header->sectionSizeHint(column)));
        ++column;
    }
}

void stretchLastColumn(QTableView &table)
{
    new LastColumn(table);
}

QWidget *captioned(QLabel *caption, QWidget *content)
{
    auto *box = new QWidget;
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    caption->setBuddy(content);
    layout->addWidget(caption);
    layout->addWidget(content);
    return box;
}

} // namespace quillon
