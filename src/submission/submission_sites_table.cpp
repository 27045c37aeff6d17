#include "submission/submission_sites_table.h"

#include "controls/icon_cell.h"
#include "platform/plain_text.h"
#include "platform/translated_text.h"

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// What a state's picture says in words.
QString description(std::optional<SiteState> state)
{
    static constexpr std::array<QStringView, 3> words = {
        QUILLON_TR_NOOP("SubmissionSitesTable", "Not submitted"),
        QUILLON_TR_NOOP("SubmissionSitesTable", "Submitted at an older version"),
        QUILLON_TR_NOOP("SubmissionSitesTable", "Submitted at the current version")};
    return state ? translated("SubmissionSitesTable", words[size_t(*state)])
                 : SubmissionSitesTable::tr("Not known");
}

} // namespace

void SubmissionSitesTable::setSites(const QStringList &sites, const QList<SiteState> &states)
{
    Q_ASSERT(states.isEmpty() || sites.size() == states.size());
    if (sites != m_sites) {
        beginResetModel();
        m_sites = sites;
        m_states = states;
        endResetModel();
    } else if (states != m_states && !sites.isEmpty()) {
        m_states = states;
        Q_EMIT dataChanged(index(0, Status), index(rowCount() - 1, Status));
    }
}

int SubmissionSitesTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_sites.size());
}

int SubmissionSitesTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant SubmissionSitesTable::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto state = m_states.isEmpty() ? std::nullopt : std::optional(m_states[index.row()]);
    const bool isStatus = index.column() == Status;
    const QString text = isStatus ? description(state) : m_sites[index.row()];
    switch (role) {
    case Qt::DisplayRole:
        return isStatus ? QVariant() : text;
    case Qt::ToolTipRole:
        return plainToolTip(text);
    case Qt::AccessibleTextRole:
        return text;
    case Qt::TextAlignmentRole:
        return isStatus ? QVariant(Qt::AlignCenter) : QVariant();
    case IconsRole:
        return isStatus && state ? QStringList{name(*state)} : QVariant();
    case SortRole:
        return text;
    default:
        return {};
    }
}

QVariant SubmissionSitesTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < ColumnCount)
        return section == Sites ? tr("Site") : tr("Status");
    return QAbstractTableModel::headerData(section, orientation, role);
}

} // namespace quillon
