#include "widgets/row_table.h"

#include "controls/icon_cell.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTableView>

namespace quillon {

namespace {

/// A table in which keys go from row to row.
class RowTable final : public QTableView
{
public:
    using QTableView::QTableView;

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

    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override
    {
        if (action != MoveHome && action != MoveEnd)
            return QTableView::moveCursor(action, modifiers);
        return model()->index(action == MoveHome ? 0 : model()->rowCount() - 1,
                              qMax(currentIndex().column(), 0));
    }
};

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
    return table;
}

QTableView *newIconRowTable(const QString &name, const QString &accessibleName, QWidget *parent)
{
    QTableView *table = newRowTable(name, accessibleName, parent);
    QHeaderView *rows = table->verticalHeader();
    rows->setDefaultSectionSize(qMax(rows->defaultSectionSize(), iconCellSize + 8));
    return table;
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
