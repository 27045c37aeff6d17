#include "journal/deleted_items.h"

#include "journal/journal.h"
#include "journal/statement_rows.h"
#include "journal/titles.h"

#include <QDateTime>

namespace quillon::deleted_items {

namespace {

constexpr qint64 dayInMilliseconds = 86'400'000;

/// What was deleted before this has been kept long enough.
qint64 oldestTime()
{
    return QDateTime::currentMSecsSinceEpoch() - keptDays * dayInMilliseconds;
}

/// Removes what is too old.
Result<> prune(Database &database)
{
    Result<> pruned = database.run(
        "DELETE FROM titles WHERE id IN (SELECT title_id FROM deleted_titles WHERE time < ?)", oldestTime());
    return pruned ? database.run("DELETE FROM deleted_sites WHERE time < ?", oldestTime()) : pruned;
}

Result<> insertFiles(Database &database, qint64 id, const QList<File> &files)
{
    for (const File &file : files) {
        Result<> stored = database.run("INSERT INTO deleted_files (deleted_id, name, bytes) VALUES (?, ?, ?)",
                                       id, file.name, file.bytes);
        if (!stored)
            return stored;
    }
    return {};
}

Item itemOf(const Statement &row)
{
    return {row.number(0) == 0 ? Kind::Title : Kind::Site, row.number(1), row.text(2), row.text(3),
            row.number(4)};
}

/// Removes what was kept until now for good, also where the database's log still has it.
void emptyLog()
{
    (void)Journal::ofDataFolder().read(
        [](Database &database) { return database.execute("PRAGMA wal_checkpoint(TRUNCATE)"); });
}

Result<> forgetItem(Database &database, const Item &item)
{
    return item.kind == Kind::Site ? database.run("DELETE FROM deleted_sites WHERE id = ?", item.id)
                                   : database.run("DELETE FROM titles WHERE name IS NULL AND id IN"
                                                  " (SELECT title_id FROM deleted_titles WHERE id = ?)",
                                                  item.id);
}

} // namespace

Result<Item> keepTitle(const QString &name, const QList<File> &files)
{
    Item item{.name = name, .time = QDateTime::currentMSecsSinceEpoch()};
    const Result<> kept = Journal::ofDataFolder().change([&](Database &database) -> Result<> {
        const Result<qint64> title = journal_titles::idMadeFor(database, name);
        if (!title)
            return title.error();
        Result<> done = database.run("INSERT INTO deleted_titles (title_id, name, time) VALUES (?, ?, ?)",
                                     *title, name, item.time);
        item.id = database.lastId();
        if (done)
            done = insertFiles(database, item.id, files);
        if (done)
            done = journal_titles::rename(database, name, std::nullopt);
        return done ? prune(database) : done;
    });
    return kept ? item : Result<Item>(kept.error());
}

Result<QList<Item>> keepSites(const StringDictionary &sites)
{
    QList<Item> items;
    const Result<> kept = Journal::ofDataFolder().change([&](Database &database) -> Result<> {
        items.clear();
        for (const auto &[name, address] : sites) {
            const qint64 now = QDateTime::currentMSecsSinceEpoch();
            Result<> inserted = database.run(
                "INSERT INTO deleted_sites (name, address, time) VALUES (?, ?, ?)", name, address, now);
            if (!inserted)
                return inserted;
            items.append({Kind::Site, database.lastId(), name, address, now});
        }
        return prune(database);
    });
    return kept ? items : Result<QList<Item>>(kept.error());
}

Result<QList<Item>> all(Old old)
{
    auto items = Journal::ofDataFolder().find([](Database &database) {
        return statementRows<Item>(
            database.prepare("SELECT 0, id, name, '', time AS t FROM deleted_titles UNION ALL"
                             " SELECT 1, id, name, address, time FROM deleted_sites"
                             " ORDER BY t DESC, id DESC"),
            itemOf);
    });
    if (!items)
        return items;
    const auto isOld = [oldest = oldestTime()](const Item &item) { return item.time < oldest; };
    if (items->removeIf(isOld) > 0 && old == Old::Remove) {
        (void)Journal::ofDataFolder().changeExisting(prune);
        emptyLog();
    }
    return items;
}

Result<QList<File>> filesOf(const Item &title)
{
    Result<QList<File>> files = QList<File>();
    const Result<> read = Journal::ofDataFolder().read([&](Database &database) -> Result<> {
        files = statementRows<File>(
            database.prepare("SELECT name, bytes FROM deleted_files WHERE deleted_id = ?", title.id),
            [](const Statement &row) {
                return File{row.bytes(0), row.bytes(1)};
            });
        return files ? Result<>() : files.error();
    });
    return read ? files : Result<QList<File>>(read.error());
}

Result<> release(const Item &item, const QString &name)
{
    return Journal::ofDataFolder().changeExisting([&](Database &database) -> Result<> {
        if (item.kind == Kind::Site)
            return forgetItem(database, item);
        // What is left of another title of that name, whose folder is gone, goes.
        Result<> done = database.run("DELETE FROM titles WHERE name = ?", name);
        if (done)
            done = database.run("UPDATE titles SET name = ? WHERE id ="
                                " (SELECT title_id FROM deleted_titles WHERE id = ?)",
                                name, item.id);
        return done ? database.run("DELETE FROM deleted_titles WHERE id = ?", item.id) : done;
    });
}

Result<> forget(const QList<Item> &items)
{
    Result<> forgotten = Journal::ofDataFolder().changeExisting([&](Database &database) -> Result<> {
        for (const Item &item : items) {
            if (Result<> done = forgetItem(database, item); !done)
                return done;
        }
        return {};
    });
    emptyLog();
    return forgotten;
}

} // namespace quillon::deleted_items
