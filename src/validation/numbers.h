#pragma once

#include <QString>

/// Whole numbers as authors type them, and as foreign PAD files hold them.
namespace quillon::numbers {

/// The integer that @p text begins with, blanks before it and a sign allowed; 0 without one. What does not
/// fit becomes the largest or smallest int.
int integerAtStart(QStringView text);

/// The last of the integers that stand one after another at the start of @p text, only blanks between them; 0
/// without one.
int lastInteger(QStringView text);

/// @p number with zeros in front up to @p digits digits: 7 becomes "07", -7 "-07".
QString padded(int number, qsizetype digits);

} // namespace quillon::numbers
