#include "submission/pad_dates.h"

#include "platform/tolerant_xml.h"

#include <algorithm>
#include <array>

namespace quillon::pad_dates {

namespace {

struct DateFields
{
    FieldId year;
    FieldId month;
    FieldId day;
};

constexpr std::array<DateFields, 2> dateFields = {{
    {FieldId::releaseDateYear, FieldId::releaseDateMonth, FieldId::releaseDateDay},
    {FieldId::expireDateYear, FieldId::expireDateMonth, FieldId::expireDateDay},
}};

} // namespace

bool isDate(FieldId field)
{
    return std::ranges::find(dateFields, field, &DateFields::year) != dateFields.end();
}

std::optional<QDate> read(const TolerantXml &pad, FieldId year)
{
    const auto number = [&pad](FieldId field) {
        return pad.first(padField(field).element).value_or(QString()).toInt();
    };
    const auto fields = std::ranges::find(dateFields, year, &DateFields::year);
    if (fields == dateFields.end())
        return std::nullopt;
    const QDate date(number(fields->year), number(fields->month), number(fields->day));
    return date.isValid() && date.year() > 0 ? std::optional(date) : std::nullopt;
}

} // namespace quillon::pad_dates
