#include "measuring.h"
#include "shell/workbench.h"
#include "submission/engine_environment.h"
#include "submission/submit_window.h"
#include "submitted_title.h"
#include "support/own_home.h"

#include <QApplication>
#include <QDir>
#include <QMainWindow>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace {

void showBareWindow(QWebEngineProfile &profile)
{
    const Drawing drawing(u"bare"_s);
    QMainWindow window;
    window.setObjectName(u"bare"_s);
    auto *view = new QWebEngineView(&window);
    view->setPage(new QWebEnginePage(&profile, view));
    window.setCentralWidget(view);
    window.resize(1240, 680);
    window.show();
    drawing.wait();
}

/// Opening the submission window on a title with 200 marks, in turn with showing a window that holds nothing
/// but the same engine's view. The engine itself runs already.
void openSubmitWindow(benchmark::State &state)
{
    if (!prepareHome(QDir::homePath()))
        state.SkipWithError("the title could not be made");
    const auto bare = [] {
        QWebEngineProfile profile(u"bare"_s);
        profile.setPersistentStoragePath(QDir::home().filePath(u"bare"_s));
        showBareWindow(profile);
    };
    bare();

    std::vector<double> openings;
    std::vector<double> floors;
    for ([[maybe_unused]] const auto iteration : state) {
        floors.push_back(seconds(bare));
        Workbench workbench;
        workbench.overview().tableViewSelectionDidChange(0);
        openings.push_back(seconds([&] { showSubmitWindow(workbench.toolbar()); }));
        SubmissionOpener &opener = workbench.submission();
        if (opener.window()->control().sites().submittedToArraySTR().count(u"1"_s) != qsizetype(marks))
            state.SkipWithError("the marks are not in the list");
        opener.close();
        state.SetIterationTime(openings.back());
    }
    state.counters["floor_ms"] = median(floors) * 1e3;
    state.counters["ratio"] = median(openings) / median(floors);
}
BENCHMARK(openSubmitWindow)->Iterations(40)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const OwnHome home; // The engine and what draws keep something there.
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    prepareEngineEnvironment();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
