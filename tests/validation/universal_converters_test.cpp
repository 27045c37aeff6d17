#include "support/printing.h"
#include "support/valid_form.h"
#include "validation/universal_converters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quillon;

constexpr EmailBounds emailBounds = {{2, 30}, {2, 20}, {2, 20}};
constexpr QStringView prefixes[] = {u"http://", u"https://", u"ftp://"};
constexpr QStringView endings[] = {u".png", u".jpg", u".gif"};

/// The red stretches as "start+length", with commas between.
static QString red(const TextControl &control)
{
    QStringList runs;
    for (const ColourRun &run : control.redRuns())
        runs.append(u"%1+%2"_s.arg(run.start).arg(run.length));
    return runs.join(u',');
}

/// A single-line text at which the author is at work.
struct Edited : TextControl
{
    explicit Edited(const QString &text) : TextControl(u"edited"_s)
    {
        setText(text);
        setEditing(true);
    }
};

// clang-format off
TEST(UniversalConverters, CountsSeveralLinesWithHintAndCaption)
{
    struct Case { qsizetype length; QString red; Colour hint; Colour caption; };
    const Case cases[] = {{0, {}, Colour::Black, Colour::Black}, {1, u"0+1"_s, Colour::Red, Colour::Red},
                          {2, {}, Colour::Black, Colour::Black}, {9, u"5+4"_s, Colour::Red, Colour::Black}};
    for (const Case &each : cases) {
        TextControl view(u"view"_s, nullptr, TextControl::Lines::Several);
        view.setText(of(each.length));
        view.caption().setColour(Colour::Red);
        EXPECT_EQ(UniversalConverters::characterCountView({2, 5}, view), u"    %1/5"_s.arg(each.length));
        EXPECT_EQ(red(view), each.red);
        EXPECT_EQ(view.hintColour(), each.hint) << each.length;
        EXPECT_EQ(view.caption().colour(), each.caption) << each.length;
    }
}

TEST(UniversalConverters, MeasuresWebAddressesWithTheirPrefixes)
{
    struct Case { QString text; Words endings; QString counter; QString red; };
    const Case cases[] = {
        {u"http://x.png"_s, endings, u"    12/127"_s, {}}, {u"HTTPS://x.png"_s, endings, u"    13/128"_s, {}},
        {u"see http://x and ftp://y"_s, {}, u"    24/133"_s, {}}, {u"http://"_s, {}, u"    7/127"_s, u"0+7"_s},
        {u"http://x"_s, {}, u"    8/127"_s, u"0+8"_s}, {u"http://x.jpeg"_s, endings, u"    13/127"_s, u"0+13"_s},
        {u"http://x.PNG"_s, endings, u"    12/127"_s, u"0+12"_s},
        {u"http://"_s + of(121) + u".jpeg"_s, endings, u"    133/127"_s, u"127+6"_s},
        {of(120), {}, u"    120/120"_s, {}}, {of(121), {}, u"    121/120"_s, u"120+1"_s},
    };
    for (const Case &each : cases) {
        Edited field(each.text);
        EXPECT_EQ(UniversalConverters::urlCheckingField(field, {2, 120}, prefixes, each.endings), each.counter);
        EXPECT_EQ(red(field), each.red) << each.text.toStdString();
    }
}

TEST(UniversalConverters, JudgesEmailAddressesByTheirParts)
{
    struct Case { QString text; bool acceptable; QString red; QString left = {}; };
    const Case cases[] = {
        {u"me@host.com"_s, true, {}}, {u"f.l@host.com"_s, true, {}}, {u"ab cd@efgh.ij"_s, true, {}, u"abcd@efgh.ij"_s},
        {of(30) + u'@' + of(20) + u'.' + of(20), true, {}}, {u"a@b.c"_s, false, u"0+1,2+1,4+1"_s},
        {u"a@host.com"_s, false, u"0+1"_s}, {of(31) + u"@host.com"_s, false, u"30+1"_s},
        {u"m!e@host.com"_s, false, u"0+3"_s}, {u"me!@host.com"_s, false, {}}, {u"me@h.com"_s, false, u"3+1"_s},
        {u"me@"_s + of(21) + u".com"_s, false, u"23+1"_s}, {u"me@h_[st.com"_s, true, {}}, {u"me@.com"_s, false, {}},
        {u"me@host.c"_s, false, u"8+1"_s}, {u"me@host."_s + of(21), false, u"28+1"_s}, {u"me@host.co.uk"_s, true, {}},
        {u"me@host"_s, false, {}}, {u"@me@host.com"_s, true, {}}, {u"me.host"_s, false, u"0+7"_s},
        {u"  "_s, false, {}, u""_s}, {u"m\u0000@h\xD800.com"_s, false, u"3+1"_s},
    };
    for (const Case &each : cases) {
        Edited field(each.text);
        EXPECT_EQ(UniversalConverters::emailCheck(emailBounds, field), each.acceptable) << each.text.toStdString();
        EXPECT_EQ(field.text(), each.left.isNull() ? each.text : each.left);
        EXPECT_EQ(red(field), each.red) << each.text.toStdString();
        EXPECT_EQ(field.caption().colour() == Colour::Red, each.text == u"me.host");
    }
}

