#pragma once

#include <QStringList>

/// Sets of changes that a crash came between.
namespace quillon::unfinished_sets {

/// Looks what became of each title of such a set, has it checked and stored, so that its files agree, and
/// keeps of the set what was made. What to tell the author, one line for each set that was not made
/// everywhere. Only for the one that holds the data folder's lock, and before a title is open in a window.
QStringList settle();

} // namespace quillon::unfinished_sets
