#include "changes/history_table.h"

#include "editor/editor_layout.h"
#include "journal/journal.h"
#include "platform/dates.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr qint64 rowsAtATime = 200;

QString originText(const QString &origin)
{
    static const QHash<QString, QString> texts = {{history::origin::typed, HistoryTable::tr("Edited")},
                                                  {history::origin::import, HistoryTable::tr("Imported")},
                                                  {history::origin::restore, HistoryTable::tr("Restored")},
                                                  {history::origin::release, HistoryTable::tr("Release")},
                                                  {history::origin::undo, HistoryTable::tr("Undone")},
                                                  {history::origin::redo, HistoryTable::tr("Redone")}};
    return texts.value(origin, origin);
}

QString fieldText(const history::Row &row)
{
    const auto field = fieldNamed(row.field);
    return row.field.isEmpty() ? HistoryTable::tr("(the whole file)")
           : field             ? accessibleNameOf(*field)
                               : row.field;
}

} // namespace

HistoryTable::HistoryTable(const QString &title, const std::optional<FieldId> &field, QObject *parent)
    : QAbstractTableModel(parent)
    , m_title(title)
    , m_field(field ? padField(*field).control.toString() : QString())
    , m_rows(read(std::numeric_limits<qint64>::max()))
    , m_hasMore(m_rows.size() == rowsAtATime)
{
}

QList<history::Row> HistoryTable::read(qint64 before) const
{
    const auto rows = Journal::ofDataFolder().find(
        [&](Database &database) { return history::rows(database, m_title, m_field, rowsAtATime, before); });
    return rows.valueOr({}); // The status bar tells of an error.
}

void HistoryTable::refresh()
{
    QList<history::Row> rows = read(std::numeric_limits<qint64>::max());
    const qint64 newest = m_rows.isEmpty() ? -1 : m_rows.first().number;
    rows.removeIf([newest](const history::Row &row) { return row.number <= newest; });
    if (rows.isEmpty())
        return;
    beginInsertRows({}, 0, int(rows.size()) - 1);
    m_rows = rows + m_rows;
    endInsertRows();
}

int HistoryTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int HistoryTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant HistoryTable::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DisplayRole || !index.isValid())
        return {};
    const history::Row &row = m_rows[index.row()];
    switch (index.column()) {
    case Time:
        return dates::shortTime(row.time);
    case Field:
        return fieldText(row);
    default:
        return originText(row.origin);
    }
}

QVariant HistoryTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    static const QStringList headers = {tr("When"), tr("Field"), tr("What")};
    return headers.value(section);
}

bool HistoryTable::canFetchMore(const QModelIndex &parent) const
{
    return !parent.isValid() && m_hasMore;
}

void HistoryTable::fetchMore(const QModelIndex &)
{
    const QList<history::Row> rows = read(m_rows.last().number);
    m_hasMore = rows.size() == rowsAtATime;
    if (rows.isEmpty())
        return;
    beginInsertRows({}, int(m_rows.size()), int(m_rows.size() + rows.size()) - 1);
    m_rows += rows;
    endInsertRows();
}

} // namespace quillon
