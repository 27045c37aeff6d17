#include "cli/pad_file_commands.h"

#include "overview/title_operations.h"

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

using title_operations::Import;

class ImportFile final : public Command
{
public:
    CLI::App *addTo(CLI::App &application) override
    {
        CLI::App *command = application.add_subcommand(
            "import", "Add a title from a PAD file; what of it will not be kept is told on standard error");
        command->add_option("FILE", m_file, "The PAD file")->required();
        m_as = command->add_option("--as", m_name, "The title's name, instead of the file's program name");
        return command;
    }

    [[nodiscard]] bool writes() const override { return true; }

    ExitStatus run() override
    {
        const QString file = text(m_file);
        const Import import =
            title_operations::importPadFile(file, *m_as ? std::optional(text(m_name)) : std::nullopt);
        for (const QString &finding : import.findings)
            complain(file + u": " + finding);
        if (import.outcome == Import::Imported || import.outcome == Import::NotStored)
            return outcome(import.stored);
        complain(file + u": " + import.message);
        const bool unreadable = import.outcome == Import::NotPad && !isReadableFile(file);
        return unreadable ? FileFailed : Refused;
    }

private:
    std::string m_file;
    std::string m_name;
    CLI::Option *m_as = nullptr;
};

class ExportFile final : public Command
{
public:
    CLI::App *addTo(CLI::App &application) override
    {
        CLI::App *command = application.add_subcommand("export", "Write a title's PAD file as it is stored");
        command->add_option("TITLE", m_title, "The title")->required();
        command->add_option("FILE", m_file, "Where to; an existing file is replaced. -: standard output")
            ->required();
        return command;
    }

    [[nodiscard]] bool writes() const override { return false; }

    ExitStatus run() override
    {
        if (!titleExists(text(m_title)))
            return Refused;
        if (m_file == "-")
            return toStandardOutput();
        const Result<> exported = title_operations::exportPadFile(text(m_title), text(m_file));
        if (!exported)
            complain(title_operations::exportFailed);
        return outcome(exported);
    }

private:
    [[nodiscard]] ExitStatus toStandardOutput() const
    {
        const auto content = title_operations::exportedPad(text(m_title));
        if (content) {
            print(*content);
            return Done;
        }
        complain(title_operations::exportFailed);
        return outcome(content.error());
    }

    std::string m_title;
    std::string m_file;
};

} // namespace

std::unique_ptr<Command> importCommand()
{
    return std::make_unique<ImportFile>();
}

std::unique_ptr<Command> exportCommand()
{
    return std::make_unique<ExportFile>();
}

} // namespace quillon::cli
