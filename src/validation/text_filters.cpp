#include "validation/text_filters.h"

#include "platform/regex.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace quillon::text_filters {

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

QString leadingDigits(const QString &text, int maxLength)
{
    return firstMatch(u"[0-9]{0,%1}"_s.arg(maxLength), text);
}

QString leadingDigitsAndPoints(const QString &text, int maxLength)
{
    return firstMatch(u"[0-9.]{0,%1}"_s.arg(maxLength), text);
}

QString leadingLetters(const QString &text, QStringView extra)
{
    return firstMatch(u"[a-zA-Z"_s + extra + u"]*", text);
}

QString withoutLetters(const QString &text)
{
    static const Regex letter(u"[a-zA-Z]");
    return letter.replaceAll(text, {});
}

qsizetype lengthOfPhoneNumber(const QString &text)
{
    // ")-\/" is a range: it takes "*", "+", ",", "-", "." and "/".
    static const Regex number(u"[0-9 #*()-\\/_+]*");
    const auto match = number.firstMatch(text);
    return match ? match->captured().size() : 0;
}

} // namespace quillon::text_filters
