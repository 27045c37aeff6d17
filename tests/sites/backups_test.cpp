#include "overview/title_deletion.h"
#include "overview/title_operations.h"
#include "platform/property_list.h"
#include "sites/backups.h"
#include "sites/whole_backup.h"
#include "store/site_list.h"
#include "submission/data_folder_fixture.h"
#include "support/faults.h"
#include "support/full_disk.h"
#include "support/kills.h"

#include <fcntl.h>
#include <functional>
#include <sys/stat.h>

using namespace backups;

namespace {

const QString theBackupFailed = u"The backup failed  with an unknown error"_s;

/// What came of a backup or a restore in one line; with "!" where a file failed.
QString told(const BackupResult &result)
{
    const char *const outcomes[] = {"done", "nothing", "refused", "failed", "cancelled"};
    return u"%1%2 %3+%4 %5 details: %6"_s.arg(QLatin1String(outcomes[result.outcome]))
        .arg(result.fileFailed ? u"!"_s : QString())
        .arg(result.copied)
        .arg(result.ignored)
        .arg(result.details.size())
        .arg(result.sentence);
}

class Backups : public DataFolderTest
{
protected:
    [[nodiscard]] QString place(const QString &name = u"list.swback"_s) const { return home() + u'/' + name; }
    static void makeLink(const QString &target, const QString &name)
    {
        ASSERT_TRUE(QFile::link(target, name));
    }
    static void makeTitles(const QString &titles)
    {
        for (const QString &title : words(titles))
            makeTitle(title);
    }
    static void deleteTitles(const QString &titles)
    {
        for (const QString &title : words(titles))
            ASSERT_TRUE(AddDeleteImportEdit::deleteQnDataFile(title));
    }
    static void storeLists(QStringView user, QStringView ignored)
    {
        ASSERT_TRUE(site_list::write(site_list::userSites, siteList(user)));
        ASSERT_TRUE(site_list::write(site_list::ignoredSites, siteList(ignored)));
    }
    static void expectLists(QStringView user, QStringView ignored)
    {
        EXPECT_EQ(AddDeleteImportEdit::returnUserSitesDict(), siteList(user));
        EXPECT_EQ(AddDeleteImportEdit::returnIgnoredSitesDict(), siteList(ignored));
    }
    /// An older backup stands at place().
    void putOlder() const
    {
        ASSERT_TRUE(QDir().mkpath(place()));
        writeTo(place(u"list.swback/old"_s), u"old"_s);
    }
    [[nodiscard]] QString makeSecret() const
    {
        QString secret = place(u"secret"_s);
        EXPECT_TRUE(QDir().mkdir(secret));
        writeTo(secret + u"/data.qnxml", u"secret"_s);
        return secret;
    }
};

} // namespace

TEST_F(Backups, OfTitlesHoldTheirThreeFilesAndNothingElse)
{
    EXPECT_EQ(told(backupTitles(place(), Existing::Refuse)),
              "nothing 0+0 0 details: There is nothing to backup"_L1);
    EXPECT_FALSE(QFileInfo::exists(place()));

    makeTitle(u"A & B"_s, u"Softs"_s, u"1"_s);
    makeTitle(u".hidden ünï"_s);
    makeTitle(u"\uFEFF"_s);
    writeTo(pathIn(u"A & B"_s, u"notes.txt"), u"mine"_s);
    QStringList reports;
    const auto report = [&reports](int done, int total) {
        reports.append(u"%1/%2"_s.arg(done).arg(total));
        return true;
    };
    EXPECT_EQ(told(backupTitles(place(), Existing::Refuse, report)),
              "done 3+0 0 details: The backup was successful"_L1);
    EXPECT_EQ(reports, words(u"1/3 2/3 3/3"_s));
    const QMap<QString, QByteArray> before = tree(mwqnAppSuppLoc);
    QMap<QString, QByteArray> expected = before;
    for (const QString &name : {u"sites.qnrc"_s, u"ignore.qnrc"_s, u"A & B.qndata/notes.txt"_s})
        expected.remove(name);
    EXPECT_EQ(tree(place()), expected);

    for (const QString &deleted : {u".hidden ünï"_s, u"\uFEFF"_s})
        ASSERT_TRUE(AddDeleteImportEdit::deleteQnDataFile(deleted));
    EXPECT_EQ(restoreTitles(place()).copied, 2);
    EXPECT_EQ(tree(mwqnAppSuppLoc), before);
}

