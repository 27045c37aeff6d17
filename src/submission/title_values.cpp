#include "submission/title_values.h"

#include "platform/dates.h"
#include "platform/text_decoding.h"
#include "platform/tolerant_xml.h"
#include "platform/translated_text.h"
#include "submission/field_copy.h"
#include "submission/pad_dates.h"
#include "validation/field_rule_table.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

using Kind = TitleValue::Kind;

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

/// Follows from the rule of typing.
Kind kindOf(FieldId field)
{
    if (pad_dates::isDate(field))
        return Kind::Date;
    const TypingRule &rule = field_rules::of(field).typing;
    if (rule.check == TypingRule::Check::Email)
        return Kind::Email;
    if (rule.check == TypingRule::Check::Phone)
        return Kind::Phone;
    if (rule.check == TypingRule::Check::Website || rule.check == TypingRule::Check::WebAddress)
        return Kind::Url;
    const bool isNumber = rule.filter == TypingRule::Filter::Digits ||
                          rule.filter == TypingRule::Filter::DigitsAndPoints ||
                          padField(field).kind == FieldKind::Computed;
    return isNumber ? Kind::Number : Kind::Text;
}

QString dateText(const TolerantXml &pad, FieldId year)
{
    const auto date = pad_dates::read(pad, year);
    return date ? date->toString(Qt::ISODate) : QString();
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
                       .text = kind == Kind::Date ? dateText(xml, button.field) : valueOf(button.field)});
    }
    for (const WholeName &name : wholeNames)
        values.append({.id = name.id.toString(),
                       .caption = translated("FieldCopy", name.caption),
                       .text = QString(valueOf(name.first) + u' ' + valueOf(name.last)).simplified()});
    return values;
}

} // namespace quillon
