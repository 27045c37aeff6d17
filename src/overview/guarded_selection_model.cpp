#include "overview/guarded_selection_model.h"

namespace quillon {

void GuardedSelectionModel::select(const QItemSelection &selection, SelectionFlags command)
{
    const QModelIndex index = selection.indexes().value(0);
    if (command.testFlag(Select) && index.isValid()) {
        if (!isRowSelected(index.row()) && !m_guard(index, Telling::Aloud))
            return;
    } else if (command != NoUpdate && hasSelection() && !m_guard({}, Telling::Silent)) {
        return;
    }
    QItemSelectionModel::select(selection, command);
}

void GuardedSelectionModel::setCurrentIndex(const QModelIndex &index, SelectionFlags command)
{
    // The keyboard moves the current row and the selection at once, the mouse one after the other; either way
    // a refused row becomes neither selected nor current, and is refused aloud once.
    if (command.testFlag(Select) && index.isValid()) {
        select(QItemSelection(index, index), command);
        if (!isRowSelected(index.row()))
            return;
        command = NoUpdate;
    } else if (index.isValid() && !isRowSelected(index.row()) && !m_guard(index, Telling::Silent)) {
        return;
    }
    QItemSelectionModel::setCurrentIndex(index, command);
}

} // namespace quillon
