#pragma once

#include "cli/command.h"

#include <memory>

namespace quillon::cli {

std::unique_ptr<Command> fixCommand();
std::unique_ptr<Command> releaseCommand();
std::unique_ptr<Command> changeCommand();
std::unique_ptr<Command> changeSetsCommand();
std::unique_ptr<Command> undoCommand();

} // namespace quillon::cli
