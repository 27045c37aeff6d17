#pragma once

#include "cli/command.h"

#include <memory>

/// Every command of quillon-cli; each has a file of its own.
namespace quillon::cli {

std::unique_ptr<Command> listCommand();
std::unique_ptr<Command> newCommand();
std::unique_ptr<Command> renameCommand();
std::unique_ptr<Command> deleteCommand();
std::unique_ptr<Command> importCommand();
std::unique_ptr<Command> exportCommand();
std::unique_ptr<Command> showCommand();

} // namespace quillon::cli
