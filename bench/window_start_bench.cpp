#include "child_process.h"
#include "data_folder.h"
#include "measuring.h"
#include "screen.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <csignal>
#include <fstream>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

using namespace quillon;

/// What the starts of a program with a window took: seconds, and MiB.
struct Starts
{
    std::vector<double> window;  ///< Until its window shows.
    std::vector<double> drawing; ///< Until something is drawn in the middle of it.
    std::vector<double> memory;  ///< What it takes when it is idle, its share of what others have, too.
};

/// The proportional set size of @p process, in MiB.
double memoryOf(pid_t process)
{
    std::ifstream sums("/proc/" + std::to_string(process) + "/smaps_rollup");
    for (std::string word; sums >> word;) {
        if (word == "Pss:" && sums >> word)
            return std::stod(word) / 1024;
    }
    return 0;
}

/// Starts @p command, looks at it until it is idle, and ends it. Whether it could be measured.
bool measure(Screen &screen, const std::vector<std::string> &command, Starts &starts)
{
    static constexpr std::chrono::milliseconds untilIdle{700};
    static constexpr double patience = 10;
    screen.forget();
    const auto start = std::chrono::steady_clock::now();
    const auto passed = [start] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    const pid_t process = startProgram(command);
    if (process == 0)
        return false;
    const xcb_window_t window = screen.waitForWindow();
    starts.window.push_back(passed());
    while (!screen.isDrawn(window) && passed() < patience) {
    }
    starts.drawing.push_back(passed());
    std::this_thread::sleep_for(untilIdle);
    starts.memory.push_back(memoryOf(process));
    kill(process, SIGKILL);
    (void)exitStatus(process);
    return starts.drawing.back() < patience;
}

/// A text for the small editor that stands beside: as long as the list, and no shorter than its window.
std::string writeText(const QString &folder, int titles)
{
    const int lines = std::max(titles, 100);
    std::string path = folder.toStdString() + "/text.txt";
    std::ofstream text(path);
    for (int line = 0; line < lines; ++line)
        text << "Title " << line
             << ", of some width, so that it reaches the middle of a window that is wide.\n";
    return path;
}

/// From the start of the program to its first window and to its list, with so many titles, and what it takes
/// when it is idle; in turn with a small text editor of the desktop's that opens a text of so many lines. The
/// goals: 0.8 times its time, and 0.7 times its memory.
void startWindow(benchmark::State &state)
{
    if (std::system("command -v featherpad >/dev/null") != 0) {
        state.SkipWithError("the package featherpad, the yardstick, is not installed");
        return;
    }
    static Screen screen; // A display may begin anew when the last program has left it.
    if (!screen.isThere()) {
        state.SkipWithError("there is no X display to start windows on: begin with xvfb-run");
        return;
    }
    const QTemporaryDir home;
    (void)fillDataFolder(home.path(), int(state.range(0)));
    const std::vector<std::string> quillon = {QUILLON, "--home", home.path().toStdString()};
    const std::vector<std::string> editor = {"featherpad", "--standalone",
                                             writeText(home.path(), int(state.range(0)))};
    Starts own;
    Starts others;
    Starts warmUp;
    bool isMeasured = measure(screen, editor, warmUp) && measure(screen, quillon, warmUp);
    for ([[maybe_unused]] const auto iteration : state) {
        isMeasured = isMeasured && measure(screen, editor, others) && measure(screen, quillon, own);
        if (!isMeasured) {
            state.SkipWithError("a program could not be measured");
            return;
        }
        state.SetIterationTime(own.drawing.back());
    }
    const auto compare = [&state](const std::string &what, double one, double other) {
        state.counters[what] = one;
        state.counters[what + "_floor"] = other;
        state.counters[what + "_ratio"] = one / other;
    };
    compare("window_ms", median(own.window) * 1e3, median(others.window) * 1e3);
    compare("list_ms", median(own.drawing) * 1e3, median(others.drawing) * 1e3);
    compare("idle_MiB", median(own.memory), median(others.memory));
}
BENCHMARK(startWindow)->Arg(0)->Arg(1000)->Iterations(15)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char *argv[])
{
    // Both draw on the display, whatever tests have asked for.
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
