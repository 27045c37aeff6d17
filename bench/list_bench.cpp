#include "data_folder.h"
#include "measuring.h"
#include "overview/overview_controller.h"
#include "support/recorders.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

using namespace quillon;

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
