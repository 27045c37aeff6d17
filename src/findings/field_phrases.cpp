#include "findings/field_phrases.h"

#include <algorithm>

namespace quillon::field_phrases {

namespace {

struct Phrase
{
    FieldId field;
    QStringView text;
};

constexpr std::array<Phrase, fieldCount> phrases = {{
    {FieldId::authorFirstName, u"author's first name"},
    {FieldId::authorLastName, u"author's last name"},
    {FieldId::authorEmail, u"author's e-mail address"},
    {FieldId::contactFirstName, u"contact's first name"},
    {FieldId::contactLastName, u"contact's last name"},
    {FieldId::contactEmail, u"contact's e-mail address"},
    {FieldId::companyName, u"company name"},
    {FieldId::companyAddress, u"first line of the company's address"},
    {FieldId::companyAddress2, u"second line of the company's address"},
    {FieldId::companyCityTown, u"city or town"},
    {FieldId::companyStateCounty, u"state or county"},
    {FieldId::companyZIPPostcode, u"ZIP or postcode"},
    {FieldId::companyCountry, u"country"},
    {FieldId::companyWebsite, u"company's website"},
    {FieldId::generalEmail, u"general e-mail address"},
    {FieldId::generalPhone, u"general phone number"},
    {FieldId::generalFax, u"fax number"},
    {FieldId::supportEmail, u"support e-mail address"},
    {FieldId::supportPhone, u"support phone number"},
    {FieldId::salesEmail, u"sales e-mail address"},
    {FieldId::salesPhone, u"sales phone number"},
    {FieldId::programName, u"program name"},
    {FieldId::programVersion, u"program version"},
    {FieldId::releaseDateDay, u"day of the release date"},
    {FieldId::releaseDateMonth, u"month of the release date"},
    {FieldId::releaseDateYear, u"year of the release date"},
    {FieldId::priceInUSD, u"price in USD"},
    {FieldId::otherPrice, u"price in another currency"},
    {FieldId::sizeInBytes, u"size in bytes"},
    {FieldId::expireCount, u"expire count"},
    {FieldId::expireDateDay, u"day of the expire date"},
    {FieldId::expireDateMonth, u"month of the expire date"},
    {FieldId::expireDateYear, u"year of the expire date"},
    {FieldId::expireInfo, u"other expire information"},
    {FieldId::programSizeKB, u"size in kilobytes"},
    {FieldId::programSizeMB, u"size in megabytes"},
    {FieldId::otherPricePopUp, u"currency of the other price"},
    {FieldId::installSupportPopUp, u"install support"},
    {FieldId::programTypePopUp, u"program type"},
    {FieldId::programStatusPopUp, u"release status"},
    {FieldId::expireBasePopUp, u"expire base"},
    {FieldId::categoryPopUp, u"category"},
    {FieldId::expireCheckBox, u"box “Program Has Expire Information”"},
    {FieldId::changeInformationView, u"change information"},
    {FieldId::requirementsView, u"system requirements"},
    {FieldId::languageTable, u"language"},
    {FieldId::osTable, u"operating system"},
    {FieldId::keywordsView, u"keywords"},
    {FieldId::pd45CharDescript, u"description of 45 characters"},
    {FieldId::pd80CharDescript, u"description of 80 characters"},
    {FieldId::pd250CharDescript, u"description of 250 characters"},
    {FieldId::pd450CharDescript, u"description of 450 characters"},
    {FieldId::pd2000CharDescript, u"description of 2000 characters"},
    {FieldId::appInfoURL, u"address of the application information"},
    {FieldId::orderingURL, u"ordering address"},
    {FieldId::screenshotURL, u"screenshot address"},
    {FieldId::iconURL, u"icon address"},
    {FieldId::padFileURL, u"address of the PAD file"},
    {FieldId::primaryDownloadURL, u"primary download address"},
    {FieldId::secondaryDownloadURL, u"secondary download address"},
    {FieldId::otherDownloadURL1, u"first of the other download addresses"},
    {FieldId::otherDownloadURL2, u"second of the other download addresses"},
    {FieldId::distributionPermissions, u"distribution permissions"},
    {FieldId::eula, u"end user licence agreement"},
}};

static_assert(isInOrder(phrases, &Phrase::field));

constexpr FieldId plurals[] = {FieldId::requirementsView, FieldId::keywordsView,
                               FieldId::distributionPermissions};

} // namespace

QStringView of(FieldId field)
{
    return phrases[size_t(field)].text;
}

bool isPlural(FieldId field)
{
    return std::ranges::find(plurals, field) != std::end(plurals);
}

} // namespace quillon::field_phrases
