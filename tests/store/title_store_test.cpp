#include "pad/pad_document.h"
#include "pad/pad_writer.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/site_list.h"
#include "store/storage_status.h"
#include "store/summary_file.h"
#include "store/title_folder.h"
#include "support/full_disk.h"
#include "support/kills.h"
#include "support/recorders.h"
#include "support/temporary_home.h"

#include <functional>

using Store = quillon::AddDeleteImportEdit;

class TitleStoreTest : public TemporaryDataFolder
{
protected:
    /// Summary, PAD file and error log of the title @p name.
    static QList<QByteArray> files(const QString &name)
    {
        const QString folder = inData(name + u".qndata/");
        return {contents(folder + u"general.qnxmld"), contents(folder + u"data.qnxml"),
                contents(folder + u"error.log")};
    }
    static QStringList titles() { return names(mwqnAppSuppLoc).filter(u".qndata"_s); }

    const QByteArray emptySummary = sample(u"empty_summary.qnxmld"_s);
    const QByteArray emptyList = sample(u"empty_list.plist"_s);
    const QList<QByteArray> newFiles{emptySummary, pad_writer::skeleton(), emptyList};
    const QString maker = home() + u"/Library/Application Support/Marrowick";
};

TEST_F(TitleStoreTest, MakesTheDataFolderOnceWithItsSiteLists)
{
    EXPECT_EQ(mwqnAppSuppLoc, QString(maker + u"/Quillon/"));
    EXPECT_EQ(names(mwqnAppSuppLoc), (QStringList{u"ignore.qnrc"_s, u"sites.qnrc"_s}));
    EXPECT_EQ(contents(inData(u"sites.qnrc"_s)), emptyList);
    EXPECT_EQ(contents(inData(u"ignore.qnrc"_s)), emptyList);

    ASSERT_TRUE(QFile::remove(inData(u"ignore.qnrc"_s)) && put(inData(u"sites.qnrc"_s), "mine"));
    EXPECT_TRUE(Store::checkAppSuppExists());
    EXPECT_EQ(names(mwqnAppSuppLoc), QStringList{u"sites.qnrc"_s});
    EXPECT_EQ(contents(inData(u"sites.qnrc"_s)), "mine");
}

TEST_F(TitleStoreTest, ADataFolderThatCannotBeSeenForAMomentIsNotMadeAnew)
{
    ASSERT_TRUE(put(inData(u"sites.qnrc"_s), "mine") && Store::createNewListing(u"T"_s));
    bool isMet = true;
    for (int call = 1; isMet; ++call) {
        const FaultPlan plan(home(), failing("reading", call));
        (void)Store::checkAppSuppExists();
        (void)Store::createNewListing(u"T"_s);
        isMet = plan.met();
    }
    EXPECT_EQ(contents(inData(u"sites.qnrc"_s)), "mine");
    EXPECT_TRUE(Store::checkAppSuppExists() && mwqnFailedWrites.isEmpty());
    {
        const FaultPlan plan(home(), "stat+=EIO");
        EXPECT_FALSE(Store::createNewListing(u"New"_s));
        EXPECT_TRUE(title_folder::exists(u"T"_s)) << "nobody knows that it is not there";
    }
    EXPECT_EQ(names(mwqnAppSuppLoc), (QStringList{u"T.qndata"_s, u"ignore.qnrc"_s, u"sites.qnrc"_s}));
}

TEST_F(TitleStoreTest, ADataFolderThatCannotBeIsToldUntilItIsMended)
{
    ASSERT_TRUE(QDir(maker).removeRecursively() && put(maker, "a file in its place"));
    EXPECT_FALSE(Store::checkAppSuppExists());
    EXPECT_FALSE(Store::createNewListing(u"T"_s));
    EXPECT_FALSE(Store::importExistingFile(u"T"_s, PadDocument(QByteArray("<a/>"))));
    EXPECT_FALSE(failedWritesLine().isEmpty());
    EXPECT_EQ(contents(maker), "a file in its place");

    ASSERT_TRUE(QFile::remove(maker));
    for (int list = 1; list <= 2; ++list) {
        const FaultPlan plan(home(), failing("create", list, "ENOSPC"));
        EXPECT_FALSE(Store::checkAppSuppExists()) << list;
        ASSERT_TRUE(QDir(maker).removeRecursively());
    }
    mwqnFailedWrites.clear();
    EXPECT_TRUE(Store::checkAppSuppExists());
    EXPECT_TRUE(Store::createNewListing(u"T"_s));
    EXPECT_EQ(failedWritesLine(), QString());
}