TEST_F(Backups, TellHowManyTitlesWereImportedAndIgnored)
{
    makeTitles(u"A B"_s);
    ASSERT_EQ(backupTitles(place(), Existing::Refuse).outcome, BackupResult::Done);
    const QString newer = pathIn(u"A"_s, title_folder::padFile);
    writeTo(newer, u"newer"_s);
    const QString why =
        u"Software titles are not imported if an item exists in the software list with the same name."_s;
    const std::tuple<QString, QString, QString> cases[] = {
        {{}, u"done 0+2 0 details: No software titles were imported."_s, why},
        {u"B"_s, u"done 1+1 0 details: 1 software titles were imported.\n1 software titles were ignored."_s,
         why},
        {u"A B"_s, u"done 2+0 0 details: 2 software titles were imported."_s, {}}};
    for (const auto &[deleted, sentence, explanation] : cases) {
        EXPECT_EQ(contentOf(newer), u"newer") << "never overwritten";
        deleteTitles(deleted);
        const BackupResult result = restoreTitles(place());
        EXPECT_EQ(told(result), sentence);
        EXPECT_EQ(result.informativeText, explanation);
    }
    deleteTitles(u"A"_s);
    writeTo(*title_folder::path(u"A"), u"a file"_s);
    EXPECT_EQ(restoreTitles(place()).ignored, 2) << "a file of a title's name counts as that title";
    EXPECT_EQ(contentOf(*title_folder::path(u"A")), u"a file");
}

TEST_F(Backups, PassOverWhatIsNoTitleAndSayWhat)
{
    makeTitles(u"Good Odd"_s);
    const QString secret = makeSecret();
    makeLink(secret, inData(u"Linked.qndata"_s));
    const QString pad = pathIn(u"Odd"_s, title_folder::padFile);
    const QString pipe = pathIn(u"Odd"_s, title_folder::summaryFile);
    ASSERT_TRUE(QFile::remove(pad) && QFile::remove(pipe));
    makeLink(secret + u"/data.qnxml", pad);
    ASSERT_EQ(::mkfifo(pipe.toUtf8().constData(), 0600), 0);
    writeTo(inData(u"File.qndata"_s), u"no folder"_s);
    for (const QString &folder : {u"Odd.qndata/Inner.qndata"_s, u"Other/Nested.qndata"_s, u".qndata"_s})
        ASSERT_TRUE(QDir().mkpath(inData(folder)));

    const BackupResult result = backupTitles(place(), Existing::Refuse);
    EXPECT_TRUE(told(result).startsWith("failed! 2+0 6 details"_L1)) << told(result);
    EXPECT_EQ(tree(place()).keys(), words(u"Good.qndata Good.qndata/data.qnxml Good.qndata/error.log "
                                          "Good.qndata/general.qnxmld Odd.qndata Odd.qndata/error.log"_s));
    const QString details = result.details.join(u'\n');
    for (const QString &passedOver :
         words(u"Linked.qndata File.qndata Odd.qndata/data.qnxml "
               "Odd.qndata/general.qnxmld Odd.qndata/Inner.qndata Other/Nested.qndata"_s))
        EXPECT_TRUE(details.contains(passedOver + u" was passed over")) << passedOver;

    ASSERT_TRUE(QFile::remove(pad) && QFile::remove(pipe));
    EXPECT_EQ(told(backupTitles(place(), Existing::Replace)),
              "done 2+0 6 details: The backup was successful"_L1)
        << "what is missing, linked or in another folder is no failure";

    // Unless it is the older backup that has it.
    const auto older = tree(place());
    const auto expectThatItStays = [&] {
        EXPECT_TRUE(told(backupTitles(place(), Existing::Replace)).startsWith("failed!"_L1));
        EXPECT_EQ(tree(place()), older);
    };
    ASSERT_TRUE(QFile::remove(pathIn(u"Good"_s, title_folder::padFile)));
    expectThatItStays();
    ASSERT_TRUE(QDir(inData(u"Good.qndata"_s)).removeRecursively());
    makeLink(secret, inData(u"Good.qndata"_s));
    expectThatItStays();
    ASSERT_TRUE(QFile::remove(inData(u"Good.qndata"_s)));
    EXPECT_TRUE(told(backupTitles(place(), Existing::Replace)).startsWith("done 1+0"_L1)) << "it was deleted";
}

