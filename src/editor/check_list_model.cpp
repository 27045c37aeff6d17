#include "editor/check_list_model.h"

#include "editor/editor.h"

namespace quillon {

CheckListModel::CheckListModel(Editor &editor, FieldId list, QObject *parent)
    : QAbstractListModel(parent), m_editor(editor), m_list(list)
{
    connect(&editor.form().checkList(list), &Control::changed, this,
            [this] { Q_EMIT dataChanged(index(0), index(rowCount() - 1), {Qt::CheckStateRole}); });
}

int CheckListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_editor.numberOfRows(m_list);
}

QVariant CheckListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return m_editor.rowTitle(m_list, index.row());
    case Qt::CheckStateRole:
        return m_editor.isRowTicked(m_list, index.row()) ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

Qt::ItemFlags CheckListModel::flags(const QModelIndex &index) const
{
    return QAbstractListModel::flags(index) | Qt::ItemIsUserCheckable;
}

bool CheckListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    const bool tick = value.value<Qt::CheckState>() == Qt::Checked;
    if (tick != m_editor.isRowTicked(m_list, index.row()))
        m_editor.toggleRow(m_list, index.row());
    return true;
}

} // namespace quillon
