#include "submission/field_copy.h"

#include "platform/dates.h"
#include "platform/desktop.h"
#include "platform/text_decoding.h"
#include "platform/tolerant_xml.h"
#include "store/add_delete_import_edit.h"
#include "store/storage_status.h"
#include "submission/browser.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

const std::array<FieldCopyButton, fieldCopyButtonCount> fieldCopyButtons = {{
    {u"companyName", u"Company Name", FieldId::companyName},
    {u"companyAddress", u"Address", FieldId::companyAddress},
    {u"companyAddress2", u"Address 2", FieldId::companyAddress2},
    {u"companyCityTown", u"City/Town", FieldId::companyCityTown},
    {u"companyStateCounty", u"State/County", FieldId::companyStateCounty},
    {u"companyZipPostcode", u"ZIP/Postcode", FieldId::companyZIPPostcode},
    {u"companyCountry", u"Company Country", FieldId::companyCountry},
    {u"companyWebsite", u"Company Website", FieldId::companyWebsite},
    {u"authorFirstName", u"Author First Name", FieldId::authorFirstName},
    {u"authorLastName", u"Author Last Name", FieldId::authorLastName},
    {u"authorEmail", u"Author E-mail", FieldId::authorEmail},
    {u"contactFirstName", u"Contact First Name", FieldId::contactFirstName},
    {u"contactLastName", u"Contact Last Name", FieldId::contactLastName},
    {u"contactEmail", u"Contact E-mail", FieldId::contactEmail},
    {u"generalPhone", u"General Phone", FieldId::generalPhone},
    {u"generalFax", u"General Fax", FieldId::generalFax},
    {u"generalEmail", u"General E-mail", FieldId::generalEmail},
    {u"supportPhone", u"Support Phone", FieldId::supportPhone},
    {u"supportEmail", u"Support E-mail", FieldId::supportEmail},
    {u"salesPhone", u"Sales Phone", FieldId::salesPhone},
    {u"salesEmail", u"Sales E-mail", FieldId::salesEmail},
    {u"programName", u"Program Name", FieldId::programName},
    {u"programVersion", u"Program Version", FieldId::programVersion},
    {u"programReleaseDate", u"Release Date", FieldId::releaseDateYear},
    {u"programPriceInUSD", u"Price in USD", FieldId::priceInUSD},
    {u"programOtherPrice", u"Other Price", FieldId::otherPrice},
    {u"programOtherPriceCurrency", u"Other Price Currency", FieldId::otherPricePopUp},
    {u"programInstallSupport", u"Install Support", FieldId::installSupportPopUp},
    {u"programType", u"Program Type", FieldId::programTypePopUp},
    {u"sizeInBytes", u"Size in Bytes", FieldId::sizeInBytes},
    {u"sizeInKB", u"Size in KB", FieldId::programSizeKB},
    {u"sizeInMB", u"Size in MB", FieldId::programSizeMB},
    {u"hasExpireInfo", u"Has Expire Info", FieldId::expireCheckBox},
    {u"expireCount", u"Expire Count", FieldId::expireCount},
    {u"expireBasedOn", u"Expire Based On", FieldId::expireBasePopUp},
    {u"expireDate", u"Expire Date", FieldId::expireDateYear},
    {u"expireInformation", u"Expire Information", FieldId::expireInfo},
    {u"programCategory", u"Program Category", FieldId::categoryPopUp},
    {u"supportedOS", u"Supported OS", FieldId::osTable},
    {u"supportedLanguages", u"Supported Languages", FieldId::languageTable},
    {u"changeInformation", u"Change Information", FieldId::changeInformationView},
    {u"sustemRequirements", u"System Requirements", FieldId::requirementsView},
    {u"keywords", u"Keywords", FieldId::keywordsView},
    {u"pb45CharDescription", u"45 Char Description", FieldId::pd45CharDescript},
    {u"pb80CharDescription", u"80 Char Description", FieldId::pd80CharDescript},
    {u"pb250CharDescription", u"250 Char Description", FieldId::pd250CharDescript},
    {u"pb450CharDescription", u"450 Char Description", FieldId::pd450CharDescript},
    {u"pb2000CharDescription", u"2000 Char Description", FieldId::pd2000CharDescript},
    {u"distributionPermissions", u"Distribution Permissions", FieldId::distributionPermissions},
    {u"eula", u"EULA", FieldId::eula},
    {u"applicationInfoURL", u"Application Info URL", FieldId::appInfoURL},
    {u"orderingURL", u"Ordering URL", FieldId::orderingURL},
    {u"screenshotURL", u"Screenshot URL", FieldId::screenshotURL},
    {u"iconURL", u"Icon URL", FieldId::iconURL},
    {u"padFileURL", u"PAD File URL", FieldId::padFileURL},
    {u"primaryDownloadURL", u"Primary Download URL", FieldId::primaryDownloadURL},
    {u"secondaryDownloadURL", u"Secondary Download URL", FieldId::secondaryDownloadURL},
    {u"otherDownloadURL1", u"Other Download URL 1", FieldId::otherDownloadURL1},
    {u"otherDownloadURL2", u"Other Download URL 2", FieldId::otherDownloadURL2},
}};

