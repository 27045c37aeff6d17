#include "cli/backup_commands.h"

#include "sites/backups.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

/// A backup or a restore, of titles or of sites.
class Transfer final : public Command
{
public:
    using Run = BackupResult (*)(const QString &folder);

    Transfer(const char *name, const char *help, Run titles, Run sites)
        : m_commandName(name), m_help(help), m_runTitles(titles), m_runSites(sites)
    {
    }

    CLI::App *addTo(CLI::App &application) override
    {
        CLI::App *command = application.add_subcommand(m_commandName, m_help);
        m_titles = command->add_subcommand("titles", "The software list");
        m_sites = command->add_subcommand("sites", "The changes to the list of sites");
        for (CLI::App *what : {m_titles, m_sites})
            what->add_option("FOLDER", m_folder, "The backup's folder")->required();
        command->require_subcommand(1);
        return command;
    }

    [[nodiscard]] bool writes() const override { return true; }

    ExitStatus run() override
    {
        const QString folder = QFileInfo(text(m_folder)).absoluteFilePath();
        const BackupResult result = m_titles->parsed() ? m_runTitles(folder) : m_runSites(folder);
        for (const QString &detail : result.details)
            complain(detail);
        for (const QString &sentence : {result.sentence, result.informativeText}) {
            if (!sentence.isEmpty())
                complain(sentence);
        }
        switch (result.outcome) {
        case BackupResult::Done:
            return result.fileFailed ? FileFailed : Done;
        case BackupResult::Nothing:
        case BackupResult::Refused:
            return Refused;
        case BackupResult::Failed:
        case BackupResult::Cancelled:
            break;
        }
        return FileFailed;
    }

private:
    const char *m_commandName;
    const char *m_help;
    Run m_runTitles;
    Run m_runSites;
    std::string m_folder;
    CLI::App *m_titles = nullptr;
    CLI::App *m_sites = nullptr;
};

} // namespace

std::unique_ptr<Command> backupCommand()
{
    return std::make_unique<Transfer>(
        "backup", "Copy all titles, or the changes to the list of sites, to a new folder",
        [](const QString &folder) { return backups::backupTitles(folder, backups::Existing::Refuse); },
        [](const QString &folder) { return backups::backupSites(folder, backups::Existing::Refuse); });
}

std::unique_ptr<Command> restoreCommand()
{
    return std::make_unique<Transfer>(
        "restore", "Bring back titles, or changes to the list of sites, from a backup",
        [](const QString &folder) { return backups::restoreTitles(folder); },
        [](const QString &folder) { return backups::restoreSites(folder); });
}

} // namespace quillon::cli
