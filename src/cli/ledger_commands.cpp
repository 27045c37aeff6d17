#include "cli/ledger_commands.h"

#include "cli/output.h"
#include "ledger/changed_fields.h"
#include "ledger/ledger_editing.h"
#include "ledger/matrix.h"
#include "ledger/tour.h"
#include "sites/site_editing.h"
#include "store/process_state.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

/// Builds the process's catalogue of sites for a command that only looks.
Result<> lookUpCatalogue()
{
    auto catalogue = site_editing::storedCatalogue();
    if (!catalogue)
        return catalogue.error();
    mwqnSCPreallSitesDict = std::move(catalogue->urlByName);
    return {};
}

QString timeOf(const ledger::Entry &entry)
{
    return isoTime(entry.time);
}

QJsonObject json(const ledger::Entry &entry)
{
    return {{u"site"_s, entry.site},         {u"version"_s, entry.version}, {u"time"_s, timeOf(entry)},
            {u"state"_s, name(entry.state)}, {u"address"_s, entry.address}, {u"note"_s, entry.note}};
}

/// Shows what was sent where and what became of it, or notes it.
class Ledger final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description(
            "What was sent where and what became of it, oldest first: site, version, time, state, "
            "address, note; with STATE, note it");
        command.add_option("TITLE", m_title, "The title")->required();
        m_siteOption = command.add_option("SITE", m_site, "Only this one");
        m_stateOption = command.add_option("STATE", m_state, "What became of it")
                            ->check(CLI::IsMember({"sent", "listed", "refused", "gone"}));
        m_url = command.add_option("--url", m_address, "The address of the listing")->needs(m_stateOption);
        m_noteOption = command.add_option("--note", m_note, "A note of your own")->needs(m_stateOption);
        command.add_flag("--dry-run", m_dryRun, "Only show what would be noted")->needs(m_stateOption);
        command.add_flag("--json", m_json, "As JSON");
    }

    [[nodiscard]] bool writes() const override { return *m_stateOption && !m_dryRun; }

    ExitStatus run() override
    {
        if (!titleExists(text(m_title)))
            return Refused;
        if (const Result<> looked = lookUpCatalogue(); !looked)
            return outcome(looked.error());
        return *m_stateOption ? note() : show();
    }

private:
    [[nodiscard]] ExitStatus note() const
    {
        const ledger_editing::Edit edit{.site = text(m_site),
                                        .state = *ledger::stateNamed(text(m_state)),
                                        .address = *m_url ? std::optional(text(m_address)) : std::nullopt,
                                        .note = *m_noteOption ? std::optional(text(m_note)) : std::nullopt};
        const auto entry = ledger_editing::planned(text(m_title), edit);
        if (!entry)
            return outcomeOrRefusal(entry.error());
        if (m_dryRun) {
            show({*entry});
            return Done;
        }
        return outcome(ledger_editing::store(text(m_title), *entry));
    }

    [[nodiscard]] ExitStatus show() const
    {
        auto read = ledger_editing::read(text(m_title));
        if (!read)
            return outcome(read.error());
        if (*m_siteOption)
            read->entries.removeIf(
                [site = text(m_site)](const ledger::Entry &entry) { return entry.site != site; });
        show(read->entries);
        return Done;
    }

    void show(const QList<ledger::Entry> &entries) const
    {
        QJsonArray array;
        for (const ledger::Entry &entry : entries) {
            if (m_json)
                array.append(json(entry));
            else
                printColumns(
                    {entry.site, entry.version, timeOf(entry), name(entry.state), entry.address, entry.note});
        }
        if (m_json)
            print(QJsonDocument(array));
    }

    std::string m_title;
    std::string m_site;
    std::string m_state;
    std::string m_address;
    std::string m_note;
    bool m_dryRun = false;
    bool m_json = false;
    CLI::Option *m_siteOption = nullptr;
    CLI::Option *m_stateOption = nullptr;
    CLI::Option *m_url = nullptr;
    CLI::Option *m_noteOption = nullptr;
};

QString verdict(const Matrix::Cell &cell)
{
    if (cell.isStale)
        return u"stale"_s;
    return cell.relation == Matrix::Relation::Current ? u"current"_s : u"-"_s;
}

