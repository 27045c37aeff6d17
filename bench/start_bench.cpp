#include "measuring.h"

#include <array>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace quillon;

/// Runs a program to its end, its output thrown away; its exit status.
int run(std::vector<std::string> command)
{
    std::vector<char *> arguments;
    arguments.reserve(command.size() + 1);
    for (std::string &word : command)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    int status = -1;
    if (posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ) == 0)
        waitpid(process, &status, 0);
    posix_spawn_file_actions_destroy(&actions);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// @p command as a whole process, in turn with @p floor; both have to end with a status below @p tooMuch.
void besideFloor(benchmark::State &state, const std::vector<std::string> &command,
                 const std::vector<std::string> &floor, int tooMuch)
{
    std::vector<double> commands;
    std::vector<double> floors;
    for ([[maybe_unused]] const auto iteration : state) {
        int worst = 0;
        floors.push_back(seconds([&] { worst = run(floor); }));
        commands.push_back(seconds([&] { worst = std::max(worst, run(command)); }));
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

/// Judging a PAD file, beside the desktop's own checker of metainfo files judging a typical one.
void checkFile(benchmark::State &state)
{
    besideFloor(state, {QUILLON_CLI, "check", QUILLON_SAMPLES "/filled_form.xml"},
                {"appstreamcli", "validate", "--no-net", QUILLON_METAINFO}, 4);
}
BENCHMARK(checkFile)->Iterations(50)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
