#pragma once

#include "validation/field_rule_table.h"

#include <optional>

namespace quillon {

class ErrorPass;
class PadForm;

/// What a rule says of a field.
struct Verdict
{
    bool acceptable = true;
    /// What is recorded of a field that is not acceptable; with none, what was recorded before stays.
    QStringView message = {};
};

/// Whether the price in another currency and its currency are both there or both missing, whatever the length
/// of the price.
Verdict otherPriceVerdict(const PadForm &form);

/// What the full check says of a field; it shows the length in the hint where the rule has one, and puts an
/// e-mail address in order. None for a field that is not judged.
std::optional<Verdict> summaryVerdict(const FieldRule &field, PadForm &form);

/// Colours the hint of @p field and records or clears its error.
void report(FieldId field, const Verdict &verdict, PadForm &form, ErrorPass &errors);

} // namespace quillon
