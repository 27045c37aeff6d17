#include "cli/new_rename_delete.h"

#include "journal/history.h"
#include "overview/example_title.h"
#include "overview/taking_over.h"
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
    void describe(CLI::App &command) override
    {
        command.description("Add a new software title");
        command.add_option("NAME", m_name, "The title's name, kept as it is given")->required();
        command.add_option("--like", m_like, "Take over company, author, contact and support of this title")
            ->type_name("TITLE");
    }

    [[nodiscard]] bool writes() const override { return true; }

    ExitStatus run() override
    {
        const QString name = text(m_name);
        if (!isFree(name))
            return Refused;
        if (!m_like.empty() && !titleExists(text(m_like)))
            return Refused;
        const ExitStatus made = outcome(AddDeleteImportEdit::createNewListing(name));
        return made == Done && !m_like.empty() ? takeOver(name) : made;
    }

private:
    [[nodiscard]] ExitStatus takeOver(const QString &name) const
    {
        const auto from = change_plans::stateOf(text(m_like));
        if (!from)
            return outcome(from.error());
        ChangePlan plan{.origin = history::origin::bulk, .label = taking_over::label(*from), .titles = {}};
        change_plans::planEach(plan, {name}, [&from](const TitleState &state) {
            return change_plans::planned(state, taking_over::changes(state.judged.values, *from));
        });
        if (!plan.failures.isEmpty())
            return outcome(plan.failures.first());
        const auto applied = change_plans::apply(plan);
        return applied ? outcome(applied->titles.value(0).stored) : outcome(applied.error());
    }

    std::string m_name;
    std::string m_like;
};

class Example final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description("Add a complete title to try Quillon with, or remove it");
        command.add_flag("--remove", m_removes, "Remove it");
        command.add_flag("--dry-run", m_dryRun, "Only show which title would be added or removed");
    }

    [[nodiscard]] bool writes() const override { return !m_dryRun; }

    ExitStatus run() override
    {
        const QString &name = example_title::name;
        if (m_removes ? !titleExists(name) : !isFree(name))
            return Refused;
        if (m_dryRun) {
            print(name);
            return Done;
        }
        return outcome(m_removes ? title_operations::deleteTitle(name) : example_title::make());
    }

private:
    bool m_removes = false;
    bool m_dryRun = false;
};

class Rename final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description("Give a title another name");
        command.add_option("OLD", m_old, "The title")->required();
        command.add_option("NEW", m_new, "Its new name")->required();
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
    void describe(CLI::App &command) override
    {
        command.description("Delete a title, without asking; for 90 days \"undelete\" brings it back");
        command.add_option("TITLE", m_title, "The title")->required();
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

std::unique_ptr<Command> exampleCommand()
{
    return std::make_unique<Example>();
}

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