TEST_F(Backups, OfAnyOriginCannotLeadOutOfTheDataFolder)
{
    const QString secret = makeSecret();
    for (const QString &folder : {u"Good.qndata/Inner"_s, u"sub/Nested"_s, u""_s, u"Dangling"_s})
        ASSERT_TRUE(QDir().mkpath(place() + u'/' + folder + u".qndata"));
    writeTo(place() + u"/Good.qndata/data.qnxml", u"good"_s);
    writeTo(place() + u"/Good.qndata/evil.sh", u"evil"_s);
    makeLink(secret, place() + u"/Linked.qndata");
    makeLink(secret + u"/data.qnxml", place() + u"/Good.qndata/error.log");
    makeLink(u"/nowhere"_s, inData(u"Dangling.qndata"_s)); // A broken link holds its name, too.

    const QString result = told(restoreTitles(place()));
    EXPECT_TRUE(result.startsWith("done! 1+1 5 details"_L1)) << result;
    EXPECT_EQ(tree(mwqnAppSuppLoc).keys(),
              words(u"Dangling.qndata Good.qndata Good.qndata/data.qnxml ignore.qnrc sites.qnrc"_s));
    {
        const FaultPlan plan(mwqnAppSuppLoc, "stat+=EIO");
        const BackupResult unknown = restoreTitles(place());
        EXPECT_TRUE(told(unknown).startsWith("done! 0+0"_L1)) << told(unknown);
        EXPECT_TRUE(
            unknown.details.join(u'\n').contains(u"Good.qndata was passed over: it cannot be looked at"));
    }
    for (const QString &missing : QStringList{place(u"none"_s), {}, secret + u"/data.qnxml"})
        EXPECT_TRUE(told(restoreTitles(missing)).endsWith("No software titles were imported."_L1)) << missing;
}

TEST_F(Backups, ReplaceOnlyWhatTheAuthorAgreedToAndOnlyWhenComplete)
{
    makeTitle(u"A"_s);
    putOlder();
    for (const QString &folder : {u"letters"_s, u"real"_s})
        ASSERT_TRUE(QDir(home()).mkdir(folder));
    const QString link = place(u"link.swback"_s);
    const QString dataFolder = QDir::cleanPath(mwqnAppSuppLoc);
    makeLink(place(u"real"_s), link);
    makeLink(dataFolder, place(u"way in"_s));
    const auto expectRefused = [this](const QString &to, Existing existing) {
        const QMap<QString, QByteArray> before = tree(home());
        EXPECT_EQ(told(backupTitles(to, existing)), u"refused 0+0 1 details: "_s + theBackupFailed) << to;
        EXPECT_EQ(tree(home()), before) << to;
    };
    for (const QString &to : {place(), QString(place() + u'/'), link, place(u"no such/list.swback"_s),
                              QString(dataFolder + u"/new.swback"),
                              QString(dataFolder + u"/A.qndata/new.swback"), place(u"way in/new.swback"_s)})
        expectRefused(to, Existing::Refuse);
    for (const QString &to : {place(u"letters"_s), dataFolder, home(), QString(), u"/"_s})
        expectRefused(to, Existing::Replace);

    const QString whole = mwqnAppSuppLoc;
    setDataFolder(place(u"holder.swback"_s));
    ASSERT_TRUE(AddDeleteImportEdit::checkAppSuppExists());
    makeTitle(u"A"_s);
    expectRefused(place(u"holder.swback"_s), Existing::Replace); // The data folder would go.
    mwqnAppSuppLoc = whole;

    for (const QString &to : {place(), link}) {
        EXPECT_EQ(backupTitles(to, Existing::Replace).outcome, BackupResult::Done);
        EXPECT_EQ(names(to), QStringList{u"A.qndata"_s});
    }
    EXPECT_FALSE(QFileInfo(link).isSymLink());
    EXPECT_EQ(names(place(u"real"_s)), QStringList()) << "a link is replaced, not followed";
}

