#include "editor/editor_layout.h"

#include "editor/editor_pages.h"
#include "platform/translated_text.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

using F = FieldId;

// clang-format off
const QList<FieldGroup> company = {
    {QUILLON_TR_NOOP("EditorLayout", "Author"), 0, {
        {QUILLON_TR_NOOP("EditorLayout", "Author first name"), F::authorFirstName},
        {QUILLON_TR_NOOP("EditorLayout", "Author last name"), F::authorLastName},
        {QUILLON_TR_NOOP("EditorLayout", "Author e-mail"), F::authorEmail}}},
    {QUILLON_TR_NOOP("EditorLayout", "Contact"), 0, {
        {QUILLON_TR_NOOP("EditorLayout", "Contact first name"), F::contactFirstName},
        {QUILLON_TR_NOOP("EditorLayout", "Contact last name"), F::contactLastName},
        {QUILLON_TR_NOOP("EditorLayout", "Contact e-mail"), F::contactEmail}}},
    {QUILLON_TR_NOOP("EditorLayout", "Company"), 1, {
        {QUILLON_TR_NOOP("EditorLayout", "Company name"), F::companyName},
        {QUILLON_TR_NOOP("EditorLayout", "Address"), F::companyAddress},
        {QUILLON_TR_NOOP("EditorLayout", "Address line 2"), F::companyAddress2},
        {QUILLON_TR_NOOP("EditorLayout", "City/Town"), F::companyCityTown},
        {QUILLON_TR_NOOP("EditorLayout", "State/County"), F::companyStateCounty},
        {QUILLON_TR_NOOP("EditorLayout", "ZIP/Postcode"), F::companyZIPPostcode},
        {QUILLON_TR_NOOP("EditorLayout", "Country"), F::companyCountry},
        {QUILLON_TR_NOOP("EditorLayout", "Website"), F::companyWebsite}}},
    {QUILLON_TR_NOOP("EditorLayout", "Support"), 2, {
        {QUILLON_TR_NOOP("EditorLayout", "General e-mail"), F::generalEmail},
        {QUILLON_TR_NOOP("EditorLayout", "General phone"), F::generalPhone},
        {QUILLON_TR_NOOP("EditorLayout", "Fax"), F::generalFax},
        {QUILLON_TR_NOOP("EditorLayout", "Support e-mail"), F::supportEmail},
        {QUILLON_TR_NOOP("EditorLayout", "Support phone"), F::supportPhone},
        {QUILLON_TR_NOOP("EditorLayout", "Sales e-mail"), F::salesEmail},
        {QUILLON_TR_NOOP("EditorLayout", "Sales phone"), F::salesPhone}}},
};

const QList<FieldGroup> program = {
    {QUILLON_TR_NOOP("EditorLayout", "Program"), 0, {
        {QUILLON_TR_NOOP("EditorLayout", "Program name"), F::programName},
        {QUILLON_TR_NOOP("EditorLayout", "Program version"), F::programVersion},
        {QUILLON_TR_NOOP("EditorLayout", "Release date (day, month, year)"), F::releaseDateDay, 1, F::releaseDateMonth, F::releaseDateYear},
        {QUILLON_TR_NOOP("EditorLayout", "Program type"), F::programTypePopUp},
        {QUILLON_TR_NOOP("EditorLayout", "Release status"), F::programStatusPopUp},
        {QUILLON_TR_NOOP("EditorLayout", "Install support"), F::installSupportPopUp},
        {QUILLON_TR_NOOP("EditorLayout", "Category"), F::categoryPopUp}}},
    {QUILLON_TR_NOOP("EditorLayout", "Price and size"), 0, {
        {QUILLON_TR_NOOP("EditorLayout", "Price in USD"), F::priceInUSD},
        {QUILLON_TR_NOOP("EditorLayout", "Other price (amount, currency)"), F::otherPrice, 1, F::otherPricePopUp},
        {QUILLON_TR_NOOP("EditorLayout", "Size in bytes"), F::sizeInBytes, 1, F::programSizeKB, F::programSizeMB}}},
    {QUILLON_TR_NOOP("EditorLayout", "Expiry"), 1, {
        {u"", F::expireCheckBox},
        {QUILLON_TR_NOOP("EditorLayout", "Expire count"), F::expireCount},
        {QUILLON_TR_NOOP("EditorLayout", "Expire based on"), F::expireBasePopUp},
        {QUILLON_TR_NOOP("EditorLayout", "Expire date (day, month, year)"), F::expireDateDay, 1, F::expireDateMonth, F::expireDateYear},
        {QUILLON_TR_NOOP("EditorLayout", "Other expire information"), F::expireInfo}}},
    {QUILLON_TR_NOOP("EditorLayout", "Texts"), 1, {
        {QUILLON_TR_NOOP("EditorLayout", "Change information"), F::changeInformationView, 5},
        {QUILLON_TR_NOOP("EditorLayout", "System requirements"), F::requirementsView, 3}}},
    {u"", 2, {
        {QUILLON_TR_NOOP("EditorLayout", "Operating Systems"), F::osTable}}, 1},
    {u"", 3, {
        {QUILLON_TR_NOOP("EditorLayout", "Supported Languages"), F::languageTable}}, 1},
};

