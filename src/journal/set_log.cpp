#include "journal/set_log.h"

#include "journal/statement_rows.h"

namespace quillon::set_log {

Result<qint64> begin(Database &database, const SetHead &head, const QList<TitleRows> &rows)
{
    if (const Result<> made = database.run(
            "INSERT INTO change_sets (time, label, origin, of_set, is_unfinished) VALUES (?, ?, ?, ?, 1)",
            head.time, head.label, head.origin, head.of);
        !made)
        return made.error();
    const qint64 id = database.lastId();
    for (const TitleRows &title : rows) {
        const history::Step step{head.origin, head.label, head.time, title.rows, head.of, id};
        if (const Result<> appended = history::append(database, title.title, {step}); !appended)
            return appended.error();
    }
    return id;
}

Result<> forget(Database &database, qint64 id, const QStringList &unchanged)
{
    for (const QString &title : unchanged) {
        if (Result<> gone = database.run(
                "DELETE FROM history WHERE set_id = ? AND title_id IN (SELECT id FROM titles WHERE name = ?)",
                id, title);
            !gone)
            return gone;
    }
    return database.run(
        "DELETE FROM change_sets WHERE id = ?1 AND NOT EXISTS (SELECT * FROM history WHERE set_id = ?1)", id);
}

Result<> finish(Database &database, qint64 id)
{
    return database.run("UPDATE change_sets SET is_unfinished = 0 WHERE id = ?", id);
}

Result<QList<SetHead>> all(Database &database)
{
    // In a title, undo and redo of the same set take turns.
    return statementRows<SetHead>(
        database.prepare(
            "SELECT s.id, s.time, s.label, s.origin, s.of_set, s.is_unfinished, count(DISTINCT title_id), "
            "count(*), (SELECT count(DISTINCT CASE u.origin WHEN 'undo' THEN title_id || '/' || u.id END) - "
            "count(DISTINCT CASE u.origin WHEN 'redo' THEN title_id || '/' || u.id END) "
            "FROM change_sets u JOIN history h ON h.set_id = u.id WHERE u.of_set = s.id) "
            "FROM change_sets s JOIN history ON set_id = s.id WHERE s.origin <> ? "
            "GROUP BY s.id ORDER BY s.id DESC",
            history::origin::typed),
        [](const Statement &row) {
            return SetHead{.id = row.number(0),
                           .time = row.number(1),
                           .label = row.text(2),
                           .origin = row.text(3),
                           .of = row.numberOrNone(4),
                           .isUnfinished = row.number(5) != 0,
                           .titles = row.number(6),
                           .rows = row.number(7),
                           .takenBack = row.number(8)};
        });
}

Result<QList<TitleRows>> rowsOf(Database &database, qint64 id)
{
    struct Found
    {
        qint64 title;
        QString name;
        history::Row row;
    };
    const auto found = statementRows<Found>(
        database.prepare("SELECT title_id, name, field, before, after, row, h.time, h.origin FROM history h "
                         "JOIN titles t ON t.id = title_id WHERE set_id = ? ORDER BY h.id",
                         id),
        [](const Statement &row) {
            return Found{row.number(0), row.isNull(1) ? QString() : row.text(1),
                         history::Row{.number = row.number(5),
                                      .time = row.number(6),
                                      .field = row.text(2),
                                      .before = row.text(3),
                                      .after = row.text(4),
                                      .origin = row.text(7)}};
        });
    if (!found)
        return found.error();
    QList<TitleRows> titles;
    std::optional<qint64> last;
    for (const Found &each : *found) {
        if (last != each.title)
            titles.append({each.name, {}});
        last = each.title;
        titles.last().rows.append(each.row);
    }
    return titles;
}

Result<QString> labelOf(Database &database, qint64 id)
{
    const auto labels =
        statementRows<QString>(database.prepare("SELECT label FROM change_sets WHERE id = ?", id),
                               [](const Statement &row) { return row.text(0); });
    return labels ? Result(labels->value(0)) : labels.error();
}

Result<std::optional<QString>> heldUntilNext(Database &database, const QString &title,
                                             const history::Row &row)
{
    const auto before = statementRows<QString>(
        database.prepare("SELECT before FROM history JOIN titles ON titles.id = title_id "
                         "WHERE name = ? AND field = ? AND row > ? ORDER BY row LIMIT 1",
                         title, row.field, row.number),
        [](const Statement &found) { return found.text(0); });
    if (!before)
        return before.error();
    return before->isEmpty() ? std::optional<QString>() : before->first();
}

Result<QList<qint64>> unfinished(Database &database)
{
    return statementRows<qint64>(
        database.prepare("SELECT id FROM change_sets WHERE is_unfinished = 1 ORDER BY id"),
        [](const Statement &row) { return row.number(0); });
}

} // namespace quillon::set_log
