#pragma once

#include "cli/command.h"

#include <memory>

namespace quillon::cli {

std::unique_ptr<Command> backupCommand();
std::unique_ptr<Command> restoreCommand();

} // namespace quillon::cli
