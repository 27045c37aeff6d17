#pragma once

#include "cli/command.h"

#include <memory>

namespace quillon::cli {

std::unique_ptr<Command> newCommand();
std::unique_ptr<Command> exampleCommand();
std::unique_ptr<Command> renameCommand();
std::unique_ptr<Command> deleteCommand();

} // namespace quillon::cli
