#include "pad/pad_reader.h"
#include "pad/pad_writer.h"
#include "support/files.h"
#include "support/growth.h"
#include "support/printing.h"
#include "support/valid_form.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quillon;

using enum FieldId;

const QString http = u"http://"_s;

static QString keyOf(FieldId field)
{
    return padField(field).control.toString();
}

static StringDictionary checked(PadForm &form)
{
    ErrorPass errors;
    field_rules::checkEntries(form, errors);
    return errors.errors();
}

/// What the log says once @p text is in an otherwise valid form's @p field: nothing, or one message for it.
static QString messageFor(FieldId field, const QString &text)
{
    PadForm form;
    fillValidly(form);
    form.text(field).setText(text);
    const StringDictionary errors = checked(form);
    const Colour colour = errors.empty() ? Colour::Black : Colour::Red;
    EXPECT_EQ(form.control(field).hintColour(), colour) << keyOf(field).toStdString();
    EXPECT_EQ(form.control(field).caption().colour(), colour) << keyOf(field).toStdString();
    EXPECT_EQ(errors.count(keyOf(field)), errors.size()) << "an error of another field";
    return errors.empty() ? QString() : errors.begin()->second;
}

// clang-format off
TEST(FieldRules, JudgeLengthsAtTheirLimits)
{
    struct Case { FieldId field; qsizetype min; qsizetype max; QString subject; };
    const Case cases[] = {
        {authorFirstName, 2, 30, u"The author first name is"_s}, {authorLastName, 2, 30, u"The author last name is"_s},
        {contactFirstName, 2, 30, u"The contact first name is"_s}, {contactLastName, 2, 30, u"The contact last name is"_s},
        {companyName, 2, 40, u"The company name is"_s}, {companyCityTown, 2, 40, u"The company city/town is"_s},
        {companyAddress, 0, 40, u"The company address is"_s}, {companyAddress2, 0, 40, u"The company address line two is"_s},
        {companyStateCounty, 0, 30, u"The company state/county is"_s}, {companyZIPPostcode, 0, 20, u"The company zip/postcode is"_s},
        {companyCountry, 2, 40, u"The contact first name is"_s}, {companyWebsite, 0, 120, u"The company website address is"_s},
        {generalPhone, 7, 40, u"The general phone number is"_s}, {generalFax, 7, 40, u"The general fax number is"_s},
        {supportPhone, 7, 40, u"The support phone number is"_s}, {salesPhone, 7, 40, u"The sales phone number is"_s},
        {programName, 1, 40, u"The program name is"_s}, {programVersion, 1, 15, u"The program version number is"_s},
        {priceInUSD, 0, 100, u"The price in USD is"_s}, {expireInfo, 0, 100, u"The expire information is"_s},
        {changeInformationView, 0, 300, u"The change information is"_s}, {requirementsView, 0, 100, u"The program requirements are"_s},
        {keywordsView, 0, 250, u"The keywords are"_s}, {pd45CharDescript, 0, 45, u"The 45 characker description is"_s},
        {pd80CharDescript, 0, 80, u"The 80 characker description is"_s}, {pd250CharDescript, 0, 250, u"The 250 characker description is"_s},
        {pd450CharDescript, 0, 450, u"The 450 characker description is"_s}, {pd2000CharDescript, 0, 2000, u"The 2000 characker description is"_s},
        {distributionPermissions, 0, 2000, u"The distribution permissions are"_s}, {eula, 0, 20000, u"The end user license agreement is"_s},
    };
    for (const Case &each : cases) {
        const QString tooShort = each.subject + u" too short."_s;
        EXPECT_EQ(messageFor(each.field, of(each.min)), QString());
        EXPECT_EQ(messageFor(each.field, of(each.max)), QString());
        EXPECT_EQ(messageFor(each.field, of(each.max + 1)), each.subject + u" too long."_s);
        EXPECT_EQ(messageFor(each.field, {}), each.min == 0 || each.min == 7 ? QString() : tooShort);
        if (each.min > 1) {
            EXPECT_EQ(messageFor(each.field, of(each.min - 1)), tooShort);
        }
    }
}

