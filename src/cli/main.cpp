#include "changes/unfinished_sets.h"
#include "cli/commands.h"
#include "platform/application_info.h"
#include "platform/descriptor.h"
#include "store/add_delete_import_edit.h"
#include "store/data_folder_lock.h"
#include "store/process_state.h"
#include "store/storage_status.h"

#include <QCoreApplication>
#include <QDir>
#include <QScopeGuard>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <langinfo.h>
#include <sstream>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace {

/// Starts Qt with UTF-8 for file names and output also where the environment names another character set, or
/// no locale at all, as in many build scripts. Qt takes the character set when it starts and complains of any
/// other. All else of the user's locale, such as the style of dates, is read later, from the environment as
/// it was.
QCoreApplication start(int &argc, char *argv[])
{
    const QByteArray before = qgetenv("LC_ALL");
    const auto restore = qScopeGuard([&before] {
        if (before.isNull())
            ::unsetenv("LC_ALL");
        else
            ::setenv("LC_ALL", before.constData(), 1);
    });
    std::setlocale(LC_ALL, "");
    if (std::string_view(nl_langinfo(CODESET)) != "UTF-8")
        ::setenv("LC_ALL", "C.UTF-8", 1);
    return QCoreApplication(argc, argv);
}

/// The argument that stands where a command is named: first, or behind "--home DIR" or "--home=DIR". Empty
/// when there is none.
std::string_view commandWord(int argc, char *argv[])
{
    const std::string_view first = argc > 1 ? argv[1] : "";
    const int at = first == "--home" ? 3 : first.starts_with("--home=") ? 2 : 1;
    return at < argc ? argv[at] : "";
}

/// The arguments in the order that the parser takes: the last one first. The parser would split an argument
/// "[a,b]" in two; a NUL at its end keeps it whole, and cli::text() drops the NUL again.
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

/// Gives the help that was asked for, or says what is wrong with the command line.
cli::ExitStatus answer(const CLI::App &program, const CLI::ParseError &error)
{
    std::ostringstream help;
    std::ostringstream complaint;
    const int status = program.exit(error, help, complaint);
    cli::print(QByteArray::fromStdString(help.str()));
    cli::explain(QString::fromStdString(complaint.str()).remove(QChar(u'\0')));
    return status == 0 ? cli::Done : cli::WrongUsage;
}

/// @p status, unless something that was printed could not be written.
cli::ExitStatus whenPrinted(cli::ExitStatus status)
{
    return cli::isPrinted() ? status : cli::FileFailed;
}

/// Sees to what a crash has left behind.
void removeRests()
{
    AddDeleteImportEdit::removeUnfinished();
    for (const Error &unfinished : unfinished_sets::settle())
        cli::complain(failureLine(unfinished));
}

cli::ExitStatus run(cli::Command &command)
{
    if (!command.writes())
        return command.run();
    (void)AddDeleteImportEdit::checkAppSuppExists(); // What cannot be stored there is told by the command.
    const DataFolderLock lock;
    if (lock.state() == DataFolderLock::State::Obstructed)
        return cli::outcome(lock.obstruction());
    if (lock.state() == DataFolderLock::State::HeldByAnother) {
        cli::complain(u"Quillon is running. Please quit it first, or use its window."_s);
        return cli::Refused;
    }
    if (lock.state() == DataFolderLock::State::Held)
        removeRests();
    return command.run();
}

} // namespace

int main(int argc, char *argv[])
{
    reserveStandardDescriptors();
    const QCoreApplication application = start(argc, argv);
    cli::tellLogLines();

    CLI::App program("Keeps, checks and submits the PAD files of software titles.", "quillon-cli");
    program.set_version_flag("--version", application_info::version.toStdString());
    // None is complained of below: were one required here, the parser would not name an unknown one.
    program.require_subcommand(0, 1);
    std::string home = QDir::homePath().toStdString();
    program.add_option("--home", home, "Use this folder as the user's home folder")->type_name("DIR");

    const std::vector<cli::AddedCommand> commands = cli::addCommands(program, commandWord(argc, argv));
    try {
        program.parse(arguments(argc, argv));
    } catch (const CLI::ParseError &error) {
        return whenPrinted(answer(program, error));
    }

    if (home.empty()) {
        cli::complain(u"--home needs the name of a folder."_s);
        return cli::WrongUsage;
    }
    setDataFolder(QDir(cli::text(home)).absolutePath());
    for (const auto &[parser, command] : commands) {
        if (parser->parsed())
            return whenPrinted(run(*command));
    }
    cli::complain(u"A command is needed."_s);
    cli::complain(cli::text(program.help()));
    return cli::WrongUsage;
}
