#include "platform/regex.h"
#include "validation/numbers.h"
#include "validation/universal_converters.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// What @p pattern matches first in @p text. Patterns are made by code, few and again and again the same, so
/// that each is compiled once.
QString firstMatch(const QString &pattern, const QString &text)
{
    static QHash<QString, Regex> compiled;
    auto regex = compiled.constFind(pattern);
    if (regex == compiled.cend())
        regex = compiled.insert(pattern, Regex(pattern));
    const auto match = regex->firstMatch(text);
    return match ? match->captured().toString() : QString();
}

} // namespace

void UniversalConverters::numbersOnly(TextControl &field, int maxLen)
{
    field.setText(firstMatch(u"[0-9]{0,%1}"_s.arg(maxLen), field.text()));
}

void UniversalConverters::decimalNumber(TextControl &field, int maxLen)
{
    field.setText(firstMatch(u"[0-9.]{0,%1}"_s.arg(maxLen), field.text()));
}

void UniversalConverters::atzWithSpecialChars(QStringView extra, const QString &text, TextControl &field)
{
    field.setText(firstMatch(u"[a-zA-Z"_s + extra + u"]*", text));
}

void UniversalConverters::inputNumberLengthCheck(TextControl &field, int maxNumber)
{
    const qsizetype digits = QString::number(maxNumber).size();
    field.setText(numbers::padded(numbers::lastInteger(field.text()), digits));
}

bool UniversalConverters::phoneNumberCheck(Bounds bounds, TextControl &field)
{
    static const Regex letter(u"[a-zA-Z]");
    // ")-\/" is a range: it takes "*", "+", ",", "-", "." and "/".
    static const Regex number(u"[0-9 #*()-\\/_+]*");
    field.setText(letter.replaceAll(field.text(), {}));
    const QString text = field.text();
    const auto match = number.firstMatch(text);
    const qsizetype length = match ? match->captured().size() : 0;
    if (length == 0 || bounds.hold(length))
        return true;
    if (length > bounds.max) {
        setTextColorToPoint(length, 0, Colour::Black, field);
        setTextColorToPoint(length - bounds.max, bounds.max, Colour::Red, field);
    }
    return false;
}

} // namespace quillon
