#include "ledger/standing.h"

#include <QHash>

#include <algorithm>

namespace quillon {

namespace {

using ledger::Entry;
using ledger::State;

void take(Standing &standing, const Entry &entry)
{
    standing.state = entry.state;
    standing.address = entry.address;
    standing.note = entry.note;
}

/// The versions of the marks in @p summary. The list knows no commas in a version: where there are more
/// entries than sites, the title's own version is put together again, if there is one for each site then.
QStringList markVersions(const Summary &summary)
{
    const QString current = summary.version.value_or(QString());
    const QStringList parts = current.split(u',');
    const qsizetype count = summary.siteList().size();
    QStringList versions = summary.versionList();
    if (parts.size() == 1 || versions.size() <= count)
        return versions;
    QStringList whole;
    for (qsizetype at = 0; at < versions.size();) {
        const bool isCurrent = versions.mid(at, parts.size()) == parts;
        whole.append(isCurrent ? current : versions[at]);
        at += isCurrent ? parts.size() : 1;
    }
    while (whole.size() > count && whole.last().isEmpty())
        whole.removeLast();
    return whole.size() == count ? whole : versions;
}

} // namespace

std::optional<QString> markedVersion(const Summary &summary, const QString &site)
{
    const qsizetype place = site.isEmpty() ? -1 : summary.siteList().indexOf(site);
    return place < 0 ? std::nullopt : std::optional(markVersions(summary).value(place));
}

QList<Standing> standings(const Summary &summary, const QList<Entry> &entries, const QSet<QString> &gone)
{
    const QStringList sites = summary.siteList();
    const QStringList versions = markVersions(summary);
    QList<Standing> all;
    QHash<QString, qsizetype> places;
    all.reserve(sites.size());
    places.reserve(sites.size());
    for (qsizetype mark = 0; mark < sites.size(); ++mark) {
        if (sites[mark].isEmpty() || places.contains(sites[mark]))
            continue;
        places.insert(sites[mark], all.size());
        all.append({.site = sites[mark], .version = versions.value(mark), .isMarked = true});
    }
    for (const Entry &entry : entries) {
        const auto place = places.constFind(entry.site);
        if (place == places.cend()) {
            places.insert(entry.site, all.size());
            all.append({.site = entry.site, .version = entry.version});
        }
        Standing &standing = all[places[entry.site]];
        if (!standing.isMarked)
            standing.version = entry.version;
        take(standing, entry);
    }
    for (Standing &standing : all) {
        standing.isCurrent = standing.version == summary.version.value_or(QString());
        if (standing.isMarked && standing.state == State::Removed)
            standing.state = State::Sent; // Marked by other means since.
        if (gone.contains(standing.site) && standing.state != State::Removed)
            standing.state = State::Gone;
    }
    all.removeIf([](const Standing &standing) { return standing.state == State::Removed; });
    return all;
}

const Standing *standingAt(const QList<Standing> &standings, const QString &site)
{
    const auto found = std::ranges::find(standings, site, &Standing::site);
    return found == standings.end() ? nullptr : &*found;
}

} // namespace quillon
