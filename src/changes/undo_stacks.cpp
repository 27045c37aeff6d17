#include "changes/undo_stacks.h"

#include <algorithm>

namespace quillon {

namespace {

auto isOf(const std::optional<qint64> &set)
{
    return [set](const history::StepHead &step) { return set && step.set == set; };
}

/// Moves the step with the number @p set, or without one the last, to the end of @p to.
void move(QList<history::StepHead> &from, QList<history::StepHead> &to, const std::optional<qint64> &set)
{
    if (from.isEmpty())
        return;
    const auto named = std::find_if(from.begin(), from.end(), isOf(set));
    to.append(from.takeAt(named == from.end() ? from.size() - 1 : named - from.begin()));
}

} // namespace

UndoStacks UndoStacks::of(const QList<history::StepHead> &steps)
{
    UndoStacks stacks;
    for (const history::StepHead &step : steps) {
        if (step.origin == history::origin::undo) {
            move(stacks.done, stacks.undone, step.of);
        } else if (step.origin == history::origin::redo) {
            move(stacks.undone, stacks.done, step.of);
        } else if (step.origin != history::origin::import) {
            stacks.done.append(step);
            stacks.undone.clear();
        }
    }
    return stacks;
}

bool UndoStacks::holdsDone(qint64 id) const
{
    return std::any_of(done.begin(), done.end(), isOf(id));
}

} // namespace quillon