TEST_F(TitleStoreTest, AListOfSitesThatCannotBeMadeIsNoEmptyOne)
{
    const QString list = inData(u"sites.qnrc"_s);
    ASSERT_TRUE(QFile::remove(list));
    {
        const FaultPlan plan(mwqnAppSuppLoc, "create+=ENOSPC");
        EXPECT_FALSE(site_list::read(site_list::userSites));
        EXPECT_FALSE(site_list::readToChange(site_list::userSites));
    }
    EXPECT_EQ(mwqnFailedWrites.keys(), QStringList{list});
    EXPECT_EQ(site_list::read(site_list::userSites), StringDictionary());
}

TEST_F(TitleStoreTest, TakesAnyNameThatStaysInTheDataFolder)
{
    QStringList folders;
    for (const QString &name : {u".."_s, u"."_s, u"   "_s, u" Tide"_s, u"Tide"_s, u"tide"_s, u"a\nb"_s,
                                u"潮"_s, u"100%2 \\ & <b>"_s, QString(248, u'n'), QString(124, u'ü')}) {
        EXPECT_TRUE(Store::createNewListing(name)) << name;
        EXPECT_EQ(files(name), newFiles) << name;
        folders.append(name + u".qndata");
    }
    for (const QString &name : {u""_s, u"/"_s, u"a/b"_s, u"../up"_s, u"/etc/x"_s, u"a\0b"_s, u"\0"_s,
                                QString(249, u'n'), QString(300, u'n'), QString(125, u'ü')}) {
        selectTitle(name);
        EXPECT_FALSE(Store::createNewListing(name) ||
                     Store::importExistingFile(name, PadDocument(QByteArray("<a/>"))) ||
                     Store::renameExistingQnDataFile(u"Tide"_s, name) ||
                     Store::renameExistingQnDataFile(name, u"New"_s) || Store::deleteQnDataFile(name) ||
                     Store::writeToFile(u"data", "x") || Store::returnDataObjectFor(u"data"))
            << name;
    }
    const QStringList found = titles();
    EXPECT_EQ(QSet(found.begin(), found.end()), QSet(folders.begin(), folders.end()));
    EXPECT_EQ(names(maker), QStringList{u"Quillon"_s});

    // What has the name stays.
    ASSERT_TRUE(put(inData(u"Tide.qndata/data.qnxml"_s), "mine") && put(inData(u"F.qndata"_s), "file"));
    EXPECT_TRUE(Store::createNewListing(u"Tide"_s) && Store::createNewListing(u"F"_s));
    EXPECT_EQ(contents(inData(u"Tide.qndata/data.qnxml"_s)) + contents(inData(u"F.qndata"_s)), "minefile");
}

TEST_F(TitleStoreTest, AnImportKeepsTheBytesAndReplacesTheThreeFiles)
{
    const QByteArray pad = "<r><Program_Version>2.0</Program_Version>\r\n</r>";
    QByteArray summary = emptySummary;
    summary.replace("_VERSION></OTS", "_VERSION>2.0</OTS");
    EXPECT_TRUE(Store::importExistingFile(u"T"_s, PadDocument(QByteArray("<other/>"))));
    ASSERT_TRUE(put(inData(u"T.qndata/error.log"_s), "old") && put(inData(u"T.qndata/notes"_s), "mine"));
    EXPECT_TRUE(Store::importExistingFile(u"T"_s, PadDocument(pad)));
    EXPECT_EQ(files(u"T"_s), (QList<QByteArray>{summary, pad, emptyList}));
    EXPECT_EQ(contents(inData(u"T.qndata/notes"_s)), "mine");
}

TEST_F(TitleStoreTest, ReadsAndWritesTheSelectedTitleByKey)
{
    EXPECT_FALSE(Store::writeToFile(u"data", "x") || Store::returnDataObjectFor(u"data"));
    ASSERT_TRUE(Store::createNewListing(u"T"_s));
    selectTitle(u"T"_s);
    for (const QStringView key : {u"data", u"general", u"error", u"Data", u"General", u"Error"})
        EXPECT_TRUE(Store::writeToFile(key, key.toUtf8()));
    for (const QStringView key : {u"DATA", u"", u"data ", u"data.qnxml", u"gENERAL"})
        EXPECT_FALSE(Store::writeToFile(key, "x")) << key.toString();
    EXPECT_EQ(files(u"T"_s), (QList<QByteArray>{"General", "Data", "Error"}));
    for (const auto &[key, file] :
         {std::pair(u"data"_s, "Data"), {u"general"_s, "General"}, {u"Data"_s, "Error"}, {u""_s, "Error"}})
        EXPECT_EQ(Store::returnDataObjectFor(key), file);
}