/// Whatever cannot be read, no backup that lacks it is told as one, and none takes an older one's place.
TEST_F(Backups, ThatAreNotWholeNeverReplaceAnOlderOneNorCountAsDone)
{
    makeTitles(u"A B"_s);
    ASSERT_EQ(backupTitles(place(), Existing::Refuse).outcome, BackupResult::Done);
    putOlder();
    const QMap<QString, QByteArray> older = tree(place());
    int failed = 0;
    for (const char *const call : {"getdents64", "open", "read"}) {
        for (int turn = 1;; ++turn) {
            const QByteArray rule = failing(call, turn);
            std::optional<FaultPlan> plan(std::in_place, mwqnAppSuppLoc, rule);
            const BackupResult replaced = backupTitles(place(), Existing::Replace);
            const bool met = plan->met();
            plan.reset();
            EXPECT_EQ(replaced.outcome, met ? BackupResult::Failed : BackupResult::Done) << rule;
            if (!met)
                break;
            ++failed;
            EXPECT_EQ(replaced.sentence, theBackupFailed) << rule;
            EXPECT_FALSE(replaced.details.isEmpty()) << rule;
            EXPECT_EQ(tree(place()), older) << rule;
        }
        putOlder();
    }
    EXPECT_GE(failed, 12) << "each file, folder and list has had its turn";
    EXPECT_EQ(names(home()).size(), 2) << "nothing is left beside";

    const auto whileUnreadable = [](BackupResult (*backup)(const QString &), const QString &to) {
        const FaultPlan plan(pathIn(u"A"_s, title_folder::padFile), "read=EIO");
        return backup(to);
    };
    const auto titles = [](const QString &to) { return backupTitles(to, Existing::Replace); };
    const BackupResult partial = whileUnreadable(titles, place(u"other.swback"_s));
    EXPECT_TRUE(told(partial).startsWith("failed! 2+0"_L1)) << told(partial);
    EXPECT_EQ(names(place(u"other.swback/A.qndata"_s)), words(u"error.log general.qnxmld"_s));
    EXPECT_TRUE(partial.informativeText.contains(u"holds what could be read, but not all"));
    EXPECT_TRUE(
        partial.details.join(u'\n').contains(u"A.qndata/data.qnxml was passed over: it cannot be read"));

    const auto everything = [](const QString &to) { return backupAll(to, Existing::Replace); };
    const QString all = place(u"all.qnall"_s);
    const BackupResult incomplete = whileUnreadable(everything, all);
    EXPECT_EQ(incomplete.outcome, BackupResult::Failed);
    EXPECT_EQ(incomplete.sentence, theBackupFailed);
    ASSERT_TRUE(QDir(all).removeRecursively() && QDir().mkdir(all) && put(all + u"/old", "old"));
    EXPECT_EQ(whileUnreadable(everything, all).outcome, BackupResult::Failed);
    EXPECT_EQ(names(all), QStringList{u"old"_s});
}

TEST_F(Backups, LeaveTheOlderOneUntilTheNewOneIsWhole)
{
    makeTitle(u"A"_s);
    storeLists(u"A=a", {});
    for (const bool isOfTitles : {true, false}) {
        const QString to = place(isOfTitles ? u"list.swback"_s : u"list.qnback"_s);
        const auto make = [&] {
            return isOfTitles ? backupTitles(to, Existing::Replace) : backupSites(to, Existing::Replace);
        };
        ASSERT_EQ(make().outcome, BackupResult::Done);
        const QMap<QString, QByteArray> whole = tree(to);
        const QMap<QString, QByteArray> older = {{u"old"_s, "old"}};
        const auto putOlderOne = [&] {
            ASSERT_TRUE(QDir(to).removeRecursively() && QDir().mkdir(to) && put(to + u"/old", "old"));
        };
        killedAtEachCall(home(), putOlderOne, make,
                         [&] { EXPECT_TRUE(tree(to) == older || tree(to) == whole) << to; });
        EXPECT_EQ(tree(to), whole);

        // Where names cannot be swapped in one step, the older one steps aside, and what bears its name is
        // whole.
        const auto aside = [&] { return names(home()).filter(u".old"_s); };
        int between = 0;
        killedAtEachCall(
            home(), putOlderOne, make,
            [&] {
                for (const QString &name : aside())
                    EXPECT_EQ(tree(place(name)), older);
                EXPECT_TRUE(tree(to) == older || tree(to) == whole ||
                            (!QFile::exists(to) && !aside().isEmpty()));
                between += int(aside().size());
                for (const QString &name : aside())
                    ASSERT_TRUE(QDir(place(name)).removeRecursively());
            },
            "rename=EINVAL ");
        EXPECT_EQ(tree(to), whole);
        EXPECT_EQ(between, 2);
    }
}

