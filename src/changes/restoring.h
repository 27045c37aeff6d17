#pragma once

#include "changes/change_set.h"
#include "platform/result.h"

#include <optional>

/// Going back to earlier texts.
namespace quillon::restoring {

/// What brings @p form, which holds the values of @p title, back to what they were when row @p row of its
/// history had come in; with @p field that one only. A field without an earlier row has been as it was before
/// its first later one; 0 is the beginning in any title. Refused when the history has no such row.
Result<ChangeSet> plan(const QString &title, const PadForm &form, qint64 row,
                       const std::optional<FieldId> &field);

} // namespace quillon::restoring
