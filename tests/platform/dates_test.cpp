#include "platform/dates.h"
#include "support/tables.h"

const QLocale german(QLocale::German, QLocale::Germany);
const QLocale american(QLocale::English, QLocale::UnitedStates);

TEST(DatesTest, ReadsBothStoredFormsAndTheUsersOwnAndNothingElse)
{
    for (const QLocale &locale : {german, american}) {
        for (const QStringList &row : table(u"dates_read"_s))
            EXPECT_EQ(dates::parseStored(row[0], row[1].isEmpty() ? QLocale::c() : locale).value_or(QDate()),
                      QDate::fromString(row[1], Qt::ISODate))
                << row[0].left(50);
        const QString shown = dates::shortText({1987, 6, 25}, locale);
        EXPECT_EQ(dates::parseStored(shown, locale), QDate(1987, 6, 25)) << shown;
    }
    EXPECT_EQ(dates::shortText({2009, 3, 15}, german), u"15.03.09"_s);
    EXPECT_EQ(dates::shortText({2009, 3, 15}, american), u"3/15/09"_s);
}
