#pragma once

#include "cli/command.h"

#include <memory>

namespace quillon::cli {

std::unique_ptr<Command> ledgerCommand();
std::unique_ptr<Command> matrixCommand();
std::unique_ptr<Command> nextCommand();

} // namespace quillon::cli
