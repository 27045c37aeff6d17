#pragma once

#include "cli/command.h"

#include <memory>

namespace quillon::cli {

std::unique_ptr<Command> importCommand();
std::unique_ptr<Command> exportCommand();
std::unique_ptr<Command> originalCommand();

} // namespace quillon::cli
