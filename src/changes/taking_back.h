#pragma once

#include "changes/change_plan.h"
#include "journal/set_log.h"

/// Sets of changes, and the way back.
namespace quillon::taking_back {

/// All sets but those of typing, newest first.
Result<QList<set_log::SetHead>> sets();

/// What takes the set @p id back, or without a number the newest one that is no undo itself and is not taken
/// back everywhere; of an undo, what does again what it took back. Titles where that is done already are left
/// out, and what cannot be done is noted. Refused when there is no such set.
Result<ChangePlan> plan(const std::optional<qint64> &id = std::nullopt);

} // namespace quillon::taking_back