TEST(FieldRules, JudgeWhatIsMoreThanALength)
{
    struct Case { FieldId field; QString message; QStringList accepted; QStringList rejected; };
    const QString order = u"https://"_s;
    const QString ftp = u"ftp://"_s;
    const Case cases[] = {
        {companyWebsite, u"The company website address is too long."_s, {http + of(120)}, {http + of(121), u"HTTP://"_s + of(114)}},
        {appInfoURL, u"The application information url is too long."_s, {u"x"_s, of(119), http + of(119)}, {{}, of(120), http + of(120), order + of(112)}},
        {orderingURL, u"The ordering url is too long."_s, {{}, order + of(119), http + of(119)}, {of(120), order + of(120), ftp + of(114)}},
        {screenshotURL, u"The screenshot url is too long."_s, {u"a.png"_s, u"a.jpg"_s, u"a.gif"_s}, {{}, of(116) + u".png"_s}},
        {screenshotURL, u"The screenshot url must end in .gif .jpg or .png"_s, {}, {u"a.PNG"_s, u"a.jpeg"_s, of(119)}},
        {iconURL, u"The icon url is too long."_s, {u"a.gif"_s}, {{}, of(120)}},
        {iconURL, u"The icon url must end in .gif .jpg or .png"_s, {}, {u"a.xml"_s}},
        {padFileURL, u"The PAD file url is too long."_s, {u"a.xml"_s}, {{}, of(120)}},
        {padFileURL, u"The PAD file url must end in .xml"_s, {}, {u"a.png"_s}},
        {primaryDownloadURL, u"The primary download url is too long."_s, {ftp + of(119), http + of(119)}, {{}, ftp + of(120), http + of(120)}},
        {secondaryDownloadURL, u"The secondary download url is too long."_s, {{}, ftp + of(119)}, {ftp + of(120)}},
        {otherDownloadURL1, u"The other download url one is too long."_s, {{}, ftp + of(119)}, {ftp + of(120)}},
        {otherDownloadURL2, u"The other download url two is too long."_s, {{}, ftp + of(119)}, {ftp + of(120)}},
        {authorEmail, u"The authors email address is empty."_s, {u" m e@host.com "_s}, {{}, u" "_s, u"me@host"_s}},
        {contactEmail, u"The contact email address is empty."_s, {}, {{}}},
        {generalEmail, u"The general email address should not be empty."_s, {}, {u"a@b.c"_s}},
        {supportEmail, u"The support email address should noy be empty."_s, {}, {u"none"_s}},
        {salesEmail, u"The sales email should not eb empty."_s, {}, {u"@"_s}},
        {releaseDateDay, u"The program release day should not be empty."_s, {u"1"_s, u"31"_s}, {{}}},
        {releaseDateMonth, u"The program release month should not be empty."_s, {u"31"_s}, {{}}},
        {releaseDateYear, u"The program release year should not be empty."_s, {u"1901"_s, u"2198"_s}, {{}}},
        {expireDateDay, u"The program expire day is too long."_s, {{}, u"-3"_s, u"31"_s}, {u"32"_s}},
        {expireDateMonth, u"The program expire month is too long."_s, {u"May"_s, u"31"_s}, {u"32nd"_s, u"99999999999"_s}},
        {expireDateYear, u"The program expire year is invalid."_s, {{}, u"0"_s, u"1901"_s, u"2198"_s}, {u"10"_s, u"1900"_s, u"2199"_s}},
        {otherPrice, u"You need to select a currency for the other price."_s, {{}, of(100, u'9')}, {u"9.99"_s, of(99, u'9')}},
        {sizeInBytes, u"The size in bytes field should not be empty."_s, {u"0"_s}, {{}}},
    };
    for (const Case &each : cases) {
        for (const QString &text : each.accepted)
            EXPECT_EQ(messageFor(each.field, text), QString()) << text.toStdString();
        for (const QString &text : each.rejected)
            EXPECT_EQ(messageFor(each.field, text), each.message) << text.toStdString();
    }
}