TEST(UniversalConverters, KeepsWhatAPhoneNumberMayHold)
{
    struct Case { QString text; QString left; bool acceptable; QString red; };
    const Case cases[] = {
        {u"Tel 555-1234"_s, u" 555-1234"_s, true, {}}, {u"+44 (0)20_7*#,./1"_s, u"+44 (0)20_7*#,./1"_s, true, {}},
        {u"123456"_s, u"123456"_s, false, {}}, {u"1234567"_s, u"1234567"_s, true, {}},
        {u"123456=7"_s, u"123456=7"_s, false, {}}, {of(41, u'1'), of(41, u'1'), false, u"40+1"_s},
        {u"abc"_s, u""_s, true, {}}, {u"\u0663123"_s, u"\u0663123"_s, true, {}},
    };
    for (const Case &each : cases) {
        Edited field(each.text);
        EXPECT_EQ(UniversalConverters::phoneNumberCheck({7, 40}, field), each.acceptable) << each.text.toStdString();
        EXPECT_EQ(field.text(), each.left);
        EXPECT_EQ(red(field), each.red);
    }
}

TEST(UniversalConverters, PadsTheLastInteger)
{
    struct Case { QString text; int maxNumber; QString left; };
    const Case cases[] = {{u"5"_s, 31, u"05"_s}, {u"23"_s, 31, u"23"_s}, {u"x"_s, 31, u"00"_s}, {u" 4  7x9"_s, 12, u"07"_s},
                          {u"-5"_s, 12, u"-05"_s}, {u"7"_s, 2199, u"0007"_s}, {of(20, u'9'), 31, u"2147483647"_s}};
    for (const Case &each : cases) {
        Edited field(each.text);
        UniversalConverters::inputNumberLengthCheck(field, each.maxNumber);
        EXPECT_EQ(field.text(), each.left) << each.text.toStdString();
    }
}

TEST(UniversalConverters, ColoursRangesWithinTheText)
{
    Edited field(u"a.b.c"_s);
    UniversalConverters::setTextColorChars(Colour::Red, u'.', field);
    EXPECT_EQ(red(field), u"1+1,3+1"_s);
    UniversalConverters::setTextColorFromPoint(4, Colour::Red, field);
    EXPECT_EQ(red(field), u"1+1,3+2"_s);
    UniversalConverters::setTextColorToPoint(99, -98, Colour::Black, field);
    EXPECT_EQ(red(field), u"1+1,3+2"_s);
    UniversalConverters::setTextColorChars(Colour::Black, u'.', field);
    EXPECT_EQ(red(field), u"4+1"_s);
    UniversalConverters::setTextColorToPoint(99, 3, Colour::Red, field);
    EXPECT_EQ(red(field), u"3+2"_s);
    field.setEditing(false);
    UniversalConverters::setTextColorAll(Colour::Black, field);
    EXPECT_EQ(red(field), u"3+2"_s) << "what was coloured stays so when editing has ended";
}

TEST(UniversalConverters, MarksLoadedTexts)
{
    struct Case { QString text; QString fieldRed; QString viewRed; };
    const Case cases[] = {{of(45), u"40+5"_s, u"40+5"_s}, {of(40), {}, {}}, {u"x"_s, u"0+1"_s, {}}, {{}, {}, {}},
                          {u"Should NOT be Empty"_s + of(40), {}, u"40+19"_s}};
    for (const Case &each : cases) {
        Edited field(each.text);
        Edited view(each.text);
        UniversalConverters::fieldLoadValidator(field, {2, 40}, u"Hint"_s);
        UniversalConverters::viewLoadValidator(view, {2, 40}, u"Hint"_s);
        EXPECT_EQ(red(field), each.fieldRed);
        EXPECT_EQ(red(view), each.viewRed);
        EXPECT_EQ(field.hint(), each.fieldRed.startsWith(u"40") ? u"Hint    45/40"_s : QString());
    }
    struct Address { QString text; bool acceptable; QString red; };
    const Address addresses[] = {{u"a b@host.com"_s, false, u"0+3"_s}, {u"xx ab@host.com"_s, true, {}},
                                 {u"none"_s, false, u"0+4"_s}, {u"Email Should Not Be Empty"_s, false, {}}};
    for (const Address &each : addresses) {
        Edited field(each.text);
        EXPECT_EQ(UniversalConverters::emailFieldLoadValidator(field, emailBounds), each.acceptable);
        EXPECT_EQ(field.text(), each.text);
        EXPECT_EQ(red(field), each.red);
        EXPECT_EQ(field.caption().colour(), Colour::Black);
    }
}

// clang-format on
