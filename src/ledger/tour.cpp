#include "ledger/tour.h"

#include "journal/journal.h"
#include "journal/site_knowledge.h"
#include "ledger/changed_fields.h"
#include "overview/title_list.h"
#include "platform/string_dictionary.h"
#include "store/process_state.h"
#include "store/storage_status.h"

#include <QCoreApplication>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class TourText
{
    Q_DECLARE_TR_FUNCTIONS(Tour)
};

/// What the journal knows of a title, and of sites.
struct Known
{
    QList<ledger::Entry> entries;
    tours::Record record;
    QSet<QString> goneSites;
};

Result<Known> knownOf(const QString &title, const QString &version)
{
    return Journal::ofDataFolder().find([&](Database &database) -> Result<Known> {
        auto entries = ledger::entries(database, title);
        if (!entries)
            return entries.error();
        auto record = tours::record(database, title, version);
        if (!record)
            return record.error();
        auto gone = site_knowledge::goneSites(database);
        if (!gone)
            return gone.error();
        return Known{
            .entries = *std::move(entries), .record = *std::move(record), .goneSites = *std::move(gone)};
    });
}

/// The sites that had another version until @p version was sent to them.
QSet<QString> broughtTo(const QString &version, const QList<ledger::Entry> &entries)
{
    QSet<QString> sites;
    for (const ledger::Entry &entry : entries) {
        if (entry.state == ledger::State::Sent && entry.version == version && entry.before &&
            *entry.before != version)
            sites.insert(entry.site);
    }
    return sites;
}

} // namespace

Result<Tour> Tour::of(const QString &title)
{
    const auto summary = loadSummary(title);
    if (!summary)
        return summary.error();
    Tour tour;
    tour.m_title = title;
    tour.m_version = summary->version.value_or(QString());
    const auto known = knownOf(title, tour.m_version);
    if (!known)
        return known.error();
    const QList<Standing> all = standings(*summary, known->entries, known->goneSites);
    const QSet<QString> brought = broughtTo(tour.m_version, known->entries);
    QList<Standing> stale;
    for (const auto &[site, url] : mwqnSCPreallSitesDict) {
        const Standing *there = standingAt(all, site);
        if (there && there->isStale())
            stale.append(*there);
        else if (there && brought.contains(site))
            ++tour.m_done;
    }
    tour.arrange(stale, known->record.answers);
    tour.m_at = tour.isLeft(known->record.at) ? known->record.at : tour.firstAfter(known->record.at);
    return tour;
}

/// Leaves out what is skipped, and puts what is put off at the end.
void Tour::arrange(const QList<Standing> &stale, const QList<tours::AnsweredSite> &answers)
{
    m_left = stale;
    for (const tours::AnsweredSite &each : answers) {
        const Standing *there = standingAt(m_left, each.site);
        if (!there)
            continue;
        const Standing standing = *there;
        m_left.removeIf([&each](const Standing &left) { return left.site == each.site; });
        if (each.answer == tours::Answer::Later)
            m_left.append(standing);
        else
            ++m_done;
    }
}

QString Tour::firstAfter(const QString &site) const
{
    const QStringList names = sites();
    const auto isLater = [&site](const QString &name) { return CaseInsensitiveOrder()(site, name); };
    const auto found = std::ranges::find_if(names, isLater);
    return found == names.end() ? names.value(0) : *found;
}

QStringList Tour::sites() const
{
    QStringList names;
    for (const Standing &each : m_left)
        names.append(each.site);
    return names;
}

QString Tour::after(const QString &site) const
{
    const QStringList names = sites();
    return names.isEmpty() ? QString() : names[(names.indexOf(site) + 1) % names.size()];
}

Result<Tour::Stop> Tour::stop(const QString &site) const
{
    const auto changed = changed_fields::sinceSent(m_title, site);
    if (!changed)
        return changed.error();
    return Stop{.site = site, .version = standingAt(m_left, site)->version, .changed = *changed};
}

qsizetype Tour::number(const QString &site) const
{
    return m_done + sites().indexOf(site) + 1;
}

Result<> Tour::goTo(const QString &site)
{
    m_at = site;
    return Journal::ofDataFolder().change(
        [&](Database &database) { return tours::goTo(database, m_title, m_version, site); });
}

Result<> Tour::answer(const QString &site, tours::Answer answer)
{
    const QString next = after(site);
    Result<> noted = Journal::ofDataFolder().change([&](Database &database) -> Result<> {
        Result<> done = tours::answer(database, m_title, m_version, {.site = site, .answer = answer});
        return done ? tours::goTo(database, m_title, m_version, next) : done;
    });
    arrange(m_left, {{.site = site, .answer = answer}});
    m_at = isLeft(next) ? next : sites().value(0);
    return noted;
}

QString tourLine(const Tour &tour, const Result<Tour::Stop> &stop, bool isAtSite, const QLocale &locale)
{
    if (!stop)
        return TourText::tr("What is to be brought up to date is not known. %1")
            .arg(failureLine(stop.error()));
    const QString place = TourText::tr("%1 of %2 to bring up to date:")
                              .arg(locale.toString(tour.number(stop->site)), locale.toString(tour.total()));
    const QString version = stop->version.isEmpty() ? TourText::tr("no known version") : stop->version;
    const QString line =
        place + u' ' +
        (isAtSite ? TourText::tr("has %1").arg(version) : TourText::tr("%1 has %2").arg(stop->site, version));
    if (!stop->changed)
        return line + TourText::tr("; what was sent then was not kept");
    return line + (stop->changed->isEmpty() ? TourText::tr("; nothing has changed since then")
                                            : TourText::tr("; since then changed: %1")
                                                  .arg(changed_fields::names(*stop->changed).join(u", "_s)));
}

} // namespace quillon
