#include "sites/site_list_table.h"

#include "platform/plain_text.h"

using namespace Qt::StringLiterals;

namespace quillon {

bool SiteListTable::setSites(const QStringList &names, const QStringList &urls)
{
    Q_ASSERT(names.size() == urls.size());
    if (names == m_names && urls == m_urls)
        return false;
    beginResetModel();
    m_names = names;
    m_urls = urls;
    endResetModel();
    return true;
}

int SiteListTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_names.size());
}

int SiteListTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant SiteListTable::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const QString &text = index.column() == SiteName ? m_names[index.row()] : m_urls[index.row()];
    if (role == Qt::DisplayRole)
        return text;
    return role == Qt::ToolTipRole ? QVariant(plainToolTip(text)) : QVariant();
}

QVariant SiteListTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < ColumnCount)
        return section == SiteName ? tr("Site") : tr("Address");
    return QAbstractTableModel::headerData(section, orientation, role);
}

} // namespace quillon
