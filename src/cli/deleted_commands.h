#pragma once

#include "cli/command.h"

#include <memory>

namespace quillon::cli {

std::unique_ptr<Command> deletedCommand();
std::unique_ptr<Command> undeleteCommand();
std::unique_ptr<Command> forgetCommand();

} // namespace quillon::cli
