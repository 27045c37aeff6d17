#include "submission/field_copy.h"

#include "editor/editor_pages.h"
#include "platform/dates.h"
#include "platform/desktop.h"
#include "platform/text_decoding.h"
#include "platform/tolerant_xml.h"
#include "platform/translated_text.h"
#include "store/add_delete_import_edit.h"
#include "store/storage_status.h"
#include "submission/browser.h"
#include "submission/pad_dates.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr FieldCopyButton buttonRows[] = {
    {u"companyName", QUILLON_TR_NOOP("FieldCopy", "Company Name"), FieldId::companyName},
    {u"companyAddress", QUILLON_TR_NOOP("FieldCopy", "Address"), FieldId::companyAddress},
    {u"companyAddress2", QUILLON_TR_NOOP("FieldCopy", "Address 2"), FieldId::companyAddress2},
    {u"companyCityTown", QUILLON_TR_NOOP("FieldCopy", "City/Town"), FieldId::companyCityTown},
    {u"companyStateCounty", QUILLON_TR_NOOP("FieldCopy", "State/County"), FieldId::companyStateCounty},
    {u"companyZipPostcode", QUILLON_TR_NOOP("FieldCopy", "ZIP/Postcode"), FieldId::companyZIPPostcode},
    {u"companyCountry", QUILLON_TR_NOOP("FieldCopy", "Company Country"), FieldId::companyCountry},
    {u"companyWebsite", QUILLON_TR_NOOP("FieldCopy", "Company Website"), FieldId::companyWebsite},
    {u"authorFirstName", QUILLON_TR_NOOP("FieldCopy", "Author First Name"), FieldId::authorFirstName},
    {u"authorLastName", QUILLON_TR_NOOP("FieldCopy", "Author Last Name"), FieldId::authorLastName},
    {u"authorEmail", QUILLON_TR_NOOP("FieldCopy", "Author E-mail"), FieldId::authorEmail},
    {u"contactFirstName", QUILLON_TR_NOOP("FieldCopy", "Contact First Name"), FieldId::contactFirstName},
    {u"contactLastName", QUILLON_TR_NOOP("FieldCopy", "Contact Last Name"), FieldId::contactLastName},
    {u"contactEmail", QUILLON_TR_NOOP("FieldCopy", "Contact E-mail"), FieldId::contactEmail},
    {u"generalPhone", QUILLON_TR_NOOP("FieldCopy", "General Phone"), FieldId::generalPhone},
    {u"generalFax", QUILLON_TR_NOOP("FieldCopy", "General Fax"), FieldId::generalFax},
    {u"generalEmail", QUILLON_TR_NOOP("FieldCopy", "General E-mail"), FieldId::generalEmail},
    {u"supportPhone", QUILLON_TR_NOOP("FieldCopy", "Support Phone"), FieldId::supportPhone},
    {u"supportEmail", QUILLON_TR_NOOP("FieldCopy", "Support E-mail"), FieldId::supportEmail},
    {u"salesPhone", QUILLON_TR_NOOP("FieldCopy", "Sales Phone"), FieldId::salesPhone},
    {u"salesEmail", QUILLON_TR_NOOP("FieldCopy", "Sales E-mail"), FieldId::salesEmail},
    {u"programName", QUILLON_TR_NOOP("FieldCopy", "Program Name"), FieldId::programName},
    {u"programVersion", QUILLON_TR_NOOP("FieldCopy", "Program Version"), FieldId::programVersion},
    {u"programReleaseDate", QUILLON_TR_NOOP("FieldCopy", "Release Date"), FieldId::releaseDateYear},
    {u"programPriceInUSD", QUILLON_TR_NOOP("FieldCopy", "Price in USD"), FieldId::priceInUSD},
    {u"programOtherPrice", QUILLON_TR_NOOP("FieldCopy", "Other Price"), FieldId::otherPrice},
    {u"programOtherPriceCurrency", QUILLON_TR_NOOP("FieldCopy", "Other Price Currency"),
     FieldId::otherPricePopUp},
    {u"programInstallSupport", QUILLON_TR_NOOP("FieldCopy", "Install Support"), FieldId::installSupportPopUp},
    {u"programType", QUILLON_TR_NOOP("FieldCopy", "Program Type"), FieldId::programTypePopUp},
    {u"sizeInBytes", QUILLON_TR_NOOP("FieldCopy", "Size in Bytes"), FieldId::sizeInBytes},
    {u"sizeInKB", QUILLON_TR_NOOP("FieldCopy", "Size in KB"), FieldId::programSizeKB},
    {u"sizeInMB", QUILLON_TR_NOOP("FieldCopy", "Size in MB"), FieldId::programSizeMB},
    {u"hasExpireInfo", QUILLON_TR_NOOP("FieldCopy", "Has Expire Info"), FieldId::expireCheckBox},
    {u"expireCount", QUILLON_TR_NOOP("FieldCopy", "Expire Count"), FieldId::expireCount},
    {u"expireBasedOn", QUILLON_TR_NOOP("FieldCopy", "Expire Based On"), FieldId::expireBasePopUp},
    {u"expireDate", QUILLON_TR_NOOP("FieldCopy", "Expire Date"), FieldId::expireDateYear},
    {u"expireInformation", QUILLON_TR_NOOP("FieldCopy", "Expire Information"), FieldId::expireInfo},
    {u"programCategory", QUILLON_TR_NOOP("FieldCopy", "Program Category"), FieldId::categoryPopUp},
    {u"supportedOS", QUILLON_TR_NOOP("FieldCopy", "Supported OS"), FieldId::osTable},
    {u"supportedLanguages", QUILLON_TR_NOOP("FieldCopy", "Supported Languages"), FieldId::languageTable},
    {u"changeInformation", QUILLON_TR_NOOP("FieldCopy", "Change Information"),
     FieldId::changeInformationView},
    {u"sustemRequirements", QUILLON_TR_NOOP("FieldCopy", "System Requirements"), FieldId::requirementsView},
    {u"keywords", QUILLON_TR_NOOP("FieldCopy", "Keywords"), FieldId::keywordsView},
    {u"pb45CharDescription", QUILLON_TR_NOOP("FieldCopy", "45 Char Description"), FieldId::pd45CharDescript},
    {u"pb80CharDescription", QUILLON_TR_NOOP("FieldCopy", "80 Char Description"), FieldId::pd80CharDescript},
    {u"pb250CharDescription", QUILLON_TR_NOOP("FieldCopy", "250 Char Description"),
     FieldId::pd250CharDescript},
    {u"pb450CharDescription", QUILLON_TR_NOOP("FieldCopy", "450 Char Description"),
     FieldId::pd450CharDescript},
    {u"pb2000CharDescription", QUILLON_TR_NOOP("FieldCopy", "2000 Char Description"),
     FieldId::pd2000CharDescript},
    {u"distributionPermissions", QUILLON_TR_NOOP("FieldCopy", "Distribution Permissions"),
     FieldId::distributionPermissions},
    {u"eula", QUILLON_TR_NOOP("FieldCopy", "EULA"), FieldId::eula},
    {u"applicationInfoURL", QUILLON_TR_NOOP("FieldCopy", "Application Info URL"), FieldId::appInfoURL},
    {u"orderingURL", QUILLON_TR_NOOP("FieldCopy", "Ordering URL"), FieldId::orderingURL},
    {u"screenshotURL", QUILLON_TR_NOOP("FieldCopy", "Screenshot URL"), FieldId::screenshotURL},
    {u"iconURL", QUILLON_TR_NOOP("FieldCopy", "Icon URL"), FieldId::iconURL},
    {u"padFileURL", QUILLON_TR_NOOP("FieldCopy", "PAD File URL"), FieldId::padFileURL},
    {u"primaryDownloadURL", QUILLON_TR_NOOP("FieldCopy", "Primary Download URL"),
     FieldId::primaryDownloadURL},
    {u"secondaryDownloadURL", QUILLON_TR_NOOP("FieldCopy", "Secondary Download URL"),
     FieldId::secondaryDownloadURL},
    {u"otherDownloadURL1", QUILLON_TR_NOOP("FieldCopy", "Other Download URL 1"), FieldId::otherDownloadURL1},
    {u"otherDownloadURL2", QUILLON_TR_NOOP("FieldCopy", "Other Download URL 2"), FieldId::otherDownloadURL2},
};

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

