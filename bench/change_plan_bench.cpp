#include "changes/release_plan.h"
#include "data_folder.h"
#include "journal/journal.h"
#include "measuring.h"
#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "platform/atomic_file.h"
#include "support/files.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

using namespace quillon;

/// A data folder of whole titles.
struct Titles
{
    explicit Titles(int count)
    {
        fillDataFolder(home.path(), count);
        const QByteArray pad = sample(u"valid_whole.xml"_s);
        for (int number = 0; number < count; ++number) {
            names.append(u"Title %1"_s.arg(number));
            put(padOf(names.last()), pad);
            put(*title_folder::path(names.last()) + u'/' + title_folder::errorLog,
                sample(u"empty_list.plist"_s));
        }
    }
    ~Titles() { Journal::ofDataFolder().close(); }

    static QString padOf(const QString &title)
    {
        return *title_folder::path(title) + u'/' + title_folder::padFile;
    }

    const QTemporaryDir home;
    QStringList names;
};

/// A release that is another one each time.
ChangePlan release(const QStringList &titles)
{
    static int number = 100;
    return release_plan::plan({.version = u"7.%1"_s.arg(++number), .file = {{u"a.zip"_s, number}}}, titles);
}

/// Planning a release of 2,000 titles, beside loading and checking them.
void planning(benchmark::State &state)
{
    const Titles titles(2'000);
    PadForm form;
    std::vector<double> planned;
    std::vector<double> floors;
    for ([[maybe_unused]] const auto iteration : state) {
        std::optional<ChangePlan> plan; // What is planned is not thrown away as part of planning.
        planned.push_back(seconds([&] { plan = release(titles.names); }));
        floors.push_back(seconds([&] {
            for (const QString &title : titles.names) {
                form.clear(); // As whoever opens one title after the other has to.
                loadPADData(atomic_file::read(Titles::padOf(title)).valueOr({}), form);
                ErrorPass errors;
                field_rules::checkEntries(form, errors);
                benchmark::DoNotOptimize(errors.errors());
            }
        }));
        state.SetIterationTime(planned.back());
    }
    state.counters["floor_us"] = median(floors) * 1e6;
    state.counters["ratio"] = median(planned) / median(floors);
}
BENCHMARK(planning)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Applying a release to 200 titles, beside writing the same files, each as safely.
void applying(benchmark::State &state)
{
    const Titles titles(200);
    (void)change_plans::apply(release(titles.names)); // From now on the files are as a check leaves them.
    std::vector<double> applied;
    std::vector<double> floors;
    for ([[maybe_unused]] const auto iteration : state) {
        const QMap<QString, QByteArray> before = tree(mwqnAppSuppLoc);
        const ChangePlan plan = release(titles.names);
        applied.push_back(seconds([&plan] { (void)change_plans::apply(plan); }));
        QMap<QString, QByteArray> written = tree(mwqnAppSuppLoc);
        written.removeIf([&before](const auto &file) { return before.value(file.key()) == file.value(); });
        floors.push_back(seconds([&] {
            for (const QString &file : written.keys())
                (void)atomic_file::write(mwqnAppSuppLoc + file, before[file]);
        }));
        state.counters["files"] = double(written.size());
        state.SetIterationTime(applied.back());
    }
    state.counters["floor_us"] = median(floors) * 1e6;
    state.counters["ratio"] = median(applied) / median(floors);
}
BENCHMARK(applying)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
