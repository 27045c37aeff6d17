#pragma once

#include "cli/command.h"

#include <memory>
#include <vector>

namespace quillon::cli {

/// Every command of quillon-cli, in the order of the help.
std::vector<std::unique_ptr<Command>> commands();

} // namespace quillon::cli
