#include "support/tables.h"
#include "support/valid_form.h"
#include "validation/universal_converters.h"

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

// clang-format on
TEST(UniversalConverters, JudgesWebAddressesEmailAddressesAndPhoneNumbers)
{
    for (const QStringList &row : table(u"converted"_s)) {
        Edited field(row[1]);
        QString result;
        if (row[0] == u"email")
            result = UniversalConverters::emailCheck(emailBounds, field) ? u"right"_s : u"wrong"_s;
        else if (row[0] == u"phone")
            result = UniversalConverters::phoneNumberCheck({7, 40}, field) ? u"right"_s : u"wrong"_s;
        else
            result = UniversalConverters::urlCheckingField(field, {2, 120}, prefixes,
                                                           row[0] == u"picture" ? Words(endings) : Words());
        EXPECT_EQ((QStringList{result, red(field), field.text()}), row.sliced(2)) << row[0] << ' ' << row[1];
        EXPECT_EQ(field.caption().colour() == Colour::Red, row[1] == u"me.host");
    }
    Edited odd(u"m\u0000@h\xD800.com"_s);
    EXPECT_FALSE(UniversalConverters::emailCheck(emailBounds, odd));
    EXPECT_EQ(red(odd), u"3+1");
}
// clang-format off

TEST(UniversalConverters, PadsTheLastInteger)
{
    struct Case { QString text; int maxNumber; QString left; };
    const Case cases[] = {{u"5"_s, 31, u"05"_s}, {u"23"_s, 31, u"23"_s}, {u"x"_s, 31, u"00"_s}, {u" 4  7x9"_s, 12, u"07"_s},
                          {u"-5"_s, 12, u"-05"_s}, {u"7"_s, 2199, u"0007"_s}, {of(20, u'9'), 31, u"2147483647"_s}};
    for (const Case &each : cases) {
        Edited field(each.text);
        UniversalConverters::inputNumberLengthCheck(field, each.maxNumber);
        EXPECT_EQ(field.text(), each.left) << each.text;
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
