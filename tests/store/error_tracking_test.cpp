#include "store/error_tracking.h"
#include "support/faults.h"
#include "support/temporary_home.h"

using ErrorTrackingTest = TemporaryDataFolder;

TEST_F(ErrorTrackingTest, KeepsTheLatestMessageOfEachFieldAndWritesChangesOnly)
{
    ASSERT_TRUE(AddDeleteImportEdit::createNewListing(u"T"_s));
    const QString log = inData(u"T.qndata/error.log"_s);
    ErrorTracking::setHasError(u"eula"_s, u"no title is selected"_s);
    EXPECT_FALSE(ErrorTracking::returnErrorDictionary());
    selectTitle(u"T"_s);
    EXPECT_EQ(ErrorTracking::returnErrorDictionary(), StringDictionary());
    for (const QString &message : {u"first"_s, u"<&> \"Zoë\""_s})
        ErrorTracking::setHasError(u"otherPrice"_s, message);
    const ino_t number = fileNumber(log);
    const StringDictionary latest{{u"otherPrice"_s, u"<&> \"Zoë\""_s}};
    ErrorTracking::setHasError(u"otherPrice"_s, latest.begin()->second);
    ErrorTracking::setHasError(QString(), u"message"_s);
    ErrorTracking::setHasError(u"key"_s, QString());
    ErrorTracking::setNoError(u"absent"_s);
    ErrorTracking::setNoError(QString());
    EXPECT_EQ(fileNumber(log), number);
    EXPECT_EQ(ErrorTracking::returnErrorDictionary(), latest);
    ErrorTracking::setNoError(u"otherPrice"_s);
    EXPECT_EQ(contents(log), sample(u"empty_list.plist"_s));
}

TEST_F(ErrorTrackingTest, WithoutAReadableLogNothingIsReadOrWritten)
{
    ASSERT_TRUE(AddDeleteImportEdit::createNewListing(u"T"_s));
    selectTitle(u"T"_s);
    const QString log = inData(u"T.qndata/error.log"_s);
    for (const bool removed : {false, true}) {
        ASSERT_TRUE(removed ? QFile::remove(log) : put(log, "half a li"));
        ErrorTracking::setHasError(u"eula"_s, u"long"_s);
        ErrorTracking::setNoError(u"eula"_s);
        EXPECT_FALSE(ErrorTracking::returnErrorDictionary());
        EXPECT_EQ(contents(log), removed ? "(no such file)" : "half a li");
    }
    EXPECT_TRUE(mwqnFailedWrites.isEmpty());
}

TEST_F(ErrorTrackingTest, ALogThatCouldNotBeReadOrStoredIsToldUntilItIsAsItShouldBe)
{
    ASSERT_TRUE(AddDeleteImportEdit::createNewListing(u"T"_s));
    selectTitle(u"T"_s);
    const QString log = inData(u"T.qndata/error.log"_s);
    for (const char *const rule : {"open=EIO", "create=ENOSPC"}) {
        const FaultPlan plan(inData(u"T.qndata"_s), rule);
        ErrorTracking::setHasError(u"eula"_s, u"long"_s);
        EXPECT_TRUE(plan.met());
        EXPECT_EQ(mwqnFailedWrites.keys(), QStringList{log}) << rule;
        EXPECT_EQ(contents(log), sample(u"empty_list.plist"_s)) << rule;
        ErrorTracking::setNoError(u"eula"_s); // As it is stored.
        EXPECT_TRUE(mwqnFailedWrites.isEmpty()) << rule;
    }
}
