#pragma once

#include "cli/command.h"

#include <memory>

/// Every command of quillon-cli; in the order of the help.
namespace quillon::cli {

std::unique_ptr<Command> listCommand();
std::unique_ptr<Command> newCommand();
std::unique_ptr<Command> renameCommand();
std::unique_ptr<Command> deleteCommand();
std::unique_ptr<Command> importCommand();
std::unique_ptr<Command> exportCommand();
std::unique_ptr<Command> showCommand();
std::unique_ptr<Command> setCommand();
std::unique_ptr<Command> checkCommand();
std::unique_ptr<Command> sitesCommand();
std::unique_ptr<Command> markCommand();
std::unique_ptr<Command> unmarkCommand();
std::unique_ptr<Command> copyCommand();
std::unique_ptr<Command> backupCommand();
std::unique_ptr<Command> restoreCommand();

} // namespace quillon::cli