TEST_F(Backups, AndExportsClearAwayWhatAKillLeftBesideThemAnHourAgo)
{
    makeTitle(u"A"_s);
    storeLists(u"A=a", {});
    const QStringList old =
        words(u".quillon-0123456789abcdef.tmp .quillon-0123456789abcdef.new .quillon-my.tmp"_s);
    const QStringList kept = words(u".quillon-0123456789abcde0.tmp .quillon-my.tmp"_s);
    const std::function<bool()> ways[] = {
        [&] { return backupTitles(place(), Existing::Replace).outcome == BackupResult::Done; },
        [&] { return backupSites(place(u"s.qnback"_s), Existing::Replace).outcome == BackupResult::Done; },
        [&] { return backupAll(place(u"b.qnall"_s), Existing::Replace).outcome == BackupResult::Done; },
        [&] { return bool(title_operations::exportPadFile(u"A"_s, place(u"a.xml"_s))); }};
    for (const auto &way : ways) {
        for (const QString &name : QStringList{old[0]} + kept)
            writeTo(place(name), u"half"_s);
        ASSERT_TRUE(QDir().mkpath(place(old[1] + u"/A.qndata")));
        const timespec longAgo[2] = {{.tv_sec = 1, .tv_nsec = 0}, {.tv_sec = 1, .tv_nsec = 0}};
        for (const QString &name : old)
            ::utimensat(AT_FDCWD, QFile::encodeName(place(name)).constData(), longAgo, 0);
        EXPECT_TRUE(way());
        EXPECT_EQ(names(home()).filter(u".quillon"_s), kept);
    }
}

TEST_F(Backups, ThatAreNotYetSafeAreThereAndSaySo)
{
    makeTitle(u"A"_s);
    storeLists(u"A=a", {});
    const QString sites = place(u"sites.qnback"_s);
    const auto isTold = [this](int sync, const std::function<BackupResult()> &transfer) {
        const FaultPlan plan(home(), failing("fsync", sync));
        const BackupResult result = transfer();
        const QString text = result.sentence + result.details.join(u'\n');
        return result.copied == 1 && result.fileFailed &&
               text.contains("Done, but not yet safe on the disk"_L1);
    };
    EXPECT_TRUE(isTold(2, [&] { return backupTitles(place(), Existing::Refuse); }));
    EXPECT_TRUE(isTold(4, [&] { return backupSites(sites, Existing::Refuse); }));
    deleteTitles(u"A"_s);
    storeLists({}, {});
    for (const auto &[rules, begin] :
         {std::pair("fsync=EIO", "failed! 0+0"_L1), std::pair("rename=EIO", "done! 0+0"_L1)}) {
        const FaultPlan plan(home(), rules);
        const BackupResult unsafe = restoreTitles(place());
        EXPECT_TRUE(told(unsafe).startsWith(begin) && unsafe.details.size() == 1) << told(unsafe);
        EXPECT_EQ(names(mwqnAppSuppLoc).filter(u".qndata"_s), QStringList());
    }
    EXPECT_TRUE(isTold(2, [&] { return restoreTitles(place()); }));
    EXPECT_TRUE(isTold(2, [&] { return restoreSites(sites); }));
    expectLists(u"A=a", {});
}

