#include "validation/field_rules.h"

#include "pad/file_size.h"
#include "pad/messages.h"
#include "pad/pad_form.h"
#include "validation/error_pass.h"
#include "validation/numbers.h"
#include "validation/summary_check.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace quillon::field_rules {

namespace {

using Check = TypingRule::Check;
using Filter = TypingRule::Filter;

void filter(const TypingRule &rule, TextControl &control)
{
    switch (rule.filter) {
    case Filter::None:
        break;
    case Filter::WithoutDigits:
        control.setText(control.text().removeIf([](QChar unit) { return unit >= u'0' && unit <= u'9'; }));
        break;
    case Filter::Digits:
        UniversalConverters::numbersOnly(control, rule.maxLength);
        break;
    case Filter::DigitsAndPoints:
        UniversalConverters::decimalNumber(control, rule.maxLength);
        break;
    case Filter::VersionCharacters:
        UniversalConverters::atzWithSpecialChars(u"0-9 ._-", control.text(), control);
        break;
    }
}

void checkWebsite(const TypingRule &rule, TextControl &control)
{
    const QStringView prefix = rule.prefixes.front();
    const bool prefixed = control.text().startsWith(prefix);
    const Bounds bounds = {rule.bounds.min, rule.bounds.max + (prefixed ? int(prefix.size()) : 0)};
    const QString counter = UniversalConverters::characterCountField(bounds, control);
    control.setHint((prefixed ? rule.prefixedHint : rule.hint) + counter);
}

void checkOtherPrice(PadForm &form, ErrorPass &errors)
{
    const Verdict verdict = otherPriceVerdict(form);
    form.control(FieldId::otherPrice)
        .caption()
        .setColour(verdict.isAcceptable() ? Colour::Black : Colour::Red);
    report(FieldId::otherPrice, verdict, form, errors);
}

void check(const FieldRule &fieldRule, PadForm &form, ErrorPass &errors)
{
    const TypingRule &rule = fieldRule.typing;
    TextControl &control = form.text(fieldRule.field);
    switch (rule.check) {
    case Check::None:
        break;
    case Check::Count:
        control.setHint(rule.hint + UniversalConverters::characterCountField(rule.bounds, control));
        break;
    case Check::Website:
        checkWebsite(rule, control);
        break;
    case Check::Email:
        UniversalConverters::emailCheck(emailBounds, control);
        break;
    case Check::Phone:
        UniversalConverters::phoneNumberCheck(rule.bounds, control);
        break;
    case Check::WebAddress:
        control.setHint(rule.hint + UniversalConverters::urlCheckingField(control, rule.bounds, rule.prefixes,
                                                                          rule.endings));
        break;
    case Check::OtherPrice:
        checkOtherPrice(form, errors);
        break;
    case Check::Size:
        if (!control.text().isEmpty())
            file_size::show(form);
        break;
    }
}

const FieldRule *ruleOfTag(int tag, std::span<const PadField> page)
{
    for (const PadField &field : page) {
        if (of(field.id).tag == tag)
            return &of(field.id);
    }
    return nullptr;
}

void textChangedOn(std::span<const PadField> page, int tag, PadForm &form, ErrorPass &errors)
{
    if (const FieldRule *rule = ruleOfTag(tag, page)) {
        filter(rule->typing, form.text(rule->field));
        check(*rule, form, errors);
    }
}

// What follows runs when a text is left.

void leaveVersion(TextControl &version)
{
    const Colour colour = version.text().trimmed().isEmpty() ? Colour::Red : Colour::Black;
    version.caption().setColour(colour);
    version.setHintColour(colour);
}

/// Makes a day or month two digits from 01 to @p max.
void tidyDayOrMonth(TextControl &control, int max)
{
    const QString text = control.text();
    const int value = numbers::integerAtStart(text);
    if (value <= 0)
        control.setText(u"01"_s);
    else if (value <= 9 && text.size() != 2)
        control.setText(numbers::padded(value, 2));
    else if (value > max)
        control.setText(QString::number(max));
}

/// Makes a year four digits at most; one that cannot be meant becomes 2010. Whether it was in range.
bool tidyYear(TextControl &control)
{
    static constexpr Bounds range = {1900, 2199};
    UniversalConverters::numbersOnly(control, 4);
    if (range.hold(numbers::integerAtStart(control.text())))
        return true;
    control.setText(u"2010"_s);
    return false;
}

/// Colours a part of the release date that was left and records or clears that it is empty.
void reportReleaseDate(const FieldRule &rule, PadForm &form, ErrorPass &errors)
{
    const bool empty = form.text(rule.field).text().isEmpty();
    const QString message = mwqnErrorMessagesEmpty().value(padField(rule.field).messageKey.toString());
    report(rule.field, empty ? Verdict{Fault::Missing, message} : Verdict(), form, errors);

    Caption &caption = form.control(rule.field).caption();
    const auto date = fields::between(FieldId::releaseDateDay, FieldId::releaseDateYear);
    const auto isEntered = [&form](const PadField &part) { return !form.text(part.id).text().isEmpty(); };
    if (empty)
        caption.setColour(Colour::Red);
    else if (std::all_of(date.begin(), date.end(), isEntered))
        caption.setColour(Colour::Black);
}

} // namespace

