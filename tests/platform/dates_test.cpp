#include "platform/dates.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quillon;

const QLocale german(QLocale::German, QLocale::Germany);
const QLocale american(QLocale::English, QLocale::UnitedStates);

TEST(DatesTest, ReadsBothStoredFormsAndTheUsersOwn)
{
    const std::pair<QString, QDate> cases[] = {
        {u"15/3/2009"_s, {2009, 3, 15}},         {u"05/03/2009"_s, {2009, 3, 5}},
        {u" 27 / Feb / 2024 "_s, {2024, 2, 27}}, {u"1/SEPTEMBER/2024"_s, {2024, 9, 1}},
        {u"2009-03-15"_s, {2009, 3, 15}},        {u"2009-3-5"_s, {2009, 3, 5}},
        {u"29/2/2024"_s, {2024, 2, 29}}};
    for (const auto &[text, expected] : cases) {
        EXPECT_EQ(dates::parseStored(text, german), expected) << text.toStdString();
        EXPECT_EQ(dates::parseStored(text, american), expected) << text.toStdString();
    }
    for (const QLocale &locale : {german, american}) {
        const QString shown = dates::shortText({1987, 6, 25}, locale);
        EXPECT_EQ(dates::parseStored(shown, locale), QDate(1987, 6, 25)) << shown.toStdString();
    }
    EXPECT_EQ(dates::shortText({2009, 3, 15}, german), u"15.03.09"_s);
    EXPECT_EQ(dates::shortText({2009, 3, 15}, american), u"3/15/09"_s);
}

TEST(DatesTest, TakesNothingElse)
{
    for (const QString &text :
         {u""_s, u" "_s, u"/"_s, u"//"_s, u"--"_s, u"5/3/"_s, u"/3/2009"_s, u"31/2/2009"_s, u"0/0/0"_s,
          u"5/13/2009"_s, u"29/2/2023"_s, u"2009-15-03"_s, u"15-03-2009"_s, u"5/Fe/2009"_s, u"tomorrow"_s,
          u"{Date}"_s, u"5/3/2009/1"_s, u"-5/3/2009"_s, QString(100'000, u'/')})
        EXPECT_FALSE(dates::parseStored(text, QLocale::c())) << text.left(50).toStdString();
}