TEST(FieldRules, JudgeChoices)
{
    PadForm form;
    fillValidly(form);
    for (const FieldId field : {installSupportPopUp, programTypePopUp, programStatusPopUp})
        form.popUp(field).setIndex(0);
    form.popUp(categoryPopUp).setIndex(-1);
    form.checkList(languageTable).untickAll();
    form.checkList(osTable).untickAll();
    form.popUp(otherPricePopUp).setIndex(1);
    const StringDictionary expected = {
        {u"installSupportPopUp"_s, u"Install support should not be empty."_s},
        {u"programTypePopUp"_s, u"A program type should be selected."_s},
        {u"programStatusPopUp"_s, u"A program status should be selected."_s},
        {u"categoryPopUp"_s, u"A program category should be selected."_s},
        {u"languageTable"_s, u"No supported languages have been selected."_s},
        {u"osTable"_s, u"No supported operating systems have been selected."_s},
        {u"otherPrice"_s, u"You need to select a currency for the other price."_s}};
    EXPECT_EQ(checked(form), expected);
}

TEST(FieldRules, JudgeExpiry)
{
    const QString empty = u"The expire count should not be empty."_s;
    const QString tooLong = u"The expire count is too long."_s;
    const QString noBase = u"You need to select an expire base."_s;
    const QString count = u"The expire count has been set without checking the 'Has Expire Information' checkbox."_s;
    const QString base = u"An expire base has been set without checking the 'Has Expire Information' checkbox."_s;
    struct Case { bool ticked; int base; qsizetype countLength; QString countMessage; QString baseMessage; };
    const Case cases[] = {
        {true, 1, 1, {}, {}}, {true, 1, 0, empty, {}}, {true, 1, 14, {}, {}}, {true, 1, 15, tooLong, {}},
        {true, 0, 0, empty, noBase}, {true, -1, 2, {}, noBase}, {false, 2, 2, count, base},
        {false, 0, 15, count, {}}, {false, 1, 0, {}, base}, {false, 0, 0, {}, {}},
    };
    for (const Case &each : cases) {
        PadForm form;
        fillValidly(form);
        form.checkBox(expireCheckBox).setOn(each.ticked);
        form.popUp(expireBasePopUp).setIndex(each.base);
        form.text(expireCount).setText(of(each.countLength, u'1'));
        StringDictionary errors = checked(form);
        EXPECT_EQ(form.control(expireCheckBox).caption().colour(), errors.empty() ? Colour::Black : Colour::Red);
        EXPECT_EQ(errors[u"expireCount"_s], each.countMessage);
        EXPECT_EQ(errors[u"expireBasePopUp"_s], each.baseMessage);
        EXPECT_EQ(errors.size(), 2U) << "an error of another field";
    }
}

TEST(FieldRules, ShowLengthsInTheHintsAndMarkWhatIsBeyond)
{
    struct Case { FieldId field; QString text; QString hint; QList<ColourRun> red = {}; };
    const Case cases[] = {
        {authorFirstName, of(5), u"Text string 2-30 characters        5 / 30"_s},
        {authorFirstName, {}, u"Text string 2-30 characters"_s},
        {companyCountry, of(41), u"Text string 2-40 characters        41 / 40"_s},
        {companyWebsite, u"http://x.com"_s, u"URL http:// + 2-70 characters        12 / 127"_s},
        {companyWebsite, {}, u"URL http:// + 2-70 characters"_s},
        {generalPhone, u"1234567"_s, u"Numeric with punctuations 7 - 40 characters        7 / 40"_s},
        {programName, u"x"_s, u"Text string 1-40 characters - NO Version Numbers        1 / 40"_s},
        {companyStateCounty, of(3), u"before"_s}, {companyZIPPostcode, of(3), u"before"_s},
        {programVersion, of(3), u"before"_s}, {authorEmail, u"me@host.com"_s, u"before"_s}, {sizeInBytes, {}, u"before"_s},
        {appInfoURL, {}, u"URL http:// + 2-120 characters        0 / 120"_s},
        {orderingURL, u"https://x.com"_s, u"URL http:// + 2-120 characters (https:// ok too)        13 / 128"_s},
        {primaryDownloadURL, {}, u"URL ftp or http:// + 2-120 characters with extension exe, zip, or other        0 / 120"_s},
        {pd45CharDescript, of(50), u"Single line (no breaks, no HTML) text string 0-45 characters        50 / 45"_s, {{45, 5}}},
        {eula, {}, u"Multiple lines (no HTML) text string 0-20000 characters"_s},
        {keywordsView, u"\U0001F600"_s, u"Text string 0-250 characters, comma delimited        2 / 250"_s},
        {supportEmail, u"me@host"_s, u"before"_s, {{0, 7}}},
    };
    for (const Case &each : cases) {
        PadForm form;
        form.text(each.field).setText(each.text);
        form.control(each.field).setHint(u"before"_s);
        checked(form);
        EXPECT_EQ(form.control(each.field).hint(), each.hint);
        EXPECT_EQ(form.text(each.field).redRuns(), each.red) << keyOf(each.field).toStdString();
    }
}

