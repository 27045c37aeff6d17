#include "cli/commands.h"
#include "platform/application_info.h"
#include "store/add_delete_import_edit.h"
#include "store/data_folder_lock.h"
#include "store/process_state.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <langinfo.h>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace {

/// File names and output are UTF-8 also where the environment names no locale, as in many build scripts.
void ensureUtf8Locale()
{
    std::setlocale(LC_ALL, "");
    if (std::string_view(nl_langinfo(CODESET)) != "UTF-8")
        ::setenv("LC_ALL", "C.UTF-8", 1);
}

/// The arguments as the parser takes them, the last one first. To it "[a,b]" is a list of two texts, but not
/// with the NUL behind it.
std::vector<std::string> arguments(int argc, char *argv[])
{
    std::vector<std::string> all(argv + 1, argv + argc);
    for (std::string &argument : all) {
        if (argument.starts_with('['))
            argument.push_back('\0');
    }
    std::ranges::reverse(all);
    return all;
}

cli::ExitStatus run(cli::Command &command)
{
    if (!command.writes())
        return command.run();
    (void)AddDeleteImportEdit::checkAppSuppExists(); // What cannot be stored there is told by the command.
    const DataFolderLock lock;
    if (lock.state() == DataFolderLock::State::HeldByAnother) {
        cli::complain(u"Quillon is running. Please quit it first, or use its window."_s);
        return cli::Refused;
    }
    return command.run();
}

} // namespace

int main(int argc, char *argv[])
{
    ensureUtf8Locale();
    const QCoreApplication application(argc, argv);

    CLI::App program("Keeps, checks and submits the PAD files of software titles.", "quillon-cli");
    program.set_version_flag("--version", application_info::version.toStdString());
    program.require_subcommand(
        0, 1); // None is told below, with the help; so an unknown one is told by its name.
    std::string home = QDir::homePath().toStdString();
    program.add_option("--home", home, "Use this folder as the user's home folder")->type_name("DIR");

    std::vector<std::pair<CLI::App *, std::unique_ptr<cli::Command>>> commands;
    for (const auto make :
         {cli::listCommand, cli::newCommand, cli::renameCommand, cli::deleteCommand, cli::importCommand,
          cli::exportCommand, cli::showCommand, cli::setCommand, cli::checkCommand, cli::sitesCommand,
          cli::markCommand, cli::unmarkCommand, cli::copyCommand, cli::backupCommand, cli::restoreCommand}) {
        auto command = make();
        CLI::App *subcommand = command->addTo(program);
        commands.emplace_back(subcommand, std::move(command));
    }
    try {
        program.parse(arguments(argc, argv));
    } catch (const CLI::ParseError &error) {
        return program.exit(error) == 0 ? cli::Done : cli::WrongUsage;
    }

    if (home.empty()) {
        cli::complain(u"--home needs the name of a folder."_s);
        return cli::WrongUsage;
    }
    setDataFolder(QDir(cli::text(home)).absolutePath());
    for (const auto &[subcommand, command] : commands) {
        if (subcommand->parsed()) {
            const cli::ExitStatus status = run(*command);
            return cli::isPrinted() ? status : cli::FileFailed;
        }
    }
    cli::complain(u"A command is needed."_s);
    cli::complain(cli::text(program.help()));
    return cli::WrongUsage;
}
