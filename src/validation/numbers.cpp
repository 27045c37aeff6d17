#include "validation/numbers.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace quillon::numbers {

namespace {

bool isDigit(QChar unit)
{
    return unit >= u'0' && unit <= u'9';
}

/// Takes one integer off the front of @p text; leaves the text alone when there is none.
std::optional<int> takeInteger(QStringView &text)
{
    qsizetype at = 0;
    while (at < text.size() && text[at].isSpace())
        ++at;
    const bool negative = at < text.size() && text[at] == u'-';
    if (negative || (at < text.size() && text[at] == u'+'))
        ++at;
    if (at == text.size() || !isDigit(text[at]))
        return std::nullopt;
    static constexpr qint64 largest = std::numeric_limits<int>::max();
    qint64 value = 0;
    for (; at < text.size() && isDigit(text[at]); ++at)
        value = std::min(value * 10 + (text[at].unicode() - u'0'), largest + (negative ? 1 : 0));
    text = text.sliced(at);
    return int(negative ? -value : value);
}

} // namespace

int integerAtStart(QStringView text)
{
    return takeInteger(text).value_or(0);
}

int lastInteger(QStringView text)
{
    int last = 0;
    while (const std::optional<int> next = takeInteger(text))
        last = *next;
    return last;
}

QString padded(int number, qsizetype digits)
{
    const QString magnitude = QString::number(std::abs(qint64(number))).rightJustified(digits, u'0');
    return number < 0 ? u'-' + magnitude : magnitude;
}

} // namespace quillon::numbers
