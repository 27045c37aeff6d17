#include "visits/online_check.h"

#include "platform/dates.h"
#include "platform/delayed_calls.h"
#include "platform/plain_text.h"
#include "visits/visit_verdict.h"

#include <QDateTime>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

QString timeText(qint64 time)
{
    return time == 0 ? QString() : dates::shortTime(time);
}

} // namespace

OnlineCheck::OnlineCheck(QList<Row> rows, std::unique_ptr<Visitor> visitor, DelayedCalls &delayedCalls,
                         QObject *parent)
    : QAbstractTableModel(parent)
    , m_rows(std::move(rows))
    , m_visitor(std::move(visitor))
    , m_delayedCalls(delayedCalls)
{
}

void OnlineCheck::start()
{
    if (isRunning())
        return;
    ++m_run;
    visitNext();
}

void OnlineCheck::cancel()
{
    if (!isRunning())
        return;
    ++m_run;
    m_current = -1;
    m_visitor->stop();
    Q_EMIT progressChanged();
}

void OnlineCheck::visitNext()
{
    const auto next = std::ranges::find_if_not(m_rows, &Row::isDone);
    m_current = next == m_rows.end() ? -1 : int(next - m_rows.begin());
    if (isRunning())
        m_visitor->visit(next->request, [this](const Visit &visit) { visited(visit); });
    Q_EMIT progressChanged();
}

void OnlineCheck::visited(const Visit &visit)
{
    if (showsNetwork(visit) && !std::exchange(m_hasNetwork, true)) {
        for (const auto &[row, earlier] : std::exchange(m_unsure, {}))
            take(row, earlier);
    }
    if (isNameUnknown(visit) && !m_hasNetwork)
        m_unsure.append({m_current, visit});
    take(m_current, m_hasNetwork ? visit : withoutNetwork(visit));
    m_delayedCalls.after(isDone() ? std::chrono::milliseconds(0) : pace, this, [this, run = m_run] {
        if (run == m_run)
            visitNext();
    });
    Q_EMIT progressChanged();
}

void OnlineCheck::show(int row, const QString &result, const QString &detail)
{
    Row &shown = m_rows[row];
    shown.result = result;
    shown.detail = detail;
    shown.time = QDateTime::currentMSecsSinceEpoch();
    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
}

bool OnlineCheck::isDone() const
{
    return std::ranges::all_of(m_rows, &Row::isDone);
}

QString OnlineCheck::progress() const
{
    const auto done = std::ranges::count_if(m_rows, &Row::isDone);
    const QString sum = tr("%L1 of %L2 visited").arg(done).arg(m_rows.size());
    return isRunning() ? tr("%L1; now %L2").arg(sum, m_rows[m_current].what) : sum;
}

int OnlineCheck::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int OnlineCheck::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant OnlineCheck::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const Row &row = m_rows[index.row()];
    if (role == Qt::ToolTipRole)
        return plainToolTip(row.request.address);
    switch (index.column()) {
    case What:
        return row.what;
    case Found:
        return row.result;
    case Detail:
        return row.detail;
    case Time:
        return timeText(row.time);
    default:
        return {};
    }
}

QVariant OnlineCheck::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QStringList titles = {tr("What"), tr("Found"), tr("Detail"), tr("Time")};
    return orientation == Qt::Horizontal && role == Qt::DisplayRole ? QVariant(titles.value(section))
                                                                    : QVariant();
}

} // namespace quillon
