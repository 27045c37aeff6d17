#include "cli/commands.h"

#include "cli/backup_commands.h"
#include "cli/change_commands.h"
#include "cli/check_command.h"
#include "cli/complete_command.h"
#include "cli/deleted_commands.h"
#include "cli/formmap_command.h"
#include "cli/history_commands.h"
#include "cli/ledger_commands.h"
#include "cli/list_command.h"
#include "cli/new_rename_delete.h"
#include "cli/pad_file_commands.h"
#include "cli/set_command.h"
#include "cli/show_command.h"
#include "cli/sites_command.h"
#include "cli/submission_commands.h"

#include <algorithm>

namespace quillon::cli {

namespace {

struct Row
{
    const char *name;
    std::unique_ptr<Command> (*make)();
    bool needsOthers = false; ///< It tells of all commands.
};

// In the order of the help.
constexpr Row rows[] = {
    {"list", listCommand},
    {"new", newCommand},
    {"rename", renameCommand},
    {"delete", deleteCommand},
    {"example", exampleCommand},
    {"deleted", deletedCommand},
    {"undelete", undeleteCommand},
    {"forget", forgetCommand},
    {"import", importCommand},
    {"export", exportCommand},
    {"original", originalCommand},
    {"show", showCommand},
    {"set", setCommand},
    {"history", historyCommand},
    {"restore-text", restoreTextCommand},
    {"restore-title", restoreTitleCommand},
    {"fix", fixCommand},
    {"release", releaseCommand},
    {"change", changeCommand},
    {"changesets", changeSetsCommand},
    {"undo", undoCommand},
    {"check", checkCommand},
    {"sites", sitesCommand},
    {"mark", markCommand},
    {"unmark", unmarkCommand},
    {"ledger", ledgerCommand},
    {"matrix", matrixCommand},
    {"next", nextCommand},
    {"formmap", formmapCommand},
    {"copy", copyCommand},
    {"backup", backupCommand},
    {"restore", restoreCommand},
    {"complete", completeCommand, true},
};

} // namespace

std::vector<AddedCommand> addCommands(CLI::App &program, std::string_view word)
{
    const bool isOneEnough =
        std::ranges::any_of(rows, [word](const Row &row) { return row.name == word && !row.needsOthers; });
    std::vector<AddedCommand> added;
    for (const Row &row : rows) {
        if (isOneEnough && row.name != word)
            continue;
        added.push_back({.parser = program.add_subcommand(row.name), .command = row.make()});
        added.back().command->describe(*added.back().parser);
    }
    return added;
}

} // namespace quillon::cli
