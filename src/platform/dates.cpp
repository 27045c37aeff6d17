#include "platform/dates.h"

#include <QDateTime>

#include <array>

namespace quillon::dates {

namespace {

/// The month of @p text: its number, or its English name or three-letter form in any case; 0 for anything
/// else.
int monthNumber(QStringView text)
{
    static constexpr std::array<QStringView, 12> names = {
        u"january", u"february", u"march",     u"april",   u"may",      u"june",
        u"july",    u"august",   u"september", u"october", u"november", u"december"};
    static constexpr qsizetype shortLength = 3;
    for (size_t index = 0; index < names.size(); ++index) {
        if (text.compare(names[index], Qt::CaseInsensitive) == 0 ||
            text.compare(names[index].first(shortLength), Qt::CaseInsensitive) == 0)
            return int(index) + 1;
    }
    return text.toInt();
}

/// The date in three pieces of @p text between @p separator; a null date when it is no such date.
/// A year of two digits is left to the user's own style.
QDate parsePieces(QStringView text, QChar separator, bool yearFirst)
{
    const qsizetype first = text.indexOf(separator);
    const qsizetype second = first < 0 ? -1 : text.indexOf(separator, first + 1);
    if (second < 0)
        return {};
    const QStringView left = text.first(first).trimmed();
    const QStringView month = text.sliced(first + 1, second - first - 1).trimmed();
    const QStringView right = text.sliced(second + 1).trimmed();
    const int year = (yearFirst ? left : right).toInt();
    static constexpr int leastYear = 100;
    return year < leastYear ? QDate() : QDate(year, monthNumber(month), (yearFirst ? right : left).toInt());
}

} // namespace

std::optional<QDate> parseStored(QStringView text, const QLocale &locale)
{
    if (const QDate date = parsePieces(text, u'/', false); date.isValid())
        return date;
    // The editor's form comes in far greater numbers than the user's style, which it can never be mistaken
    // for.
    if (const QDate date = parsePieces(text, u'-', true); date.isValid())
        return date;
    static constexpr qsizetype longestDate = 64;
    if (text.isEmpty() || text.size() > longestDate)
        return std::nullopt;
    const QDate date = locale.toDate(text.toString(), QLocale::ShortFormat);
    return date.isValid() ? std::optional(date) : std::nullopt;
}

QString shortText(QDate date, const QLocale &locale)
{
    return locale.toString(date, QLocale::ShortFormat);
}

QString shortTime(qint64 time)
{
    return QLocale().toString(QDateTime::fromMSecsSinceEpoch(time), QLocale::ShortFormat);
}

} // namespace quillon::dates
