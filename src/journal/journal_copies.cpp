#include "journal/journal_copies.h"

#include "journal/journal.h"
#include "journal/journal_schema.h"
#include "platform/staged_folder.h"
#include "store/process_state.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quillon::journal_copies {

namespace {

class JournalCopiesText
{
    Q_DECLARE_TR_FUNCTIONS(JournalCopies)
};

/// Copies what belongs to the titles in "wanted", deleted sites that are not here, and what is known of sites
/// that nothing is known of here. Numbers that rows have in the copy come after all that are given here.
constexpr auto copyRows = R"(
    CREATE TEMP TABLE highest AS SELECT
        (SELECT coalesce(max(id), 0) FROM main.titles) AS title,
        (SELECT coalesce(max(id), 0) FROM main.change_sets) AS change_set,
        (SELECT coalesce(max(id), 0) FROM main.deleted_titles) AS deleted,
        (SELECT coalesce(max(id), 0) FROM main.sent_values) AS sent;

    INSERT INTO main.titles
        SELECT id + title, name FROM old.titles, highest WHERE id IN wanted;
    INSERT INTO main.change_sets (id, time, label, origin, of_set, is_unfinished)
        SELECT id + change_set, time, label, origin, of_set + change_set, is_unfinished
        FROM old.change_sets, highest
        WHERE id IN (SELECT set_id FROM old.history WHERE title_id IN wanted);
    INSERT INTO main.history (title_id, row, field, time, before, after, origin, set_id)
        SELECT title_id + title, row, field, time, before, after, origin, set_id + change_set
        FROM old.history, highest WHERE title_id IN wanted;
    INSERT INTO main.originals (title_id, time, name, is_compressed, bytes)
        SELECT title_id + title, time, name, is_compressed, bytes
        FROM old.originals, highest WHERE title_id IN wanted;
    INSERT INTO main.deleted_titles (id, title_id, name, time)
        SELECT id + deleted, title_id + title, name, time
        FROM old.deleted_titles, highest WHERE title_id IN wanted;
    INSERT INTO main.deleted_files (deleted_id, name, bytes)
        SELECT deleted_id + deleted, name, bytes FROM old.deleted_files, highest
        WHERE deleted_id IN (SELECT id FROM old.deleted_titles WHERE title_id IN wanted);

    INSERT INTO main.sent_values
        SELECT id + sent, title_id + title, pad FROM old.sent_values, highest WHERE title_id IN wanted;
    INSERT INTO main.ledger (title_id, site, version, time, state, address, note, before, values_id)
        SELECT title_id + title, site, version, time, state, address, note, before, values_id + sent
        FROM old.ledger, highest WHERE title_id IN wanted ORDER BY id;
    INSERT INTO main.tours
        SELECT title_id + title, version, site FROM old.tours, highest WHERE title_id IN wanted;
    INSERT INTO main.tour_answers (title_id, site, version, answer)
        SELECT title_id + title, site, version, answer
        FROM old.tour_answers, highest WHERE title_id IN wanted ORDER BY id;

    INSERT OR IGNORE INTO main.sites SELECT * FROM old.sites;
    INSERT OR IGNORE INTO main.form_fields (site, signs, value, time)
        SELECT site, signs, value, time FROM old.form_fields ORDER BY id;
    INSERT INTO main.deleted_sites (name, address, time, picture_name, picture)
        SELECT name, address, time, picture_name, picture FROM old.deleted_sites AS theirs
        WHERE NOT EXISTS (SELECT * FROM main.deleted_sites AS ours WHERE ours.name = theirs.name
                          AND ours.address = theirs.address AND ours.time = theirs.time);
    DROP TABLE highest;
)";

Error isNoCopy(const QString &path, const QString &reason)
{
    return {Error::Kind::Unintelligible, path, reason};
}

/// Whether @p path is a regular file with no log beside it, which could hold what the file does not.
Result<> isFile(const QString &path)
{
    if (const QFileInfo file(path); !file.isFile() || file.isSymLink())
        return Error{file.exists() || file.isSymLink() ? Error::Kind::Unreadable : Error::Kind::Missing, path,
                     JournalCopiesText::tr("it is no regular file")};
    for (const QString &log : {u"-wal"_s, u"-journal"_s}) {
        if (const QFileInfo file(path + log); file.exists() || file.isSymLink())
            return isNoCopy(path, JournalCopiesText::tr("%1 lies beside it").arg(file.fileName()));
    }
    return {};
}

