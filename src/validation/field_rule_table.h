#pragma once

#include "pad/field_catalogue.h"
#include "validation/universal_converters.h"

#include <array>

namespace quillon {

/// What happens to a single-line text at every change: first the filter, then the check.
struct TypingRule
{
    enum class Filter : quint8
    {
        None,
        WithoutDigits,
        Digits,          ///< Leading ones only.
        DigitsAndPoints, ///< Leading ones only.
        VersionCharacters
    };
    enum class Check : quint8
    {
        None,
        Count,
        Website,
        Email,
        Phone,
        WebAddress,
        OtherPrice,
        Size
    };
    Filter filter = Filter::None;
    int maxLength = 0; ///< What the filter leaves at most, where it counts.
    Check check = Check::None;
    Bounds bounds = {};
    QStringView hint = {};         ///< Shown with the counter; none leaves the hint as it is.
    QStringView prefixedHint = {}; ///< In place of the hint for a text that begins with the first prefix.
    Words prefixes = {};           ///< Their length is allowed on top of the bounds.
    Words endings = {};
};

/// What happens to a single-line text when the author leaves it.
struct LeavingRule
{
    enum class Kind : quint8
    {
        None,
        Version,
        ReleaseDate, ///< Day or month.
        ReleaseYear,
        ExpireDate, ///< Day or month.
        ExpireYear
    };
    Kind kind = Kind::None;
    int max = 0;            ///< Of a day or month; what is more becomes this.
    QStringView alert = {}; ///< Told of a year that is out of range.
};

/// How the full check judges a field.
struct SummaryRule
{
    enum class Kind : quint8
    {
        None,
        Length,
        Email,
        WebAddress,
        ReleaseDate,
        ExpireDate,
        OtherPrice,
        Size,
        Choice,
        Ticked,
        ExpireCount,
        ExpireBase,
        ExpireTitle
    };
    Kind kind = Kind::None;
    Bounds bounds = {}; ///< Of the length; of a date's number.
    bool emptyAllowed = false;
    QStringView hint = {};     ///< Shown with the length and the limit; none leaves the hint as it is.
    QStringView tooShort = {}; ///< Also for what is missing.
    QStringView tooLong = {};
    QStringView unfit = {}; ///< Of the right length, but wrong otherwise.
    Words prefixes = {};    ///< The length of the one that the text begins with is allowed on top.
    Words endings = {};     ///< The text has to end with one of them.
};

/// All that is asked of one field.
struct FieldRule
{
    FieldId field;
    int tag; ///< Selects the typing and the leaving rule, its own; noTag for what is not a single-line text.
    TypingRule typing = {};
    LeavingRule leaving = {};
    SummaryRule summary = {};
};

/// The table of all rules.
namespace field_rules {

/// The tag of a field that no typing and leaving rule is selected for.
inline constexpr int noTag = -1;

/// Of every e-mail address, typed or loaded.
inline constexpr EmailBounds emailBounds = {{2, 30}, {2, 20}, {2, 20}};

/// Every field's rule; a field's place is the value of its id. To change what is asked of a field, change its
/// row in field_rule_table.cpp.
extern const std::array<FieldRule, fieldCount> table;

inline const FieldRule &of(FieldId field)
{
    return table[size_t(field)];
}

} // namespace field_rules

} // namespace quillon
