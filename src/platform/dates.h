#pragma once

#include <QDate>
#include <QLocale>
#include <QString>

#include <optional>

/// Dates as summary files hold them and as the user reads them.
namespace quillon::dates {

/// The date in @p text, tried as day/month/year (an import's form, the month also by its English name), as
/// year-month-day (the editor's form), in the user's short date style; none when no form fits.
std::optional<QDate> parseStored(QStringView text, const QLocale &locale = QLocale());

/// @p date in the user's short date style, without time.
QString shortText(QDate date, const QLocale &locale = QLocale());

/// @p time, milliseconds since 1970, with its date, both in the user's short style.
QString shortTime(qint64 time);

} // namespace quillon::dates
