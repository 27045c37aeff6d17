#include "findings/explanations.h"

#include "findings/field_phrases.h"
#include "pad/pad_form.h"
#include "pad/vocabularies.h"
#include "platform/plain_text.h"
#include "validation/email_check.h"
#include "validation/summary_check.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::findings {

namespace {

using Kind = SummaryRule::Kind;

/// What is said of a fault that a kind of rule found. What stands in braces is filled in by a Filling of that
/// name.
struct Explanation
{
    Kind kind;
    Fault fault;
    QStringView id;
    QStringView text;
};

// clang-format off
constexpr Explanation explanations[] = {
    {Kind::Length, Fault::Missing, u"text-missing", u"The {field} {is} empty. Give {min} to {max} characters."},
    {Kind::Length, Fault::TooShort, u"text-too-short", u"The {field} {has} {length}. Give {min} to {max}{orNothing}."},
    {Kind::Length, Fault::TooLong, u"text-too-long", u"The {field} {has} {length}. At most {max} fit{prefixes}: take out {beyond}."},
    {Kind::Email, Fault::Missing, u"email-missing", u"The {field} is empty. Give an address such as name@example.com."},
    {Kind::Email, Fault::Unfit, u"email-unfit", u"The {field} “{value}” is not taken: {emailPart}."},
    {Kind::WebAddress, Fault::Missing, u"address-missing", u"The {field} is empty. Give an address{ending}, such as {example}."},
    {Kind::WebAddress, Fault::TooLong, u"address-too-long", u"The {field} has {length}. At most {max} fit{prefixes}: give a shorter one."},
    {Kind::WebAddress, Fault::Unfit, u"address-ending", u"The {field} ends in “{tail}”. Give an address{ending}, in small letters and with nothing after it."},
    {Kind::ReleaseDate, Fault::Missing, u"date-missing", u"The {field} is empty. Give a number from {min} to {max}."},
    {Kind::ReleaseDate, Fault::OutOfRange, u"date-out-of-range", u"The {field} is “{value}”. Give a number from {min} to {max}."},
    {Kind::ExpireDate, Fault::OutOfRange, u"date-out-of-range", u"The {field} is “{value}”. Give a number from {min} to {max}, or leave it empty."},
    {Kind::OtherPrice, Fault::Unfit, u"currency-missing", u"There is a price in another currency, but no currency. Choose one, or empty the price."},
    {Kind::OtherPrice, Fault::Missing, u"price-missing", u"A currency is chosen, but the price in it is empty. Give the price, or choose no currency."},
    {Kind::OtherPrice, Fault::TooLong, u"price-too-long", u"The {field} has {length}, and what has more than {max} is not compared with its currency any more. Give a shorter one."},
    {Kind::Size, Fault::Missing, u"size-missing", u"The {field} is empty. Give how many bytes the file to download has, in digits only."},
    {Kind::Choice, Fault::Missing, u"choice-missing", u"The {field} is not one of the list. Choose {choices}."},
    {Kind::Ticked, Fault::Missing, u"tick-missing", u"No {field} of the list is ticked. Tick at least one."},
    {Kind::ExpireCount, Fault::Missing, u"expire-count-missing", u"“Program Has Expire Information” is ticked, but the {field} is empty. Give a number of {min} to {max} digits, or untick the box."},
    {Kind::ExpireCount, Fault::TooLong, u"expire-count-too-long", u"The {field} has {length}. Give at most {max} digits."},
    {Kind::ExpireCount, Fault::Unasked, u"expire-count-unasked", u"There is an {field}, but “Program Has Expire Information” is not ticked. Tick it, or empty the {field}."},
    {Kind::ExpireBase, Fault::Missing, u"expire-base-missing", u"“Program Has Expire Information” is ticked, but no {field} is chosen. Choose {choices}, or untick the box."},
    {Kind::ExpireBase, Fault::Unasked, u"expire-base-unasked", u"An {field} is chosen, but “Program Has Expire Information” is not ticked. Tick it, or choose the empty {field}."},
};
// clang-format on

constexpr QStringView recordedEarlier =
    u"This was recorded earlier. Nothing is wrong with the {field} now: the next check takes it back.";

/// A field with an error.
struct Case
{
    const FieldRule &rule;
    const PadForm &form;
    QString value; ///< Of a text as it is judged.