void compInfoTagsSorting(int tag, PadForm &form, ErrorPass &errors)
{
    textChangedOn(fields::company(), tag, form, errors);
}

void progInfoTagsChecking(int tag, PadForm &form, ErrorPass &errors)
{
    textChangedOn(fields::program(), tag, form, errors);
}

void webInfoTagsChecking(int tag, PadForm &form, ErrorPass &errors)
{
    textChangedOn(fields::web(), tag, form, errors);
}

void textChanged(int tag, PadForm &form, ErrorPass &errors)
{
    // Each knows the tags of its page only.
    compInfoTagsSorting(tag, form, errors);
    progInfoTagsChecking(tag, form, errors);
    webInfoTagsChecking(tag, form, errors);
}

QStringView editingEnded(int tag, PadForm &form, ErrorPass &errors)
{
    using Kind = LeavingRule::Kind;
    const FieldRule *rule = ruleOfTag(tag, fields::program());
    if (!rule || rule->leaving.kind == Kind::None)
        return {};
    const LeavingRule &leaving = rule->leaving;
    TextControl &control = form.text(rule->field);
    if (leaving.kind == Kind::Version) {
        leaveVersion(control);
        return {};
    }
    bool inRange = true;
    if (!control.text().isEmpty()) {
        if (leaving.kind == Kind::ExpireDate)
            UniversalConverters::inputNumberLengthCheck(control, leaving.max);
        if (leaving.max > 0)
            tidyDayOrMonth(control, leaving.max);
        else
            inRange = tidyYear(control);
    }
    if (leaving.kind == Kind::ReleaseDate || leaving.kind == Kind::ReleaseYear)
        reportReleaseDate(*rule, form, errors);
    return inRange ? QStringView() : leaving.alert;
}

void checkEntries(PadForm &form, ErrorPass &errors)
{
    std::array<std::optional<Verdict>, fieldCount> verdicts;
    QSet<const Caption *> redCaptions; // Several fields may share one; it is red when any of them is wrong.
    for (const FieldRule &rule : table) {
        const auto &verdict = verdicts[size_t(rule.field)] = summaryVerdict(rule, form);
        if (verdict && !verdict->isAcceptable())
            redCaptions.insert(&form.control(rule.field).caption());
    }
    for (const FieldRule &rule : table) {
        if (const auto &verdict = verdicts[size_t(rule.field)]) {
            Caption &caption = form.control(rule.field).caption();
            caption.setColour(redCaptions.contains(&caption) ? Colour::Red : Colour::Black);
            report(rule.field, *verdict, form, errors);
        }
    }
}

void forgetTypedHints(PadForm &form)
{
    for (const FieldRule &rule : table) {
        if (!rule.typing.hint.isEmpty() && rule.summary.hint.isEmpty())
            form.control(rule.field).setHint({});
    }
}

} // namespace quillon::field_rules
