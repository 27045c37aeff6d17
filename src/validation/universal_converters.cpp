#include "validation/universal_converters.h"

#include "validation/email_check.h"
#include "validation/numbers.h"
#include "validation/text_filters.h"

#include <QBitArray>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

QString counter(qsizetype length, int limit)
{
    return u"    "_s + QString::number(length) + u'/' + QString::number(limit);
}

void show(const TextColours &colours, TextControl &field)
{
    if (field.isEditing())
        field.setColours(colours);
}

void markTooLong(TextControl &control, int limit, const QString &hint)
{
    const qsizetype length = control.text().size();
    show(UniversalConverters::lengthColours(length, {0, limit}), control);
    control.setHint(hint + counter(length, limit));
}

} // namespace

TextColours UniversalConverters::lengthColours(qsizetype length, Bounds bounds)
{
    TextColours colours(length);
    if (length < bounds.min)
        colours.setAll(Colour::Red);
    else
        colours.set(bounds.max, length - bounds.max, Colour::Red);
    return colours;
}

QString UniversalConverters::characterCountField(Bounds bounds, TextControl &field)
{
    const qsizetype length = field.text().size();
    show(lengthColours(length, bounds), field);
    return counter(length, bounds.max);
}

QString UniversalConverters::characterCountView(Bounds bounds, TextControl &view)
{
    const qsizetype length = view.text().size();
    const bool empty = length == 0;
    show(lengthColours(length, bounds), view);
    view.setHintColour(empty || bounds.hold(length) ? Colour::Black : Colour::Red);
    view.caption().setColour(empty || length >= bounds.min ? Colour::Black : Colour::Red);
    return counter(length, bounds.max);
}

QString UniversalConverters::urlCheckingField(TextControl &field, Bounds bounds, Words prefixes,
                                              Words endings)
{
    const QString text = field.text();
    for (const QStringView prefix : prefixes) {
        if (text.contains(prefix, Qt::CaseInsensitive)) {
            bounds.min += int(prefix.size());
            bounds.max += int(prefix.size());
        }
    }
    const auto ends = [&text](QStringView ending) { return text.endsWith(ending); };
    TextColours colours = lengthColours(text.size(), bounds);
    // What is too long shows where it becomes so, whatever its ending.
    if (bounds.hold(text.size()) && !endings.empty() && std::none_of(endings.begin(), endings.end(), ends))
        colours.setAll(Colour::Red);
    show(colours, field);
    return counter(text.size(), bounds.max);
}

void UniversalConverters::setTextColorChars(Colour colour, QChar character, TextControl &field)
{
    const QString text = field.text();
    QBitArray red(text.size());
    const TextColours colours = field.colours();
    for (const ColourRun &run : colours.redRuns())
        red.fill(true, run.start, run.start + run.length);
    QList<ColourRun> runs;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] == character)
            red.setBit(at, colour == Colour::Red);
        if (!red[at])
            continue;
        if (!runs.isEmpty() && runs.last().start + runs.last().length == at)
            ++runs.last().length;
        else
            runs.append({at, 1});
    }
    show(TextColours(text.size(), runs), field);
}

void UniversalConverters::setTextColorAll(Colour colour, TextControl &field)
{
    setTextColorToPoint(field.text().size(), 0, colour, field);
}

void UniversalConverters::setTextColorFromPoint(qsizetype start, Colour colour, TextControl &field)
{
    setTextColorToPoint(field.text().size(), start, colour, field);
}

void UniversalConverters::setTextColorToPoint(qsizetype length, qsizetype start, Colour colour,
                                              TextControl &field)
{
    TextColours colours = field.colours();
    colours.set(start, length, colour);
    show(colours, field);
}

void UniversalConverters::fieldLoadValidator(TextControl &field, Bounds bounds, const QString &hint)
{
    const QString text = field.text();
    if (text.contains(u" Not Be Empty", Qt::CaseInsensitive))
        return;
    if (text.size() < bounds.min)
        setTextColorAll(Colour::Red, field);
    else if (text.size() > bounds.max)
        markTooLong(field, bounds.max, hint);
}

void UniversalConverters::viewLoadValidator(TextControl &view, Bounds bounds, const QString &hint)
{
    // Too short comes first: where the bounds contradict each other, nothing is marked.
    const qsizetype length = view.text().size();
    if (length >= bounds.min && length > bounds.max)
        markTooLong(view, bounds.max, hint);
}

void UniversalConverters::numbersOnly(TextControl &field, int maxLen)
{
    field.setText(text_filters::leadingDigits(field.text(), maxLen));
}

void UniversalConverters::decimalNumber(TextControl &field, int maxLen)
{
    field.setText(text_filters::leadingDigitsAndPoints(field.text(), maxLen));
}

void UniversalConverters::atzWithSpecialChars(QStringView extra, const QString &text, TextControl &field)
{
    field.setText(text_filters::leadingLetters(text, extra));
}

void UniversalConverters::inputNumberLengthCheck(TextControl &field, int maxNumber)
{
    const qsizetype digits = QString::number(maxNumber).size();
    field.setText(numbers::padded(numbers::lastInteger(field.text()), digits));
}

bool UniversalConverters::phoneNumberCheck(Bounds bounds, TextControl &field)
{
    field.setText(text_filters::withoutLetters(field.text()));
    const qsizetype length = text_filters::lengthOfPhoneNumber(field.text());
    if (length == 0 || bounds.hold(length))
        return true;
    if (length > bounds.max) {
        setTextColorToPoint(length, 0, Colour::Black, field);
        setTextColorToPoint(length - bounds.max, bounds.max, Colour::Red, field);
    }
    return false;
}

bool UniversalConverters::isEmailAddress(const EmailBounds &bounds, QStringView address)
{
    return takenApart(address, bounds).isAcceptable();
}

bool UniversalConverters::emailCheck(const EmailBounds &bounds, TextControl &field)
{
    field.setText(field.text().remove(u' '));
    const QString text = field.text();
    if (text.isEmpty())
        return false;
    const EmailAddress address = takenApart(text, bounds);
    colour(address, bounds, field);
    if (address.at < 0) {
        field.setHintColour(Colour::Red);
        field.caption().setColour(Colour::Red);
    }
    return address.isAcceptable();
}

bool UniversalConverters::emailFieldLoadValidator(TextControl &field, const EmailBounds &bounds)
{
    const QString text = field.text();
    if (text == u"Email Should Not Be Empty")
        return false;
    const EmailAddress address = takenApart(text, bounds);
    colour(address, bounds, field);
    return address.isAcceptable();
}

} // namespace quillon
