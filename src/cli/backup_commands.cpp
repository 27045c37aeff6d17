#include "cli/backup_commands.h"

#include "cli/output.h"
#include "sites/backups.h"

#include <QFileInfo>
#include <QJsonObject>

#include <array>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

/// A backup or a restore, of titles, of sites or of everything.
class Transfer final : public Command
{
public:
    using Run = BackupResult (*)(const QString &folder, backups::Mode mode);

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
        for (CLI::App *what : {m_titles, m_sites, m_all}) {
            what->add_option("FOLDER", m_folder, "The backup's folder")->required();
            what->add_flag("--dry-run", m_dryRun,
                           "Only show what would be copied and what is kept; nothing is written");
            what->add_flag("--json", m_json, "As a JSON object");
        }
        command.require_subcommand(1);
    }

    [[nodiscard]] bool writes() const override { return !m_dryRun; }

    ExitStatus run() override
    {
        const QString folder = QFileInfo(text(m_folder)).absoluteFilePath();
        const Run run = m_all->parsed() ? m_runs.all : m_titles->parsed() ? m_runs.titles : m_runs.sites;
        const BackupResult result = run(folder, m_dryRun ? backups::Mode::TryOut : backups::Mode::Do);
        for (const QString &detail : result.details)
            complain(detail);
        // They tell what was done.
        const bool isToBeTold = !m_dryRun || result.outcome != BackupResult::Done;
        for (const QString &sentence : {result.sentence, result.informativeText}) {
            if (isToBeTold && !sentence.isEmpty())
                complain(sentence);
        }
        if (m_json)
            print(QJsonDocument(json(result)));
        else if (m_dryRun)
            printItems(result);
        return status(result);
    }

private:
    static QString name(BackupItem::Kind kind)
    {
        static constexpr std::array<QStringView, 4> names = {u"title", u"site", u"removed", u"extras"};
        return names[size_t(kind)].toString();
    }

    static QString state(const BackupItem &item) { return item.isKept ? u"kept"_s : u"copied"_s; }

    static void printItems(const BackupResult &result)
    {
        for (const BackupItem &item : result.items)
            printColumns({name(item.kind), item.name, item.address, state(item)});
    }

    static QJsonObject json(const BackupResult &result)
    {
        QJsonArray items;
        for (const BackupItem &item : result.items)
            items.append(QJsonObject{{u"kind"_s, name(item.kind)},
                                     {u"name"_s, item.name},
                                     {u"address"_s, item.address},
                                     {u"state"_s, state(item)}});
        return {{u"items"_s, items}, {u"passedOver"_s, QJsonArray::fromStringList(result.details)}};
    }

    static ExitStatus status(const BackupResult &result)
    {
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

    const char *m_help;
    Runs m_runs;
    std::string m_folder;
    bool m_dryRun = false;
    bool m_json = false;
    CLI::App *m_titles = nullptr;
    CLI::App *m_sites = nullptr;
    CLI::App *m_all = nullptr;
};

} // namespace

std::unique_ptr<Command> backupCommand()
{
    return std::make_unique<Transfer>(
        "Copy all titles, the changes to the list of sites, or everything, to a new folder",
        Transfer::Runs{.titles =
                           [](const QString &folder, backups::Mode mode) {
                               return backups::backupTitles(folder, backups::Existing::Refuse, {}, mode);
                           },
                       .sites =
                           [](const QString &folder, backups::Mode mode) {
                               return backups::backupSites(folder, backups::Existing::Refuse, mode);
                           },
                       .all =
                           [](const QString &folder, backups::Mode mode) {
                               return backups::backupAll(folder, backups::Existing::Refuse, mode);
                           }});
}

std::unique_ptr<Command> restoreCommand()
{
    return std::make_unique<Transfer>(
        "Bring back titles, changes to the list of sites, or everything, from a backup",
        Transfer::Runs{.titles = [](const QString &folder,
                                    backups::Mode mode) { return backups::restoreTitles(folder, {}, mode); },
                       .sites = backups::restoreSites,
                       .all = backups::restoreAll});
}

} // namespace quillon::cli
