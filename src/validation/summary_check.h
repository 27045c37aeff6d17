#pragma once

#include "validation/field_rule_table.h"

#include <optional>

namespace quillon {

class ErrorPass;
class PadForm;

/// What is wrong with a field; its message may say something else.
enum class Fault : quint8
{
    None,
    Missing, ///< Empty, or nothing chosen.
    TooShort,
    TooLong,
    Unfit, ///< Of the right length, but wrong otherwise.
    OutOfRange,
    Unasked ///< Given, although the form says that there is none.
};

/// What a rule says of a field.
struct Verdict
{
    Fault fault = Fault::None;
    /// What is recorded of a field that is not acceptable; with none, what was recorded before stays.
    QStringView message = {};

    [[nodiscard]] constexpr bool isAcceptable() const { return fault == Fault::None; }
};

/// The longest that @p text may be by @p rule, the prefix included that it begins with.
int limitFor(const SummaryRule &rule, QStringView text);

/// What the full check says of a field, without showing any of it; an e-mail address is judged without its
/// blanks. None for a field that is not judged.
std::optional<Verdict> judged(const FieldRule &field, const PadForm &form);

/// Whether the price in another currency and its currency are both there or both missing, whatever the length
/// of the price.
Verdict otherPriceVerdict(const PadForm &form);

/// The same, shown: the length in the hint where the rule has one; an e-mail address is put in order.
std::optional<Verdict> summaryVerdict(const FieldRule &field, PadForm &form);

/// Colours the hint of @p field and records or clears its error.
void report(FieldId field, const Verdict &verdict, PadForm &form, ErrorPass &errors);

} // namespace quillon
