#include "journal/form_fields.h"

#include "journal/journal.h"
#include "journal/statement_rows.h"

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

Result<QList<Row>> rowsOf(Database &database, const QString &site)
{
    return statementRows<Row>(
        database.prepare("SELECT signs, value, time FROM form_fields WHERE site = ? ORDER BY id", site),
        [](const Statement &row) {
            return Row{.signs = row.text(0), .value = row.text(1), .time = row.number(2)};
        });
}

} // namespace

Result<> remember(const QString &site, const QList<Row> &rows)
{
    return Journal::ofDataFolder().change([&](Database &database) { return addRows(database, site, rows); });
}

Result<QList<Row>> of(const QString &site)
{
    return Journal::ofDataFolder().find([&](Database &database) { return rowsOf(database, site); });
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

Result<> renameSite(Database &database, const QString &from, const QString &to)
{
    return database.run("UPDATE OR REPLACE form_fields SET site = ? WHERE site = ?", to, from);
}

} // namespace quillon::form_fields
