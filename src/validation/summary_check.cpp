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

constexpr Verdict acceptedIf(bool acceptable, Fault otherwise, QStringView message)
{
    return acceptable ? accepted : Verdict{otherwise, message};
}

/// Shows the hint with the length; without it for an empty text, except of a web address.
void showLength(const SummaryRule &rule, TextControl &control)
{
    const qsizetype length = control.text().size();
    if (rule.hint.isEmpty())
        return;
    if (length == 0 && rule.kind != Kind::WebAddress)
        control.setHint(rule.hint.toString());
    else
        control.setHint(rule.hint + u"        "_s + QString::number(length) + u" / "_s +
                        QString::number(limitFor(rule, control.text())));
}

/// Colours a text of several lines and shows its length; puts an e-mail address in order and colours it;
/// shows no size where there are no bytes.
void show(const FieldRule &field, const Verdict &verdict, PadForm &form)
{
    const SummaryRule &rule = field.summary;
    if (rule.kind == Kind::Length || rule.kind == Kind::WebAddress) {
        TextControl &control = form.text(field.field);
        if (padField(field.field).kind == FieldKind::MultiLine)
            control.setColours(UniversalConverters::lengthColours(
                control.text().size(), {rule.bounds.min, limitFor(rule, control.text())}));
        showLength(rule, control);
    } else if (rule.kind == Kind::Email) {
        TextControl &control = form.text(field.field);
        control.setText(control.text().remove(u' '));
        control.setWholeTextColour(verdict.isAcceptable() ? Colour::Black : Colour::Red);
    } else if (rule.kind == Kind::Size && !verdict.isAcceptable()) {
        file_size::showInitial(form);
    }
}

Verdict length(const SummaryRule &rule, const QString &text)
{
    if (text.isEmpty())
        return acceptedIf(rule.emptyAllowed || rule.bounds.min == 0, Fault::Missing, rule.tooShort);
    if (text.size() < rule.bounds.min)
        return {Fault::TooShort, rule.tooShort};
    return acceptedIf(text.size() <= limitFor(rule, text), Fault::TooLong, rule.tooLong);
}

Verdict email(const SummaryRule &rule, QString text)
{
    text.remove(u' ');
    return acceptedIf(UniversalConverters::isEmailAddress(field_rules::emailBounds, text),
                      text.isEmpty() ? Fault::Missing : Fault::Unfit, rule.unfit);
}

Verdict webAddress(const SummaryRule &rule, const QString &text)
{
    if (text.isEmpty())
        return acceptedIf(rule.emptyAllowed, Fault::Missing, rule.tooShort);
    // The limit itself is too long already: kept on purpose.
    if (text.size() >= limitFor(rule, text))
        return {Fault::TooLong, rule.tooLong};
    const auto ends = [&text](QStringView ending) { return text.endsWith(ending); };
    return acceptedIf(rule.endings.empty() || std::any_of(rule.endings.begin(), rule.endings.end(), ends),
                      Fault::Unfit, rule.unfit);
}

Verdict releaseDate(const SummaryRule &rule, const QString &text)
{
    if (text.isEmpty())
        return {Fault::Missing, rule.tooShort};
    // There is no text for a number out of range, so that the log keeps what it says.
    return acceptedIf(rule.bounds.hold(numbers::integerAtStart(text)), Fault::OutOfRange, {});
}

Verdict expireDate(const SummaryRule &rule, const QString &text)
{
    const int value = numbers::integerAtStart(text);
    return acceptedIf(value <= 0 || rule.bounds.hold(value), Fault::OutOfRange, rule.unfit);
}

Verdict expireCount(const SummaryRule &rule, const PadForm &form)
{
    const qsizetype length = form.text(FieldId::expireCount).text().size();
    if (!form.checkBox(FieldId::expireCheckBox).isOn())
        return acceptedIf(length == 0, Fault::Unasked, rule.unfit);
    if (length < rule.bounds.min)
        return {Fault::Missing, rule.tooShort};
    return acceptedIf(length <= rule.bounds.max, Fault::TooLong, rule.tooLong);
}

