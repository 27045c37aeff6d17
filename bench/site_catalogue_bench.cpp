#include "sites/site_editing.h"
#include "store/process_state.h"
#include "store/site_list.h"
#include "submission/default_sites.h"
#include "submission/site_catalogue.h"

#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using namespace quillon;

constexpr int ownSites = 2000;
constexpr int ignoredSites = 100;

StringDictionary ownDictionary()
{
    StringDictionary sites;
    for (int number = 0; number < ownSites; ++number) {
        const QString name = u"Site %1 of the author"_s.arg((number * 7919) % ownSites);
        sites[name] = u"http://www.example.com/submit/%1"_s.arg(number);
    }
    return sites;
}

StringDictionary ignoredDictionary()
{
    StringDictionary sites;
    for (size_t number = 0; number < ignoredSites; ++number)
        sites[defaultSites[number * 2].name.toString()] = defaultSites[number * 2].url.toString();
    return sites;
}

/// Every second site is marked, at versions on both sides of the current one.
Summary markedSummary(const QStringList &sites)
{
    QStringList marked;
    QStringList versions;
    for (qsizetype index = 0; index < sites.size(); index += 2) {
        marked.append(sites[index]);
        versions.append(u"1.%1"_s.arg(index % 20));
    }
    Summary summary;
    summary.sites = marked.join(u',');
    summary.versions = versions.join(u',');
    summary.version = u"1.10"_s;
    return summary;
}

/// The least that a catalogue costs: every site put into the lists and the dictionary once, already in order.
void floorOfMerge(benchmark::State &state)
{
    setDefaultSites();
    const StringDictionary own = ownDictionary();
    for ([[maybe_unused]] const auto iteration : state) {
        QStringList names;
        QStringList urls;
        StringDictionary urlByName = own;
        for (const StringDictionary *sites : {&own, &std::as_const(mwqnDefaultSitesDict)}) {
            for (const auto &[name, url] : *sites) {
                names.append(name);
                urls.append(url);
            }
        }
        benchmark::DoNotOptimize(names.size() + urls.size() + qsizetype(urlByName.size()));
    }
}

void merge(benchmark::State &state)
{
    setDefaultSites();
    const StringDictionary own = ownDictionary();
    const StringDictionary ignored = ignoredDictionary();
    for ([[maybe_unused]] const auto iteration : state)
        benchmark::DoNotOptimize(mergedCatalogue(mwqnDefaultSitesDict, ignored, own).sites.size());
}

void states(benchmark::State &state)
{
    setDefaultSites();
    QStringList sites;
    const SiteCatalogue catalogue =
        mergedCatalogue(mwqnDefaultSitesDict, ignoredDictionary(), ownDictionary());
    for (const auto &[name, url] : catalogue.urlByName)
        sites.append(name);
    const Summary summary = markedSummary(sites);
    for ([[maybe_unused]] const auto iteration : state)
        benchmark::DoNotOptimize(siteStates(sites, summary).size());
}

/// All of it as the submission window does it: both lists read from disk, merged, and each site's state.
void fromDisk(benchmark::State &state)
{
    const QTemporaryDir home;
    setDataFolder(home.path());
    QDir().mkpath(mwqnAppSuppLoc);
    (void)site_list::write(site_list::userSites, ownDictionary());
    (void)site_list::write(site_list::ignoredSites, ignoredDictionary());
    const Summary summary = markedSummary(site_editing::currentCatalogue().sites);
    for ([[maybe_unused]] const auto iteration : state) {
        QStringList sites;
        for (const auto &[name, url] : site_editing::currentCatalogue().urlByName)
            sites.append(name);
        benchmark::DoNotOptimize(siteStates(sites, summary).size());
    }
}

} // namespace

// The goal: merge and states of one title together below 10 ms at the median.
BENCHMARK(floorOfMerge)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();
BENCHMARK(merge)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();
BENCHMARK(states)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();
BENCHMARK(fromDisk)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();

BENCHMARK_MAIN();
