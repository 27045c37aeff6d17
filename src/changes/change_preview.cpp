#include "changes/change_preview.h"

#include "changes/taking_back.h"

#include <QElapsedTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// A window that is worked on so long at a time, in milliseconds, still feels alive.
constexpr qint64 sliceLength = 15;

QString changedTitles(int count)
{
    return count == 1 ? ChangePreview::tr("1 title was changed.")
                      : ChangePreview::tr("%Ln titles were changed.", nullptr, count);
}

QString titlesBroughtBack(int count)
{
    return count == 1 ? ChangePreview::tr("1 title was brought back to what it was.")
                      : ChangePreview::tr("%Ln titles were brought back to what it was.", nullptr, count);
}

QString changesText(int count)
{
    if (count == 0)
        return ChangePreview::tr("no changes");
    return count == 1 ? ChangePreview::tr("1 change") : ChangePreview::tr("%Ln changes", nullptr, count);
}

QString outcomeText(const ChangePreview::Row &row, bool isWaiting)
{
    if (!row.failure.isEmpty())
        return ChangePreview::tr("cannot be read: %1").arg(row.failure);
    if (!row.isPlanned)
        return isWaiting ? u"…"_s : QString();
    const TitlePlan &plan = row.chosen;
    QStringList parts = {changesText(int(plan.changes.size()))};
    if (const int going = int(plan.judgement.vanishing.size()))
        parts.append(going == 1 ? ChangePreview::tr("1 error goes")
                                : ChangePreview::tr("%Ln errors go", nullptr, going));
    if (const int coming = int(plan.judgement.appearing.size()))
        parts.append(coming == 1 ? ChangePreview::tr("1 error comes")
                                 : ChangePreview::tr("%Ln errors come", nullptr, coming));
    if (const int notes = int(plan.notes.size()))
        parts.append(notes == 1 ? ChangePreview::tr("1 note")
                                : ChangePreview::tr("%Ln notes", nullptr, notes));
    return parts.join(u", "_s);
}

/// What came of applying to titles: how many are changed, and which are not.
QString sentence(const change_plans::Applied &applied, QString (*doneIn)(int count))
{
    QStringList failed;
    for (const change_plans::TitleOutcome &title : applied.titles) {
        if (!title.stored.isDone())
            failed.append(u"%1 (%2)"_s.arg(title.title, title.stored.error().reason));
    }
    const QString done = doneIn(int(applied.titles.size() - failed.size()));
    return failed.isEmpty() ? done : done + u' ' + ChangePreview::tr("Not: %1.").arg(failed.join(u", "_s));
}

} // namespace

ChangePreview::ChangePreview(Rows rows, const QStringList &titles, const QSet<QString> &ticked,
                             QObject *parent)
    : QAbstractTableModel(parent), m_shown(rows), m_titles(titles)
{
    for (const QString &title : titles) {
        if (!ticked.contains(title))
            m_unticked.insert(title);
        if (rows == Rows::All)
            m_rows.append({.title = title});
    }
    connect(&m_turn, &QTimer::timeout, this, &ChangePreview::planSome);
}

void ChangePreview::plan(const Planner &planner)
{
    beginResetModel();
    m_planner = planner;
    m_applied = 0;
    if (m_shown == Rows::Changing)
        m_rows.clear();
    for (Row &row : m_rows)
        row = {.title = row.title};
    m_queue.clear();
    for (int title = 0; planner && title < int(m_titles.size()); ++title) {
        if (m_shown == Rows::Changing || !m_unticked.contains(m_titles[title]))
            m_queue.append(title);
    }
    m_total = int(m_queue.size());
    endResetModel();
    m_turn.start(0);
}

void ChangePreview::stop()
{
    m_queue.clear();
    m_turn.start(0);
}

void ChangePreview::planSome()
{
    QElapsedTimer slice;
    slice.start();
    while (!m_queue.isEmpty() && slice.elapsed() < sliceLength)
        planNext();
    if (m_queue.isEmpty())
        m_turn.stop();
    Q_EMIT progressed(m_total - int(m_queue.size()), m_total);
}

void ChangePreview::planNext()
{
    const int title = m_queue.takeFirst();
    take(title, m_planner({m_titles[title]}));
}

