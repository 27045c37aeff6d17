#include "journal/history.h"

#include "journal/statement_rows.h"
#include "journal/titles.h"

#include <QDateTime>

namespace quillon::history {

namespace {

constexpr qint64 mostRows = 10'000;
constexpr qint64 thinningInterval = 100; ///< So many rows come in between.
constexpr int mostYears = 1;

/// The number of the set of @p step; a single text that was typed is none.
Result<std::optional<qint64>> setOf(Database &database, const Step &step)
{
    if (step.set || (step.origin == origin::typed && step.rows.size() == 1))
        return step.set;
    const Result<> made =
        database.run("INSERT INTO change_sets (time, label, origin, of_set) VALUES (?, ?, ?, ?)", step.time,
                     step.label, step.origin, step.of);
    return made ? Result(std::optional(database.lastId())) : made.error();
}

/// The number that the next row of the title gets, if 0 is not for it.
Result<qint64> nextNumber(Database &database, qint64 title)
{
    return database.number("SELECT coalesce(max(row), 0) + 1 FROM history WHERE title_id = ?", title);
}

Result<> insert(Database &database, qint64 title, qint64 number, const Step &step, const Row &row,
                const std::optional<qint64> &set)
{
    return database.run("INSERT INTO history (title_id, row, field, time, before, after, origin, set_id) "
                        "VALUES (?, ?, ?, ?, ?, ?, ?, ?)",
                        title, number, row.field, step.time, row.before, row.after,
                        row.origin.isEmpty() ? step.origin : row.origin, set);
}

Result<> thinOut(Database &database, qint64 title, qint64 newest)
{
    const qint64 oldest = QDateTime::currentDateTimeUtc().addYears(-mostYears).toMSecsSinceEpoch();
    return database.run("DELETE FROM history WHERE title_id = ? AND row > 0 AND origin <> ? "
                        "AND (row <= ? OR time < ?)",
                        title, origin::release, newest - mostRows, oldest);
}

} // namespace

Result<> append(Database &database, const QString &title, const QList<Step> &steps)
{
    const Result<qint64> id = journal_titles::idMadeFor(database, title);
    if (!id)
        return id.error();
    Result<qint64> number = nextNumber(database, *id);
    if (!number)
        return number.error();
    const qint64 first = *number;
    for (const Step &step : steps) {
        const auto set = setOf(database, step);
        if (!set)
            return set.error();
        for (const Row &row : step.rows) {
            if (Result<> inserted = insert(database, *id, *number, step, row, *set); !inserted)
                return inserted;
            ++*number;
        }
    }
    return first / thinningInterval == *number / thinningInterval ? Result<>()
                                                                  : thinOut(database, *id, *number - 1);
}

Result<> appendImport(Database &database, const QString &title)
{
    const Result<qint64> id = journal_titles::idMadeFor(database, title);
    if (!id)
        return id.error();
    return database.run("INSERT INTO history (title_id, row, field, time, origin) "
                        "SELECT ?1, coalesce(max(row) + 1, 0), '', ?2, ?3 FROM history WHERE title_id = ?1",
                        *id, QDateTime::currentMSecsSinceEpoch(), origin::import);
}

Result<QList<Row>> rows(Database &database, const QString &title, const QString &field, qint64 most,
                        qint64 before)
{
    return statementRows<Row>(
        database.prepare("SELECT row, h.time, field, before, after, h.origin, set_id, label FROM history h "
                         "JOIN titles t ON t.id = title_id LEFT JOIN change_sets s ON s.id = set_id "
                         "WHERE name = ?1 AND row < ?4 AND (?2 = '' OR field = ?2) "
                         "ORDER BY row DESC LIMIT ?3",
                         title, field, most, before),
        [](const Statement &found) {
            return Row{.number = found.number(0),
                       .time = found.number(1),
                       .field = found.text(2),
                       .before = found.text(3),
                       .after = found.text(4),
                       .origin = found.text(5),
                       .set = found.numberOrNone(6),
                       .label = found.isNull(6) ? QString() : found.text(7)};
        });
}

Result<QList<StepHead>> steps(Database &database, const QString &title)
{
    const auto rows = statementRows<StepHead>(
        database.prepare(
            "SELECT row, set_id, h.origin, of_set FROM history h JOIN titles t ON t.id = title_id "
            "LEFT JOIN change_sets s ON s.id = set_id WHERE name = ? ORDER BY row",
            title),
        [](const Statement &found) {
            return StepHead{.first = found.number(0),
                            .last = found.number(0),
                            .origin = found.text(2),
                            .set = found.numberOrNone(1),
                            .of = found.numberOrNone(3)};
        });
    if (!rows)
        return rows.error();
    QList<StepHead> steps;
    for (const StepHead &row : *rows) {
        if (row.set && !steps.isEmpty() && steps.last().set == row.set)
            steps.last().last = row.last;
        else
            steps.append(row);
    }
    return steps;
}

} // namespace quillon::history
