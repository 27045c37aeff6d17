#include "platform/regex.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quillon;

TEST(RegexTest, ReplacesEveryMatchByTheFilledInTemplate)
{
    const struct
    {
        QStringView pattern, subject, replacement, expected;
    } cases[] = {{u"b", u"abcb", u"x", u"axcx"},
                 {u"(b)(q)?", u"abz", u"[$1$2]", u"a[b]z"},
                 {u"(b)", u"ab", u"${1}1", u"ab1"},
                 {u"b+", u"abb", u"<$0$0>", u"a<bbbb>"},
                 {u"(b)", u"ab", u"$x $$1 ${} ${1 ${y} $", u"a$x $b ${} ${1 ${y} $"},
                 {u"b", u"abc", u"$9${12}$99999999999999", u"ac"},
                 {u"b", u"ab", u"\\1\\$0", u"a\\1\\b"},
                 {u"x*", u"axb", u"-", u"-a--b-"},
                 {u"", u"ab", u".", u".a.b."},
                 {u"^", u"ab\ncd", u">", u">ab\ncd"},
                 {u"b", u"", u"x", u""},
                 {u"<T>.*</T>", u"<T>1</T>\n<T>2\n</T>", u"x", u"x\n<T>2\n</T>"},
                 {u"(b", u"a(b", u"x", u"a(b"},
                 {u".", u"\xDE00\xD83D", u"[$0]", u"[\xDE00][\xD83D]"}};
    for (const auto &[pattern, subject, replacement, expected] : cases)
        EXPECT_EQ(Regex(pattern).replaceAll(subject.toString(), replacement), expected);
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