    [[nodiscard]] const SummaryRule &summary() const { return rule.summary; }
};

QString inWords(qsizetype count)
{
    return count == 1 ? u"1 character"_s : u"%1 characters"_s.arg(count);
}

/// "a, b or c".
QString either(QStringList words)
{
    if (words.size() < 2)
        return words.join(QString());
    const QString last = words.takeLast();
    return words.join(u", ") + u" or "_s + last;
}

QString either(Words words)
{
    QStringList all;
    for (const QStringView word : words)
        all.append(word.toString());
    return either(std::move(all));
}

/// The longest that passes, without a prefix.
int most(const SummaryRule &rule)
{
    return rule.bounds.max - (rule.kind == Kind::WebAddress ? 1 : 0);
}

/// What the form takes at most; a month that is left is made 12, although the full check lets more pass.
QString max(const Case &fault)
{
    const LeavingRule &leaving = fault.rule.leaving;
    return QString::number(leaving.max > 0 ? leaving.max : most(fault.summary()));
}

QString min(const Case &fault)
{
    return QString::number(fault.summary().bounds.min);
}

QString prefixes(const Case &fault)
{
    const Words words = fault.summary().prefixes;
    return words.empty() ? QString() : u", not counting "_s + either(words) + u" at its beginning";
}

QString beyond(const Case &fault)
{
    return QString::number(fault.value.size() - limitFor(fault.summary(), fault.value));
}

/// An emoji and the like are two characters wherever the form counts.
QString length(const Case &fault)
{
    const bool hasPairs = std::ranges::any_of(fault.value, [](QChar unit) { return unit.isSurrogate(); });
    return inWords(fault.value.size()) + (hasPairs ? u" (an emoji counts as two)"_s : QString());
}

QString orNothing(const Case &fault)
{
    return fault.summary().emptyAllowed ? u", or leave it empty"_s : QString();
}

QString value(const Case &fault)
{
    static constexpr qsizetype longest = 60;
    const QString line = plainLine(fault.value, longest);
    return fault.value.size() > longest ? QString(line + u'…') : line;
}

QString tail(const Case &fault)
{
    static constexpr qsizetype longest = 16;
    return plainLine(fault.value.last(qMin(longest, fault.value.size())), longest);
}

QString ending(const Case &fault)
{
    const Words words = fault.summary().endings;
    return words.empty() ? QString() : u" that ends in "_s + either(words);
}

QString example(const Case &fault)
{
    const SummaryRule &rule = fault.summary();
    const QString folder = rule.prefixes.front() + u"www.example.com/"_s;
    return rule.endings.empty() ? folder : folder + u"program"_s + rule.endings.front();
}

QString bounds(Bounds bounds)
{
    return u"%1 to %2"_s.arg(bounds.min).arg(bounds.max);
}

/// The first part of an e-mail address that does not fit, and what would.
QString emailPart(const Case &fault)
{
    using Fit = EmailAddress::Fit;
    const EmailBounds &allowed = field_rules::emailBounds;
    const EmailAddress address = takenApart(fault.value, allowed);
    if (address.at < 0)
        return u"there is no “@” in it"_s;
    if (address.local != Fit::Fits)
        return u"right before the “@” it needs %1 letters, digits or signs of “._%+-”"_s.arg(
            bounds(allowed.local));
    if (address.domain != Fit::Fits)
        return u"right after the “@” it needs %1 letters, digits or hyphens, and then a point"_s.arg(
            bounds(allowed.domain));
    return u"after the first point behind the “@” it needs %1 letters, digits or points"_s.arg(
        bounds(allowed.extension));
}

QString choices(const Case &fault)
{
    static constexpr qsizetype mostNamed = 8;
    const QStringList &all = vocabulary::of(fault.rule.field);
    return all.size() <= mostNamed ? either(all) : u"one of its %1 entries"_s.arg(all.size());
}

QString field(const Case &fault)
{
    return field_phrases::of(fault.rule.field).toString();
}

QString is(const Case &fault)
{
    return field_phrases::isPlural(fault.rule.field) ? u"are"_s : u"is"_s;
}

QString has(const Case &fault)
{
    return field_phrases::isPlural(fault.rule.field) ? u"have"_s : u"has"_s;
}

/// What takes the place of a name in braces.
struct Filling
{
    QStringView name;
    QString (*text)(const Case &fault);
};

constexpr Filling fillings[] = {
    {u"beyond", beyond},
    {u"choices", choices},
    {u"emailPart", emailPart},
    {u"ending", ending},
    {u"field", field},
    {u"example", example},
    {u"has", has},
    {u"is", is},
    {u"length", length},
    {u"max", max},
    {u"min", min},
    {u"orNothing", orNothing},
    {u"tail", tail},
    {u"prefixes", prefixes},
    {u"value", value},
};

QString filled(QStringView text, const Case &fault)
{
    QString result;
    for (qsizetype open = 0; (open = text.indexOf(u'{')) >= 0;) {
        const qsizetype close = text.indexOf(u'}', open);
        const auto *filling =
            std::ranges::find(fillings, text.sliced(open + 1, close - open - 1), &Filling::name);
        Q_ASSERT(filling != std::end(fillings));
        result += text.first(open) + filling->text(fault);
        text = text.sliced(close + 1);
    }
    return result + text;
}

/// What is wrong with a field; of a price that is not judged, that it is too long.
Fault faultOf(const FieldRule &rule, const PadForm &form)
{
    const auto verdict = judged(rule, form);
    if (!verdict && rule.summary.kind == Kind::OtherPrice)
        return Fault::TooLong;
    return verdict ? verdict->fault : Fault::None;
}

QString judgedText(const FieldRule &rule, const PadForm &form)
{
    QString text = form.value(rule.field);
    if (rule.summary.kind == Kind::Email)
        text.remove(u' ');
    return text;
}

} // namespace

Finding explained(FieldId field, const QString &recorded, const PadForm &form)
{
    const FieldRule &rule = field_rules::of(field);
    const Case fault{rule, form, judgedText(rule, form)};
    const auto isMeant = [kind = rule.summary.kind, found = faultOf(rule, form)](const Explanation &each) {
        return each.kind == kind && each.fault == found;
    };
    const auto *explanation = std::ranges::find_if(explanations, isMeant);
    const bool isKnown = explanation != std::end(explanations);
    return {.id = isKnown ? explanation->id : u"recorded-earlier",
            .severity = Severity::Error,
            .field = field,
            .recorded = recorded,
            .explanation = filled(isKnown ? explanation->text : recordedEarlier, fault)};
}

QList<Finding> explained(const StringDictionary &recorded, const PadForm &form)
{
    QList<Finding> all;
    for (const PadField &field : padFields) {
        if (const auto error = recorded.find(field.control.toString()); error != recorded.end())
            all.append(explained(field.id, error->second, form));
    }
    return all;
}

} // namespace quillon::findings
