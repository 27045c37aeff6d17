#include "overview/title_operations.h"
#include "platform/property_list.h"
#include "sites/backups.h"
#include "store/site_list.h"
#include "submission/data_folder_fixture.h"
#include "support/faults.h"
#include "support/full_disk.h"

#include <fcntl.h>
#include <functional>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace quillon;
using backups::Existing;

namespace {

class Backups : public DataFolderTest
{
protected:
    [[nodiscard]] QString place(const QString &name = u"list.swback"_s) const { return home() + u'/' + name; }

    static void makeLink(const QString &target, const QString &name)
    {
        ASSERT_TRUE(QFile::link(target, name));
    }
};

} // namespace

TEST_F(Backups, OfTitlesHoldTheirThreeFilesAndNothingElse)
{
    EXPECT_EQ(backups::backupTitles(place(), Existing::Refuse).sentence, u"There is nothing to backup");
    EXPECT_FALSE(QFileInfo::exists(place()));

    makeTitle(u"A & B"_s, u"Softs"_s, u"1"_s);
    makeTitle(u".hidden ünï"_s);
    writeTo(pathIn(u"A & B"_s, u"notes.txt"), u"mine"_s);
    QList<std::pair<int, int>> reports;
    const BackupResult result = backups::backupTitles(place(), Existing::Refuse, [&](int done, int total) {
        reports.append({done, total});
        return true;
    });
    EXPECT_EQ(result.outcome, BackupResult::Done);
    EXPECT_EQ(result.sentence, u"The backup was successful");
    EXPECT_EQ(result.copied, 2);
    EXPECT_TRUE(result.details.isEmpty());
    EXPECT_EQ(reports, (QList<std::pair<int, int>>{{1, 2}, {2, 2}}));
    QMap<QString, QByteArray> expected = tree(mwqnAppSuppLoc);
    for (const QString &name : {u"sites.qnrc"_s, u"ignore.qnrc"_s, u"A & B.qndata/notes.txt"_s})
        expected.remove(name);
    EXPECT_EQ(tree(place()), expected);

    const QMap<QString, QByteArray> before = tree(mwqnAppSuppLoc);
    ASSERT_TRUE(AddDeleteImportEdit::deleteQnDataFile(u".hidden ünï"_s));
    EXPECT_EQ(backups::restoreTitles(place()).copied, 1);
    EXPECT_EQ(tree(mwqnAppSuppLoc), before);
}

TEST_F(Backups, TellHowManyTitlesWereImportedAndIgnored)
{
    const QString explanation =
        u"Software titles are not imported if an item exists in the software list with the same name."_s;
    makeTitle(u"A"_s);
    makeTitle(u"B"_s);
    ASSERT_EQ(backups::backupTitles(place(), Existing::Refuse).outcome, BackupResult::Done);
    writeTo(pathIn(u"A"_s, title_folder::padFile), u"newer"_s);

    const struct
    {
        QStringList deleted;
        QString sentence, explanation;
    } cases[] = {
        {{}, u"No software titles were imported."_s, explanation},
        {{u"B"_s}, u"1 software titles were imported.\n1 software titles were ignored."_s, explanation},
        {{u"A"_s, u"B"_s}, u"2 software titles were imported."_s, {}}};
    for (const auto &each : cases) {
        EXPECT_EQ(contentOf(pathIn(u"A"_s, title_folder::padFile)), u"newer") << "never overwritten";
        for (const QString &title : each.deleted)
            ASSERT_TRUE(AddDeleteImportEdit::deleteQnDataFile(title));
        const BackupResult result = backups::restoreTitles(place());
        EXPECT_EQ(result.sentence, each.sentence);
        EXPECT_EQ(result.informativeText, each.explanation);
        EXPECT_EQ(result.ignored, 2 - each.deleted.size());
    }
    // A file of a title's name counts as that title.
    ASSERT_TRUE(AddDeleteImportEdit::deleteQnDataFile(u"A"_s));
    writeTo(*title_folder::path(u"A"), u"a file"_s);
    EXPECT_EQ(backups::restoreTitles(place()).ignored, 2);
    EXPECT_EQ(contentOf(*title_folder::path(u"A")), u"a file");
}

