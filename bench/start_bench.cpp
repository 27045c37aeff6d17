#include "child_process.h"
#include "measuring.h"

#include <benchmark/benchmark.h>

namespace {

using namespace quillon;

/// @p command as a whole process, in turn with @p floor; both have to end with a status below @p tooMuch.
void besideFloor(benchmark::State &state, const std::vector<std::string> &command,
                 const std::vector<std::string> &floor, int tooMuch)
{
    std::vector<double> commands;
    std::vector<double> floors;
    for ([[maybe_unused]] const auto iteration : state) {
        int worst = 0;
        floors.push_back(seconds([&] { worst = exitStatus(startProgram(floor)); }));
        commands.push_back(seconds([&] { worst = std::max(worst, exitStatus(startProgram(command))); }));
        state.SetIterationTime(commands.back());
        if (worst >= tooMuch || worst < 0) {
            state.SkipWithError("a program could not be run");
            return;
        }
    }
    state.counters["floor_ms"] = median(floors) * 1e3;
    state.counters["ratio"] = median(commands) / median(floors);
}

/// Listing an empty data folder, beside a program that only makes and ends Qt's core application.
void listNothing(benchmark::State &state)
{
    std::string home = "/tmp/quillon-bench-XXXXXX";
    if (!mkdtemp(home.data()))
        std::abort();
    besideFloor(state, {QUILLON_CLI, "--home", home, "list"}, {BARE_APPLICATION}, 1);
    rmdir(home.c_str());
}
BENCHMARK(listNothing)->Iterations(100)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Judging a PAD file, beside the same floor.
void checkFileBesideCore(benchmark::State &state)
{
    besideFloor(state, {QUILLON_CLI, "check", QUILLON_SAMPLES "/filled_form.xml"}, {BARE_APPLICATION}, 4);
}
BENCHMARK(checkFileBesideCore)->Iterations(100)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Judging a PAD file, beside the desktop's own checker of metainfo files judging a typical one.
void checkFile(benchmark::State &state)
{
    besideFloor(state, {QUILLON_CLI, "check", QUILLON_SAMPLES "/filled_form.xml"},
                {"appstreamcli", "validate", "--no-net", QUILLON_METAINFO}, 4);
}
BENCHMARK(checkFile)->Iterations(50)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
