#include "submission/title_values.h"

#include "pad/field_catalogue.h"
#include "platform/dates.h"
#include "platform/text_decoding.h"
#include "platform/tolerant_xml.h"
#include "platform/translated_text.h"
#include "submission/field_copy.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

using Kind = TitleValue::Kind;

/// The fields whose values are something else than text.
constexpr std::array<std::pair<FieldId, Kind>, 27> kinds = {{
    {FieldId::companyWebsite, Kind::Url},       {FieldId::authorEmail, Kind::Email},
    {FieldId::contactEmail, Kind::Email},       {FieldId::generalEmail, Kind::Email},
    {FieldId::supportEmail, Kind::Email},       {FieldId::salesEmail, Kind::Email},
    {FieldId::generalPhone, Kind::Phone},       {FieldId::generalFax, Kind::Phone},
    {FieldId::supportPhone, Kind::Phone},       {FieldId::salesPhone, Kind::Phone},
    {FieldId::releaseDateYear, Kind::Date},     {FieldId::expireDateYear, Kind::Date},
    {FieldId::priceInUSD, Kind::Number},        {FieldId::otherPrice, Kind::Number},
    {FieldId::sizeInBytes, Kind::Number},       {FieldId::programSizeKB, Kind::Number},
    {FieldId::programSizeMB, Kind::Number},     {FieldId::expireCount, Kind::Number},
    {FieldId::appInfoURL, Kind::Url},           {FieldId::orderingURL, Kind::Url},
    {FieldId::screenshotURL, Kind::Url},        {FieldId::iconURL, Kind::Url},
    {FieldId::padFileURL, Kind::Url},           {FieldId::primaryDownloadURL, Kind::Url},
    {FieldId::secondaryDownloadURL, Kind::Url}, {FieldId::otherDownloadURL1, Kind::Url},
    {FieldId::otherDownloadURL2, Kind::Url},
}};

/// Whole names, which forms ask for more often than for their parts.
struct WholeName
{
    QStringView id;
    QStringView caption;
    FieldId first;
    FieldId last;
};

constexpr std::array<WholeName, 2> wholeNames = {{
    {u"authorName", QUILLON_TR_NOOP("FieldCopy", "Author Name"), FieldId::authorFirstName,
     FieldId::authorLastName},
    {u"contactName", QUILLON_TR_NOOP("FieldCopy", "Contact Name"), FieldId::contactFirstName,
     FieldId::contactLastName},
}};

Kind kindOf(FieldId field)
{
    const auto kind = std::ranges::find(kinds, field, &std::pair<FieldId, Kind>::first);
    return kind == kinds.end() ? Kind::Text : kind->second;
}

QString dateText(FieldId year, const auto &valueOf)
{
    const bool isRelease = year == FieldId::releaseDateYear;
    const FieldId month = isRelease ? FieldId::releaseDateMonth : FieldId::expireDateMonth;
    const FieldId day = isRelease ? FieldId::releaseDateDay : FieldId::expireDateDay;
    const QDate date(valueOf(year).toInt(), valueOf(month).toInt(), valueOf(day).toInt());
    return date.isValid() && date.year() > 0 ? date.toString(Qt::ISODate) : QString();
}

} // namespace

QString TitleValue::shown() const
{
    const QDate date = kind == Kind::Date ? QDate::fromString(text, Qt::ISODate) : QDate();
    return date.isValid() ? dates::shortText(date) : text;
}

QList<TitleValue> titleValues(const QByteArray &pad)
{
    const TolerantXml xml(decodedXmlText(pad));
    const auto valueOf = [&xml](FieldId field) {
        return xml.first(padField(field).element).value_or(QString());
    };
    QList<TitleValue> values;
    for (const FieldCopyButton &button : fieldCopyButtons) {
        const Kind kind = kindOf(button.field);
        values.append({.id = padField(button.field).control.toString(),
                       .caption = captionOf(button),
                       .kind = kind,
                       .text = kind == Kind::Date ? dateText(button.field, valueOf) : valueOf(button.field)});
    }
    for (const WholeName &name : wholeNames)
        values.append({.id = name.id.toString(),
                       .caption = translated("FieldCopy", name.caption),
                       .text = QString(valueOf(name.first) + u' ' + valueOf(name.last)).simplified()});
    return values;
}

} // namespace quillon
