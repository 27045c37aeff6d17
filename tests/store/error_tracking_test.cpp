#include "store/error_tracking.h"
#include "support/temporary_home.h"

using namespace Qt::StringLiterals;
using namespace quillon;

class ErrorTrackingTest : public TemporaryDataFolder
{
protected:
    void SetUp() override
    {
        TemporaryDataFolder::SetUp();
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(u"T"_s));
        log = inData(u"T.qndata/error.log"_s);
    }

    QString log;
    const QByteArray empty = sample(u"empty_list.plist"_s);
};

TEST_F(ErrorTrackingTest, KeepsTheLatestMessageOfEachFieldAndWritesChangesOnly)
{
    selectTitle(u"T"_s);
    EXPECT_EQ(ErrorTracking::returnErrorDictionary(), StringDictionary());
    ErrorTracking::setHasError(u"otherPrice"_s, u"first"_s);
    ErrorTracking::setHasError(u"companyName"_s, u"<&> \"Zoë\""_s);
    ErrorTracking::setHasError(u"otherPrice"_s, u"second"_s);
    const ino_t number = fileNumber(log);
    ErrorTracking::setHasError(u"otherPrice"_s, u"second"_s);
    ErrorTracking::setHasError(QString(), u"message"_s);
    ErrorTracking::setHasError(u"key"_s, QString());
    ErrorTracking::setNoError(u"absent"_s);
    ErrorTracking::setNoError(QString());
    EXPECT_EQ(fileNumber(log), number);
    EXPECT_EQ(ErrorTracking::returnErrorDictionary(),
              (StringDictionary{{u"companyName"_s, u"<&> \"Zoë\""_s}, {u"otherPrice"_s, u"second"_s}}));
    ErrorTracking::setNoError(u"companyName"_s);
    EXPECT_EQ(ErrorTracking::returnErrorDictionary(), (StringDictionary{{u"otherPrice"_s, u"second"_s}}));
    ErrorTracking::setNoError(u"otherPrice"_s);
    EXPECT_EQ(contents(log), empty);
}

TEST_F(ErrorTrackingTest, WithoutAReadableLogNothingIsReadOrWritten)
{
    const auto expectUntouched = [this](const QByteArray &bytes) {
        ErrorTracking::setHasError(u"eula"_s, u"long"_s);
        ErrorTracking::setNoError(u"eula"_s);
        EXPECT_FALSE(ErrorTracking::returnErrorDictionary());
        EXPECT_EQ(contents(log), bytes);
    };
    expectUntouched(empty); // No title is selected.
    selectTitle(u"T"_s);
    ASSERT_TRUE(put(log, "half a li"));
    expectUntouched("half a li");
    ASSERT_TRUE(QFile::remove(log));
    expectUntouched(contents(log));
    EXPECT_FALSE(QFile::exists(log));
    EXPECT_TRUE(mwqnFailedWrites.isEmpty());
}