TEST_F(TitleStoreTest, RenamesTheFolderWithAllThatIsInIt)
{
    ASSERT_TRUE(Store::createNewListing(u"Old"_s) && Store::createNewListing(u"Taken"_s));
    ASSERT_TRUE(QDir(mwqnAppSuppLoc).mkpath(u"Old.qndata/extra"_s));
    ASSERT_TRUE(put(inData(u"Old.qndata/extra/notes"_s), "mine"));
    EXPECT_FALSE(Store::renameExistingQnDataFile(u"Old"_s, u"Taken"_s));
    EXPECT_FALSE(Store::renameExistingQnDataFile(u"Old"_s, u"Old"_s));
    EXPECT_FALSE(Store::renameExistingQnDataFile(u"Missing"_s, u"New"_s));
    EXPECT_EQ(titles(), (QStringList{u"Old.qndata"_s, u"Taken.qndata"_s}));

    EXPECT_TRUE(Store::renameExistingQnDataFile(u"Old"_s, u"New"_s));
    EXPECT_EQ(contents(inData(u"New.qndata/extra/notes"_s)), "mine");
    EXPECT_EQ(files(u"New"_s), newFiles);
    EXPECT_EQ(titles(), (QStringList{u"New.qndata"_s, u"Taken.qndata"_s}));
    EXPECT_EQ(failedWritesLine(), QString());
}

TEST_F(TitleStoreTest, DeletesTheTitleAndNothingThatItLinksTo)
{
    ASSERT_TRUE(Store::createNewListing(u"T"_s) && put(home() + u"/kept", "kept"));
    ASSERT_TRUE(QFile::link(home(), inData(u"T.qndata/link"_s)) &&
                QFile::link(home(), inData(u"L.qndata"_s)));
    ASSERT_TRUE(QFile::link(u"nowhere"_s, inData(u"B.qndata"_s)) && put(inData(u"F.qndata"_s), "file"));
    EXPECT_TRUE(Store::createNewListing(u"B"_s));
    for (const QString &name : {u"T"_s, u"L"_s, u"B"_s, u"F"_s})
        EXPECT_TRUE(Store::deleteQnDataFile(name)) << name;
    EXPECT_EQ(titles(), QStringList());
    EXPECT_EQ(contents(home() + u"/kept"), "kept");
    EXPECT_FALSE(Store::deleteQnDataFile(u"T"_s));
}

