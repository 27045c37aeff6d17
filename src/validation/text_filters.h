#pragma once

#include <QString>

/// What of a text a field takes; all lengths are UTF-16 units.
namespace quillon::text_filters {

/// The digits that @p text holds where it begins, at most @p maxLength.
QString leadingDigits(const QString &text, int maxLength);

/// The digits and points that @p text holds where it begins, at most @p maxLength; there may be several
/// points.
QString leadingDigitsAndPoints(const QString &text, int maxLength);

/// The letters and @p extra characters that @p text holds where it begins. @p extra stands inside a character
/// class of a pattern, where "-" and "]" have their meaning.
QString leadingLetters(const QString &text, QStringView extra);

/// @p text without the letters from A to Z and from a to z.
QString withoutLetters(const QString &text);

/// How many characters of a phone number @p text begins with.
qsizetype lengthOfPhoneNumber(const QString &text);

} // namespace quillon::text_filters
