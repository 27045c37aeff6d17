#include "validation/field_rule_table.h"

#include <algorithm>

namespace quillon::field_rules {

namespace {

using Filter = TypingRule::Filter;
using Check = TypingRule::Check;
using Leaving = LeavingRule::Kind;
using Summary = SummaryRule::Kind;
using enum FieldId;

constexpr QStringView httpOnly[] = {u"http://"};
constexpr QStringView httpAndHttps[] = {u"http://", u"https://"};
constexpr QStringView httpAndFtp[] = {u"http://", u"ftp://"};
constexpr QStringView imageEndings[] = {u".gif", u".jpg", u".png"};
constexpr QStringView padEndings[] = {u".xml"};

// Hints that several fields share.
constexpr QStringView text2to30 = u"Text string 2-30 characters";
constexpr QStringView text2to40 = u"Text string 2-40 characters";
constexpr QStringView text0to40 = u"Text string 0-40 characters";
constexpr QStringView phone7to40 = u"Numeric with punctuations 7 - 40 characters";
constexpr QStringView text0to100 = u"Text string 0-100 characters";
constexpr QStringView programName1to40 = u"Text string 1-40 characters - NO Version Numbers";
constexpr QStringView website70 = u"URL http:// + 2-70 characters";
constexpr QStringView webUrl = u"URL http:// + 2-120 characters";
constexpr QStringView imageUrl = u"URL http:// + 2-120 characters with extension gif, jpg, or png";
constexpr QStringView padUrl = u"URL http:// + 2-120 characters with extension xml";
constexpr QStringView orderUrl = u"URL http:// + 2-120 characters (https:// ok too)";
constexpr QStringView downloadUrl =
    u"URL ftp or http:// + 2-120 characters with extension exe, zip, or other";

// Typing rules.

constexpr TypingRule counted(Bounds bounds, QStringView hint, Filter filter = Filter::None)
{
    return {.filter = filter, .check = Check::Count, .bounds = bounds, .hint = hint};
}

constexpr TypingRule digits(int most, Check check = Check::None)
{
    return {.filter = Filter::Digits, .maxLength = most, .check = check};
}

constexpr TypingRule price(Check check = Check::None)
{
    return {.filter = Filter::DigitsAndPoints, .maxLength = 100, .check = check};
}

constexpr TypingRule typedWebAddress(QStringView hint, Words prefixes, Words endings = {})
{
    return {.check = Check::WebAddress,
            .bounds = {2, 120},
            .hint = hint,
            .prefixes = prefixes,
            .endings = endings};
}

constexpr TypingRule typedEmail = {.check = Check::Email};
constexpr TypingRule typedWebsite = {.check = Check::Website,
                                     .bounds = {2, 70},
                                     .hint = website70,
                                     .prefixedHint = u"URL http:// + 2-77 characters",
                                     .prefixes = httpOnly};
constexpr TypingRule typedPhone = {.check = Check::Phone, .bounds = {7, 40}};

// Summary rules.

constexpr SummaryRule required(Bounds bounds, QStringView hint, QStringView tooShort, QStringView tooLong)
{
    return {
        .kind = Summary::Length, .bounds = bounds, .hint = hint, .tooShort = tooShort, .tooLong = tooLong};
}

constexpr SummaryRule atMost(int max, QStringView hint, QStringView tooLong)
{
    return {.kind = Summary::Length, .bounds = {0, max}, .hint = hint, .tooLong = tooLong};
}

constexpr SummaryRule phone(QStringView tooShort, QStringView tooLong)
{
    return {.kind = Summary::Length,
            .bounds = {7, 40},
            .emptyAllowed = true,
            .hint = phone7to40,
            .tooShort = tooShort,
            .tooLong = tooLong};
}

constexpr SummaryRule email(QStringView unfit)
{
    return {.kind = Summary::Email, .unfit = unfit};
}

/// An empty address is told by the text for a long one: it is the only one that these fields have.
constexpr SummaryRule webAddress(QStringView hint, Words prefixes, QStringView tooLong, Words endings = {},
                                 QStringView unfit = {})
{
    return {.kind = Summary::WebAddress,
            .bounds = {0, 120},
            .hint = hint,
            .tooShort = tooLong,
            .tooLong = tooLong,
            .unfit = unfit,
            .prefixes = prefixes,
            .endings = endings};
}

constexpr SummaryRule optionalWebAddress(QStringView hint, Words prefixes, QStringView tooLong)
{
    SummaryRule rule = webAddress(hint, prefixes, tooLong);
    rule.emptyAllowed = true;
    return rule;
}

constexpr SummaryRule releaseDate(Bounds bounds, QStringView empty)
{
    return {.kind = Summary::ReleaseDate, .bounds = bounds, .tooShort = empty};
}

constexpr SummaryRule expireDate(Bounds bounds, QStringView unfit)
{
    return {.kind = Summary::ExpireDate, .bounds = bounds, .unfit = unfit};
}

/// A kind of rule that has nothing of its own but a text for what is missing.
constexpr SummaryRule needed(Summary kind, QStringView missing)
{
    return {.kind = kind, .tooShort = missing};
}

} // namespace

// A row: the field, its tag, what happens while it is typed, what when it is left, and how the full check
// judges it. The texts are kept to the letter, typing errors included.
// clang-format off
constexpr std::array<FieldRule, fieldCount> table = {{
    {authorFirstName, 8, counted({2, 30}, text2to30), {},
     required({2, 30}, text2to30, u"The author first name is too short.", u"The author first name is too long.")},
    {authorLastName, 9, counted({2, 30}, text2to30), {},
     required({2, 30}, text2to30, u"The author last name is too short.", u"The author last name is too long.")},
    // The e-mail texts speak of an empty address whatever is wrong with it.
    {authorEmail, 10, typedEmail, {}, email(u"The authors email address is empty.")},
    {contactFirstName, 11, counted({2, 30}, text2to30), {},
     required({2, 30}, text2to30, u"The contact first name is too short.", u"The contact first name is too long.")},
    {contactLastName, 12, counted({2, 30}, text2to30), {},
     required({2, 30}, text2to30, u"The contact last name is too short.", u"The contact last name is too long.")},
    {contactEmail, 13, typedEmail, {}, email(u"The contact email address is empty.")},
    {companyName, 0, counted({2, 40}, text2to40), {},
     required({2, 40}, text2to40, u"The company name is too short.", u"The company name is too long.")},
    {companyAddress, 1, counted({0, 40}, text0to40), {},
     atMost(40, text0to40, u"The company address is too long.")},
    {companyAddress2, 2, counted({0, 40}, text0to40), {},
     atMost(40, text0to40, u"The company address line two is too long.")},
    {companyCityTown, 3, counted({2, 40}, text2to40), {},
     required({2, 40}, text2to40, u"The company city/town is too short.", u"The company city/town is too long.")},
    {companyStateCounty, 4, counted({0, 30}, u"Text string 0-30 characters"), {},
     atMost(30, {}, u"The company state/county is too long.")},
    {companyZIPPostcode, 5, counted({0, 20}, u"Text string 0-20 characters"), {},
     atMost(20, {}, u"The company zip/postcode is too long.")},
    // The contact's texts stand under the country's key: kept on purpose.
    {companyCountry, 6, counted({2, 40}, u"Text string 2-40 alphabetic", Filter::WithoutDigits), {},
     required({2, 40}, text2to40, u"The contact first name is too short.", u"The contact first name is too long.")},
    // Typing warns from 70 on, the full check lets 120 pass: kept on purpose.
    {companyWebsite, 7, typedWebsite, {},
     {.kind = Summary::Length, .bounds = {0, 120}, .hint = website70,
      .tooLong = u"The company website address is too long.", .prefixes = httpOnly}},
    {generalEmail, 14, typedEmail, {}, email(u"The general email address should not be empty.")},
    {generalPhone, 15, typedPhone, {},
     phone(u"The general phone number is too short.", u"The general phone number is too long.")},
    {generalFax, 16, typedPhone, {},
     phone(u"The general fax number is too short.", u"The general fax number is too long.")},
    {supportEmail, 17, typedEmail, {}, email(u"The support email address should noy be empty.")}, // "noy": kept
    {supportPhone, 18, typedPhone, {},
     phone(u"The support phone number is too short.", u"The support phone number is too long.")},
    {salesEmail, 19, typedEmail, {}, email(u"The sales email should not eb empty.")}, // "eb": kept
    {salesPhone, 20, typedPhone, {},
     phone(u"The sales phone number is too short.", u"The sales phone number is too long.")},

    {programName, 21, counted({1, 40}, programName1to40), {},
     required({1, 40}, programName1to40, u"The program name is too short.", u"The program name is too long.")},
    {programVersion, 22, counted({1, 15}, u"Alphanumeric with punctuations (allowed: ._-) 1-15 characters", Filter::VersionCharacters),
     {Leaving::Version},
     required({1, 15}, {}, u"The program version number is too short.", u"The program version number is too long.")},
    {releaseDateDay, 23, digits(2), {Leaving::ReleaseDate, 31},
     releaseDate({1, 31}, u"The program release day should not be empty.")},
    // The full check lets a month pass up to 31, leaving the field makes it 12 at most: kept on purpose.
    {releaseDateMonth, 24, digits(2), {Leaving::ReleaseDate, 12},
     releaseDate({1, 31}, u"The program release month should not be empty.")},
    {releaseDateYear, 25, digits(4), {Leaving::ReleaseYear, 0, u"The Program Release Year must be between 1900 and 2199!"},
     releaseDate({1901, 2198}, u"The program release year should not be empty.")},
    {priceInUSD, 26, price(), {}, atMost(100, {}, u"The price in USD is too long.")},
    {otherPrice, 27, price(Check::OtherPrice), {},
     {.kind = Summary::OtherPrice, .bounds = {0, 99}, .unfit = u"You need to select a currency for the other price."}},
    {sizeInBytes, 29, digits(16, Check::Size), {},
     needed(Summary::Size, u"The size in bytes field should not be empty.")},
    {expireCount, 30, digits(15), {},
     {.kind = Summary::ExpireCount, .bounds = {1, 14},
      .tooShort = u"The expire count should not be empty.",
      .tooLong = u"The expire count is too long.",
      .unfit = u"The expire count has been set without checking the 'Has Expire Information' checkbox."}},
    {expireDateDay, 31, digits(2), {Leaving::ExpireDate, 31},
     expireDate({1, 31}, u"The program expire day is too long.")},
    {expireDateMonth, 32, digits(2), {Leaving::ExpireDate, 12}, // Up to 31 like the release month.
     expireDate({1, 31}, u"The program expire month is too long.")},
    // Typing leaves two digits of a year, and leaving the field then makes it 2010, with the alert: kept on purpose.
    {expireDateYear, 33, digits(2), {Leaving::ExpireYear, 0, u"The Expiry Year must be between 1900 and 2199!"},
     expireDate({1901, 2198}, u"The program expire year is invalid.")},
    {expireInfo, 34, counted({0, 100}, text0to100), {},
     atMost(100, text0to100, u"The expire information is too long.")},
    {programSizeKB, noTag},
    {programSizeMB, noTag},
    {otherPricePopUp, noTag}, // Judged with the price.
    {installSupportPopUp, noTag, {}, {}, needed(Summary::Choice, u"Install support should not be empty.")},
    {programTypePopUp, noTag, {}, {}, needed(Summary::Choice, u"A program type should be selected.")},
    {programStatusPopUp, noTag, {}, {}, needed(Summary::Choice, u"A program status should be selected.")},
    {expireBasePopUp, noTag, {}, {},
     {.kind = Summary::ExpireBase, .tooShort = u"You need to select an expire base.",
      .unfit = u"An expire base has been set without checking the 'Has Expire Information' checkbox."}},
    {categoryPopUp, noTag, {}, {}, needed(Summary::Choice, u"A program category should be selected.")},
    {expireCheckBox, noTag, {}, {}, {Summary::ExpireTitle}},
    {changeInformationView, noTag, {}, {},
     atMost(300, u"Text string 0-300 characters", u"The change information is too long.")},
    {requirementsView, noTag, {}, {}, atMost(100, text0to100, u"The program requirements are too long.")},
    {languageTable, noTag, {}, {}, needed(Summary::Ticked, u"No supported languages have been selected.")},
    {osTable, noTag, {}, {}, needed(Summary::Ticked, u"No supported operating systems have been selected.")},

    // "characker": kept, in all five.
    {keywordsView, noTag, {}, {},
     atMost(250, u"Text string 0-250 characters, comma delimited", u"The keywords are too long.")},
    {pd45CharDescript, noTag, {}, {},
     atMost(45, u"Single line (no breaks, no HTML) text string 0-45 characters", u"The 45 characker description is too long.")},
    {pd80CharDescript, noTag, {}, {},
     atMost(80, u"Single line (no breaks, no HTML) text string 0-80 characters", u"The 80 characker description is too long.")},
    {pd250CharDescript, noTag, {}, {},
     atMost(250, u"Single line (no breaks, no HTML) text string 0-250 characters", u"The 250 characker description is too long.")},
    {pd450CharDescript, noTag, {}, {},
     atMost(450, u"Single line (no breaks, no HTML) text string 0-450 characters", u"The 450 characker description is too long.")},
    {pd2000CharDescript, noTag, {}, {},
     atMost(2000, u"Multiple lines (no HTML) text string 0-2000 characters", u"The 2000 characker description is too long.")},

    {appInfoURL, 35, typedWebAddress(webUrl, httpOnly), {},
     webAddress(webUrl, httpOnly, u"The application information url is too long.")},
    {orderingURL, 36, typedWebAddress(orderUrl, httpAndHttps), {},
     optionalWebAddress(orderUrl, httpAndHttps, u"The ordering url is too long.")},
    {screenshotURL, 37, typedWebAddress(imageUrl, httpOnly, imageEndings), {},
     webAddress(imageUrl, httpOnly, u"The screenshot url is too long.", imageEndings, u"The screenshot url must end in .gif .jpg or .png")},
    {iconURL, 38, typedWebAddress(imageUrl, httpOnly, imageEndings), {},
     webAddress(imageUrl, httpOnly, u"The icon url is too long.", imageEndings, u"The icon url must end in .gif .jpg or .png")},
    {padFileURL, 39, typedWebAddress(padUrl, httpOnly, padEndings), {},
     webAddress(padUrl, httpOnly, u"The PAD file url is too long.", padEndings, u"The PAD file url must end in .xml")},
    {primaryDownloadURL, 40, typedWebAddress(u"URL ftp:// or http:// + 2-120 characters with extension exe, zip, or other", httpAndFtp), {},
     webAddress(downloadUrl, httpAndFtp, u"The primary download url is too long.")},
    {secondaryDownloadURL, 41, typedWebAddress(downloadUrl, httpAndFtp), {},
     optionalWebAddress(downloadUrl, httpAndFtp, u"The secondary download url is too long.")},
    {otherDownloadURL1, 42, typedWebAddress(downloadUrl, httpAndFtp), {},
     optionalWebAddress(downloadUrl, httpAndFtp, u"The other download url one is too long.")},
    {otherDownloadURL2, 43, typedWebAddress(downloadUrl, httpAndFtp), {},
     optionalWebAddress(downloadUrl, httpAndFtp, u"The other download url two is too long.")},

    {distributionPermissions, noTag, {}, {},
     atMost(2000, u"Multiple lines (no HTML) text string 0-2000 characters", u"The distribution permissions are too long.")},
    {eula, noTag, {}, {},
     atMost(20000, u"Multiple lines (no HTML) text string 0-20000 characters", u"The end user license agreement is too long.")},
}};
// clang-format on

static_assert(isInOrder(table, &FieldRule::field));

static_assert(std::ranges::none_of(table, [](const FieldRule &rule) {
    const auto hasItsTag = [&rule](const FieldRule &each) { return each.tag == rule.tag; };
    return rule.tag != noTag && std::ranges::count_if(table, hasItsTag) > 1;
}));

} // namespace quillon::field_rules
