#pragma once

#include "journal/history.h"

namespace quillon {

/// The steps of a title that can be taken back, and done again; the next one is the last of each.
struct UndoStacks
{
    QList<history::StepHead> done = {};
    QList<history::StepHead> undone = {};

    /// What has become of @p steps, oldest first. A step that says which set it takes back, or does again,
    /// may do so to one that is not the last.
    static UndoStacks of(const QList<history::StepHead> &steps);

    /// Whether the set @p id is among those that can be taken back.
    [[nodiscard]] bool holdsDone(qint64 id) const;
};

} // namespace quillon