TEST(FieldRules, WhileTyping)
{
    struct Case { int tag; FieldId field; QString typed; QString left; QString hint; QList<ColourRun> red = {}; };
    const QString kept = u"before"_s;
    const Case cases[] = {
        {0, companyName, u"a"_s, u"a"_s, u"Text string 2-40 characters    1/40"_s, {{0, 1}}},
        {2, companyAddress2, of(41), of(41), u"Text string 0-40 characters    41/40"_s, {{40, 1}}},
        {4, companyStateCounty, u"a"_s, u"a"_s, u"Text string 0-30 characters    1/30"_s},
        {5, companyZIPPostcode, u"a"_s, u"a"_s, u"Text string 0-20 characters    1/20"_s},
        {6, companyCountry, u"E1ng2"_s, u"Eng"_s, u"Text string 2-40 alphabetic    3/40"_s},
        {7, companyWebsite, of(71), of(71), u"URL http:// + 2-70 characters    71/70"_s, {{70, 1}}},
        {7, companyWebsite, http + of(71), http + of(71), u"URL http:// + 2-77 characters    78/77"_s, {{77, 1}}},
        {10, authorEmail, u"a @host.com"_s, u"a@host.com"_s, kept, {{0, 1}}},
        {20, salesPhone, u"Tel 12"_s, u" 12"_s, kept},
        {21, programName, u"a"_s, u"a"_s, u"Text string 1-40 characters - NO Version Numbers    1/40"_s},
        {22, programVersion, u"1.0 b-2_c!d"_s, u"1.0 b-2_c"_s, u"Alphanumeric with punctuations (allowed: ._-) 1-15 characters    9/15"_s},
        {23, releaseDateDay, u"x12"_s, u""_s, kept}, {25, releaseDateYear, u"20091"_s, u"2009"_s, kept},
        {26, priceInUSD, u"1..5$6"_s, u"1..5"_s, kept}, {27, otherPrice, of(101, u'1'), of(100, u'1'), kept},
        {29, sizeInBytes, of(17, u'1'), of(16, u'1'), kept}, {30, expireCount, of(16, u'1'), of(15, u'1'), kept},
        {33, expireDateYear, u"2012"_s, u"20"_s, kept},
        {34, expireInfo, of(101), of(101), u"Text string 0-100 characters    101/100"_s, {{100, 1}}},
        {35, appInfoURL, u"http://x"_s, u"http://x"_s, u"URL http:// + 2-120 characters    8/127"_s, {{0, 8}}},
        {36, orderingURL, u"https://xy"_s, u"https://xy"_s, u"URL http:// + 2-120 characters (https:// ok too)    10/128"_s},
        {37, screenshotURL, u"x.bmp"_s, u"x.bmp"_s, u"URL http:// + 2-120 characters with extension gif, jpg, or png    5/120"_s, {{0, 5}}},
        {39, padFileURL, u"x.xml"_s, u"x.xml"_s, u"URL http:// + 2-120 characters with extension xml    5/120"_s},
        {40, primaryDownloadURL, u"ftp://xy"_s, u"ftp://xy"_s, u"URL ftp:// or http:// + 2-120 characters with extension exe, zip, or other    8/126"_s},
        {43, otherDownloadURL2, u"xy"_s, u"xy"_s, u"URL ftp or http:// + 2-120 characters with extension exe, zip, or other    2/120"_s},
        {28, sizeInBytes, u"x"_s, u"x"_s, kept}, {44, eula, u"x"_s, u"x"_s, kept}, {-1, companyName, u"x"_s, u"x"_s, kept},
    };
    for (const Case &each : cases) {
        PadForm form;
        ErrorPass errors;
        form.text(each.field).setText(each.typed);
        form.text(each.field).setEditing(true);
        form.control(each.field).setHint(kept);
        field_rules::textChanged(each.tag, form, errors);
        EXPECT_EQ(form.text(each.field).text(), each.left) << each.tag;
        EXPECT_EQ(form.control(each.field).hint(), each.hint) << each.tag;
        EXPECT_EQ(form.text(each.field).redRuns(), each.red) << each.tag;
        EXPECT_EQ(errors.errors().contains(u"otherPrice"_s), each.tag == 27);
    }
}

