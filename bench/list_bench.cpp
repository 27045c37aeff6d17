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
    (void)AddDeleteImportEdit::checkAppSuppExists();
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

/// A list of titles, and how long each look at it took (seconds).
class MeasuredList
{
public:
    explicit MeasuredList(int count) : m_summaries(fillDataFolder(m_home.path(), count)) {}

    /// Loads the list, in turn with nothing but reading the same summary files.
    void measure()
    {
        setDataFolder(m_home.path());
        m_floors.push_back(seconds([this] {
            for (const QString &path : std::as_const(m_summaries)) {
                QFile file(path);
                if (!file.open(QIODevice::ReadOnly))
                    std::abort();
                benchmark::DoNotOptimize(file.readAll());
            }
        }));
        m_loads.push_back(seconds([this] { m_overview.loadSoftwareList(); }));
        if (m_overview.softwareTable().rowCount() != m_summaries.size())
            std::abort();
    }
    [[nodiscard]] double load() const { return median(m_loads); }
    [[nodiscard]] double floor() const { return median(m_floors); }

private:
    QTemporaryDir m_home;
    QStringList m_summaries;
    RecordingSheets m_sheets;
    OverviewController m_overview{m_sheets};
    std::vector<double> m_loads;
    std::vector<double> m_floors;
};

/// A small list and one of ten times as many titles, in turns so that both meet the same state of the
/// machine. The goals: the large one takes at most three times its floor, and eleven times the small one.
void loadSoftwareList(benchmark::State &state)
{
    static constexpr int times = 10;
    MeasuredList small(int(state.range(0)));
    MeasuredList large(int(state.range(0)) * times);
    for ([[maybe_unused]] const auto iteration : state) {
        for (int turn = 0; turn < times; ++turn)
            small.measure();
        large.measure();
    }
    state.counters["small_ms"] = small.load() * 1e3;
    state.counters["large_ms"] = large.load() * 1e3;
    state.counters["small_ratio"] = small.load() / small.floor();
    state.counters["ratio"] = large.load() / large.floor();
    state.counters["growth"] = large.load() / small.load();
    state.counters["floor_growth"] = large.floor() / small.floor();
}
BENCHMARK(loadSoftwareList)->Arg(1000)->Iterations(25)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
