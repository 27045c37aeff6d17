#include "submission/read_back.h"

#include "platform/dates.h"
#include "platform/plain_text.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class ReadBackText
{
    Q_DECLARE_TR_FUNCTIONS(ReadBack)
};

constexpr qsizetype longestValueShown = 120; ///< UTF-16 units.

QString shown(const QString &text)
{
    const QString line = visibleLine(text, longestValueShown);
    return text.size() > longestValueShown ? QString(line + u'…') : line;
}

/// One number, whatever blanks are around it and zeros behind it.
bool isSameNumber(const QString &one, const QString &other)
{
    bool isNumber = false, isOther = false;
    const double number = one.toDouble(&isNumber), otherNumber = other.toDouble(&isOther);
    return isNumber && isOther && QString::number(number, 'g', 15) == QString::number(otherNumber, 'g', 15);
}

bool isSameDate(const QString &one, const QString &other)
{
    const QDate date = QDate::fromString(other, Qt::ISODate);
    return date.isValid() && (one == dates::shortText(date) || one == other);
}

/// How some types of field write what they were given.
using Writing = std::pair<QStringView, bool (*)(const QString &, const QString &)>;
constexpr std::array<Writing, 3> ownWritings = {{
    {u"number", isSameNumber},
    {u"range", isSameNumber},
    {u"date", isSameDate},
}};

/// @p text as a reader sees it, for whom blanks and line ends are but gaps between words.
QString read(const QString &text)
{
    return text.simplified();
}

bool isAsExpected(const FieldReading &reading, const QString &text)
{
    const auto writing = std::ranges::find(ownWritings, QStringView(reading.type), &Writing::first);
    if (writing != ownWritings.end() && writing->second(text, reading.after))
        return true;
    if (reading.start < 0)
        return read(reading.after).contains(read(text));
    return read(reading.after) ==
           read(reading.before.left(reading.start) + text + reading.before.mid(reading.end));
}

/// How many units of @p text the field has taken, when it has taken the beginning and cut the rest.
std::optional<qsizetype> taken(const FieldReading &reading, const QString &text)
{
    const QString head = reading.start < 0 ? QString() : reading.before.left(reading.start);
    const QString tail = reading.start < 0 ? QString() : reading.before.mid(reading.end);
    const qsizetype size = reading.after.size() - head.size() - tail.size();
    const bool isInPlace = size > 0 && reading.after.startsWith(head) && reading.after.endsWith(tail);
    return isInPlace && read(text).startsWith(read(reading.after.mid(head.size(), size)))
               ? std::optional(size)
               : std::nullopt;
}

} // namespace

std::optional<FieldReading> fieldReading(const QVariant &answer)
{
    const QVariantMap map = answer.toMap();
    if (!map.contains(u"after"_s))
        return std::nullopt;
    const auto place = [&](const QString &name) {
        const QVariant value = map.value(name);
        return value.isNull() ? -1 : value.toInt();
    };
    return FieldReading{.type = map.value(u"type"_s).toString(),
                        .before = map.value(u"before"_s).toString(),
                        .after = map.value(u"after"_s).toString(),
                        .start = place(u"start"_s),
                        .end = place(u"end"_s),
                        .isUnintelligible = map.value(u"isUnintelligible"_s).toBool()};
}

QString readBackNotice(const FieldReading &reading, const QString &text)
{
    if (reading.isUnintelligible)
        return ReadBackText::tr("The field does not understand what it was given.");
    if (isAsExpected(reading, text))
        return {};
    if (reading.after.isEmpty())
        return ReadBackText::tr("The field has not taken the value: it is empty.");
    if (const auto size = taken(reading, text))
        return ReadBackText::tr("The field has taken %L1 of %L2 characters, and now holds “%3”.")
            .arg(*size)
            .arg(text.size())
            .arg(shown(reading.after));
    return ReadBackText::tr("The field now holds “%1”.").arg(shown(reading.after));
}

} // namespace quillon