TEST(FieldRules, PutDatesInOrderOnLeaving)
{
    const QString release = u"The Program Release Year must be between 1900 and 2199!"_s;
    const QString expiry = u"The Expiry Year must be between 1900 and 2199!"_s;
    struct Case { FieldId field; QString text; QString left; QString alert = {}; };
    const Case cases[] = {
        {releaseDateDay, u"7"_s, u"07"_s}, {releaseDateDay, u"0"_s, u"01"_s}, {releaseDateDay, u"007"_s, u"07"_s},
        {releaseDateDay, u"32"_s, u"31"_s}, {releaseDateMonth, u"13"_s, u"12"_s}, {releaseDateMonth, u"March"_s, u"01"_s},
        {releaseDateYear, u"20091"_s, u"2009"_s}, {releaseDateYear, u"1899"_s, u"2010"_s, release},
        {releaseDateYear, u"1900"_s, u"1900"_s}, {releaseDateYear, u"2199"_s, u"2199"_s},
        {releaseDateYear, u"2200"_s, u"2010"_s, release}, {releaseDateYear, u"x"_s, u"2010"_s, release},
        {expireDateDay, {}, {}}, {expireDateDay, u"5 9"_s, u"09"_s}, {expireDateDay, u"-4"_s, u"01"_s},
        {expireDateMonth, u"x"_s, u"01"_s}, {expireDateMonth, u"13"_s, u"12"_s}, {expireDateYear, {}, {}},
        {expireDateYear, u"20"_s, u"2010"_s, expiry}, {companyName, u" x "_s, u" x "_s},
    };
    for (const Case &each : cases) {
        PadForm form;
        ErrorPass errors;
        errors.setHasError(u"releaseDateDay"_s, u"before"_s);
        form.text(each.field).setText(each.text);
        EXPECT_EQ(field_rules::editingEnded(field_rules::of(each.field).tag, form, errors).toString(), each.alert);
        EXPECT_EQ(form.text(each.field).text(), each.left) << each.text.toStdString();
        EXPECT_EQ(errors.errors().empty(), each.field == releaseDateDay);
    }
}
// clang-format on

TEST(FieldRules, MissAReleaseDateOrVersionOnLeaving)
{
    PadForm form;
    ErrorPass errors;
    const auto leave = [&](FieldId field, const QString &text) {
        form.text(field).setText(text);
        field_rules::editingEnded(field_rules::of(field).tag, form, errors);
        return form.control(field).hintColour();
    };
    for (const FieldId part : {releaseDateDay, releaseDateMonth, releaseDateYear})
        EXPECT_EQ(leave(part, {}), Colour::Red);
    const StringDictionary expected = {{u"releaseDateDay"_s, u"The release day should not be empty."_s},
                                       {u"releaseDateMonth"_s, u"The release month should not be empty."_s},
                                       {u"releaseDateYear"_s, u"The release year should not be empty."_s}};
    EXPECT_EQ(errors.errors(), expected);
    for (const FieldId part : {releaseDateYear, releaseDateDay, releaseDateMonth}) {
        EXPECT_EQ(form.control(part).caption().colour(), Colour::Red);
        EXPECT_EQ(leave(part, u"2009"_s), Colour::Black);
    }
    EXPECT_EQ(form.control(releaseDateDay).caption().colour(), Colour::Black);
    EXPECT_TRUE(errors.errors().empty());
    EXPECT_EQ(leave(programVersion, u" \n"_s), Colour::Red);
    EXPECT_EQ(leave(programVersion, u"1"_s), Colour::Black);
}

