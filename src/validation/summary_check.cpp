#include "validation/summary_check.h"

#include "pad/file_size.h"
#include "pad/pad_form.h"
#include "validation/error_pass.h"
#include "validation/numbers.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

using Kind = SummaryRule::Kind;

constexpr Verdict accepted = {};

constexpr Verdict rejected(QStringView message)
{
    return {false, message};
}

constexpr Verdict acceptedIf(bool acceptable, QStringView otherwise)
{
    return acceptable ? accepted : rejected(otherwise);
}

/// The longest that @p text may be, its prefix included.
int limitFor(const SummaryRule &rule, const QString &text)
{
    const auto begins = [&text](QStringView prefix) { return text.startsWith(prefix); };
    const auto prefix = std::find_if(rule.prefixes.begin(), rule.prefixes.end(), begins);
    return rule.bounds.max + (prefix == rule.prefixes.end() ? 0 : int(prefix->size()));
}

/// Shows the hint with the length; without it for an empty text, except of a web address.
void showLength(const SummaryRule &rule, int limit, TextControl &control)
{
    const qsizetype length = control.text().size();
    if (rule.hint.isEmpty())
        return;
    if (length == 0 && rule.kind != Kind::WebAddress)
        control.setHint(rule.hint.toString());
    else
        control.setHint(rule.hint + u"        "_s + QString::number(length) + u" / "_s +
                        QString::number(limit));
}

Verdict length(const FieldRule &field, TextControl &control)
{
    const SummaryRule &rule = field.summary;
    const QString text = control.text();
    const int limit = limitFor(rule, text);
    if (padField(field.field).kind == FieldKind::MultiLine)
        control.setColours(UniversalConverters::lengthColours(text.size(), {rule.bounds.min, limit}));
    showLength(rule, limit, control);
    if (text.isEmpty() && rule.emptyAllowed)
        return accepted;
    if (text.size() < rule.bounds.min)
        return rejected(rule.tooShort);
    return acceptedIf(text.size() <= limit, rule.tooLong);
}

Verdict email(const SummaryRule &rule, TextControl &control)
{
    control.setText(control.text().remove(u' '));
    const bool acceptable = UniversalConverters::isEmailAddress(field_rules::emailBounds, control.text());
    control.setWholeTextColour(acceptable ? Colour::Black : Colour::Red);
    return acceptedIf(acceptable, rule.unfit);
}

Verdict webAddress(const SummaryRule &rule, TextControl &control)
{
    const QString text = control.text();
    const int limit = limitFor(rule, text);
    showLength(rule, limit, control);
    if (text.isEmpty())
        return acceptedIf(rule.emptyAllowed, rule.tooShort);
    // The limit itself is too long already: kept on purpose.
    if (text.size() >= limit)
        return rejected(rule.tooLong);
    const auto ends = [&text](QStringView ending) { return text.endsWith(ending); };
    return acceptedIf(rule.endings.empty() || std::any_of(rule.endings.begin(), rule.endings.end(), ends),
                      rule.unfit);
}

Verdict releaseDate(const SummaryRule &rule, const QString &text)
{
    if (text.isEmpty())
        return rejected(rule.tooShort);
    // There is no text for a number out of range, so that the log keeps what it says.
    return acceptedIf(rule.bounds.hold(numbers::integerAtStart(text)), {});
}

Verdict expireDate(const SummaryRule &rule, const QString &text)
{
    const int value = numbers::integerAtStart(text);
    return acceptedIf(value <= 0 || rule.bounds.hold(value), rule.unfit);
}

Verdict size(const SummaryRule &rule, PadForm &form)
{
    if (!form.text(FieldId::sizeInBytes).text().isEmpty())
        return accepted;
    file_size::showInitial(form);
    return rejected(rule.tooShort);
}

Verdict expireCount(const SummaryRule &rule, const PadForm &form)
{
    const qsizetype length = form.text(FieldId::expireCount).text().size();
    if (!form.checkBox(FieldId::expireCheckBox).isOn())
        return acceptedIf(length == 0, rule.unfit);
    if (length < rule.bounds.min)
        return rejected(rule.tooShort);
    return acceptedIf(length <= rule.bounds.max, rule.tooLong);
}

Verdict expireBase(const SummaryRule &rule, const PadForm &form)
{
    const bool chosen = form.popUp(FieldId::expireBasePopUp).isSet();
    if (!form.checkBox(FieldId::expireCheckBox).isOn())
        return acceptedIf(!chosen, rule.unfit);
    return acceptedIf(chosen, rule.tooShort);
}

/// The check box's title is red when the count or the base is wrong; it has no error of its own.
Verdict expireTitle(const PadForm &form)
{
    return acceptedIf(expireCount(field_rules::of(FieldId::expireCount).summary, form).acceptable &&
                          expireBase(field_rules::of(FieldId::expireBasePopUp).summary, form).acceptable,
                      {});
}

} // namespace

std::optional<Verdict> summaryVerdict(const FieldRule &field, PadForm &form)
{
    const SummaryRule &rule = field.summary;
    switch (rule.kind) {
    case Kind::None:
        return std::nullopt;
    case Kind::Length:
        return length(field, form.text(field.field));
    case Kind::Email:
        return email(rule, form.text(field.field));
    case Kind::WebAddress:
        return webAddress(rule, form.text(field.field));
    case Kind::ReleaseDate:
        return releaseDate(rule, form.text(field.field).text());
    case Kind::ExpireDate:
        return expireDate(rule, form.text(field.field).text());
    case Kind::OtherPrice:
        if (!rule.bounds.hold(form.text(field.field).text().size()))
            return std::nullopt;
        return otherPriceVerdict(form);
    case Kind::Size:
        return size(rule, form);
    case Kind::Choice:
        return acceptedIf(form.popUp(field.field).isSet(), rule.tooShort);
    case Kind::Ticked:
        return acceptedIf(form.checkList(field.field).states().contains(u"1"_s), rule.tooShort);
    case Kind::ExpireCount:
        return expireCount(rule, form);
    case Kind::ExpireBase:
        return expireBase(rule, form);
    case Kind::ExpireTitle:
        return expireTitle(form);
    }
    return std::nullopt;
}

Verdict otherPriceVerdict(const PadForm &form)
{
    const bool hasPrice = !form.text(FieldId::otherPrice).text().isEmpty();
    const bool hasCurrency = form.popUp(FieldId::otherPricePopUp).isSet();
    return acceptedIf(hasPrice == hasCurrency, field_rules::of(FieldId::otherPrice).summary.unfit);
}

void report(FieldId field, const Verdict &verdict, PadForm &form, ErrorPass &errors)
{
    const QString key = padField(field).control.toString();
    form.control(field).setHintColour(verdict.acceptable ? Colour::Black : Colour::Red);
    if (verdict.acceptable)
        errors.setNoError(key);
    else if (!verdict.message.isEmpty())
        errors.setHasError(key, verdict.message.toString());
}

} // namespace quillon
