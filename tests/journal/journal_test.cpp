#include "journal/deleted_items.h"
#include "journal/form_fields.h"
#include "journal/history.h"
#include "journal/journal.h"
#include "journal/journal_copies.h"
#include "journal/ledger.h"
#include "journal/originals.h"
#include "journal/statement_rows.h"
#include "journal/titles.h"
#include "store/storage_status.h"
#include "support/faults.h"
#include "support/temporary_home.h"

#include <QDataStream>
#include <QDateTime>

#include <functional>
#include <numeric>

namespace {

struct JournalTest : TemporaryDataFolder
{
    void TearDown() override
    {
        Journal::ofDataFolder().close();
        TemporaryDataFolder::TearDown();
    }

    static QString file() { return inData(u"quillon.sqlite"_s); }
    static Result<> keep(const QString &title)
    {
        return Journal::ofDataFolder().change([&](Database &database) -> Result<> {
            const auto id = journal_titles::idMadeFor(database, title);
            return id ? Result<>() : id.error();
        });
    }
    static QStringList kept()
    {
        QStringList names;
        (void)Journal::ofDataFolder().read([&](Database &database) -> Result<> {
            auto rows = database.prepare("SELECT name FROM titles ORDER BY id");
            while (rows && rows->next().valueOr(false))
                names.append(rows->text(0));
            return {};
        });
        return names;
    }
    static QStringList setAside() { return QDir(mwqnAppSuppLoc).entryList({u"*.unreadable*"_s}); }
};

} // namespace

TEST_F(JournalTest, IsMadeWhenSomethingIsFirstKeptAndGivesEveryTextBack)
{
    EXPECT_EQ(kept(), QStringList());
    EXPECT_TRUE(Journal::ofDataFolder().changeExisting([](Database &) { return Error{}; }));
    EXPECT_FALSE(QFile::exists(file()));
    const QStringList names = {u"Plain"_s,
                               QString(),
                               u"\xfeffMark"_s,
                               u"a\0b"_s,
                               QString(QChar(0xd800)),
                               u"x"_s + QChar(0xdc00) + u"é😀"_s,
                               QString(QChar(0xfffd))};
    for (const QString &name : names + names)
        EXPECT_TRUE(keep(name));
    Journal::ofDataFolder().close();
    EXPECT_EQ(kept(), names);
    EXPECT_TRUE(Journal::ofDataFolder().change([](Database &database) -> Result<> {
        (void)journal_titles::rename(database, u"Plain"_s, u"a\0b"_s);
        return journal_titles::rename(database, QString(), std::nullopt);
    }));
    EXPECT_EQ(kept().first(2), QStringList({u"a\0b"_s, QString()}));
    EXPECT_EQ(kept().size(), names.size() - 1) << "the one whose name is given to another is gone";
    EXPECT_FALSE(Journal::ofDataFolder().change([](Database &database) -> Result<> {
        (void)database.run("DELETE FROM titles");
        return Error{.reason = u"changed my mind"_s};
    }));
    EXPECT_EQ(kept().size(), names.size() - 1);
    EXPECT_EQ(failedExtrasLine(), QString());
}

/// SQLite tells a disk that fails to read as a damaged database.
TEST_F(JournalTest, WhatCannotBeReadIsNotSetAside)
{
    for (int number = 0; number < 20; ++number)
        ASSERT_TRUE(keep(u"Title %1"_s.arg(number)));
    for (const char *const lasting : {"", "+"}) {
        bool isMet = true;
        for (int call = 1; isMet; ++call) {
            Journal::ofDataFolder().close();
            std::optional<FaultPlan> plan(std::in_place, home(),
                                          "read@" + QByteArray::number(call) + lasting + "=EIO");
            const bool isKept = bool(keep(u"Title 1"_s));
            isMet = plan->met();
            EXPECT_TRUE(isKept || isMet);
            plan.reset();
            EXPECT_EQ(setAside(), QStringList()) << call << lasting;
            EXPECT_EQ(kept().size(), 20) << call << lasting;
        }
    }
}

/// A bad place of the disk is one when it is read for the second time, too.
TEST_F(JournalTest, WhatFailsToBeReadAgainIsNoDamage)
{
    ASSERT_TRUE(deleted_items::keepTitle(u"T"_s, {{"large", QByteArray(6'291'456, 'x')}}));
    Journal::ofDataFolder().close();
    const QByteArray good = contents(file());
    for (int later = 21; later <= 27; ++later) {
        ASSERT_TRUE(put(file(), good));
        {
            const FaultPlan plan(home(), "read@20=EIO read@" + QByteArray::number(later) + "+=EIO");
            EXPECT_FALSE(keep(u"New"_s)) << later;
        }
        EXPECT_EQ(setAside(), QStringList()) << later;
        Journal::ofDataFolder().close();
    }
}