/// Opens the copy at @p path, when it is one that the present version can use.
Result<Database> opened(const QString &path)
{
    auto database = Database::open(path, Database::Opening::ForReading);
    if (!database)
        return database;
    const auto owner = database->number("PRAGMA application_id");
    const auto version = database->number("PRAGMA user_version");
    if (!owner || !version)
        return owner ? version.error() : owner.error();
    if (*owner != journal_schema::applicationId || *version < 1)
        return isNoCopy(path, JournalCopiesText::tr("it is another program's"));
    if (*version > journal_schema::newestVersion())
        return isNoCopy(path, JournalCopiesText::tr("it was made by a newer version of Quillon"));
    const auto isOurs = journal_schema::isOurs(*database, *version);
    if (!isOurs)
        return isOurs.error();
    if (!*isOurs)
        return isNoCopy(path, JournalCopiesText::tr("its tables are not those of Quillon"));
    return database;
}

/// Makes the copy at @p path, of which a copy lies at @p own, one of the present version there.
Result<> prepare(const QString &path, const QString &own)
{
    auto database = opened(path);
    if (!database)
        return database.error();
    if (Result<> copied = database->copyTo(own); !copied) // Reads all of it.
        return copied;
    auto copy = Database::open(own, Database::Opening::ExistingOnly);
    return copy ? journal_schema::migrate(*copy) : copy.error();
}

/// Notes the titles that are to come in, in the table "wanted".
Result<> noteWanted(Database &database, const std::function<bool(const QString &)> &isWanted)
{
    Result<> noted = database.execute(R"(
        CREATE TEMP TABLE wanted (id INTEGER PRIMARY KEY);
        INSERT INTO wanted SELECT DISTINCT title_id FROM old.deleted_titles AS theirs WHERE NOT EXISTS (
            SELECT * FROM main.deleted_titles AS ours WHERE ours.name = theirs.name AND ours.time = theirs.time))");
    if (!noted)
        return noted;
    auto titles = database.prepare("SELECT id, name FROM old.titles"
                                   " WHERE name IS NOT NULL AND name NOT IN"
                                   " (SELECT name FROM main.titles WHERE name IS NOT NULL)");
    while (titles) {
        const Result<bool> hasRow = titles->next();
        if (!hasRow)
            return hasRow.error();
        if (!*hasRow)
            return {};
        if (!isWanted(titles->text(1)))
            continue;
        if (Result<> wanted = database.run("INSERT INTO wanted VALUES (?)", titles->number(0)); !wanted)
            return wanted;
    }
    return titles.error();
}

Result<qint64> merge(Database &database, const std::function<bool(const QString &)> &isWanted)
{
    qint64 count = 0;
    const Result<> merged = database.transaction([&](Database &inside) -> Result<> {
        if (Result<> noted = noteWanted(inside, isWanted); !noted)
            return noted;
        if (Result<> copied = inside.execute(copyRows); !copied)
            return copied;
        const auto wanted = inside.number("SELECT count(*) FROM wanted");
        if (!wanted)
            return wanted.error();
        count = *wanted;
        return inside.execute("DROP TABLE wanted");
    });
    return merged ? count : Result<qint64>(merged.error());
}

} // namespace

Result<> canBeCopied()
{
    return Journal::ofDataFolder().read([](Database &) -> Result<> { return {}; });
}

Result<> copyTo(const QString &path)
{
    Result<> copied;
    const Result<> read = Journal::ofDataFolder().read([&](Database &database) -> Result<> {
        copied = database.copyTo(path); // Its failure is none of the database's.
        return {};
    });
    return read ? copied : read;
}

Result<> canBeBroughtIn(const QString &path)
{
    if (Result<> is = isFile(path); !is)
        return is;
    auto copy = opened(path);
    const auto faults =
        copy ? copy->number("SELECT count(*) FROM pragma_quick_check(1) WHERE quick_check <> 'ok'")
             : Result<qint64>(copy.error());
    if (!faults)
        return Error{faults.error().kind, path, faults.error().reason};
    return *faults == 0 ? Result<>() : isNoCopy(path, JournalCopiesText::tr("it is damaged"));
}

Result<qint64> bringIn(const QString &path, const std::function<bool(const QString &title)> &isWanted)
{
    if (const Result<> is = isFile(path); !is)
        return is.error();
    const auto staged = StagedFolder::in(QDir::cleanPath(mwqnAppSuppLoc));
    if (!staged)
        return staged.error();
    const QString own = staged->folder().path() + u"/copy.sqlite";
    if (Result<> prepared = prepare(path, own); !prepared)
        return Error{prepared.error().kind, path, prepared.error().reason};
    if (Result<> made = Journal::ofDataFolder().change([](Database &) -> Result<> { return {}; }); !made)
        return made.error();
    Result<qint64> merged = 0;
    const Result<> read = Journal::ofDataFolder().read([&](Database &database) -> Result<> {
        // Not in a transaction, which cannot begin to use another file. What fails is the copy's failure.
        const Result<> attached = database.run("ATTACH ? AS old", own);
        merged = attached ? merge(database, isWanted) : Result<qint64>(attached.error());
        (void)database.execute("DETACH old");
        return {};
    });
    if (!read)
        return read.error();
    return merged ? merged : Result<qint64>(Error{merged.error().kind, path, merged.error().reason});
}

} // namespace quillon::journal_copies
