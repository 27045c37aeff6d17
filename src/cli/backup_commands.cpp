#include "cli/backup_commands.h"

#include "sites/backups.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

/// A backup or a restore, of titles, of sites or of everything.
class Transfer final : public Command
{
public:
    using Run = BackupResult (*)(const QString &folder);

    struct Runs
    {
        Run titles;
        Run sites;
        Run all;
    };

    Transfer(const char *help, const Runs &runs) : m_help(help), m_runs(runs) {}

    void describe(CLI::App &command) override
    {
        command.description(m_help);
        m_titles = command.add_subcommand("titles", "The software list");
        m_sites = command.add_subcommand("sites", "The changes to the list of sites");
        m_all = command.add_subcommand("all", "Both, and what is kept besides: earlier texts, originals, "
                                              "what was deleted");
        for (CLI::App *what : {m_titles, m_sites, m_all})
            what->add_option("FOLDER", m_folder, "The backup's folder")->required();
        command.require_subcommand(1);
    }

    [[nodiscard]] bool writes() const override { return true; }

    ExitStatus run() override
    {
        const QString folder = QFileInfo(text(m_folder)).absoluteFilePath();
        const Run run = m_all->parsed() ? m_runs.all : m_titles->parsed() ? m_runs.titles : m_runs.sites;
        const BackupResult result = run(folder);
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
    const char *m_help;
    Runs m_runs;
    std::string m_folder;
    CLI::App *m_titles = nullptr;
    CLI::App *m_sites = nullptr;
    CLI::App *m_all = nullptr;
};

} // namespace

std::unique_ptr<Command> backupCommand()
{
    return std::make_unique<Transfer>(
        "Copy all titles, the changes to the list of sites, or everything, to a new folder",
        Transfer::Runs{
            .titles =
                [](const QString &folder) {
                    return backups::backupTitles(folder, backups::Existing::Refuse);
                },
            .sites =
                [](const QString &folder) { return backups::backupSites(folder, backups::Existing::Refuse); },
            .all =
                [](const QString &folder) { return backups::backupAll(folder, backups::Existing::Refuse); }});
}

std::unique_ptr<Command> restoreCommand()
{
    return std::make_unique<Transfer>(
        "Bring back titles, changes to the list of sites, or everything, from a backup",
        Transfer::Runs{.titles = [](const QString &folder) { return backups::restoreTitles(folder); },
                       .sites = backups::restoreSites,
                       .all = backups::restoreAll});
}

} // namespace quillon::cli
