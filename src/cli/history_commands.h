#pragma once

#include "cli/command.h"

#include <memory>

namespace quillon::cli {

std::unique_ptr<Command> historyCommand();
std::unique_ptr<Command> restoreTextCommand();
std::unique_ptr<Command> restoreTitleCommand();

} // namespace quillon::cli