TEST_F(JournalTest, AFailureAmongTheRowsIsNotTheirEnd)
{
    ASSERT_TRUE(keep(u"T"_s));
    static constexpr auto failing =
        "SELECT abs(column1) FROM (VALUES (1), (-9223372036854775808), (2))"; // The second has no amount.
    EXPECT_FALSE(Journal::ofDataFolder().find([](Database &database) {
        return statementRows<qint64>(database.prepare(failing),
                                     [](const Statement &row) { return row.number(0); });
    }));
    EXPECT_FALSE(
        Journal::ofDataFolder().changeExisting([](Database &database) { return database.run(failing); }));
    EXPECT_FALSE(Journal::ofDataFolder().find(
        [](Database &database) { return database.number("SELECT abs(-9223372036854775808)"); }));
}

TEST_F(JournalTest, WhatIsForgottenOrTooOldIsNowhereInTheFiles)
{
    const auto keepItems = [] {
        EXPECT_TRUE(deleted_items::keepSites({{u"Site"_s, u"precious"_s}}));
        return deleted_items::keepTitle(u"T"_s, {{"notes", "precious"}});
    };
    const auto holdsIt = [] {
        return contents(file()).contains("precious") || contents(file() + u"-wal"_s).contains("precious");
    };
    ASSERT_TRUE(keepItems() && holdsIt());
    EXPECT_TRUE(deleted_items::forget(deleted_items::all().valueOr({})));
    EXPECT_FALSE(holdsIt());

    const std::function<void()> ways[] = {[] { (void)deleted_items::all(); },
                                          [] { (void)deleted_items::keepTitle(u"U"_s, {}); },
                                          [] { (void)deleted_items::keepSites({}); }};
    for (const auto &way : ways) {
        ASSERT_TRUE(keepItems());
        const qint64 old = QDateTime::currentMSecsSinceEpoch() - (deleted_items::keptDays + 1) * 86'400'000LL;
        for (const char *sql : {"UPDATE deleted_titles SET time = ?", "UPDATE deleted_sites SET time = ?"})
            ASSERT_TRUE(
                Journal::ofDataFolder().change([&](Database &database) { return database.run(sql, old); }));
        way();
        for (const char *sql : {"SELECT count(*) FROM deleted_files", "SELECT count(*) FROM deleted_sites"})
            EXPECT_EQ(Journal::ofDataFolder().find([&](Database &database) { return database.number(sql); }),
                      0)
                << &way - ways << sql;
        EXPECT_TRUE(&way != ways || !holdsIt());
    }
}

/// A log that stays behind would be taken for that of the next database.
TEST_F(JournalTest, TheLogGoesWithWhatIsSetAside)
{
    for (int number = 0; number < 100; ++number)
        ASSERT_TRUE(keep(u"Title %1"_s.arg(number)));
    QStringList expected;
    for (const QString &end : {u""_s, u"-2"_s}) {
        Journal::ofDataFolder().close();
        auto other = Database::open(file(), Database::Opening::ExistingOnly); // Keeps the log where it is.
        ASSERT_TRUE(other && other->run("INSERT INTO titles (name) VALUES ('Late')"));
        ASSERT_TRUE(put(file(), contents(file()).first(8192)));
        const QByteArray log = contents(file() + u"-wal"_s);
        ASSERT_FALSE(log.isEmpty());
        EXPECT_TRUE(keep(u"New"_s));
        EXPECT_EQ(kept(), QStringList(u"New"_s));
        const QString name = u"quillon.sqlite.unreadable"_s + end;
        expected += {name, name + u"-shm"_s, name + u"-wal"_s};
        EXPECT_EQ(contents(inData(name + u"-wal"_s)), log);
        for (int number = 0; number < 100; ++number)
            ASSERT_TRUE(keep(u"Title %1"_s.arg(number)));
        Journal::ofDataFolder().close(); // Before the other, which removes what has its log's name then.
    }
    expected.sort();
    QStringList found = setAside();
    found.sort();
    EXPECT_EQ(found, expected);
}

