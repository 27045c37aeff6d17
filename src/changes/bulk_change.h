#pragma once

#include "changes/change_plan.h"
#include "changes/field_assignment.h"

/// The same values for many titles.
namespace quillon::bulk_change {

/// Fields that are to be set, in the titles whose fields hold what is said of them.
struct BulkChange
{
    QList<FieldAssignment> where; ///< All of them, exactly; none for any title.
    QList<FieldAssignment> set;
};

/// What @p change makes of those of @p titles that it is for, as if it were typed there.
ChangePlan plan(const BulkChange &change, const QStringList &titles);

} // namespace quillon::bulk_change
