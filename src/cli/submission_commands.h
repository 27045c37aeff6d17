#pragma once

#include "cli/command.h"

#include <memory>

namespace quillon::cli {

std::unique_ptr<Command> markCommand();
std::unique_ptr<Command> unmarkCommand();
std::unique_ptr<Command> copyCommand();

} // namespace quillon::cli
