#include "platform/regex.h"
#include "support/tables.h"

TEST(RegexTest, ReplacesEveryMatchByTheFilledInTemplate)
{
    for (const QStringList &row : table(u"regex_replaced"_s)) {
        const Regex pattern(row[0]);
        for (int use = 1; use < 70; ++use) // From some time on by machine code.
            ASSERT_EQ(pattern.replaceAll(row[1], row[2]), row[3]) << row[0] << " in its use " << use;
    }
}

TEST(RegexTest, TellsTheFirstMatchAndItsGroups)
{
    const auto match = Regex(u"(q)|(b)(c)").firstMatch(u"xx abc abc");
    ASSERT_TRUE(match);
    EXPECT_EQ(match->captured(), u"bc");
    EXPECT_EQ(match->captured(3), u"c");
    EXPECT_EQ(match->range().start, 4);
    EXPECT_EQ(match->range(1).start, -1);
    for (const int without : {1, 4, 99, -1})
        EXPECT_TRUE(match->captured(without).isEmpty()) << without;
    EXPECT_FALSE(Regex(u"q").firstMatch(u"xx"));
    EXPECT_TRUE(Regex(u"^$").firstMatch(QStringView()));
    EXPECT_FALSE(Regex(u"[a").isValid());
    EXPECT_FALSE(Regex(u"[a").firstMatch(u"[a"));
}

TEST(RegexTest, EscapedTextMatchesItselfAndNothingElse)
{
    QString all;
    for (char16_t unit = 0; unit < 0x100; ++unit) {
        const QString one = QChar(unit);
        const QString next = QChar(unit + 1);
        EXPECT_TRUE(Regex(Regex::escaped(one)).firstMatch(one)) << int(unit);
        EXPECT_FALSE(Regex(Regex::escaped(one)).firstMatch(next)) << int(unit);
        all += one;
    }
    all += u"12\xD83D end"_s;
    const QString subject = u'<' + all + u'>';
    const auto match = Regex(Regex::escaped(all)).firstMatch(subject);
    ASSERT_TRUE(match);
    EXPECT_EQ(match->captured(), all);
}

TEST(RegexTest, LongTextsDoNotExhaustTheMatcher)
{
    const QString letters(1'000'000, u'a');
    const auto match = Regex(u"^(?:a|b)*$").firstMatch(letters);
    ASSERT_TRUE(match);
    EXPECT_EQ(match->range().length, letters.size());
}