const std::span<const FieldCopyButton> fieldCopyButtons = buttonRows;

QStringView FieldCopyButton::page() const
{
    return pageOf(field).label;
}

QString captionOf(const FieldCopyButton &button)
{
    return translated("FieldCopy", button.caption);
}

const FieldCopyButton *fieldCopyButtonNamed(QStringView action)
{
    const auto button = std::ranges::find(fieldCopyButtons, action, &FieldCopyButton::action);
    return button == fieldCopyButtons.end() ? nullptr : &*button;
}

std::optional<QString> pasteText(const FieldCopyButton &button, const QByteArray &pad, const QLocale &locale)
{
    const QString text = decodedXmlText(pad);
    if (!pad_dates::isDate(button.field))
        return findClipboardContent(button.tag(), text);
    const auto date = pad_dates::read(TolerantXml(text), button.field);
    return date ? std::optional(dates::shortText(*date, locale)) : std::nullopt;
}

FieldCopyPanel::FieldCopyPanel(Browser &browser, QObject *parent)
    : QObject(parent)
    , m_browser(browser)
    , m_enabled(qsizetype(fieldCopyButtons.size()))
    , m_on(m_enabled.size())
{
}

void FieldCopyPanel::setPasteData()
{
    const Result<QByteArray> bytes = AddDeleteImportEdit::returnDataObjectFor(u"data");
    m_readError = bytes || bytes.isError(Error::Kind::Missing) ? std::nullopt : std::optional(bytes.error());
    const TolerantXml xml(decodedXmlText(bytes.valueOr({})));
    QBitArray enabled(m_enabled.size());
    for (qsizetype place = 0; place < enabled.size(); ++place)
        enabled.setBit(place,
                       !xml.first(fieldCopyButtons[size_t(place)].tag()).value_or(QString()).isEmpty());
    if (std::exchange(m_enabled, enabled) != enabled)
        Q_EMIT changed();
    Q_EMIT valuesRead(bytes);
}

void FieldCopyPanel::press(int place)
{
    if (!m_on.testBit(place)) {
        m_on.setBit(place);
        Q_EMIT changed();
    }
    const Result<QByteArray> bytes = AddDeleteImportEdit::returnDataObjectFor(u"data");
    if (!bytes) {
        Q_EMIT nothingPasted(failureLine(bytes.error()));
        return;
    }
    const auto text = pasteText(fieldCopyButtons[size_t(place)], *bytes);
    if (!text) {
        Q_EMIT nothingPasted(tr("Nothing was pasted: this field of the PAD file is empty."));
        return;
    }
    m_browser.paste(*text);
}

} // namespace quillon
