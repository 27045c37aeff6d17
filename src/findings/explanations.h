#pragma once

#include "findings/finding.h"
#include "platform/string_dictionary.h"

#include <QList>

namespace quillon {
class PadForm;
}

/// Recorded errors in plain words, with the bounds that the rules have.
namespace quillon::findings {

/// The error @p recorded of @p field, explained by what @p form holds and not by what the message says: "too
/// long" is recorded of an empty icon address, too. A field that nothing is wrong with any more gets the id
/// "recorded-earlier".
Finding explained(FieldId field, const QString &recorded, const PadForm &form);

/// All of @p recorded, message by the key of the field, in the order of the catalogue; keys that are no
/// field's are left out. An error log and what a check found are both of this kind.
QList<Finding> explained(const StringDictionary &recorded, const PadForm &form);

} // namespace quillon::findings
