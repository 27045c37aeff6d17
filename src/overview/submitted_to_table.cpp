#include "overview/submitted_to_table.h"

#include "platform/plain_text.h"
#include "platform/string_dictionary.h"
#include "platform/translated_text.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr std::array<QStringView, SubmittedToTable::ColumnCount> columnHeaders = {
    QUILLON_TR_NOOP("SubmittedToTable", "Site"), QUILLON_TR_NOOP("SubmittedToTable", "Version"),
    QUILLON_TR_NOOP("SubmittedToTable", "Current")};

} // namespace

void SubmittedToTable::setMarks(const QStringList &sites, const QStringList &versions,
                                const QString &currentVersion)
{
    beginResetModel();
    m_submitToVersDict.clear();
    m_submitToVersLatestDict.clear();
    // An empty first entry means that nothing was submitted; then no entry is looked at.
    const bool anySubmission = !sites.value(0).isEmpty();
    for (qsizetype at = 0; anySubmission && at < sites.size(); ++at) {
        const QString version = versions.value(at);
        const QString icon = version == currentVersion ? u"Validated"_s : u"OldVers"_s;
        m_submitToVersDict[sites[at]] = version;
        m_submitToVersLatestDict[sites[at]] = tableValidateImageOK(icon, {}, u"centre");
    }
    m_submittedToTableDataArray = sites;
    std::stable_sort(m_submittedToTableDataArray.begin(), m_submittedToTableDataArray.end(),
                     CaseInsensitiveOrder());
    endResetModel();
}

void SubmittedToTable::clear()
{
    beginResetModel();
    m_submittedToTableDataArray.clear();
    m_submitToVersDict.clear();
    m_submitToVersLatestDict.clear();
    endResetModel();
}

bool SubmittedToTable::hasNoSubmissions() const
{
    return m_submittedToTableDataArray.size() == 1 && m_submittedToTableDataArray.first().isEmpty();
}

int SubmittedToTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_submittedToTableDataArray.size());
}

int SubmittedToTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant SubmittedToTable::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const QString text = textAt(index.row(), index.column());
    const IconCell cell = index.column() == Status && !hasNoSubmissions()
                              ? m_submitToVersLatestDict.value(m_submittedToTableDataArray[index.row()])
                              : IconCell();
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == Status ? QVariant() : text;
    case Qt::ToolTipRole:
        return plainToolTip(text);
    case Qt::AccessibleTextRole:
        return text;
    case IconsRole:
        return cell.icons;
    case Qt::TextAlignmentRole:
        return (cell.alignment | Qt::AlignVCenter).toInt();
    default:
        return {};
    }
}

QString SubmittedToTable::textAt(int row, int column) const
{
    const QString &site = m_submittedToTableDataArray[row];
    if (hasNoSubmissions())
        return column == Site ? tr("No Submissions") : QString();
    if (column == Site)
        return site;
    if (column == Version)
        return m_submitToVersDict.value(site);
    const IconCell cell = m_submitToVersLatestDict.value(site);
    return cell.icons.value(0) == u"Validated" ? tr("Current version") : description(cell);
}

QVariant SubmittedToTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < ColumnCount)
        return translated("SubmittedToTable", columnHeaders[size_t(section)]);
    return QAbstractTableModel::headerData(section, orientation, role);
}

} // namespace quillon
