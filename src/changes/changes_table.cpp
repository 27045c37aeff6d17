#include "changes/changes_table.h"

#include "editor/editor_layout.h"
#include "platform/plain_text.h"

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// A cell shows so many characters of a text at most; the whole of it stands below the table.
constexpr qsizetype longestCell = 200;

QString cell(const QString &text)
{
    return text.isEmpty() ? u"(empty)"_s : plainLine(text, longestCell);
}

} // namespace

ChangesTable::ChangesTable(ChangePreview &preview, QObject *parent)
    : QAbstractTableModel(parent), m_preview(preview)
{
    connect(&preview, &QAbstractItemModel::modelReset, this, [this] { show(-1); });
}

void ChangesTable::show(int row)
{
    beginResetModel();
    m_row = row;
    m_changes = row < 0 ? QList<Change>() : m_preview.row(row).whole.changes;
    endResetModel();
}

int ChangesTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_changes.size());
}

int ChangesTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ChangesTable::data(const QModelIndex &index, int role) const
{
    const Change &change = m_changes[index.row()];
    if (role == Qt::CheckStateRole && index.column() == Field)
        return m_preview.isChangeTicked(m_row, change.field) ? Qt::Checked : Qt::Unchecked;
    if (role != Qt::DisplayRole)
        return {};
    if (index.column() == Field)
        return accessibleNameOf(change.field);
    return cell(index.column() == Before ? change.before : change.after);
}

QVariant ChangesTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    static const QStringList headers = {tr("Field"), tr("Is"), tr("Becomes")};
    return headers.value(section);
}

Qt::ItemFlags ChangesTable::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == Field && !m_preview.isApplied() ? flags | Qt::ItemIsUserCheckable : flags;
}

bool ChangesTable::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != Field || m_preview.isApplied())
        return false;
    m_preview.setChangeTicked(m_row, m_changes[index.row()].field, value.toInt() == Qt::Checked);
    Q_EMIT dataChanged(index, index);
    return true;
}

} // namespace quillon
