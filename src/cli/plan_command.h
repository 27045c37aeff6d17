#pragma once

#include "changes/change_plan.h"
#include "cli/command.h"

namespace quillon::cli {

/// A command that changes titles by a plan: shows it, and applies it unless it is only tried out.
class PlanCommand : public Command
{
public:
    [[nodiscard]] bool writes() const override { return !m_dryRun; }

    ExitStatus run() override;

protected:
    /// What is to be done, or the complaint of why it cannot be, with the status to end with.
    struct Planned
    {
        ChangePlan plan = {};
        ExitStatus status = Done;
    };
    [[nodiscard]] virtual Planned plan() const = 0;

    /// Adds "--dry-run" and "--json".
    void addOutputOptions(CLI::App &command);

    /// @p names as titles; complains of the first that does not exist.
    static std::optional<QStringList> existing(const std::vector<std::string> &names);

private:
    bool m_dryRun = false;
    bool m_json = false;
};

} // namespace quillon::cli
