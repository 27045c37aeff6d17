#pragma once

#include "widgets/command_set.h"

namespace quillon {

class SubmitWindow;

/// The commands of the submission window, in the order of its menus.
QList<Command> submitCommands(SubmitWindow &window);

} // namespace quillon
