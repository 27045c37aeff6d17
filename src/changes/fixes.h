#pragma once

#include "changes/change_plan.h"

/// What can be mended in a title without guessing. A fix bears the id of the finding that it mends.
namespace quillon::fixes {

/// One kind of fix.
struct FixRule
{
    QStringView id;
    QStringView summary; ///< A sentence for lists of all fixes: what is done, and when.
};

/// All of them, in the order in which they are made.
const QList<FixRule> &rules();

/// Whether there is a fix @p id.
bool exists(QStringView id);

/// What the fixes change in a title; with @p only, those of these ids. The origin of each change is
/// "fix:ID".
QList<Change> changesFor(const TitleState &state, const QStringList &only = {});

/// The same in @p titles.
ChangePlan plan(const QStringList &titles, const QStringList &only = {});

/// The id of the fix that @p change comes from; empty where it is none.
QString idOf(const Change &change);

} // namespace quillon::fixes
