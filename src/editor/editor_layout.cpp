#include "editor/editor_layout.h"

#include "editor/editor_pages.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

using F = FieldId;

// clang-format off
const QList<FieldGroup> company = {
    {u"Author", 0, {
        {u"Author first name", F::authorFirstName},
        {u"Author last name", F::authorLastName},
        {u"Author e-mail", F::authorEmail}}},
    {u"Contact", 0, {
        {u"Contact first name", F::contactFirstName},
        {u"Contact last name", F::contactLastName},
        {u"Contact e-mail", F::contactEmail}}},
    {u"Company", 1, {
        {u"Company name", F::companyName},
        {u"Address", F::companyAddress},
        {u"Address line 2", F::companyAddress2},
        {u"City/Town", F::companyCityTown},
        {u"State/County", F::companyStateCounty},
        {u"ZIP/Postcode", F::companyZIPPostcode},
        {u"Country", F::companyCountry},
        {u"Website", F::companyWebsite}}},
    {u"Support", 2, {
        {u"General e-mail", F::generalEmail},
        {u"General phone", F::generalPhone},
        {u"Fax", F::generalFax},
        {u"Support e-mail", F::supportEmail},
        {u"Support phone", F::supportPhone},
        {u"Sales e-mail", F::salesEmail},
        {u"Sales phone", F::salesPhone}}},
};

const QList<FieldGroup> program = {
    {u"Program", 0, {
        {u"Program name", F::programName},
        {u"Program version", F::programVersion},
        {u"Release date (day, month, year)", F::releaseDateDay, 1, F::releaseDateMonth, F::releaseDateYear},
        {u"Program type", F::programTypePopUp},
        {u"Release status", F::programStatusPopUp},
        {u"Install support", F::installSupportPopUp},
        {u"Category", F::categoryPopUp}}},
    {u"Price and size", 0, {
        {u"Price in USD", F::priceInUSD},
        {u"Other price (amount, currency)", F::otherPrice, 1, F::otherPricePopUp},
        {u"Size in bytes", F::sizeInBytes, 1, F::programSizeKB, F::programSizeMB}}},
    {u"Expiry", 1, {
        {u"", F::expireCheckBox},
        {u"Expire count", F::expireCount},
        {u"Expire based on", F::expireBasePopUp},
        {u"Expire date (day, month, year)", F::expireDateDay, 1, F::expireDateMonth, F::expireDateYear},
        {u"Other expire information", F::expireInfo}}},
    {u"Texts", 1, {
        {u"Change information", F::changeInformationView, 5},
        {u"System requirements", F::requirementsView, 3}}},
    {u"", 2, {
        {u"Operating Systems", F::osTable}}, 1},
    {u"", 3, {
        {u"Supported Languages", F::languageTable}}, 1},
};

const QList<FieldGroup> descriptions = {
    {u"", 0, {
        {u"Keywords", F::keywordsView, 3},
        {u"Description of 45 characters", F::pd45CharDescript, 2},
        {u"Description of 80 characters", F::pd80CharDescript, 2},
        {u"Description of 250 characters", F::pd250CharDescript, 5}}},
    {u"", 1, {
        {u"Description of 450 characters", F::pd450CharDescript, 6},
        {u"Description of 2000 characters", F::pd2000CharDescript, 12}}},
};

const QList<FieldGroup> web = {
    {u"Application", 0, {
        {u"Application information", F::appInfoURL},
        {u"Ordering", F::orderingURL},
        {u"Screenshot", F::screenshotURL},
        {u"Icon", F::iconURL},
        {u"PAD file", F::padFileURL}}},
    {u"Download", 1, {
        {u"Primary download", F::primaryDownloadURL},
        {u"Secondary download", F::secondaryDownloadURL},
        {u"Other download 1", F::otherDownloadURL1},
        {u"Other download 2", F::otherDownloadURL2}}},
};

const QList<FieldGroup> permissions = {
    {u"", 0, {{u"Distribution permissions", F::distributionPermissions, 20}}},
    {u"", 1, {{u"End user licence agreement", F::eula, 20}}},
};
// clang-format on

/// Fields that stand beside another one, or without a caption, by what they are called aloud.
const QHash<FieldId, QStringView> &ownNames()
{
    static const QHash<FieldId, QStringView> names = {
        {F::releaseDateDay, u"Release date, day"},
        {F::releaseDateMonth, u"Release date, month"},
        {F::releaseDateYear, u"Release date, year"},
        {F::expireDateDay, u"Expire date, day"},
        {F::expireDateMonth, u"Expire date, month"},
        {F::expireDateYear, u"Expire date, year"},
        {F::otherPrice, u"Other price, amount"},
        {F::otherPricePopUp, u"Other price, currency"},
        {F::programSizeKB, u"Size in kilobytes"},
        {F::programSizeMB, u"Size in megabytes"},
        {F::expireCheckBox, u"Program Has Expire Information"},
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
        return own->toString();
    for (const FieldGroup &group : groupsOnPage(pageOf(field).label)) {
        for (const FieldLine &line : group.fields) {
            if (line.field == field)
                return line.caption.toString();
        }
    }
    return padField(field).control.toString();
}

} // namespace quillon