TEST_F(Backups, ThatFailOrAreCancelledLeaveNothingBehind)
{
    makeTitles(u"A B C"_s);
    writeTo(pathIn(u"B"_s, title_folder::padFile), QString(200'000, u'x'));
    putOlder();
    const auto afterOne = [](int done, int) { return done < 1; };
    const auto withFullDisk = [](auto transfer) {
        const FullDisk fullDisk(100'000);
        return transfer();
    };
    const QMap<QString, QByteArray> before = tree(home());
    const BackupResult full = withFullDisk([&] { return backupTitles(place(), Existing::Replace); });
    EXPECT_EQ(full.sentence, theBackupFailed);
    EXPECT_TRUE(full.details.first().startsWith("B.qndata/data.qnxml"_L1)) << full.details.first();
    EXPECT_EQ(backupTitles(place(), Existing::Replace, afterOne).outcome, BackupResult::Cancelled);
    EXPECT_EQ(tree(home()), before);

    const QString whole = place(u"whole.swback"_s);
    ASSERT_EQ(backupTitles(whole, Existing::Refuse).copied, 3);
    deleteTitles(u"A B C"_s);
    const QMap<QString, QByteArray> empty = tree(home());
    EXPECT_EQ(restoreTitles(whole, afterOne).outcome, BackupResult::Cancelled);
    EXPECT_EQ(tree(home()), empty);
    const QString result = told(withFullDisk([&] { return restoreTitles(whole); }));
    EXPECT_TRUE(result.startsWith("failed! 1+0"_L1) && result.endsWith("1 software titles were imported."_L1))
        << result;
    EXPECT_EQ(names(mwqnAppSuppLoc).filter(u".qndata"_s), QStringList{u"A.qndata"_s})
        << "what is whole is kept";
}

TEST_F(Backups, OfEverythingThatAreNotRestoredToTheEndBringNothingIn)
{
    makeTitles(u"A"_s);
    ASSERT_TRUE(title_operations::deleteTitle(u"A"_s));
    makeTitles(u"B C"_s);
    const QString backup = place(u"all.qnall"_s);
    ASSERT_EQ(backupAll(backup, Existing::Refuse).outcome, BackupResult::Done);
    deleteTitles(u"B C"_s);
    ASSERT_TRUE(deleted_items::forget(*deleted_items::all()));
    const auto restore = [&backup](bool toTheEnd) {
        const auto transfer = whole_backup::restore(backup);
        while (transfer->step()) {
        }
        if (toTheEnd) {
            EXPECT_EQ(transfer->finish().copied, 2);
        }
        return deleted_items::all()->size();
    };
    EXPECT_EQ(restore(false), 0);
    EXPECT_EQ(restore(true), 1);
}

TEST_F(Backups, OfSitesAreCopiesAndComeBackUnderThePresentEntries)
{
    const QString to = place(u"sites.qnback"_s);
    EXPECT_EQ(backupSites(to, Existing::Refuse).outcome, BackupResult::Nothing);
    EXPECT_FALSE(QFileInfo::exists(to));

    storeLists(u"A=old,B=b", u"Softs");
    EXPECT_EQ(backupSites(to, Existing::Refuse).sentence, u"The backup was successful");
    EXPECT_EQ(tree(to), tree(mwqnAppSuppLoc));
    EXPECT_EQ(told(backupSites(to, Existing::Refuse)), u"refused! 0+0 1 details: "_s + theBackupFailed);
    EXPECT_EQ(backupSites(to, Existing::Replace).outcome, BackupResult::Done);
    storeLists(u"A=new,C=c", {});
    EXPECT_EQ(restoreSites(to).copied, 2);
    expectLists(u"A=new,B=b,C=c", u"Softs");
}

TEST_F(Backups, OfSitesThatAreDamagedTakeNothingAway)
{
    const QString from = place(u"sites.qnback"_s);
    ASSERT_TRUE(QDir().mkdir(from));
    storeLists(u"A=a", {});
    const QMap<QString, QByteArray> before = tree(mwqnAppSuppLoc);
    EXPECT_EQ(restoreSites(from).outcome, BackupResult::Done) << "an empty folder adds nothing";
    writeTo(from + u"/sites.qnrc", u"<plist><dict><key>B"_s);
    makeLink(inData(u"sites.qnrc"_s), from + u"/ignore.qnrc");
    const BackupResult damaged = restoreSites(from);
    EXPECT_TRUE(damaged.fileFailed && damaged.details.size() == 2) << told(damaged);
    EXPECT_EQ(restoreSites(place(u"none"_s)).outcome, BackupResult::Failed);
    EXPECT_EQ(tree(mwqnAppSuppLoc), before);

    // A present list that is damaged is kept beside when entries come in.
    writeTo(inData(u"ignore.qnrc"_s), u"damaged"_s);
    QFile::remove(from + u"/ignore.qnrc");
    EXPECT_EQ(restoreSites(from).copied, 0);
    EXPECT_EQ(contents(inData(u"ignore.qnrc"_s)), "damaged");
    QFile::copy(inData(u"sites.qnrc"_s), from + u"/ignore.qnrc");
    EXPECT_EQ(restoreSites(from).copied, 1);
    EXPECT_EQ(contents(inData(u"ignore.qnrc.unreadable"_s)), "damaged");

    // No entry comes in that would make a list ill-formed.
    ASSERT_TRUE(put(from + u"/sites.qnrc", property_list::write({{u"C\x1b"_s, u"c"_s}, {u"D"_s, u"d"_s}})));
    const BackupResult hostile = restoreSites(from);
    EXPECT_TRUE(hostile.copied == 1 && hostile.fileFailed) << told(hostile);
    expectLists(u"A=a,D=d", u"A=a");
}
