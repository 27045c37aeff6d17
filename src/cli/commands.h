#pragma once

#include "cli/command.h"

#include <memory>
#include <string_view>
#include <vector>

namespace quillon::cli {

/// A command, and what the parser knows of it.
struct AddedCommand
{
    CLI::App *parser;
    std::unique_ptr<Command> command;
};

/// Adds the commands of quillon-cli to @p program, in the order of the help.
///
/// Of those, only the one that is named @p word, where that is enough: describing all of them to the parser
/// takes as long as judging a PAD file.
std::vector<AddedCommand> addCommands(CLI::App &program, std::string_view word);

} // namespace quillon::cli
