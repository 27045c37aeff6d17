#include "cli/sites_command.h"

#include "cli/site_notes.h"
#include "cli/title_session.h"
#include "sites/site_editing.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "store/site_list.h"
#include "store/storage_status.h"
#include "store/summary_file.h"
#include "submission/default_sites.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

/// One of the two site lists as it is; a missing one stays missing, and one that cannot be read is told.
StringDictionary stored(QStringView siteList)
{
    const auto sites = site_list::stored(siteList);
    if (sites.isError(Error::Kind::Unreadable))
        reportFailure(sites.error());
    return sites.valueOr({});
}

/// Complains of each of @p names that stays hidden when they are restored, because another removed site has
/// the same address. False when one was not removed itself, so that there is nothing to restore.
bool canBeRestored(const QStringList &names)
{
    const StringDictionary ignored = stored(site_list::ignoredSites);
    StringDictionary others = ignored;
    for (const QString &name : names)
        others.erase(name);
    bool can = true;
    for (const QString &name : names) {
        const QString &url = mwqnDefaultSitesDict.at(name);
        const auto hiding = std::ranges::find(others, url, &StringDictionary::value_type::second);
        if (hiding == others.end())
            continue;
        const bool isIgnored = ignored.contains(name);
        const QString complaint =
            isIgnored ? u"%1 stays hidden by %2, which has the same address."_s
                      : u"%1 is hidden by %2, which has the same address; restore that one."_s;
        complain(complaint.arg(name, hiding->first));
        can = can && isIgnored;
    }
    return can;
}

/// The catalogue, a title's state with each site, and the changes to the list of sites.
class Sites final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description("The sites that titles can be submitted to");
        m_for = command.add_option("--for", m_title,
                                   "In the submission window's order, with this title's state for each");
        command.add_flag("--health", m_health, "What is known of sites, and what was last found there")
            ->excludes(m_for);
        command.add_flag("--json", m_json, "As JSON");
        m_notes.addTo(command);

        m_add = command.add_subcommand("add", "Add a site of your own");
        m_add->add_option("NAME", m_name)->required();
        m_add->add_option("URL", m_url)->required();
        m_edit =
            command.add_subcommand("edit", "Give a site another name and address; marks follow the name");
        m_edit->add_option("NAME", m_name)->required();
        m_edit->add_option("NEWNAME", m_newName)->required();
        m_edit->add_option("NEWURL", m_url)->required();
        m_remove = command.add_subcommand("remove", "Remove sites; only default sites can be restored");
        m_remove->add_option("NAME", m_names)->required();
        m_restore = command.add_subcommand("restore", "Bring removed default sites back");
        m_restore->add_option("NAME", m_names)->required();
        command.require_subcommand(0, 1);
    }

    [[nodiscard]] bool writes() const override { return *m_for || changes() || m_notes.writes(); }

    ExitStatus run() override
    {
        if (m_add->parsed())
            return told(site_editing::addSite(text(m_name), text(m_url)));
        if (m_edit->parsed())
            return edit();
        if (m_remove->parsed() || m_restore->parsed())
            return removeOrRestore();
        if (m_notes.isAsked())
            return m_notes.run();
        if (m_health)
            return showSiteHealth(m_json);
        return *m_for ? listForTitle() : list();
    }