TEST_F(Backups, PassOverWhatIsNoTitleAndSayWhat)
{
    makeTitle(u"Good"_s);
    const QString secret = home() + u"/secret"_s;
    ASSERT_TRUE(QDir().mkdir(secret));
    writeTo(secret + u"/data.qnxml"_s, u"secret"_s);
    makeLink(secret, mwqnAppSuppLoc + u"Linked.qndata");
    makeTitle(u"Odd"_s);
    QFile::remove(pathIn(u"Odd"_s, title_folder::padFile));
    makeLink(secret + u"/data.qnxml"_s, pathIn(u"Odd"_s, title_folder::padFile));
    QFile::remove(pathIn(u"Odd"_s, title_folder::summaryFile));
    const QString pipe = pathIn(u"Odd"_s, title_folder::summaryFile);
    ASSERT_EQ(::mkfifo(pipe.toUtf8().constData(), 0600), 0);
    writeTo(*title_folder::path(u"File"), u"no folder"_s);
    ASSERT_TRUE(QDir().mkpath(mwqnAppSuppLoc + u"Odd.qndata/Inner.qndata"));
    ASSERT_TRUE(QDir().mkpath(mwqnAppSuppLoc + u"Other/Nested.qndata"));
    ASSERT_TRUE(QDir().mkpath(mwqnAppSuppLoc + u".qndata"));

    const BackupResult result = backups::backupTitles(place(), Existing::Refuse);
    EXPECT_EQ(result.copied, 2);
    EXPECT_EQ(tree(place()).keys(),
              QStringList({u"Good.qndata"_s, u"Good.qndata/data.qnxml"_s, u"Good.qndata/error.log"_s,
                           u"Good.qndata/general.qnxmld"_s, u"Odd.qndata"_s, u"Odd.qndata/error.log"_s}));
    const QString details = result.details.join(u'\n');
    for (const QString &passedOver :
         {u"Linked.qndata"_s, u"File.qndata"_s, u"Odd.qndata/data.qnxml"_s, u"Odd.qndata/general.qnxmld"_s,
          u"Odd.qndata/Inner.qndata"_s, u"Other/Nested.qndata"_s})
        EXPECT_TRUE(details.contains(passedOver + u" was passed over")) << passedOver.toStdString();
    EXPECT_EQ(result.details.size(), 6);
    EXPECT_TRUE(result.fileFailed);

    for (const QStringView file : {title_folder::padFile, title_folder::summaryFile})
        QFile::remove(pathIn(u"Odd"_s, file));
    const BackupResult readable = backups::backupTitles(place(), Existing::Replace);
    EXPECT_EQ(readable.details.size(), 6);
    EXPECT_FALSE(readable.fileFailed) << "what is missing, linked or in another folder is no failure";
}

TEST_F(Backups, OfAnyOriginCannotLeadOutOfTheDataFolder)
{
    const QString secret = home() + u"/secret"_s;
    ASSERT_TRUE(QDir().mkdir(secret));
    writeTo(secret + u"/data.qnxml"_s, u"secret"_s);
    ASSERT_TRUE(QDir().mkpath(place() + u"/Good.qndata/Inner.qndata"_s));
    ASSERT_TRUE(QDir().mkpath(place() + u"/sub/Nested.qndata"_s) && QDir().mkpath(place() + u"/.qndata"_s));
    writeTo(place() + u"/Good.qndata/data.qnxml"_s, u"good"_s);
    writeTo(place() + u"/Good.qndata/evil.sh"_s, u"evil"_s);
    makeLink(secret, place() + u"/Linked.qndata"_s);
    makeLink(secret + u"/data.qnxml"_s, place() + u"/Good.qndata/error.log"_s);
    makeLink(u"/nowhere"_s, mwqnAppSuppLoc + u"Dangling.qndata");
    ASSERT_TRUE(QDir().mkdir(place() + u"/Dangling.qndata"_s));

    const BackupResult result = backups::restoreTitles(place());
    EXPECT_EQ(result.copied, 1);
    EXPECT_EQ(result.ignored, 1) << "also a broken link holds its name";
    EXPECT_EQ(QDir(mwqnAppSuppLoc).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList({u"Good.qndata"_s}));
    EXPECT_EQ(QDir(mwqnAppSuppLoc + u"Good.qndata").entryList(QDir::Files), QStringList({u"data.qnxml"_s}));
    EXPECT_EQ(result.details.size(), 5) << result.details.join(u'\n').toStdString();
    EXPECT_TRUE(result.fileFailed) << "the link in place of a file";

    for (const QString &missing : QStringList{home() + u"/none"_s, {}, secret + u"/data.qnxml"_s}) {
        const BackupResult nothing = backups::restoreTitles(missing);
        EXPECT_EQ(nothing.outcome, BackupResult::Failed);
        EXPECT_EQ(nothing.sentence, u"No software titles were imported.");
    }
}

