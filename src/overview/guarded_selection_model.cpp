#include "overview/guarded_selection_model.h"

namespace quillon {

void GuardedSelectionModel::select(const QItemSelection &selection, SelectionFlags command)
{
    const QModelIndex index = selection.indexes().value(0);
    if (index.isValid() && command.testFlag(Select) && !isRowSelected(index.row()) && !m_guard(index))
        return;
    QItemSelectionModel::select(selection, command);
}

void GuardedSelectionModel::setCurrentIndex(const QModelIndex &index, SelectionFlags command)
{
    // The keyboard moves the current row and the selection at once; a refused selection keeps both.
    if (command.testFlag(Select) && index.isValid()) {
        select(QItemSelection(index, index), command);
        if (!isRowSelected(index.row()))
            return;
        command = NoUpdate;
    }
    QItemSelectionModel::setCurrentIndex(index, command);
}

} // namespace quillon
