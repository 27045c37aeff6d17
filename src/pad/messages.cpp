#include "pad/messages.h"

namespace quillon {

namespace {

struct FieldMessages
{
    QStringView key;
    QStringView empty;
    QStringView over;
    QStringView under;
};

// For the choice fields "too long" and "too short" report that nothing was chosen.
// clang-format off
constexpr FieldMessages fieldMessages[] = {
    {u"companyName", u"The company name should not be empty.",
     u"The company name is too long.",
     u"The company name is too short."},
    {u"companyCityTown", u"The company city/town should not be empty.",
     u"The company city/town is too long.",
     u"The company city/town is too short."},
    {u"companyCountry", u"The company country should not be empty.",
     u"The company country is too long.",
     u"The company country is too short."},
    {u"companyWebsite", u"The company website address should not be empty.",
     u"The company website address is too long.",
     u"The company website address is too short."},
    {u"authorFirstName", u"The authors first name should not be empty.",
     u"The authors first name is too long.",
     u"The authors first name is too short."},
    {u"authorLastName", u"The authors last name should not be empty.",
     u"The authors last name is too long.",
     u"The authors last name is too short."},
    {u"authorEmail", u"The authors email address is empty.",
     u"The authors email address is invalid.",
     u"The authors email address is invalid."},
    {u"contactFirstName", u"The contacts first name should not be empty.",
     u"The contacts first name is too long.",
     u"The contacts first name is too short."},
    {u"contactLastName", u"The contacts last name should not be empty.",
     u"The contacts last name is too long.",
     u"The contacts last name is too short."},
    {u"contactEmail", u"The contacts email address should not be empty.",
     u"The contacts email address is invalid.",
     u"The contacts email address is invalid."},
    {u"generalEmail", u"The general email address should not be empty.",
     u"The general email address is invalid.",
     u"The general email address is invalid."},
    {u"supportEmail", u"The support email address should not be empty.",
     u"The support email address is invalid.",
     u"The support email address is invalid."},
    {u"salesEmail", u"The sales email address should not be empty.",
     u"The sales email address is invalid.",
     u"The sales email address is not valid."},
    {u"programName", u"The program name should not be empty.",
     u"The program name is too long.",
     u"The program name is too short."},
    {u"programVersion", u"The program version should not be empty.",
     u"The program version is too long.",
     u"The program version is too short."},
    {u"programReleaseMonth", u"The release month should not be empty.",
     u"The release month is too long.",
     u"The release month is too short."},
    {u"programReleaseDay", u"The release day should not be empty.",
     u"The release day is too long.",
     u"The release day is too short."},
    {u"programReleaseYear", u"The release year should not be empty.",
     u"The release year is too long.",
     u"The release year is too short."},
    {u"programType", u"No program type has been set.",
     u"No program type has been set.",
     u"No program type has been set."},
    {u"programStatus", u"The program status has not been set.",
     u"The program status has not been set.",
     u"The program status has not been set."},
    {u"programInstall", u"The program install support has not been set.",
     u"The program install support has not been set.",
     u"The program install support has not been set."},
    {u"programOS", u"No supported operating systems have been set.",
     u"No supported operating systems have been set.",
     u"No supported operating systems have been set."},
    {u"programLanguage", u"No supported languages have been set.",
     u"No supported languages have been set.",
     u"No supported languages have been set."},
    {u"programSizeBytes", u"The program size in bytes is empty.",
     u"The program size in bytes is empty.",
     u"The program size in bytes is empty."},
    {u"programCategory", u"The program category has not been selected.",
     u"The program category has not been selected.",
     u"The program category has not been selected."},
    {u"applicationInfoURL", u"There application information url should not be empty.",
     u"There application information url is too long.",
     u"There application information url is too short."},
    {u"orderingURL", u"The ordering url should not be empty.",
     u"The ordering url is too long.",
     u"The ordering url is too short."},
    {u"screenshotURL", u"The screenshot url should not be empty.",
     u"The screenshot url is too long.",
     u"The screenshot url is too short."},
    {u"iconURL", u"The icon url should end with .gif .jpg or .png",
     u"The icon url is too long",
     u"The icon url is too short"},
    {u"padFileURL", u"The PAD File url should end with .xml",
     u"The PAD File url is too long",
     u"The PAD File url is too short"},
    {u"primaryDownloadURL", u"The primary download url should not be empty.",
     u"The primary download url is too long.",
     u"The primary download url is too short."},
    {u"companyAddress", u"",
     u"The company address is too long.",
     u""},
    {u"companyAddress2", u"",
     u"The company address line 2 is too long.",
     u""},
    {u"companyStateCounty", u"",
     u"The company state/county is too long.",
     u""},
    {u"companyZIPPostcode", u"",
     u"The company zip/postcode is too long.",
     u""},
    {u"generalPhone", u"",
     u"The general phone number is too long.",
     u"The general phone number is too short."},
    {u"generalFax", u"",
     u"The general fax number is too long.",
     u"The general fax number is too short."},
    {u"supportPhone", u"",
     u"The support phone number is too long.",
     u"The support phone number is too short."},
    {u"salesPhone", u"",
     u"The sales phone number is too long.",
     u"The sales phone number is too short."},
};
// clang-format on

MessageDictionary dictionaryOf(QStringView FieldMessages::*message)
{
    MessageDictionary dictionary;
    for (const FieldMessages &messages : fieldMessages)
        dictionary.insert(messages.key.toString(), (messages.*message).toString());
    return dictionary;
}

} // namespace

const MessageDictionary &mwqnErrorMessagesEmpty()
{
    static const MessageDictionary dictionary = dictionaryOf(&FieldMessages::empty);
    return dictionary;
}

const MessageDictionary &mwqnErrorMessagesOver()
{
    static const MessageDictionary dictionary = dictionaryOf(&FieldMessages::over);
    return dictionary;
}

const MessageDictionary &mwqnErrorMessagesUnder()
{
    static const MessageDictionary dictionary = dictionaryOf(&FieldMessages::under);
    return dictionary;
}

} // namespace quillon