const QList<FieldGroup> descriptions = {
    {u"", 0, {
        {QUILLON_TR_NOOP("EditorLayout", "Keywords"), F::keywordsView, 3},
        {QUILLON_TR_NOOP("EditorLayout", "Description of 45 characters"), F::pd45CharDescript, 2},
        {QUILLON_TR_NOOP("EditorLayout", "Description of 80 characters"), F::pd80CharDescript, 2},
        {QUILLON_TR_NOOP("EditorLayout", "Description of 250 characters"), F::pd250CharDescript, 5}}},
    {u"", 1, {
        {QUILLON_TR_NOOP("EditorLayout", "Description of 450 characters"), F::pd450CharDescript, 6},
        {QUILLON_TR_NOOP("EditorLayout", "Description of 2000 characters"), F::pd2000CharDescript, 12}}},
};

const QList<FieldGroup> web = {
    {QUILLON_TR_NOOP("EditorLayout", "Application"), 0, {
        {QUILLON_TR_NOOP("EditorLayout", "Application information"), F::appInfoURL},
        {QUILLON_TR_NOOP("EditorLayout", "Ordering"), F::orderingURL},
        {QUILLON_TR_NOOP("EditorLayout", "Screenshot"), F::screenshotURL},
        {QUILLON_TR_NOOP("EditorLayout", "Icon"), F::iconURL},
        {QUILLON_TR_NOOP("EditorLayout", "PAD file"), F::padFileURL}}},
    {QUILLON_TR_NOOP("EditorLayout", "Download"), 1, {
        {QUILLON_TR_NOOP("EditorLayout", "Primary download"), F::primaryDownloadURL},
        {QUILLON_TR_NOOP("EditorLayout", "Secondary download"), F::secondaryDownloadURL},
        {QUILLON_TR_NOOP("EditorLayout", "Other download 1"), F::otherDownloadURL1},
        {QUILLON_TR_NOOP("EditorLayout", "Other download 2"), F::otherDownloadURL2}}},
};

const QList<FieldGroup> permissions = {
    {u"", 0, {{QUILLON_TR_NOOP("EditorLayout", "Distribution permissions"), F::distributionPermissions, 20}}},
    {u"", 1, {{QUILLON_TR_NOOP("EditorLayout", "End user licence agreement"), F::eula, 20}}},
};
// clang-format on

/// Fields that stand beside another one, or without a caption, by what they are called aloud.
const QHash<FieldId, QStringView> &ownNames()
{
    static const QHash<FieldId, QStringView> names = {
        {F::releaseDateDay, QUILLON_TR_NOOP("EditorLayout", "Release date, day")},
        {F::releaseDateMonth, QUILLON_TR_NOOP("EditorLayout", "Release date, month")},
        {F::releaseDateYear, QUILLON_TR_NOOP("EditorLayout", "Release date, year")},
        {F::expireDateDay, QUILLON_TR_NOOP("EditorLayout", "Expire date, day")},
        {F::expireDateMonth, QUILLON_TR_NOOP("EditorLayout", "Expire date, month")},
        {F::expireDateYear, QUILLON_TR_NOOP("EditorLayout", "Expire date, year")},
        {F::otherPrice, QUILLON_TR_NOOP("EditorLayout", "Other price, amount")},
        {F::otherPricePopUp, QUILLON_TR_NOOP("EditorLayout", "Other price, currency")},
        {F::programSizeKB, QUILLON_TR_NOOP("EditorLayout", "Size in kilobytes")},
        {F::programSizeMB, QUILLON_TR_NOOP("EditorLayout", "Size in megabytes")},
        {F::expireCheckBox, QUILLON_TR_NOOP("EditorLayout", "Program Has Expire Information")},
    };
    return names;
}

} // namespace

const QList<FieldGroup> &groupsOnPage(QStringView label)
{
    static const QList<const QList<FieldGroup> *> pages = {&company, &program, &descriptions, &web,
                                                           &permissions};
    static const QList<FieldGroup> none;
    for (size_t page = 0; page < editorPages.size(); ++page) {
        if (editorPages[page].label == label)
            return *pages[qsizetype(page)];
    }
    return none;
}

QString accessibleNameOf(FieldId field)
{
    if (const auto own = ownNames().constFind(field); own != ownNames().cend())
        return translated("EditorLayout", *own);
    for (const FieldGroup &group : groupsOnPage(pageOf(field).label)) {
        for (const FieldLine &line : group.fields) {
            if (line.field == field)
                return translated("EditorLayout", line.caption);
        }
    }
    return padField(field).control.toString();
}

} // namespace quillon