void ChangePreview::take(int title, const ChangePlan &plan)
{
    m_origin = plan.origin;
    m_label = plan.label;
    Row row{.title = m_titles[title], .isPlanned = true};
    if (!plan.failures.isEmpty())
        row.failure = plan.failures.first().reason;
    if (!plan.titles.isEmpty())
        row.whole = row.chosen = plan.titles.first();
    if (m_shown == Rows::All) {
        m_rows[title] = std::move(row);
        return tellRow(title);
    }
    if (plan.titles.isEmpty() && plan.failures.isEmpty())
        return;
    beginInsertRows({}, int(m_rows.size()), int(m_rows.size()));
    m_rows.append(std::move(row));
    endInsertRows();
}

void ChangePreview::tellRow(int row)
{
    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
    Q_EMIT rowChanged(row);
}

void ChangePreview::setTicked(int row, bool isTicked)
{
    const QString &title = m_rows[row].title;
    if (isTicked)
        m_unticked.remove(title);
    else
        m_unticked.insert(title);
    if (isTicked && !m_rows[row].isPlanned && m_planner && !m_queue.contains(row)) {
        m_total = isPlanning() ? m_total + 1 : 1;
        m_queue.append(row);
        m_turn.start(0);
    }
    tellRow(row);
}

bool ChangePreview::isChangeTicked(int row, FieldId field) const
{
    return std::ranges::find(m_rows[row].chosen.changes, field, &Change::field) !=
           m_rows[row].chosen.changes.end();
}

void ChangePreview::setChangeTicked(int row, FieldId field, bool isTicked)
{
    Row &changed = m_rows[row];
    const ChangePlan one{.origin = m_origin, .label = m_label, .titles = {changed.whole}};
    const ChangePlan rest = change_plans::ticked(one, [&](const TitlePlan &, const Change &change) {
        return change.field == field ? isTicked : isChangeTicked(row, change.field);
    });
    changed.chosen = rest.titles.isEmpty() ? TitlePlan{.title = changed.title, .changes = {}, .judgement = {}}
                                           : rest.titles.first();
    tellRow(row);
}

ChangePlan ChangePreview::ticked() const
{
    ChangePlan plan{.origin = m_origin, .label = m_label, .titles = {}};
    for (int row = 0; row < int(m_rows.size()); ++row) {
        if (isTicked(row) && !m_rows[row].chosen.changes.isEmpty())
            plan.titles.append(m_rows[row].chosen);
    }
    return plan;
}

qsizetype ChangePreview::tickedCount() const
{
    qsizetype count = 0;
    for (int row = 0; row < int(m_rows.size()); ++row)
        count += isTicked(row) && !m_rows[row].chosen.changes.isEmpty() ? 1 : 0;
    return count;
}

Result<QString> ChangePreview::apply(EditHistory *open)
{
    auto applied = change_plans::apply(ticked(), open);
    if (!applied)
        return applied.error();
    m_applied = applied->set;
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    return sentence(*applied, changedTitles);
}

Result<QString> ChangePreview::undo(EditHistory *open)
{
    const auto back = taking_back::plan(m_applied);
    if (!back)
        return back.error();
    const auto applied = change_plans::apply(*back, open);
    if (!applied)
        return applied.error();
    m_applied = 0;
    return sentence(*applied, titlesBroughtBack);
}

int ChangePreview::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int ChangePreview::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ChangePreview::data(const QModelIndex &index, int role) const
{
    if (role == Qt::CheckStateRole && index.column() == Title)
        return isTicked(index.row()) ? Qt::Checked : Qt::Unchecked;
    if (role != Qt::DisplayRole)
        return {};
    const Row &row = m_rows[index.row()];
    return index.column() == Title ? row.title : outcomeText(row, isPlanning() && isTicked(index.row()));
}

QVariant ChangePreview::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    return section == Title ? tr("Title") : tr("What becomes of it");
}

Qt::ItemFlags ChangePreview::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == Title && !isApplied() ? flags | Qt::ItemIsUserCheckable : flags;
}

bool ChangePreview::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != Title || isApplied())
        return false;
    setTicked(index.row(), value.toInt() == Qt::Checked);
    return true;
}

QStringList consequencesOf(const TitlePlan &plan)
{
    QStringList lines;
    for (const auto &[field, message] : plan.judgement.vanishing)
        lines.append(ChangePreview::tr("Mended: %1").arg(message));
    for (const auto &[field, message] : plan.judgement.appearing)
        lines.append(ChangePreview::tr("New error: %1").arg(message));
    for (const QString &note : plan.notes)
        lines.append(ChangePreview::tr("Note: %1").arg(note));
    return lines;
}

} // namespace quillon