TEST_F(TitleStoreTest, AFailedWriteIsToldUntilALaterOneSucceeds)
{
    const QString title = u"100%1 %2"_s;
    ASSERT_TRUE(Store::createNewListing(title));
    selectTitle(title);
    int told = 0;
    QObject observer;
    NotificationCenter::defaultCenter().addObserver(notification::failedWritesChanged, &observer,
                                                    [&] { ++told; });
    const QByteArray big(10'000, 'x');
    {
        const FullDisk full(1000);
        EXPECT_FALSE(Store::writeToFile(u"data", big) || Store::createNewListing(u"New"_s) ||
                     Store::importExistingFile(u"Imported"_s, PadDocument(big)));
    }
    EXPECT_EQ(told, 3);
    EXPECT_EQ(names(mwqnAppSuppLoc), (QStringList{title + u".qndata", u"ignore.qnrc"_s, u"sites.qnrc"_s}));
    EXPECT_EQ(files(title), newFiles);
    const QString path = inData(title + u".qndata/data.qnxml");
    const QString folder = QDir::cleanPath(mwqnAppSuppLoc);
    EXPECT_EQ(mwqnFailedWrites.keys(), (QStringList{folder, path}));
    EXPECT_TRUE(mwqnFailedWrites.value(folder).reason.startsWith(u"Imported.qndata: writing failed: "));
    EXPECT_EQ(failedWritesLine(), QString(failureLine(mwqnFailedWrites.value(folder)) + u", and 1 more"));

    EXPECT_TRUE(Store::writeToFile(u"data", big));
    EXPECT_FALSE(mwqnFailedWrites.contains(path));
    EXPECT_TRUE(Store::createNewListing(u"Another"_s));
    EXPECT_EQ(failedWritesLine(), QString());
    EXPECT_EQ(told, 5);
    EXPECT_TRUE(Store::writeToFile(u"data", "small"));
    EXPECT_EQ(told, 5) << "nothing has become of it";
}

TEST_F(TitleStoreTest, ACrashLeavesNoHalfATitle)
{
    const PadDocument pad(QByteArray("<a/>"));
    const QList<QByteArray> imported{summary_file::textForImport(pad).toUtf8(), "<a/>", emptyList};
    const auto make = [] { return bool(Store::createNewListing(u"T"_s)); };
    const std::function<bool()> changes[] = {make,
                                             [&] { return bool(Store::importExistingFile(u"I"_s, pad)); },
                                             [] { return bool(Store::deleteQnDataFile(u"T"_s)); }};
    for (const auto &change : changes) {
        const auto prepare = [&] { ASSERT_TRUE(&change != &changes[2] || make()); };
        killedAtEachCall(home(), prepare, change, [&] {
            for (const QString &title : titles())
                EXPECT_EQ(files(title.first(1)), title == u"T.qndata" ? newFiles : imported);
            Store::removeUnfinished();
            EXPECT_EQ(names(mwqnAppSuppLoc).filter(u".quillon-"_s), QStringList());
        });
    }
    EXPECT_EQ(titles(), QStringList{u"I.qndata"_s});
}

TEST_F(TitleStoreTest, WhatIsDoneButNotYetSafeIsToldUntilItIs)
{
    const auto withoutSync = [](int call, auto change) {
        const FaultPlan plan(mwqnAppSuppLoc, "fsync@" + QByteArray::number(call) + "+=EIO");
        return change();
    };
    const auto expectUnsafe = [&](int call, auto change) {
        const Result<> result = withoutSync(call, change);
        EXPECT_TRUE(result.isError(Error::Kind::NotYetSafe) && result.isDone());
        EXPECT_TRUE(failedWritesLine().startsWith(u"Done, but not yet safe"_s)) << failedWritesLine();
        (void)withoutSync(1, [] { return Store::checkAppSuppExists(); });
        EXPECT_FALSE(failedWritesLine().isEmpty()) << "it could not be synced now either";
        EXPECT_TRUE(Store::checkAppSuppExists()); // Syncs the data folder.
        EXPECT_EQ(failedWritesLine(), QString());
    };
    // Its three files and its folder are synced first.
    expectUnsafe(5, [] { return Store::createNewListing(u"A"_s); });
    expectUnsafe(5, [] { return Store::importExistingFile(u"I"_s, PadDocument(QByteArray("<a/>"))); });
    expectUnsafe(1, [] { return Store::renameExistingQnDataFile(u"A"_s, u"B"_s); });
    EXPECT_EQ(files(u"B"_s), newFiles);
    expectUnsafe(1, [] { return Store::deleteQnDataFile(u"I"_s); });
    EXPECT_EQ(titles(), QStringList{u"B.qndata"_s});

    selectTitle(u"B"_s);
    const auto write = [] { return Store::writeToFile(u"data", "new"); };
    EXPECT_TRUE(withoutSync(2, write).isError(Error::Kind::NotYetSafe));
    EXPECT_TRUE(withoutSync(1, write).isError(Error::Kind::NotYetSafe)) << "equal bytes are no sync";
    EXPECT_EQ(mwqnFailedWrites.size(), 1);
    EXPECT_TRUE(write() && mwqnFailedWrites.isEmpty());
}

TEST_F(TitleStoreTest, FailuresGoWithTheirTitleOnly)
{
    for (const QString &name : {u"A"_s, u"AB"_s}) {
        ASSERT_TRUE(Store::createNewListing(name));
        reportFailure({.path = inData(name + u".qndata/data.qnxml"), .reason = u"full"_s});
    }
    EXPECT_TRUE(Store::checkAppSuppExists());
    EXPECT_EQ(mwqnFailedWrites.size(), 2);
    const PostedNotifications posted{notification::failedWritesChanged};
    EXPECT_TRUE(Store::deleteQnDataFile(u"A"_s));
    EXPECT_EQ(mwqnFailedWrites.keys(), QStringList{inData(u"AB.qndata/data.qnxml"_s)});
    EXPECT_EQ(posted.names.size(), 1);
    EXPECT_TRUE(Store::renameExistingQnDataFile(u"AB"_s, u"B"_s));
    EXPECT_TRUE(mwqnFailedWrites.isEmpty());
    reportFailure({.path = inData(u"B.qndata/data.qnxml"_s), .reason = u"full"_s});
    EXPECT_TRUE(Store::importExistingFile(u"B"_s, PadDocument(QByteArray("<a/>"))));
    EXPECT_TRUE(mwqnFailedWrites.isEmpty()) << "all of it was stored anew";
}
