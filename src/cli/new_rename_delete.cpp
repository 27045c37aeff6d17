#include "cli/new_rename_delete.h"

#include "overview/title_deletion.h"
#include "overview/title_operations.h"
#include "store/add_delete_import_edit.h"

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

using title_operations::NameVerdict;

/// Complains of a name that no title can be given.
bool isFree(const QString &name)
{
    const NameVerdict verdict = title_operations::judgeName(name);
    if (verdict != NameVerdict::Free)
        complain(title_operations::sentence(verdict));
    return verdict == NameVerdict::Free;
}

class New final : public Command
{
public:
    CLI::App *addTo(CLI::App &application) override
    {
        CLI::App *command = application.add_subcommand("new", "Add a new software title");
        command->add_option("NAME", m_name, "The title's name, kept as it is given")->required();
        return command;
    }

    [[nodiscard]] bool writes() const override { return true; }

    ExitStatus run() override
    {
        const QString name = text(m_name);
        if (!isFree(name))
            return Refused;
        return outcome(AddDeleteImportEdit::createNewListing(name));
    }

private:
    std::string m_name;
};

class Rename final : public Command
{
public:
    CLI::App *addTo(CLI::App &application) override
    {
        CLI::App *command = application.add_subcommand("rename", "Give a title another name");
        command->add_option("OLD", m_old, "The title")->required();
        command->add_option("NEW", m_new, "Its new name")->required();
        return command;
    }

    [[nodiscard]] bool writes() const override { return true; }

    ExitStatus run() override
    {
        if (!titleExists(text(m_old)) || !isFree(text(m_new)))
            return Refused;
        return outcome(title_operations::renameTitle(text(m_old), text(m_new)));
    }

private:
    std::string m_old;
    std::string m_new;
};

class Delete final : public Command
{
public:
    CLI::App *addTo(CLI::App &application) override
    {
        CLI::App *command = application.add_subcommand(
            "delete", "Delete a title, without asking; for 90 days \"undelete\" brings it back");
        command->add_option("TITLE", m_title, "The title")->required();
        return command;
    }

    [[nodiscard]] bool writes() const override { return true; }

    ExitStatus run() override
    {
        if (!titleExists(text(m_title)))
            return Refused;
        return outcome(title_operations::deleteTitle(text(m_title)));
    }

private:
    std::string m_title;
};

} // namespace

std::unique_ptr<Command> newCommand()
{
    return std::make_unique<New>();
}

std::unique_ptr<Command> renameCommand()
{
    return std::make_unique<Rename>();
}

std::unique_ptr<Command> deleteCommand()
{
    return std::make_unique<Delete>();
}

} // namespace quillon::cli
