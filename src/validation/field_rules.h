#pragma once

#include "validation/field_rule_table.h"

namespace quillon {

class ErrorPass;
class PadForm;

/// The rules that decide, field by field, whether a PAD file is acceptable.
namespace field_rules {

/// The typing rules of the three pages with single-line texts. A tag of another page does nothing.
void compInfoTagsSorting(int tag, PadForm &form, ErrorPass &errors);
void progInfoTagsChecking(int tag, PadForm &form, ErrorPass &errors);
void webInfoTagsChecking(int tag, PadForm &form, ErrorPass &errors);

/// Hands a change in the text with @p tag to its page's rules: up to 20 the company's, up to 34 the
/// program's, up to 43 the web's. Any other tag does nothing.
void textChanged(int tag, PadForm &form, ErrorPass &errors);

/// Puts the text with @p tag in order when the author leaves it. What to tell the author, mostly nothing.
QStringView editingEnded(int tag, PadForm &form, ErrorPass &errors);

/// Judges every field of @p form: colours captions and hints, shows lengths, records and clears errors.
/// Judging twice gives the same.
void checkEntries(PadForm &form, ErrorPass &errors);

/// Forgets the hints that only typing keeps up to date, because the texts have been replaced.
void forgetTypedHints(PadForm &form);

} // namespace field_rules

} // namespace quillon
