#include "measuring.h"
#include "overview/overview_controller.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "store/title_folder.h"
#include "support/recorders.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

using namespace quillon;

/// Fills a new data folder with @p count titles, plainly and without syncs, and gives the summary files'
/// paths.
QStringList fillDataFolder(const QString &home, int count)
{
    setDataFolder(home);
    AddDeleteImportEdit::checkAppSuppExists();
    QStringList summaries;
    for (int number = 0; number < count; ++number) {
        const QString folder = *title_folder::path(u"Title %1"_s.arg(number));
        QDir().mkdir(folder);
        Summary summary;
        summary.version = u"1.%1"_s.arg(number);
        summary.releaseDate = u"2009-%1-%2"_s.arg(number % 12 + 1).arg(number % 28 + 1);
        summary.operatingSystems = u"Linux,Mac OS X,Win7 x64,WinXP"_s;
        summary.validated = u"1"_s;
        summary.sites = u"Download 3000,FileCluster,Softpedia"_s;
        summary.versions = u"1.0,1.1,1.2"_s;
        const QString path = folder + u'/' + title_folder::summaryFile;
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(summary_file::text(summary).toUtf8()) < 0)
            std::abort();
        summaries.append(path);
    }
    return summaries;
}

/// Loading the list, in turn with nothing but reading the same summary files.
void loadSoftwareList(benchmark::State &state)
{
    const QTemporaryDir home;
    const QStringList summaries = fillDataFolder(home.path(), int(state.range(0)));
    RecordingSheets sheets;
    OverviewController overview(sheets);
    std::vector<double> loads;
    std::vector<double> floors;
    for ([[maybe_unused]] const auto iteration : state) {
        floors.push_back(seconds([&] {
            for (const QString &path : summaries) {
                QFile file(path);
                if (!file.open(QIODevice::ReadOnly))
                    std::abort();
                benchmark::DoNotOptimize(file.readAll());
            }
        }));
        loads.push_back(seconds([&] { overview.loadSoftwareList(); }));
        state.SetIterationTime(loads.back());
    }
    state.counters["floor_ms"] = median(floors) * 1e3;
    state.counters["ratio"] = median(loads) / median(floors);
}
BENCHMARK(loadSoftwareList)
    ->Arg(1000)
    ->Arg(10000)
    ->MinTime(3.0)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
