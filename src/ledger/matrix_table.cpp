#include "ledger/matrix_table.h"

#include "platform/natural_order.h"
#include "platform/plain_text.h"

#include <QLocale>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace quillon {

void MatrixTable::setMatrix(Matrix matrix)
{
    beginResetModel();
    m_matrix = std::move(matrix);
    orderTitles();
    arrange();
    endResetModel();
}

void MatrixTable::setFilter(const Filter &filter)
{
    beginResetModel();
    m_filter = filter;
    arrange();
    endResetModel();
}

void MatrixTable::sort(int column, Qt::SortOrder order)
{
    beginResetModel();
    m_sortSite = siteAt(column);
    m_sortColumn = column;
    m_order = order;
    arrange();
    endResetModel();
}

void MatrixTable::orderTitles()
{
    const QCollator order = naturalOrder();
    std::vector<std::pair<QCollatorSortKey, int>> keys;
    keys.reserve(size_t(m_matrix.rows().size()));
    for (int row = 0; row < int(m_matrix.rows().size()); ++row)
        keys.emplace_back(order.sortKey(m_matrix.rows()[row].title), row);
    std::ranges::stable_sort(keys,
                             [](const auto &left, const auto &right) { return left.first < right.first; });
    m_byTitle.clear();
    for (const auto &[key, row] : keys)
        m_byTitle.append(row);
}

void MatrixTable::arrange()
{
    m_rows.clear();
    std::ranges::copy_if(m_byTitle, std::back_inserter(m_rows), [this](int row) {
        return m_matrix.rows()[row].title.contains(m_filter.titles, Qt::CaseInsensitive);
    });
    m_sites.clear();
    for (int site = 0; site < int(m_matrix.sites().size()); ++site) {
        if (m_matrix.sites()[site].contains(m_filter.sites, Qt::CaseInsensitive))
            m_sites.append(site);
    }
    if (m_filter.onlyStale)
        leaveOutWhatIsCurrent();
    sortRows();
}

void MatrixTable::leaveOutWhatIsCurrent()
{
    m_rows.removeIf([this](int row) {
        return std::ranges::none_of(m_sites, [this, row](int site) { return isStale(row, site); });
    });
    m_sites.removeIf([this](int site) {
        return std::ranges::none_of(m_rows, [this, site](int row) { return isStale(row, site); });
    });
}

bool MatrixTable::isStale(int row, int site) const
{
    const Matrix::Cell *there = m_matrix.cell(row, site);
    return there && there->isStale;
}

int MatrixTable::sortKey(int row) const
{
    const Matrix::Row &title = m_matrix.rows()[row];
    if (m_sortColumn == Version)
        return title.versionRank;
    if (m_sortColumn == StaleCount)
        return title.staleCount;
    const Matrix::Cell *there = m_matrix.cell(row, m_matrix.sites().indexOf(m_sortSite));
    const int last = m_order == Qt::AscendingOrder ? std::numeric_limits<int>::max() : -1;
    return there ? there->rank : last;
}

void MatrixTable::sortRows()
{
    const bool hasKey =
        m_sortColumn == Version || m_sortColumn == StaleCount || m_matrix.sites().contains(m_sortSite);
    if (hasKey) {
        QList<int> keys;
        for (int row = 0; row < int(m_matrix.rows().size()); ++row)
            keys.append(sortKey(row));
        std::ranges::stable_sort(m_rows, [this, &keys](int left, int right) {
            return m_order == Qt::AscendingOrder ? keys[left] < keys[right] : keys[left] > keys[right];
        });
    } else if (m_order == Qt::DescendingOrder) {
        std::ranges::reverse(m_rows);
    }
}

QString MatrixTable::siteAt(int column) const
{
    const int place = column - FirstSite;
    return place >= 0 && place < m_sites.size() ? m_matrix.sites()[m_sites[place]] : QString();
}

int MatrixTable::rowOf(const QString &title) const
{
    const auto found =
        std::ranges::find_if(m_rows, [this, &title](int row) { return m_matrix.rows()[row].title == title; });
    return found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

int MatrixTable::columnOf(const QString &site) const
{
    const qsizetype place = m_sites.indexOf(int(m_matrix.sites().indexOf(site)));
    return place < 0 ? -1 : FirstSite + int(place);
}

const Matrix::Cell *MatrixTable::cell(const QModelIndex &index) const
{
    if (!index.isValid() || index.column() < FirstSite)
        return nullptr;
    return m_matrix.cell(m_rows[index.row()], m_sites[index.column() - FirstSite]);
}

qsizetype MatrixTable::staleCount() const
{
    qsizetype count = 0;
    for (const int row : m_rows)
        count += std::ranges::count_if(m_sites, [this, row](int site) { return isStale(row, site); });
    return count;
}

int MatrixTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int MatrixTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : FirstSite + int(m_sites.size());
}

QString MatrixTable::textAt(const QModelIndex &index) const
{
    const Matrix::Row &row = m_matrix.rows()[m_rows[index.row()]];
    if (index.column() == Version)
        return row.version;
    if (index.column() == StaleCount)
        return QLocale().toString(row.staleCount);
    const Matrix::Cell *there = cell(index);
    return there ? there->text : QString();
}

QString MatrixTable::descriptionAt(const QModelIndex &index) const
{
    if (index.column() < FirstSite)
        return textAt(index);
    const Matrix::Cell *there = cell(index);
    return there ? there->description : tr("not sent");
}

QVariant MatrixTable::data(const QModelIndex &index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return textAt(index);
    case Qt::AccessibleTextRole:
        return descriptionAt(index);
    case Qt::ToolTipRole:
        return plainToolTip(titleAt(index.row()) + u", "_s +
                            headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString() + u": "_s +
                            descriptionAt(index));
    case StaleRole: {
        const Matrix::Cell *there = cell(index);
        return there && there->isStale;
    }
    default:
        return {};
    }
}

QVariant MatrixTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    QString text = orientation == Qt::Vertical ? titleAt(section)
                   : section == Version        ? tr("Version")
                   : section == StaleCount     ? tr("To do")
                                               : siteAt(section);
    return role == Qt::ToolTipRole ? plainToolTip(text) : text;
}

} // namespace quillon
