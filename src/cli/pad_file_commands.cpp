#include "cli/pad_file_commands.h"

#include "journal/originals.h"
#include "overview/title_operations.h"

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

using title_operations::Export;
using title_operations::Import;

class ImportFile final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description(
            "Add a title from a PAD file; what of it will not be kept is told on standard error");
        command.add_option("FILE", m_file, "The PAD file")->required();
        m_as = command.add_option("--as", m_name, "The title's name, instead of the file's program name");
    }

    [[nodiscard]] bool writes() const override { return true; }

    ExitStatus run() override
    {
        const QString file = text(m_file);
        const Import import =
            title_operations::importPadFile(file, *m_as ? std::optional(text(m_name)) : std::nullopt);
        for (const QString &finding : import.findings)
            complain(file + u": " + finding);
        if (import.isKept && !import.findings.isEmpty())
            complain(file + u": \"quillon-cli original\" gives the file back as it came."_s);
        if (import.outcome == Import::Imported || import.outcome == Import::NotStored)
            return outcome(import.stored);
        complain(file + u": " + import.message);
        return import.outcome == Import::NotRead ? outcome(import.stored) : Refused;
    }

private:
    std::string m_file;
    std::string m_name;
    CLI::Option *m_as = nullptr;
};

/// Writes a file of a title: its PAD file, or the one that it came from.
class ExportFile final : public Command
{
public:
    explicit ExportFile(Export content) : m_content(content) {}

    void describe(CLI::App &command) override
    {
        const bool isOriginal = m_content == Export::Original;
        command.description(isOriginal ? "Write the file that a title was imported from, byte for byte"
                                       : "Write a title's PAD file as it is stored");
        command.add_option("TITLE", m_title, "The title")->required();
        if (!isOriginal)
            command.add_flag(
                "--merged", m_merged,
                "Lay what was changed over the file that the title was imported from, so that all "
                "else of it stays as it was");
        command.add_option("FILE", m_file, "Where to; an existing file is replaced. -: standard output")
            ->required();
    }

    [[nodiscard]] bool writes() const override { return false; }

    ExitStatus run() override
    {
        if (!titleExists(text(m_title)))
            return Refused;
        if (m_merged)
            m_content = Export::Merged;
        if (m_file == "-")
            return toStandardOutput();
        return told(title_operations::exportPadFile(text(m_title), text(m_file), m_content));
    }

private:
    [[nodiscard]] ExitStatus toStandardOutput() const
    {
        const auto content = title_operations::exportedPad(text(m_title), m_content);
        if (content)
            print(*content);
        return told(content ? Result<>() : content.error());
    }

    [[nodiscard]] ExitStatus told(const Result<> &exported) const
    {
        const bool isMissing = m_content != Export::Stored && exported.isError(Error::Kind::Missing) &&
                               !originals::has(text(m_title));
        if (isMissing)
            complain(u"No original was kept of %1."_s.arg(text(m_title)));
        else if (!exported)
            complain(title_operations::exportFailed);
        return isMissing ? Refused : outcome(exported);
    }

    Export m_content;
    bool m_merged = false;
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
    return std::make_unique<ExportFile>(Export::Stored);
}

std::unique_ptr<Command> originalCommand()
{
    return std::make_unique<ExportFile>(Export::Original);
}

} // namespace quillon::cli
