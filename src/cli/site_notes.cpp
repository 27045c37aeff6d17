#include "cli/site_notes.h"

#include "cli/output.h"
#include "journal/journal.h"
#include "sites/site_editing.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

using site_knowledge::KnownSite;
using site_knowledge::Notes;

QString timeOf(const KnownSite &site)
{
    return site.found ? isoTime(site.found->time) : QString();
}

/// Name, verdict, time, where it leads or why, what the author noted.
void printLine(const KnownSite &site)
{
    const Notes &notes = site.notes;
    QStringList flags;
    for (const auto &[isSet, name] : {std::pair(notes.isGone, u"gone"_s),
                                      {notes.needsAccount, u"account"_s},
                                      {notes.readsPad, u"reads-pad"_s}}) {
        if (isSet)
            flags.append(name);
    }
    printColumns({site.name, site.found ? site.found->verdict : QString(), timeOf(site),
                  site.found ? site.found->detail : QString(), flags.join(u','), notes.note});
}

QJsonObject json(const KnownSite &site)
{
    QJsonObject object{{u"name"_s, site.name},
                       {u"gone"_s, site.notes.isGone},
                       {u"account"_s, site.notes.needsAccount},
                       {u"readsPad"_s, site.notes.readsPad},
                       {u"note"_s, site.notes.note}};
    if (site.found)
        object[u"found"_s] = QJsonObject{{u"verdict"_s, site.found->verdict},
                                         {u"time"_s, timeOf(site)},
                                         {u"detail"_s, site.found->detail}};
    return object;
}

} // namespace

ExitStatus showSiteHealth(bool asJson)
{
    const auto sites = Journal::ofDataFolder().find(site_knowledge::all);
    if (!sites)
        return outcome(sites.error());
    QJsonArray array;
    for (const KnownSite &site : *sites) {
        if (asJson)
            array.append(json(site));
        else
            printLine(site);
    }
    if (asJson)
        print(QJsonDocument(array));
    return Done;
}

void SiteNotes::addTo(CLI::App &sites)
{
    m_command = sites.add_subcommand("note", "Keep what you learned of a site; what is not given stays");
    m_command->add_option("NAME", m_name)->required();
    m_noteOption = m_command->add_option("--note", m_note, "A text of your own");
    const CLI::IsMember yesOrNo({"yes", "no"});
    m_command->add_option("--account", m_account, "Whether it wants an account: yes or no")->check(yesOrNo);
    m_command->add_option("--reads-pad", m_readsPad, "Whether it reads the PAD file by itself: yes or no")
        ->check(yesOrNo);
    m_command
        ->add_option("--gone", m_gone, "Whether it is gone: yes or no. What is gone leaves the tour only")
        ->check(yesOrNo);
    m_command->add_flag("--dry-run", m_dryRun, "Only show what would be known then");
    m_command->add_flag("--json", m_json, "As a JSON object");
}

Notes SiteNotes::changed(Notes notes) const
{
    const auto set = [](bool &flag, const std::string &answer) {
        if (!answer.empty())
            flag = answer == "yes";
    };
    set(notes.needsAccount, m_account);
    set(notes.readsPad, m_readsPad);
    set(notes.isGone, m_gone);
    if (*m_noteOption)
        notes.note = text(m_note);
    return notes;
}

ExitStatus SiteNotes::run() const
{
    const QString name = text(m_name);
    const auto catalogue = site_editing::storedCatalogue();
    if (!catalogue)
        return outcome(catalogue.error());
    if (!catalogue->sites.contains(name)) {
        complain(u"There is no site named %1."_s.arg(name));
        return Refused;
    }
    auto site = Journal::ofDataFolder().find(
        [&name](Database &database) { return site_knowledge::of(database, name); }, {.name = name});
    if (!site)
        return outcome(site.error());
    site->notes = changed(site->notes);
    const Result<> kept = m_dryRun ? Result<>() : Journal::ofDataFolder().change([&site](Database &database) {
        return site_knowledge::keepNotes(database, site->name, site->notes);
    });
    if (m_json && kept)
        print(QJsonDocument(json(*site)));
    else if (m_dryRun)
        printLine(*site);
    return outcome(kept);
}

} // namespace quillon::cli
