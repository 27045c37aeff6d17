#include "journal/site_knowledge.h"

#include "journal/statement_rows.h"

namespace quillon::site_knowledge {

namespace {

/// Of a row that begins with name, note, needs_account, reads_pad, is_gone, looked, verdict, detail.
KnownSite siteOf(const Statement &row)
{
    KnownSite site{.name = row.text(0),
                   .notes = {.note = row.text(1),
                             .needsAccount = row.number(2) != 0,
                             .readsPad = row.number(3) != 0,
                             .isGone = row.number(4) != 0}};
    if (!row.isNull(5))
        site.found = Finding{.time = row.number(5), .verdict = row.text(6), .detail = row.text(7)};
    return site;
}

/// All, or the one of that name.
Result<QList<KnownSite>> sites(Database &database, const std::optional<QString> &name)
{
    return statementRows<KnownSite>(
        database.prepare("SELECT name, note, needs_account, reads_pad, is_gone, looked, verdict, detail"
                         " FROM sites WHERE name = coalesce(?, name) ORDER BY name",
                         name),
        siteOf);
}

} // namespace

Result<QList<KnownSite>> all(Database &database)
{
    return sites(database, std::nullopt);
}

Result<KnownSite> of(Database &database, const QString &name)
{
    const auto found = sites(database, name);
    if (!found)
        return found.error();
    return found->value(0, KnownSite{.name = name});
}

Result<bool> isGone(Database &database, const QString &name)
{
    const auto gone = database.number("SELECT is_gone FROM sites WHERE name = ?", name);
    return gone ? *gone != 0 : Result<bool>(gone.error());
}

Result<QSet<QString>> goneSites(Database &database)
{
    const auto names = statementRows<QString>(database.prepare("SELECT name FROM sites WHERE is_gone"),
                                              [](const Statement &row) { return row.text(0); });
    return names ? QSet<QString>(names->begin(), names->end()) : Result<QSet<QString>>(names.error());
}

Result<> keepNotes(Database &database, const QString &name, const Notes &notes)
{
    return database.run("INSERT INTO sites (name, note, needs_account, reads_pad, is_gone)"
                        " VALUES (?, ?, ?, ?, ?) ON CONFLICT (name) DO UPDATE SET note = excluded.note,"
                        " needs_account = excluded.needs_account, reads_pad = excluded.reads_pad,"
                        " is_gone = excluded.is_gone",
                        name, notes.note, qint64(notes.needsAccount), qint64(notes.readsPad),
                        qint64(notes.isGone));
}

Result<> keepFinding(Database &database, const QString &name, const Finding &finding)
{
    return database.run("INSERT INTO sites (name, looked, verdict, detail) VALUES (?, ?, ?, ?)"
                        " ON CONFLICT (name) DO UPDATE SET looked = excluded.looked,"
                        " verdict = excluded.verdict, detail = excluded.detail",
                        name, finding.time, finding.verdict, finding.detail);
}

Result<> renameSite(Database &database, const QString &from, const QString &to)
{
    return database.run("UPDATE OR REPLACE sites SET name = ? WHERE name = ?", to, from);
}

} // namespace quillon::site_knowledge
