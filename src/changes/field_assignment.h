#pragma once

#include "changes/change_set.h"
#include "platform/result.h"

namespace quillon {

/// A field and the value that it has or is to have, as an author writes them: "Company_Name=Acme".
struct FieldAssignment
{
    FieldId field = FieldId::programName;
    QString value; ///< Entries of a check list joined by ",".
};

namespace field_assignments {

/// What @p text says: the name of a control or of a PAD element, "=" and a value. Refused, with a sentence,
/// when there is no such field or it cannot take the value (isPossible()).
Result<FieldAssignment> parsed(const QString &text);

/// Whether the field can take the value; whatever is typed into a text can be.
bool isPossible(const FieldAssignment &assignment);

/// What changes when an author types @p assignment into a form that holds @p values, and leaves the field.
QList<Change> typedInto(const FormValues &values, const FieldAssignment &assignment);

} // namespace field_assignments

} // namespace quillon