class ShowMatrix final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description("Which version of each title is on which site: title, its version, site, version "
                            "there, current or stale, state");
        command.add_flag("--stale", m_onlyStale, "Only what is to be brought up to date");
        command.add_flag("--json", m_json, "As a JSON array");
    }

    [[nodiscard]] bool writes() const override { return false; }

    ExitStatus run() override
    {
        const auto read = readMatrix();
        if (!read)
            return outcome(read.error());
        const Matrix &matrix = read->matrix;
        QJsonArray array;
        for (qsizetype row = 0; row < matrix.rows().size(); ++row) {
            const Matrix::Row &title = matrix.rows()[row];
            const QJsonArray sites = showRow(matrix, row);
            if (m_json && !(m_onlyStale && sites.isEmpty()))
                array.append(QJsonObject{
                    {u"title"_s, title.title}, {u"version"_s, title.version}, {u"sites"_s, sites}});
        }
        if (m_json)
            print(QJsonDocument(array));
        ExitStatus status = Done;
        for (const Error &failure : read->failures)
            status = outcome(failure);
        return status;
    }

private:
    /// The cells of a row, which are printed unless they go into JSON.
    [[nodiscard]] QJsonArray showRow(const Matrix &matrix, qsizetype row) const
    {
        QJsonArray sites;
        for (qsizetype place = 0; place < matrix.sites().size(); ++place) {
            const Matrix::Cell *cell = matrix.cell(row, place);
            if (!cell || (m_onlyStale && !cell->isStale))
                continue;
            const QString &site = matrix.sites()[place];
            if (m_json)
                sites.append(QJsonObject{{u"site"_s, site},
                                         {u"version"_s, cell->version},
                                         {u"current"_s, cell->relation == Matrix::Relation::Current},
                                         {u"stale"_s, cell->isStale},
                                         {u"state"_s, name(cell->state)},
                                         {u"marked"_s, cell->isMarked}});
            else
                printColumns({matrix.rows()[row].title, matrix.rows()[row].version, site, cell->version,
                              verdict(*cell), name(cell->state)});
        }
        return sites;
    }

    bool m_onlyStale = false;
    bool m_json = false;
};

class Next final : public Command
{
public:
    void describe(CLI::App &command) override
    {
        command.description(
            "The site at which a title is to be brought up to date next, with what has changed since "
            "it was sent there; the exit status is 1 when none is left");
        command.add_option("TITLE", m_title, "The title")->required();
        command.add_flag("--json", m_json, "As a JSON object");
    }

    [[nodiscard]] bool writes() const override { return false; }

    ExitStatus run() override
    {
        if (!titleExists(text(m_title)))
            return Refused;
        if (const Result<> looked = lookUpCatalogue(); !looked)
            return outcome(looked.error());
        const auto tour = Tour::of(text(m_title));
        if (!tour)
            return outcome(tour.error());
        if (tour->at().isEmpty()) {
            complain(u"Nothing is to be brought up to date."_s);
            return AnswerIsNo;
        }
        const auto stop = tour->stop(tour->at());
        if (!stop)
            return outcome(stop.error());
        if (m_json)
            print(QJsonDocument(json(*tour, *stop)));
        else
            print(tourLine(*tour, stop, false));
        return Done;
    }

private:
    static QJsonObject json(const Tour &tour, const Tour::Stop &stop)
    {
        QJsonArray changed;
        for (const FieldId field : stop.changed.value_or(QList<FieldId>()))
            changed.append(padField(field).control.toString());
        return {{u"site"_s, stop.site},
                {u"url"_s, mwqnSCPreallSitesDict.at(stop.site)},
                {u"version"_s, stop.version},
                {u"number"_s, qint64(tour.number(stop.site))},
                {u"total"_s, qint64(tour.total())},
                {u"left"_s, QJsonArray::fromStringList(tour.sites())},
                {u"changed"_s, stop.changed ? QJsonValue(changed) : QJsonValue()}};
    }

    std::string m_title;
    bool m_json = false;
};

} // namespace

std::unique_ptr<Command> ledgerCommand()
{
    return std::make_unique<Ledger>();
}

std::unique_ptr<Command> matrixCommand()
{
    return std::make_unique<ShowMatrix>();
}

std::unique_ptr<Command> nextCommand()
{
    return std::make_unique<Next>();
}

} // namespace quillon::cli