Verdict expireBase(const SummaryRule &rule, const PadForm &form)
{
    const bool chosen = form.popUp(FieldId::expireBasePopUp).isSet();
    if (!form.checkBox(FieldId::expireCheckBox).isOn())
        return acceptedIf(!chosen, Fault::Unasked, rule.unfit);
    return acceptedIf(chosen, Fault::Missing, rule.tooShort);
}

/// The check box's title is red when the count or the base is wrong; it has no error of its own.
Verdict expireTitle(const PadForm &form)
{
    const Verdict count = expireCount(field_rules::of(FieldId::expireCount).summary, form);
    const Verdict base = expireBase(field_rules::of(FieldId::expireBasePopUp).summary, form);
    return {count.isAcceptable() ? base.fault : count.fault, {}};
}

} // namespace

int limitFor(const SummaryRule &rule, QStringView text)
{
    const auto begins = [text](QStringView prefix) { return text.startsWith(prefix); };
    const auto prefix = std::find_if(rule.prefixes.begin(), rule.prefixes.end(), begins);
    return rule.bounds.max + (prefix == rule.prefixes.end() ? 0 : int(prefix->size()));
}

std::optional<Verdict> judged(const FieldRule &field, const PadForm &form)
{
    const SummaryRule &rule = field.summary;
    switch (rule.kind) {
    case Kind::None:
        return std::nullopt;
    case Kind::Length:
        return length(rule, form.text(field.field).text());
    case Kind::Email:
        return email(rule, form.text(field.field).text());
    case Kind::WebAddress:
        return webAddress(rule, form.text(field.field).text());
    case Kind::ReleaseDate:
        return releaseDate(rule, form.text(field.field).text());
    case Kind::ExpireDate:
        return expireDate(rule, form.text(field.field).text());
    case Kind::OtherPrice:
        if (!rule.bounds.hold(form.text(field.field).text().size()))
            return std::nullopt;
        return otherPriceVerdict(form);
    case Kind::Size:
        return acceptedIf(!form.text(field.field).text().isEmpty(), Fault::Missing, rule.tooShort);
    case Kind::Choice:
        return acceptedIf(form.popUp(field.field).isSet(), Fault::Missing, rule.tooShort);
    case Kind::Ticked:
        return acceptedIf(form.checkList(field.field).states().contains(u"1"_s), Fault::Missing,
                          rule.tooShort);
    case Kind::ExpireCount:
        return expireCount(rule, form);
    case Kind::ExpireBase:
        return expireBase(rule, form);
    case Kind::ExpireTitle:
        return expireTitle(form);
    }
    return std::nullopt;
}

std::optional<Verdict> summaryVerdict(const FieldRule &field, PadForm &form)
{
    std::optional<Verdict> verdict = judged(field, form);
    if (verdict)
        show(field, *verdict, form);
    return verdict;
}

Verdict otherPriceVerdict(const PadForm &form)
{
    const bool hasPrice = !form.text(FieldId::otherPrice).text().isEmpty();
    const bool hasCurrency = form.popUp(FieldId::otherPricePopUp).isSet();
    // "Missing" is the price, "Unfit" one without a currency.
    return acceptedIf(hasPrice == hasCurrency, hasPrice ? Fault::Unfit : Fault::Missing,
                      field_rules::of(FieldId::otherPrice).summary.unfit);
}

void report(FieldId field, const Verdict &verdict, PadForm &form, ErrorPass &errors)
{
    const QString key = padField(field).control.toString();
    form.control(field).setHintColour(verdict.isAcceptable() ? Colour::Black : Colour::Red);
    if (verdict.isAcceptable())
        errors.setNoError(key);
    else if (!verdict.message.isEmpty())
        errors.setHasError(key, verdict.message.toString());
}

} // namespace quillon