namespace {

/// The fields that make up a date; the panel has one button for all three.
struct DateFields
{
    FieldId year;
    FieldId month;
    FieldId day;
};

constexpr std::array<DateFields, 2> dateButtons = {{
    {FieldId::releaseDateYear, FieldId::releaseDateMonth, FieldId::releaseDateDay},
    {FieldId::expireDateYear, FieldId::expireDateMonth, FieldId::expireDateDay},
}};

const DateFields *dateOf(FieldId year)
{
    const auto date = std::ranges::find(dateButtons, year, &DateFields::year);
    return date == dateButtons.end() ? nullptr : &*date;
}

/// A top group of the PAD document and the editor's page for it.
struct Page
{
    QStringView group;
    QStringView label;
};

constexpr std::array<Page, 5> pages = {{
    {u"Company_Info", u"Company Information"},
    {u"Program_Info", u"Program Information"},
    {u"Program_Descriptions", u"Program Descriptions"},
    {u"Web_Info", u"Web Information"},
    {u"Permissions", u"Permissions"},
}};

std::optional<QString> dateText(const DateFields &date, const QString &pad, const QLocale &locale)
{
    const TolerantXml xml(pad);
    const auto number = [&xml](FieldId field) {
        return xml.first(padField(field).element).value_or(QString()).toInt();
    };
    const int year = number(date.year);
    const QDate read(year, number(date.month), number(date.day));
    return year > 0 && read.isValid() ? std::optional(dates::shortText(read, locale)) : std::nullopt;
}

/// The text between the first start tag and the first end tag of @p tag, if there is any.
std::optional<QString> findClipboardContent(QStringView tag, const QString &pad)
{
    const QString open = u'<' + tag + u'>';
    const qsizetype start = pad.indexOf(open);
    const qsizetype end = pad.indexOf(u"</" + tag + u'>');
    if (start < 0 || end <= start + open.size())
        return std::nullopt;
    return pad.sliced(start + open.size(), end - start - open.size());
}

} // namespace

QStringView FieldCopyButton::page() const
{
    const QStringView group = padField(field).group;
    const qsizetype slash = group.indexOf(u'/');
    const auto page = std::ranges::find(pages, slash < 0 ? group : group.first(slash), &Page::group);
    return page == pages.end() ? QStringView() : page->label;
}

const FieldCopyButton *fieldCopyButtonNamed(QStringView action)
{
    const auto button = std::ranges::find(fieldCopyButtons, action, &FieldCopyButton::action);
    return button == fieldCopyButtons.end() ? nullptr : &*button;
}

std::optional<QString> pasteText(const FieldCopyButton &button, const QByteArray &pad, const QLocale &locale)
{
    const QString text = decodedXmlText(pad);
    const DateFields *date = dateOf(button.field);
    return date ? dateText(*date, text, locale) : findClipboardContent(button.tag(), text);
}

FieldCopyPanel::FieldCopyPanel(Browser &browser, QObject *parent) : QObject(parent), m_browser(browser) {}

void FieldCopyPanel::setPasteData()
{
    const Result<QByteArray> bytes = AddDeleteImportEdit::returnDataObjectFor(u"data");
    m_readError = bytes || bytes.isError(Error::Kind::Missing) ? std::nullopt : std::optional(bytes.error());
    const TolerantXml xml(decodedXmlText(bytes.valueOr({})));
    Flags enabled;
    for (size_t place = 0; place < fieldCopyButtons.size(); ++place)
        enabled.set(place, !xml.first(fieldCopyButtons[place].tag()).value_or(QString()).isEmpty());
    if (std::exchange(m_enabled, enabled) != enabled)
        Q_EMIT changed();
    Q_EMIT valuesRead();
}

void FieldCopyPanel::press(int place)
{
    if (!m_on.test(size_t(place))) {
        m_on.set(size_t(place));
        Q_EMIT changed();
    }
    const Result<QByteArray> bytes = AddDeleteImportEdit::returnDataObjectFor(u"data");
    if (!bytes) {
        Q_EMIT nothingPasted(failureLine(bytes.error()));
        return;
    }
    const auto text = pasteText(fieldCopyButtons[size_t(place)], *bytes);
    if (!text) {
        Q_EMIT nothingPasted(u"Nothing was pasted: this field of the PAD file is empty."_s);
        return;
    }
    m_browser.paste(*text);
}

} // namespace quillon
