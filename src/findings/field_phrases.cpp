#include "findings/field_phrases.h"

#include <algorithm>

namespace quillon::field_phrases {

namespace {

// In the order of the catalogue.
constexpr std::array<QStringView, fieldCount> phrases = {
    u"author's first name",
    u"author's last name",
    u"author's e-mail address",
    u"contact's first name",
    u"contact's last name",
    u"contact's e-mail address",
    u"company name",
    u"first line of the company's address",
    u"second line of the company's address",
    u"city or town",
    u"state or county",
    u"ZIP or postcode",
    u"country",
    u"company's website",
    u"general e-mail address",
    u"general phone number",
    u"fax number",
    u"support e-mail address",
    u"support phone number",
    u"sales e-mail address",
    u"sales phone number",
    u"program name",
    u"program version",
    u"day of the release date",
    u"month of the release date",
    u"year of the release date",
    u"price in USD",
    u"price in another currency",
    u"size in bytes",
    u"expire count",
    u"day of the expire date",
    u"month of the expire date",
    u"year of the expire date",
    u"other expire information",
    u"size in kilobytes",
    u"size in megabytes",
    u"currency of the other price",
    u"install support",
    u"program type",
    u"release status",
    u"expire base",
    u"category",
    u"box “Program Has Expire Information”",
    u"change information",
    u"system requirements",
    u"language",
    u"operating system",
    u"keywords",
    u"description of 45 characters",
    u"description of 80 characters",
    u"description of 250 characters",
    u"description of 450 characters",
    u"description of 2000 characters",
    u"address of the application information",
    u"ordering address",
    u"screenshot address",
    u"icon address",
    u"address of the PAD file",
    u"primary download address",
    u"secondary download address",
    u"first of the other download addresses",
    u"second of the other download addresses",
    u"distribution permissions",
    u"end user licence agreement",
};

constexpr FieldId plurals[] = {FieldId::requirementsView, FieldId::keywordsView,
                               FieldId::distributionPermissions};

} // namespace

QStringView of(FieldId field)
{
    return phrases[size_t(field)];
}

bool isPlural(FieldId field)
{
    return std::ranges::find(plurals, field) != std::end(plurals);
}

} // namespace quillon::field_phrases
