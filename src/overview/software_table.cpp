#include "overview/software_table.h"

#include "platform/dates.h"
#include "platform/plain_text.h"
#include "platform/translated_text.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr std::array<QStringView, SoftwareTable::ColumnCount> headers = {
    QUILLON_TR_NOOP("SoftwareTable", "Software Title"), QUILLON_TR_NOOP("SoftwareTable", "Version"),
    QUILLON_TR_NOOP("SoftwareTable", "Release Date"),   QUILLON_TR_NOOP("SoftwareTable", "Supported OS"),
    QUILLON_TR_NOOP("SoftwareTable", "Validated"),      QUILLON_TR_NOOP("SoftwareTable", "Submitted To")};

} // namespace

SoftwareTable::Row SoftwareTable::rowOf(const Summary &summary)
{
    Row row;
    if (const auto date = dates::parseStored(summary.releaseDate.value_or(QString()))) {
        row.date = *date;
        row.releaseDate = dates::shortText(*date);
    }
    if (const QString systems = summary.operatingSystems.value_or(QString()); !systems.isEmpty())
        row.os = tableValidateImageOK({}, systems.split(u','), u"centre");
    if (summary.validated)
        row.valid = tableValidateImageOK(*summary.validated == u"1" ? u"Validated"_s : u"NotValidated"_s, {},
                                         u"centre");
    if (summary.sites)
        row.submissions = tableValidateImageOK({}, summary.siteList(), u"right");
    return row;
}

void SoftwareTable::setTitles(const QList<Title> &titles)
{
    beginResetModel();
    m_swNameArray.clear();
    m_summaries.clear();
    m_rows.clear();
    m_swNameArray.reserve(titles.size());
    m_summaries.reserve(titles.size());
    for (const Title &title : titles) {
        m_swNameArray.append(title.name);
        m_summaries.append(title.summary);
    }
    endResetModel();
}

void SoftwareTable::updateRow(int row, const Summary &summary)
{
    m_summaries[row] = summary;
    m_rows.remove(row);
    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
}

int SoftwareTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_summaries.size());
}

int SoftwareTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

const SoftwareTable::Row &SoftwareTable::rowAt(int row) const
{
    auto made = m_rows.constFind(row);
    if (made == m_rows.cend())
        made = m_rows.insert(row, rowOf(m_summaries[row]));
    return *made;
}

QString SoftwareTable::textAt(int row, int column) const
{
    switch (column) {
    case SoftwareTitle:
        return m_swNameArray[row];
    case Version:
        return m_summaries[row].version.value_or(QString());
    case ReleaseDate:
        return rowAt(row).releaseDate;
    default:
        return {};
    }
}

const IconCell *SoftwareTable::iconsAt(int row, int column) const
{
    switch (column) {
    case SupportedOS:
        return &rowAt(row).os;
    case Validated:
        return &rowAt(row).valid;
    case Submissions:
        return &rowAt(row).submissions;
    default:
        return nullptr;
    }
}

QVariant SoftwareTable::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const IconCell *cell = iconsAt(index.row(), index.column());
    const QString text = cell ? description(*cell) : textAt(index.row(), index.column());
    switch (role) {
    case Qt::DisplayRole:
        return cell ? QVariant() : text;
    case Qt::ToolTipRole:
        return plainToolTip(text);
    case Qt::AccessibleTextRole:
        return text;
    case Qt::TextAlignmentRole:
        return cell ? QVariant((cell->alignment | Qt::AlignVCenter).toInt()) : QVariant();
    case IconsRole:
        return cell ? cell->icons : QVariant();
    case SortRole:
        return index.column() == ReleaseDate ? QVariant(rowAt(index.row()).date) : text;
    default:
        return {};
    }
}

QVariant SoftwareTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < ColumnCount)
        return translated("SoftwareTable", headers[size_t(section)]);
    return QAbstractTableModel::headerData(section, orientation, role);
}

} // namespace quillon
