#pragma once

#include "pad/field_catalogue.h"

#include <QDate>

#include <optional>

namespace quillon {

class TolerantXml;

/// The dates of a PAD document, each of which is three fields; its year stands for the whole.
namespace pad_dates {

/// Whether @p field is the year of a date.
bool isDate(FieldId field);

/// The date that @p pad has in @p year and the two fields that belong to it; none where they are no date.
std::optional<QDate> read(const TolerantXml &pad, FieldId year);

} // namespace pad_dates

} // namespace quillon
