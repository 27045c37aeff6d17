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

namespace quillon::cli {

std::vector<std::unique_ptr<Command>> commands()
{
    std::vector<std::unique_ptr<Command>> all;
    for (const auto make :
         {listCommand,         newCommand,      renameCommand,  deleteCommand,  exampleCommand,
          deletedCommand,      undeleteCommand, forgetCommand,  importCommand,  exportCommand,
          originalCommand,     showCommand,     setCommand,     historyCommand, restoreTextCommand,
          restoreTitleCommand, fixCommand,      releaseCommand, changeCommand,  changeSetsCommand,
          undoCommand,         checkCommand,    sitesCommand,   markCommand,    unmarkCommand,
          ledgerCommand,       matrixCommand,   nextCommand,    formmapCommand, copyCommand,
          backupCommand,       restoreCommand,  completeCommand})
        all.push_back(make());
    return all;
}

} // namespace quillon::cli
