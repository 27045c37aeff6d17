#include "journal/ledger.h"

#include "journal/packed_bytes.h"
#include "journal/statement_rows.h"
#include "journal/titles.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;

namespace quillon::ledger {

namespace {

class LedgerText
{
    Q_DECLARE_TR_FUNCTIONS(Ledger)
};

constexpr std::array<QStringView, 5> stateNames = {u"sent", u"listed", u"refused", u"gone", u"removed"};

/// The entry in a row whose columns from @p first on are those of entryColumns.
Entry entryAt(const Statement &row, int first)
{
    Entry entry{.site = row.text(first),
                .version = row.text(first + 1),
                .time = row.number(first + 2),
                .state = stateNamed(row.text(first + 3)).value_or(State::Sent),
                .address = row.text(first + 4),
                .note = row.text(first + 5)};
    if (!row.isNull(first + 6))
        entry.before = row.text(first + 6);
    return entry;
}

/// The number of @p pad among what was sent of the title; the same file is kept once.
Result<qint64> idOfValues(Database &database, qint64 title, const QByteArray &pad)
{
    const QByteArray packed = qCompress(pad);
    Result<qint64> known =
        database.number("SELECT id FROM sent_values WHERE title_id = ? AND pad = ?", title, packed);
    if (!known || *known != 0)
        return known;
    const Result<> kept =
        database.run("INSERT INTO sent_values (title_id, pad) VALUES (?, ?)", title, packed);
    return kept ? database.lastId() : Result<qint64>(kept.error());
}

Result<> insert(Database &database, qint64 title, const Entry &entry, std::optional<qint64> values)
{
    return database.run("INSERT INTO ledger"
                        " (title_id, site, version, time, state, address, note, before, values_id)"
                        " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)",
                        title, entry.site, entry.version, entry.time, name(entry.state), entry.address,
                        entry.note, entry.before, values);
}

} // namespace

QString name(State state)
{
    return stateNames[size_t(state)].toString();
}

std::optional<State> stateNamed(QStringView name)
{
    const auto *const found = std::ranges::find(stateNames, name);
    return found == stateNames.end() ? std::nullopt : std::optional(State(found - stateNames.begin()));
}

Result<> add(Database &database, const QString &title, const Entry &entry,
             const std::optional<QByteArray> &pad)
{
    const Result<qint64> id = journal_titles::idMadeFor(database, title);
    if (!id || !pad)
        return id ? insert(database, *id, entry, std::nullopt) : id.error();
    const Result<qint64> values = idOfValues(database, *id, *pad);
    return values ? insert(database, *id, entry, *values) : values.error();
}

Result<> addNote(Database &database, const QString &title, const Entry &entry)
{
    const Result<qint64> id = journal_titles::idMadeFor(database, title);
    if (!id)
        return id.error();
    const Result<qint64> sent = database.number(
        "SELECT values_id FROM ledger WHERE title_id = ? AND site = ? ORDER BY id DESC LIMIT 1", *id,
        entry.site);
    if (!sent)
        return sent.error();
    return insert(database, *id, entry, *sent == 0 ? std::nullopt : std::optional(*sent));
}

Result<QList<Entry>> entries(Database &database, const QString &title)
{
    return statementRows<Entry>(
        database.prepare("SELECT site, version, time, state, address, note, before FROM ledger"
                         " WHERE title_id = (SELECT id FROM titles WHERE name = ?) ORDER BY id",
                         title),
        [](const Statement &row) { return entryAt(row, 0); });
}

Result<QList<TitleEntry>> newestOfAll(Database &database)
{
    return statementRows<TitleEntry>(
        database.prepare("SELECT name, site, version, time, state, address, note, before"
                         " FROM ledger JOIN titles ON titles.id = title_id WHERE name IS NOT NULL"
                         " AND ledger.id IN (SELECT max(id) FROM ledger GROUP BY title_id, site)"),
        [](const Statement &row) {
            return TitleEntry{row.text(0), entryAt(row, 1)};
        });
}

Result<std::optional<QByteArray>> lastSent(Database &database, const QString &title, const QString &site)
{
    const auto found = statementRows<std::optional<QByteArray>>(
        database.prepare("SELECT pad FROM ledger LEFT JOIN sent_values ON sent_values.id = values_id"
                         " WHERE ledger.title_id = (SELECT id FROM titles WHERE name = ?) AND site = ?"
                         " ORDER BY ledger.id DESC LIMIT 1",
                         title, site),
        [](const Statement &row) { return row.isNull(0) ? std::nullopt : std::optional(row.bytes(0)); });
    if (!found)
        return found.error();
    const std::optional<QByteArray> packed = found->value(0);
    if (!packed)
        return packed;
    if (auto pad = packed_bytes::unpacked(*packed))
        return pad;
    return Error{Error::Kind::Unintelligible, title,
                 LedgerText::tr("what was sent to %1 is damaged").arg(site)};
}

Result<> renameSite(Database &database, const QString &from, const QString &to)
{
    Result<> done = database.run("UPDATE ledger SET site = ? WHERE site = ?", to, from);
    if (done)
        done = database.run("UPDATE tours SET site = ? WHERE site = ?", to, from);
    if (done)
        done = database.run("UPDATE OR REPLACE tour_answers SET site = ? WHERE site = ?", to, from);
    return done;
}

} // namespace quillon::ledger