private:
    [[nodiscard]] bool changes() const
    {
        return m_add->parsed() || m_edit->parsed() || m_remove->parsed() || m_restore->parsed();
    }

    static ExitStatus told(const SiteEdit &edit)
    {
        if (edit.outcome != SiteEdit::Done) {
            complain(edit.sentence);
            return edit.outcome == SiteEdit::NotStored ? FileFailed : Refused;
        }
        return TitleSession::stored(); // It may not be safe yet.
    }

    /// False, with a complaint, when one of @p names is not among @p sites.
    static bool allExist(const QStringList &names, const QStringList &sites)
    {
        for (const QString &name : names) {
            if (!sites.contains(name)) {
                complain(u"There is no site named %1."_s.arg(name));
                return false;
            }
        }
        return true;
    }

    [[nodiscard]] ExitStatus edit() const
    {
        const SiteCatalogue catalogue = site_editing::currentCatalogue();
        const qsizetype row = catalogue.sites.indexOf(text(m_name));
        if (const ExitStatus read = TitleSession::stored(); read != Done)
            return read;
        if (!allExist({text(m_name)}, catalogue.sites))
            return Refused;
        const Site old{catalogue.sites[row], catalogue.urls[row]};
        return told(site_editing::editSite(old, text(m_newName), site_editing::normalisedUrl(text(m_url))));
    }

    [[nodiscard]] ExitStatus removeOrRestore() const
    {
        QStringList names;
        for (const std::string &name : m_names)
            names.append(text(name));
        const SiteCatalogue catalogue = site_editing::currentCatalogue();
        if (const ExitStatus read = TitleSession::stored(); read != Done)
            return read;
        if (!allExist(names, m_remove->parsed() ? catalogue.sites : catalogue.ignored))
            return Refused;
        if (m_remove->parsed())
            return outcome(site_editing::removeSites(names));
        if (!canBeRestored(names))
            return Refused;
        return outcome(site_editing::restoreSites(names));
    }

    [[nodiscard]] ExitStatus list() const
    {
        setDefaultSites();
        const StringDictionary user = stored(site_list::userSites);
        const SiteCatalogue catalogue =
            mergedCatalogue(mwqnDefaultSitesDict, stored(site_list::ignoredSites), user);
        if (m_json)
            print(json(catalogue, qsizetype(user.size())));
        else
            printLines(catalogue, qsizetype(user.size()));
        return TitleSession::stored();
    }

    /// Of the catalogue's sites the first @p userSites are the author's own.
    static QString source(qsizetype row, qsizetype userSites)
    {
        return row < userSites ? u"user"_s : u"default"_s;
    }

    static QJsonDocument json(const SiteCatalogue &catalogue, qsizetype userSites)
    {
        QJsonArray sites;
        for (qsizetype row = 0; row < catalogue.sites.size(); ++row)
            sites.append(QJsonObject{{u"name"_s, catalogue.sites[row]},
                                     {u"url"_s, catalogue.urls[row]},
                                     {u"source"_s, source(row, userSites)}});
        QJsonArray ignored;
        for (qsizetype row = 0; row < catalogue.ignored.size(); ++row)
            ignored.append(
                QJsonObject{{u"name"_s, catalogue.ignored[row]}, {u"url"_s, catalogue.ignoredUrls[row]}});
        return QJsonDocument(QJsonObject{{u"sites"_s, sites}, {u"ignored"_s, ignored}});
    }

    static void printLines(const SiteCatalogue &catalogue, qsizetype userSites)
    {
        for (qsizetype row = 0; row < catalogue.sites.size(); ++row)
            printColumns({catalogue.sites[row], catalogue.urls[row], source(row, userSites)});
        for (qsizetype row = 0; row < catalogue.ignored.size(); ++row)
            printColumns({catalogue.ignored[row], catalogue.ignoredUrls[row], u"removed"_s});
    }

    [[nodiscard]] ExitStatus listForTitle() const
    {
        TitleSession session;
        if (const ExitStatus opened = session.open(text(m_title)); opened != Done)
            return opened;
        const auto bytes = AddDeleteImportEdit::returnDataObjectFor(u"general");
        if (!bytes && !bytes.isError(Error::Kind::Missing))
            return outcome(bytes.error());
        QStringList names;
        for (const auto &[name, url] : mwqnSCPreallSitesDict)
            names.append(name);
        const QList<SiteState> states = siteStates(names, summary_file::parse(bytes.valueOr({})));
        QJsonArray sites;
        for (qsizetype row = 0; row < names.size(); ++row) {
            const QString url = mwqnSCPreallSitesDict.at(names[row]);
            const QString state = quillon::name(states[row]);
            if (m_json)
                sites.append(QJsonObject{{u"name"_s, names[row]}, {u"url"_s, url}, {u"state"_s, state}});
            else
                printColumns({names[row], url, state});
        }
        if (m_json)
            print(QJsonDocument(sites));
        return TitleSession::stored();
    }

    std::string m_title;
    std::string m_name;
    std::string m_newName;
    std::string m_url;
    std::vector<std::string> m_names;
    bool m_json = false;
    CLI::Option *m_for = nullptr;
    bool m_health = false;
    SiteNotes m_notes;
    CLI::App *m_add = nullptr;
    CLI::App *m_edit = nullptr;
    CLI::App *m_remove = nullptr;
    CLI::App *m_restore = nullptr;
};

} // namespace

std::unique_ptr<Command> sitesCommand()
{
    return std::make_unique<Sites>();
}

} // namespace quillon::cli
