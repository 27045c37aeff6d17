#pragma once

#include "platform/result.h"

#include <QList>

/// Sets of changes that a crash came between.
namespace quillon::unfinished_sets {

/// Looks what became of each title of such a set, has it checked and stored, so that its files agree, unless
/// it was never checked before and has its PAD file as it came, and keeps of the set what was made. What to
/// tell the author: one error for each set that was not made everywhere, with its label as the path. The list
/// of titles is read anew when there was such a set. Only for the one that holds the data folder's lock.
QList<Error> settle();

} // namespace quillon::unfinished_sets