TEST_F(JournalTest, WhatIsNoJournalIsSetAsideWhole)
{
    for (int number = 0; number < 100; ++number)
        ASSERT_TRUE(keep(u"Title %1"_s.arg(number)));
    Journal::ofDataFolder().close();
    const QByteArray good = contents(file());
    ASSERT_GT(good.size(), 20'000);
    const auto edited = [&good](const char *sql) {
        EXPECT_TRUE(put(file(), good));
        EXPECT_TRUE(Database::open(file(), Database::Opening::ExistingOnly)->execute(sql));
        return contents(file());
    };
    QList<QByteArray> damaged = {QByteArray(8192, '\0'), "no database", edited("PRAGMA application_id = 7"),
                                 edited("PRAGMA user_version = 99"),
                                 QByteArray(good).replace(8192, 4096, QByteArray(4096, '\0'))};
    for (qsizetype size = 4096; size < good.size(); size += 4096)
        damaged.append(good.first(size));
    for (const QByteArray &bytes : damaged) {
        mwqnFailedExtras.clear();
        ASSERT_TRUE(put(file(), bytes));
        EXPECT_EQ(kept(), QStringList()) << bytes.size();
        EXPECT_EQ(contents(file()), bytes) << "reading changes nothing";
        EXPECT_NE(failedExtrasLine(), QString());
        EXPECT_TRUE(keep(u"New"_s));
        EXPECT_EQ(kept(), QStringList(u"New"_s));
        ASSERT_EQ(setAside().size(), 1) << setAside().join(u' ');
        EXPECT_EQ(contents(inData(setAside().first())), bytes);
        EXPECT_TRUE(failedExtrasLine().contains(u"set aside"_s));
        EXPECT_TRUE(mwqnFailedWrites.isEmpty());
        Journal::ofDataFolder().close();
        ASSERT_TRUE(QFile::remove(inData(setAside().first())));
    }
}

TEST_F(JournalTest, WhatKeepsItFromBeingWrittenCostsTheExtrasOnly)
{
    ASSERT_TRUE(keep(u"A"_s));
    const auto refusing = [](const char *what) {
        EXPECT_FALSE(keep(u"Lost"_s)) << what;
        EXPECT_EQ(kept(), QStringList(u"A"_s)) << what;
        EXPECT_FALSE(failedExtrasLine().isEmpty()) << what << ": reading mends no writing";
        EXPECT_TRUE(mwqnFailedWrites.isEmpty());
        EXPECT_EQ(setAside(), QStringList()) << what;
    };
    {
        auto other = Database::open(file(), Database::Opening::ExistingOnly);
        ASSERT_TRUE(other && other->execute("BEGIN IMMEDIATE"));
        refusing("locked by another program");
    }
    for (const char *fault : {"write+=ENOSPC", "write@2+=EIO", "fsync+=EIO"}) {
        const FaultPlan plan(home(), fault);
        refusing(fault);
        EXPECT_TRUE(plan.met()) << fault;
    }
    EXPECT_TRUE(keep(u"B"_s));
    EXPECT_EQ(kept(), QStringList({u"A"_s, u"B"_s}));
    EXPECT_EQ(failedExtrasLine(), QString());
    for (const QString &name : QDir(mwqnAppSuppLoc).entryList({u"quillon.sqlite*"_s}))
        ASSERT_TRUE(QFile::remove(inData(name)));
    EXPECT_TRUE(keep(u"C"_s));
    EXPECT_EQ(kept(), QStringList(u"C"_s)) << "it was deleted while the program ran";
    Journal::ofDataFolder().close();
    ASSERT_TRUE(QFile::rename(file(), file() + u".old"_s) && QFile::link(file() + u".old"_s, file()));
    EXPECT_FALSE(keep(u"D"_s)) << "what a link leads to is not ours";
}

TEST_F(JournalTest, OldHistoryIsThinnedOutButTheFileAndReleasesStay)
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const auto step = [](const QString &origin, qint64 time) {
        return history::Step{origin, {}, time, {{.field = u"eula"_s, .before = u"a"_s, .after = u"b"_s}}};
    };
    QList<history::Step> steps = {step(history::origin::typed, 0), step(history::origin::release, 0)};
    for (int number = 0; number < 10'100; ++number)
        steps.append(step(history::origin::typed, now));
    QList<history::Row> rows;
    EXPECT_TRUE(Journal::ofDataFolder().change([&](Database &database) -> Result<> {
        (void)history::appendImport(database, u"T"_s);
        (void)history::append(database, u"T"_s, steps);
        rows = history::rows(database, u"T"_s).valueOr({});
        return {};
    }));
    ASSERT_EQ(rows.size(), 10'002);
    EXPECT_EQ(rows.first().number, 10'102);
    EXPECT_EQ(rows[10'000].origin, history::origin::release);
    EXPECT_EQ(rows[10'001].number, 0);
}

TEST_F(JournalTest, ACopyBringsBackWhatIsNotKnownAndChangesNothingThatIs)
{
    EXPECT_TRUE(keep(u"Title"_s));
    EXPECT_TRUE(form_fields::remember(u"Site"_s, {{u"a"_s, u"old"_s}, {u"b"_s, u"old"_s}}));
    const QString copy = inData(u"copy.sqlite"_s);
    ASSERT_TRUE(journal_copies::copyTo(copy));
    EXPECT_TRUE(form_fields::forget(u"Site"_s));
    EXPECT_TRUE(form_fields::remember(u"Site"_s, {{u"a"_s, u"new"_s}}));
    EXPECT_EQ(journal_copies::bringIn(copy, [](const QString &) { return true; }).valueOr(-1), 0);
    QStringList known;
    for (const form_fields::Row &row : form_fields::of(u"Site"_s).valueOr({}))
        known.append(row.signs + row.value);
    EXPECT_EQ(known, (QStringList{u"anew"_s, u"bold"_s}));
    EXPECT_EQ(kept(), QStringList{u"Title"_s});
}

TEST_F(JournalTest, ACopyBringsBackTheRowsOfEveryTable)
{
    const auto counts = [] {
        QMap<QString, qint64> all;
        (void)Journal::ofDataFolder().read([&all](Database &database) -> Result<> {
            auto tables = database.prepare("SELECT name FROM sqlite_schema WHERE type = 'table'"
                                           " AND name NOT IN ('state', 'titles')");
            while (tables && tables->next().valueOr(false)) {
                const QString name = tables->text(0);
                const QByteArray query = "SELECT count(*) FROM " + name.toUtf8();
                all[name] = database.number(query.constData()).valueOr(-1);
            }
            return {};
        });
        return all;
    };
    ASSERT_TRUE(Journal::ofDataFolder().change([](Database &database) {
        return database.execute(R"(
            INSERT INTO titles VALUES (1, 'T'), (2, NULL);
            INSERT INTO change_sets (id, time, label, origin, of_set) VALUES (1, 1, 'L', 'fix', 1);
            INSERT INTO history VALUES (1, 1, 1, 'eula', 1, 'a', 'b', 'fix', 1);
            INSERT INTO originals VALUES (1, 1, 1, 'a.xml', 0, x'00');
            INSERT INTO deleted_titles VALUES (1, 2, 'D', 1);
            INSERT INTO deleted_files VALUES (1, x'61', x'62');
            INSERT INTO deleted_sites VALUES (1, 'S', 'http://s', 1, NULL, NULL);
            INSERT INTO sent_values VALUES (1, 1, x'00');
            INSERT INTO ledger VALUES (1, 1, 'S', '1', 1, 'sent', '', '', NULL, 1);
            INSERT INTO tours VALUES (1, '1', 'S');
            INSERT INTO tour_answers VALUES (1, 1, 'S', '1', 'skip');
            INSERT INTO sites (name) VALUES ('S');
            INSERT INTO form_fields VALUES (1, 'S', '{}', 'eula', 1);)");
    }));
    const auto before = counts();
    for (const auto [name, count] : before.asKeyValueRange())
        EXPECT_EQ(count, 1) << name << " has no row above";
    const QString copy = inData(u"copy.sqlite"_s);
    ASSERT_TRUE(journal_copies::copyTo(copy));
    Journal::ofDataFolder().close();
    for (const QString &name : QDir(mwqnAppSuppLoc).entryList({u"quillon.sqlite*"_s}))
        ASSERT_TRUE(QFile::remove(inData(name)));
    ASSERT_TRUE(keep(u"Another"_s)) << "so that the numbers are others";
    EXPECT_EQ(journal_copies::bringIn(copy, [](const QString &) { return true; }).valueOr(-1), 2);
    EXPECT_EQ(counts(), before);
    EXPECT_EQ(kept(), QStringList({u"Another"_s, u"T"_s, QString()}));
    (void)Journal::ofDataFolder().read([](Database &database) -> Result<> {
        EXPECT_EQ(database.number("SELECT count(*) FROM pragma_foreign_key_check"), 0);
        return {};
    });
}

TEST_F(JournalTest, AStrangersCopyIsNeitherWrittenIntoNorTrustedToDoAnything)
{
    ASSERT_TRUE(keep(u"Title"_s));
    const QString copy = inData(u"copy?100%#.sqlite"_s);
    const QString log = copy + u"-journal"_s;
    const auto bringIn = [&copy] {
        const QByteArray before = contents(copy);
        const auto broughtIn = journal_copies::bringIn(copy, [](const QString &) { return true; });
        const Result<> can = journal_copies::canBeBroughtIn(copy);
        EXPECT_EQ(contents(copy), before);
        EXPECT_EQ(bool(can), bool(broughtIn)) << "a trial tells the same";
        return broughtIn ? u"done"_s : broughtIn.error().reason;
    };
    const auto put = [](const QString &path, const QByteArray &bytes) {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    };
    ASSERT_TRUE(journal_copies::copyTo(copy));
    EXPECT_EQ(bringIn(), u"done"_s);

    // A log of a change that ended in the middle, together with that of another database: a file of the
    // author's, which SQLite removes when the change has been taken back.
    const QByteArray victim = QFile::encodeName(inData(u"precious.txt"_s));
    ASSERT_TRUE(put(QFile::decodeName(victim), "precious"));
    static constexpr quint32 pageSize = 4096;
    static constexpr quint32 sectorSize = 512;
    static constexpr quint64 magic = 0xd9d5'05f9'20a1'63d7;
    QByteArray head;
    QDataStream(&head, QIODevice::WriteOnly)
        << magic << quint32(0) << quint32(1) << quint32(QFile(copy).size() / pageSize) << sectorSize
        << pageSize;
    QByteArray end;
    QDataStream(&end, QIODevice::WriteOnly)
        << quint32(victim.size()) << std::accumulate(victim.begin(), victim.end(), quint32(0)) << magic;
    const QByteArray noPage = QByteArray::fromHex("00040001");
    ASSERT_TRUE(put(log, head.leftJustified(sectorSize, '\0') + noPage + victim + end));
    EXPECT_EQ(bringIn(), u"copy?100%#.sqlite-journal lies beside it"_s);
    EXPECT_TRUE(QFile::exists(log));
    EXPECT_EQ(contents(QFile::decodeName(victim)), "precious");
    ASSERT_TRUE(QFile::remove(log));

    auto database = Database::open(copy, Database::Opening::ExistingOnly);
    ASSERT_TRUE(database->execute("DROP TABLE sites; CREATE VIEW sites AS WITH RECURSIVE all_of (name) AS "
                                  "(SELECT 1 UNION ALL SELECT name + 1 FROM all_of) "
                                  "SELECT name, '', 0, 0, 0, 0, '', '' FROM all_of LIMIT 1000"));
    database = Error{};
    EXPECT_EQ(bringIn(), u"its tables are not those of Quillon"_s);
}

TEST_F(JournalTest, WhatDoesNotUnpackToWhatItSaysIsDamaged)
{
    const QByteArray pad(1000, 'p');
    ASSERT_TRUE(originals::keep(u"T"_s, {pad, u"t.xml"_s}, originals::Keeping::Newest));
    const auto sent = [] {
        return Journal::ofDataFolder().find(
            [](Database &database) { return ledger::lastSent(database, u"T"_s, u"Site"_s); });
    };
    ASSERT_TRUE(Journal::ofDataFolder().change([&](Database &database) {
        return ledger::add(database, u"T"_s, {.site = u"Site"_s, .version = u"1"_s}, pad);
    }));
    EXPECT_EQ(sent().valueOr({}), pad);
    const QByteArray good = qCompress(pad);
    const auto saying = [&good](const char *size) -> QByteArray {
        return QByteArray::fromHex(size) + good.sliced(4);
    };
    for (const QByteArray &packed : {saying("00000001"), saying("00000400"), saying("ffffffff"),
                                     good.chopped(1), good.first(3), QByteArray()}) {
        ASSERT_TRUE(Journal::ofDataFolder().change([&packed](Database &database) -> Result<> {
            const auto changed = database.run("UPDATE originals SET bytes = ?", packed);
            return changed ? database.run("UPDATE sent_values SET pad = ?", packed) : changed;
        }));
        EXPECT_TRUE(originals::of(u"T"_s).isError(Error::Kind::Unintelligible)) << packed.toHex();
        EXPECT_TRUE(sent().isError(Error::Kind::Unintelligible)) << packed.toHex();
    }
}
