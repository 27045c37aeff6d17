#include "journal/form_fields.h"

#include "journal/journal.h"

#include <QDateTime>

namespace quillon::form_fields {

namespace {

Result<> addRows(Database &database, const QString &site, const QList<Row> &rows)
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    for (const Row &row : rows) {
        if (Result<> added = database.run("INSERT OR REPLACE INTO form_fields (site, signs, value, time)"
                                          " VALUES (?, ?, ?, ?)",
                                          site, row.signs, row.value, now);
            !added)
            return added;
    }
    return database.run("DELETE FROM form_fields WHERE site = ? AND id NOT IN (SELECT id FROM form_fields"
                        " WHERE site = ? ORDER BY id DESC LIMIT 500)",
                        site, site);
}

Result<> readRows(Database &database, const QString &site, QList<Row> &rows)
{
    auto found =
        database.prepare("SELECT signs, value, time FROM form_fields WHERE site = ? ORDER BY id", site);
    if (!found)
        return found.error();
    for (;;) {
        const Result<bool> hasRow = found->next();
        if (!hasRow || !*hasRow)
            return hasRow ? Result<>() : hasRow.error();
        rows.append({.signs = found->text(0), .value = found->text(1), .time = found->number(2)});
    }
}

} // namespace

Result<> remember(const QString &site, const QList<Row> &rows)
{
    return Journal::ofDataFolder().change([&](Database &database) { return addRows(database, site, rows); });
}

Result<QList<Row>> of(const QString &site)
{
    QList<Row> rows;
    const Result<> read = Journal::ofDataFolder().read([&](Database &database) {
        rows.clear();
        return readRows(database, site, rows);
    });
    if (!read && !read.isError(Error::Kind::Missing))
        return read.error();
    return rows;
}

Result<qint64> forget(const QString &site)
{
    qint64 count = 0;
    const Result<> forgotten = Journal::ofDataFolder().changeExisting([&](Database &database) -> Result<> {
        const Result<qint64> number =
            database.number("SELECT count(*) FROM form_fields WHERE site = ?", site);
        if (!number)
            return number.error();
        count = *number;
        return database.run("DELETE FROM form_fields WHERE site = ?", site);
    });
    if (!forgotten)
        return forgotten.error();
    return count;
}

} // namespace quillon::form_fields
