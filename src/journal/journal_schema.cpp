#include "journal/journal_schema.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quillon::journal_schema {

namespace {

/// What makes each version of the one before it; the first begins with nothing. Times are milliseconds since
/// 1970 (UTC).
///
/// - titles: what rows belong to, whatever the title is called. Without a name the title is deleted, and its
///   rows wait with deleted_titles; forgetting it removes its row here, and with it all others.
/// - history: "row" counts from 0 for each title; 0 is an imported title's file as it came, of no field.
/// - change_sets: "of_set" is the one that it takes back, or does again; where it "is_unfinished", some of
///   its rows may not have been made (set_log).
/// - form_fields: what "value" of a title was confirmed for a field with these signs (JSON) of a site's form.
/// - originals: "bytes" as qCompress() gives them where "is_compressed".
/// - ledger: what became of a title on a site, the newest of both last. "before" is the version that was
///   there until then. "sent_values" has the PAD file as it was sent, once for all entries that sent it, as
///   qCompress() gives it.
/// - tours: the site that the author is at with a title; tour_answers: what was said of sites. Both count
///   for the title's version only.
/// - sites: what the author learned of each, and what came of the last visit, if there was one.
constexpr std::array migrations = {R"(
    CREATE TABLE state (checked INTEGER NOT NULL);
    INSERT INTO state VALUES (0);
    CREATE TABLE titles (id INTEGER PRIMARY KEY, name UNIQUE);
    CREATE TABLE change_sets (
        id INTEGER PRIMARY KEY, time INTEGER NOT NULL, label NOT NULL, origin TEXT NOT NULL);
    CREATE TABLE history (
        id INTEGER PRIMARY KEY,
        title_id INTEGER NOT NULL REFERENCES titles ON DELETE CASCADE,
        row INTEGER NOT NULL,
        field TEXT NOT NULL,
        time INTEGER NOT NULL,
        before,
        after,
        origin TEXT NOT NULL,
        set_id INTEGER REFERENCES change_sets ON DELETE SET NULL,
        UNIQUE (title_id, row));
    CREATE TABLE originals (
        id INTEGER PRIMARY KEY,
        title_id INTEGER NOT NULL REFERENCES titles ON DELETE CASCADE,
        time INTEGER NOT NULL,
        name NOT NULL,
        is_compressed INTEGER NOT NULL,
        bytes BLOB NOT NULL);
    CREATE INDEX originals_of_title ON originals (title_id);
    CREATE TABLE deleted_titles (
        id INTEGER PRIMARY KEY,
        title_id INTEGER NOT NULL REFERENCES titles ON DELETE CASCADE,
        name NOT NULL,
        time INTEGER NOT NULL);
    CREATE INDEX deleted_titles_of_title ON deleted_titles (title_id);
    CREATE TABLE deleted_files (
        deleted_id INTEGER NOT NULL REFERENCES deleted_titles ON DELETE CASCADE,
        name BLOB NOT NULL,
        bytes BLOB NOT NULL,
        PRIMARY KEY (deleted_id, name));
    CREATE TABLE deleted_sites (
        id INTEGER PRIMARY KEY,
        name NOT NULL,
        address NOT NULL,
        time INTEGER NOT NULL,
        picture_name BLOB,
        picture BLOB);
)",
                                   R"(
    CREATE TABLE sent_values (
        id INTEGER PRIMARY KEY,
        title_id INTEGER NOT NULL REFERENCES titles ON DELETE CASCADE,
        pad BLOB NOT NULL);
    CREATE INDEX sent_values_of_title ON sent_values (title_id);
    CREATE TABLE ledger (
        id INTEGER PRIMARY KEY,
        title_id INTEGER NOT NULL REFERENCES titles ON DELETE CASCADE,
        site NOT NULL,
        version NOT NULL,
        time INTEGER NOT NULL,
        state TEXT NOT NULL,
        address NOT NULL,
        note NOT NULL,
        before,
        values_id INTEGER REFERENCES sent_values ON DELETE SET NULL);
    CREATE INDEX ledger_of_title ON ledger (title_id, site);
    CREATE INDEX ledger_of_values ON ledger (values_id);
    CREATE TABLE tours (
        title_id INTEGER PRIMARY KEY REFERENCES titles ON DELETE CASCADE,
        version NOT NULL,
        site NOT NULL);
    CREATE TABLE tour_answers (
        id INTEGER PRIMARY KEY,
        title_id INTEGER NOT NULL REFERENCES titles ON DELETE CASCADE,
        site NOT NULL,
        version NOT NULL,
        answer TEXT NOT NULL,
        UNIQUE (title_id, site));
)",
                                   R"(
    ALTER TABLE change_sets ADD COLUMN of_set INTEGER;
    ALTER TABLE change_sets ADD COLUMN is_unfinished INTEGER NOT NULL DEFAULT 0;
    CREATE INDEX history_of_set ON history (set_id);
)",
                                   R"(
    CREATE TABLE sites (
        name NOT NULL PRIMARY KEY,
        note NOT NULL DEFAULT '',
        needs_account INTEGER NOT NULL DEFAULT 0,
        reads_pad INTEGER NOT NULL DEFAULT 0,
        is_gone INTEGER NOT NULL DEFAULT 0,
        looked INTEGER,
        verdict TEXT,
        detail);
)",
                                   R"(
    CREATE TABLE form_fields (
        id INTEGER PRIMARY KEY,
        site NOT NULL,
        signs TEXT NOT NULL,
        value TEXT NOT NULL,
        time INTEGER NOT NULL,
        UNIQUE (site, signs));
)"};

/// Makes @p database one of @p newest; all steps in one transaction.
Result<> migrateTo(Database &database, qint64 newest)
{
    return database.transaction([newest](Database &inside) -> Result<> {
        // Another process may have done it since the caller looked.
        const Result<qint64> version = inside.number("PRAGMA user_version");
        if (!version)
            return version.error();
        for (qint64 next = *version; next < newest; ++next) {
            if (Result<> made = inside.execute(migrations[size_t(next)]); !made)
                return made;
        }
        // Pragmas take no bound values.
        const QString header =
            u"PRAGMA application_id = %1; PRAGMA user_version = %2"_s.arg(applicationId).arg(newest);
        return inside.execute(header.toUtf8().constData());
    });
}

/// What makes the tables and all else of @p database.
Result<QString> makings(Database &database)
{
    auto schema = database.prepare(
        "SELECT group_concat(sql, ';') FROM (SELECT sql FROM sqlite_schema ORDER BY type, name)");
    const Result<bool> hasRow = schema ? schema->next() : schema.error();
    return hasRow ? schema->text(0) : Result<QString>(hasRow.error());
}

} // namespace

qint64 newestVersion()
{
    return qint64(migrations.size());
}

Result<> migrate(Database &database)
{
    const Result<qint64> present = database.number("PRAGMA user_version");
    if (!present || *present == newestVersion())
        return present ? Result<>() : present.error();
    return migrateTo(database, newestVersion());
}

Result<bool> isOurs(Database &database, qint64 version)
{
    auto ours = Database::open(u":memory:"_s, Database::Opening::MakeMissing);
    const Result<> made = ours ? migrateTo(*ours, version) : ours.error();
    const auto expected = made ? makings(*ours) : Result<QString>(made.error());
    const auto present = expected ? makings(database) : expected;
    return present ? *present == *expected : Result<bool>(present.error());
}

} // namespace quillon::journal_schema
