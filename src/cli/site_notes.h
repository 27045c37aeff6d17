#pragma once

#include "cli/command.h"
#include "journal/site_knowledge.h"

namespace quillon::cli {

/// Shows what is known of every site that something is known of.
ExitStatus showSiteHealth(bool asJson);

/// "sites note": keeps what the author learned of a site.
class SiteNotes
{
public:
    void addTo(CLI::App &sites);
    [[nodiscard]] bool isAsked() const { return m_command->parsed(); }
    [[nodiscard]] bool writes() const { return isAsked() && !m_dryRun; }
    [[nodiscard]] ExitStatus run() const;

private:
    [[nodiscard]] site_knowledge::Notes changed(site_knowledge::Notes notes) const;

    CLI::App *m_command = nullptr;
    std::string m_name;
    std::string m_note;
    std::string m_account;
    std::string m_readsPad;
    std::string m_gone;
    CLI::Option *m_noteOption = nullptr;
    bool m_dryRun = false;
    bool m_json = false;
};

} // namespace quillon::cli