TEST(FieldRules, AReleaseDateOutOfRangeIsRedButKeepsItsEntry)
{
    const std::pair<FieldId, QString> cases[] = {{releaseDateDay, u"0"_s},
                                                 {releaseDateDay, u"32"_s},
                                                 {releaseDateMonth, u"May"_s},
                                                 {releaseDateYear, u"1900"_s},
                                                 {releaseDateYear, u"2199"_s}};
    for (const auto &[field, text] : cases) {
        PadForm form;
        fillValidly(form);
        form.text(field).setText(text);
        EXPECT_TRUE(checked(form).empty());
        EXPECT_EQ(form.control(field).hintColour(), Colour::Red);
        EXPECT_EQ(form.control(releaseDateDay).caption().colour(), Colour::Red);
        ErrorPass errors;
        errors.setHasError(keyOf(field), u"before"_s);
        field_rules::checkEntries(form, errors);
        EXPECT_EQ(errors.errors().size(), 1U);
    }
}

TEST(FieldRules, TheSizeFollowsTheBytes)
{
    PadForm form;
    ErrorPass errors;
    for (const QString &bytes : {u"1536000"_s, QString()}) {
        form.text(sizeInBytes).setText(bytes);
        field_rules::textChanged(29, form, errors);
        EXPECT_EQ(form.text(programSizeKB).text(), u"1500 KB"_s);
        EXPECT_EQ(form.text(programSizeMB).text(), u"1.5 MB"_s);
    }
    checked(form);
    EXPECT_EQ(form.text(programSizeKB).text(), u"0 KB"_s);
    EXPECT_EQ(form.text(programSizeMB).text(), u"0.0 MB"_s);
}

TEST(FieldRules, JudgingAgainChangesNothing)
{
    PadForm form;
    form.text(eula).setText(of(20001));
    form.text(authorEmail).setText(u"a b"_s);
    const StringDictionary errors = checked(form);
    int changes = 0;
    for (const PadField &field : padFields) {
        const Control &control = form.control(field.id);
        QObject::connect(&control, &Control::changed, &form, [&changes] { ++changes; });
        QObject::connect(&control.caption(), &Caption::changed, &form, [&changes] { ++changes; });
    }
    EXPECT_EQ(checked(form), errors);
    EXPECT_EQ(changes, 0);
}

TEST(FieldRules, RealFilesKeepTheirErrorsWhenWrittenAnew)
{
    const QStringList files = names(QStringLiteral(QUILLON_REAL_PADS));
    if (files.isEmpty())
        GTEST_SKIP() << "no PAD files beside the checkout";
    qsizetype valid = 0;
    for (const QString &file : files) {
        PadForm form;
        loadPADData(contents(QStringLiteral(QUILLON_REAL_PADS "/") + file), form);
        const StringDictionary errors = checked(form);
        PadForm again;
        loadPADData(pad_writer::document(form), again);
        EXPECT_EQ(checked(again), errors) << file.toStdString();
        valid += errors.empty() ? 1 : 0;
    }
    EXPECT_GT(valid, 0);
    EXPECT_LT(valid, files.size());
}

TEST(FieldRules, TheWorkOfTheFullCheckGrowsWithTheTexts)
{
    const double growth = growthOfEightfold(20'000, [](qsizetype count) {
        PadForm form;
        for (const PadField &field : padFields) {
            if (field.kind == FieldKind::Text || field.kind == FieldKind::MultiLine)
                form.text(field.id).setText(u"a@b."_s.repeated(count));
        }
        EXPECT_FALSE(checked(form).empty());
    });
    EXPECT_LT(growth, tolerableGrowth);
}