TEST_F(Backups, ReplaceOnlyWhatTheAuthorAgreedToAndOnlyWhenComplete)
{
    makeTitle(u"A"_s);
    const QString other = place(u"letters"_s);
    ASSERT_TRUE(QDir().mkpath(place()) && QDir().mkpath(other) && QDir().mkpath(home() + u"/real"_s));
    writeTo(place() + u"/old"_s, u"old"_s);
    makeLink(home() + u"/real"_s, place(u"link.swback"_s));
    const QString dataFolder = QDir::cleanPath(mwqnAppSuppLoc);
    makeLink(dataFolder, place(u"way in"_s));
    const std::pair<QString, Existing> refused[] = {
        {place(), Existing::Refuse},
        {place() + u'/', Existing::Refuse},
        {other, Existing::Replace},
        {place(u"link.swback"_s), Existing::Refuse},
        {home() + u"/no such/list.swback"_s, Existing::Refuse},
        {dataFolder, Existing::Replace},
        {dataFolder + u"/new.swback"_s, Existing::Refuse},
        {dataFolder + u"/A.qndata/new.swback"_s, Existing::Refuse},
        {place(u"way in/new.swback"_s), Existing::Refuse},
        {home(), Existing::Replace},
        {QString(), Existing::Replace},
        {u"/"_s, Existing::Replace},
    };
    const QMap<QString, QByteArray> before = tree(home());
    for (const auto &[to, existing] : refused) {
        const BackupResult result = backups::backupTitles(to, existing);
        EXPECT_EQ(result.outcome, BackupResult::Refused) << to.toStdString();
        EXPECT_EQ(result.sentence, u"The backup failed  with an unknown error");
        EXPECT_EQ(result.details.size(), 1);
        EXPECT_EQ(tree(home()), before) << to.toStdString();
    }

    const QString whole = mwqnAppSuppLoc;
    setDataFolder(place(u"holder.swback"_s));
    ASSERT_TRUE(AddDeleteImportEdit::checkAppSuppExists());
    makeTitle(u"A"_s);
    const QMap<QString, QByteArray> held = tree(home());
    EXPECT_EQ(backups::backupTitles(place(u"holder.swback"_s), Existing::Replace).outcome,
              BackupResult::Refused);
    EXPECT_EQ(tree(home()), held) << "the data folder cannot be replaced by its backup";
    mwqnAppSuppLoc = whole;

    EXPECT_EQ(backups::backupTitles(place(), Existing::Replace).outcome, BackupResult::Done);
    EXPECT_EQ(QDir(place()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList({u"A.qndata"_s}));
    EXPECT_EQ(backups::backupTitles(place(u"link.swback"_s), Existing::Replace).outcome, BackupResult::Done);
    EXPECT_FALSE(QFileInfo(place(u"link.swback"_s)).isSymLink());
    EXPECT_TRUE(QDir(home() + u"/real"_s).isEmpty()) << "a link is replaced, not followed";
}

/// Whatever cannot be read, no backup that lacks it is told as one, and none takes an older one's place.
TEST_F(Backups, ThatAreNotWholeNeverReplaceAnOlderOneNorCountAsDone)
{
    makeTitle(u"A"_s);
    makeTitle(u"B"_s);
    ASSERT_EQ(backups::backupTitles(place(), Existing::Refuse).outcome, BackupResult::Done);
    writeTo(place() + u"/old"_s, u"old"_s);
    const QMap<QString, QByteArray> older = tree(place());
    int failed = 0;
    for (const char *const call : {"getdents64", "open", "read"}) {
        bool met = true;
        for (int turn = 1; met; ++turn) {
            const QByteArray rule = call + ('@' + QByteArray::number(turn)) + "=EIO";
            std::optional<FaultPlan> plan(std::in_place, mwqnAppSuppLoc, rule);
            const BackupResult replaced = backups::backupTitles(place(), Existing::Replace);
            met = plan->met();
            plan.reset();
            if (!met) {
                EXPECT_EQ(replaced.outcome, BackupResult::Done);
                writeTo(place() + u"/old"_s, u"old"_s);
                break;
            }
            ++failed;
            EXPECT_EQ(replaced.outcome, BackupResult::Failed) << rule.constData();
            EXPECT_EQ(replaced.sentence, u"The backup failed  with an unknown error") << rule.constData();
            EXPECT_FALSE(replaced.details.isEmpty()) << rule.constData();
            EXPECT_EQ(tree(place()), older) << rule.constData();
        }
    }
    EXPECT_GE(failed, 12) << "each file, folder and list has had its turn";
    EXPECT_EQ(names(home()).size(), 2) << "nothing is left beside";

    const QString other = place(u"other.swback"_s);
    BackupResult partial;
    {
        const FaultPlan plan(pathIn(u"A"_s, title_folder::padFile), "read=EIO");
        partial = backups::backupTitles(other, Existing::Replace);
    }
    EXPECT_EQ(partial.outcome, BackupResult::Failed);
    EXPECT_EQ(partial.copied, 2);
    EXPECT_EQ(names(other + u"/A.qndata"_s), QStringList({u"error.log"_s, u"general.qnxmld"_s}));
    EXPECT_TRUE(partial.informativeText.contains(u"holds what could be read, but not all"));
}

TEST_F(Backups, AndExportsClearAwayWhatAKillLeftBesideThemAnHourAgo)
{
    makeTitle(u"A"_s);
    ASSERT_TRUE(site_list::write(site_list::userSites, {{u"A"_s, u"a"_s}}));
    const std::function<bool()> ways[] = {
        [&] { return backups::backupTitles(place(), Existing::Replace).outcome == BackupResult::Done; },
        [&] {
            return backups::backupSites(place(u"s.qnback"_s), Existing::Replace).outcome ==
                   BackupResult::Done;
        },
        [&] { return bool(title_operations::exportPadFile(u"A"_s, place(u"a.xml"_s))); },
    };
    for (const auto &way : ways) {
        for (const QString &name :
             {u".quillon-0123456789abcdef.tmp"_s, u".quillon-0123456789abcde0.tmp"_s, u".quillon-my.tmp"_s})
            writeTo(place(name), u"half"_s);
        ASSERT_TRUE(QDir().mkpath(place(u".quillon-0123456789abcdef.new/A.qndata"_s)));
        const timespec times[2] = {{.tv_sec = 1, .tv_nsec = 0}, {.tv_sec = 1, .tv_nsec = 0}};
        for (const char *const old :
             {"/.quillon-0123456789abcdef.tmp", "/.quillon-0123456789abcdef.new", "/.quillon-my.tmp"})
            ::utimensat(AT_FDCWD, QByteArray(home().toUtf8() + old).constData(), times, 0);
        EXPECT_TRUE(way());
        EXPECT_EQ(QDir(home()).entryList({u".quillon*"_s}, QDir::AllEntries | QDir::Hidden),
                  QStringList({u".quillon-0123456789abcde0.tmp"_s, u".quillon-my.tmp"_s}));
    }
}

TEST_F(Backups, ThatAreNotYetSafeAreThereAndSaySo)
{
    makeTitle(u"A"_s);
    ASSERT_TRUE(site_list::write(site_list::userSites, {{u"A"_s, u"a"_s}}));
    const QString sites = place(u"sites.qnback"_s);
    const auto isTold = [this](int sync, const std::function<BackupResult()> &transfer) {
        const FaultPlan plan(home(), "fsync@" + QByteArray::number(sync) + "=EIO");
        const BackupResult result = transfer();
        const QString told = result.sentence + result.details.join(u'\n');
        return result.copied == 1 && result.fileFailed &&
               told.contains(u"Done, but not yet safe on the disk");
    };
    EXPECT_TRUE(isTold(2, [&] { return backups::backupTitles(place(), Existing::Refuse); }));
    EXPECT_TRUE(isTold(4, [&] { return backups::backupSites(sites, Existing::Refuse); }));
    ASSERT_TRUE(AddDeleteImportEdit::deleteQnDataFile(u"A"_s));
    ASSERT_TRUE(site_list::write(site_list::userSites, {}));
    EXPECT_TRUE(isTold(2, [&] { return backups::restoreTitles(place()); }));
    EXPECT_TRUE(isTold(2, [&] { return backups::restoreSites(sites); }));
    EXPECT_EQ(AddDeleteImportEdit::returnUserSitesDict(), (StringDictionary{{u"A"_s, u"a"_s}}));
}

TEST_F(Backups, ThatFailOrAreCancelledLeaveNothingBehind)
{
    for (const QString &title : {u"A"_s, u"B"_s, u"C"_s})
        makeTitle(title);
    writeTo(pathIn(u"B"_s, title_folder::padFile), QString(200'000, u'x'));
    ASSERT_TRUE(QDir().mkpath(place()));
    writeTo(place() + u"/old"_s, u"old"_s);
    const QMap<QString, QByteArray> before = tree(home());
    const auto afterOne = [](int done, int) { return done < 1; };
    {
        const FullDisk fullDisk(100'000);
        const BackupResult result = backups::backupTitles(place(), Existing::Replace);
        EXPECT_EQ(result.sentence, u"The backup failed  with an unknown error");
        EXPECT_TRUE(result.details.first().startsWith(u"B.qndata/data.qnxml"))
            << result.details.first().toStdString();
    }
    EXPECT_EQ(tree(home()), before);
    EXPECT_EQ(backups::backupTitles(place(), Existing::Replace, afterOne).outcome, BackupResult::Cancelled);
    EXPECT_EQ(tree(home()), before);

    const QString whole = place(u"whole.swback"_s);
    ASSERT_EQ(backups::backupTitles(whole, Existing::Refuse).copied, 3);
    for (const QString &title : {u"A"_s, u"B"_s, u"C"_s})
        ASSERT_TRUE(AddDeleteImportEdit::deleteQnDataFile(title));
    const QMap<QString, QByteArray> empty = tree(home());
    EXPECT_EQ(backups::restoreTitles(whole, afterOne).outcome, BackupResult::Cancelled);
    EXPECT_EQ(tree(home()), empty);
    {
        const FullDisk fullDisk(100'000);
        const BackupResult result = backups::restoreTitles(whole);
        EXPECT_EQ(result.outcome, BackupResult::Failed);
        EXPECT_EQ(result.sentence, u"1 software titles were imported.") << "what is whole is kept";
    }
    EXPECT_EQ(QDir(mwqnAppSuppLoc).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList({u"A.qndata"_s}));
}

TEST_F(Backups, OfSitesAreCopiesAndComeBackUnderThePresentEntries)
{
    const QString to = place(u"sites.qnback"_s);
    EXPECT_EQ(backups::backupSites(to, Existing::Refuse).outcome, BackupResult::Nothing);
    EXPECT_FALSE(QFileInfo::exists(to));

    ASSERT_TRUE(site_list::write(site_list::userSites, {{u"A"_s, u"old"_s}, {u"B"_s, u"b"_s}}));
    ASSERT_TRUE(site_list::write(site_list::ignoredSites, {{u"Softs"_s, u"s"_s}}));
    EXPECT_EQ(backups::backupSites(to, Existing::Refuse).sentence, u"The backup was successful");
    QMap<QString, QByteArray> expected = tree(mwqnAppSuppLoc);
    EXPECT_EQ(tree(to), expected);
    const BackupResult refused = backups::backupSites(to, Existing::Refuse);
    EXPECT_EQ(refused.outcome, BackupResult::Refused);
    EXPECT_EQ(refused.sentence, u"The backup failed  with an unknown error");
    EXPECT_EQ(backups::backupSites(to, Existing::Replace).outcome, BackupResult::Done);

    ASSERT_TRUE(site_list::write(site_list::userSites, {{u"A"_s, u"new"_s}, {u"C"_s, u"c"_s}}));
    ASSERT_TRUE(site_list::write(site_list::ignoredSites, {}));
    EXPECT_EQ(backups::restoreSites(to).copied, 2);
    EXPECT_EQ(AddDeleteImportEdit::returnUserSitesDict(),
              (StringDictionary{{u"A"_s, u"new"_s}, {u"B"_s, u"b"_s}, {u"C"_s, u"c"_s}}));
    EXPECT_EQ(AddDeleteImportEdit::returnIgnoredSitesDict(), (StringDictionary{{u"Softs"_s, u"s"_s}}));
}

TEST_F(Backups, OfSitesThatAreDamagedTakeNothingAway)
{
    const QString from = place(u"sites.qnback"_s);
    ASSERT_TRUE(QDir().mkdir(from));
    ASSERT_TRUE(site_list::write(site_list::userSites, {{u"A"_s, u"a"_s}}));
    const QMap<QString, QByteArray> before = tree(mwqnAppSuppLoc);
    EXPECT_EQ(backups::restoreSites(from).outcome, BackupResult::Done) << "an empty folder adds nothing";

    writeTo(from + u"/sites.qnrc"_s, u"<plist><dict><key>B"_s);
    makeLink(mwqnAppSuppLoc + u"sites.qnrc", from + u"/ignore.qnrc"_s);
    const BackupResult damaged = backups::restoreSites(from);
    EXPECT_EQ(damaged.details.size(), 2);
    EXPECT_TRUE(damaged.fileFailed);
    EXPECT_EQ(backups::restoreSites(home() + u"/none"_s).outcome, BackupResult::Failed);
    EXPECT_EQ(tree(mwqnAppSuppLoc), before);

    // A present list that is damaged is kept beside when entries come in.
    writeTo(mwqnAppSuppLoc + u"ignore.qnrc", u"damaged"_s);
    QFile::remove(from + u"/ignore.qnrc"_s);
    EXPECT_EQ(backups::restoreSites(from).copied, 0);
    EXPECT_EQ(contentOf(mwqnAppSuppLoc + u"ignore.qnrc"), u"damaged");
    QFile::copy(mwqnAppSuppLoc + u"sites.qnrc", from + u"/ignore.qnrc"_s);
    EXPECT_EQ(backups::restoreSites(from).copied, 1);
    EXPECT_EQ(contentOf(mwqnAppSuppLoc + u"ignore.qnrc.unreadable"), u"damaged");

    // No entry comes in that would make a list ill-formed.
    ASSERT_TRUE(put(from + u"/sites.qnrc"_s, property_list::write({{u"C\x1b"_s, u"c"_s}, {u"D"_s, u"d"_s}})));
    const BackupResult hostile = backups::restoreSites(from);
    EXPECT_EQ(hostile.copied, 1);
    EXPECT_TRUE(hostile.fileFailed);
    EXPECT_EQ(AddDeleteImportEdit::returnUserSitesDict(),
              (StringDictionary{{u"A"_s, u"a"_s}, {u"D"_s, u"d"_s}}));
}
