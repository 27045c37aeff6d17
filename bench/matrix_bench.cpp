#include "data_folder.h"
#include "ledger/matrix_window.h"
#include "measuring.h"
#include "submission/default_sites.h"
#include "support/own_home.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

using namespace quillon;

constexpr int titleCount = 2000;

/// As many titles, each sent to every site of the catalogue, in versions of three.
void fillSummaries(const QStringList &paths)
{
    QStringList sites;
    for (const auto &[site, url] : mwqnDefaultSitesDict)
        sites.append(site);
    for (qsizetype title = 0; title < paths.size(); ++title) {
        Summary summary;
        summary.version = u"1.%1"_s.arg(title % 3);
        QStringList versions;
        for (qsizetype site = 0; site < sites.size(); ++site)
            versions.append(u"1.%1"_s.arg((site + title) % 3));
        summary.sites = sites.join(u',');
        summary.versions = versions.join(u',');
        QFile file(paths[title]);
        if (!file.open(QIODevice::WriteOnly) || file.write(summary_file::text(summary).toUtf8()) < 0)
            std::abort();
    }
}

/// A table of the same size that says the same in every cell.
class SameCells final : public QAbstractTableModel
{
public:
    [[nodiscard]] int rowCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : titleCount;
    }
    [[nodiscard]] int columnCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : int(mwqnDefaultSitesDict.size()) + MatrixTable::FirstSite;
    }
    [[nodiscard]] QVariant data(const QModelIndex &, int role) const override
    {
        return role == Qt::DisplayRole ? m_text : QVariant();
    }

private:
    const QVariant m_text = u"↑ 1.1"_s;
};

/// The time (seconds) that one step takes while @p table is scrolled down and to the right, drawn each time;
/// the longest goes to @p longest.
double scroll(QTableView &table, double &longest)
{
    static constexpr int steps = 100;
    std::vector<double> times;
    times.reserve(steps);
    for (int step = 0; step < steps; ++step) {
        times.push_back(seconds([&table, step] {
            QScrollBar &down = *table.verticalScrollBar();
            QScrollBar &right = *table.horizontalScrollBar();
            down.setValue(down.maximum() * step / steps);
            right.setValue(right.maximum() * step / steps);
            benchmark::DoNotOptimize(table.viewport()->grab());
        }));
    }
    longest = std::max(longest, *std::ranges::max_element(times));
    return median(times);
}

/// Opens the window on 2,000 titles × all default sites and scrolls through all of it; the floor is a table
/// that says the same in every cell; of loading, the titles' list alone. The goals: no step takes longer than
/// a picture of the screen does (17 ms), nor loading twice as long as the list.
void scrollMatrix(benchmark::State &state)
{
    setDefaultSites();
    const QStringList summaries = fillDataFolder(QDir::homePath(), titleCount);
    fillSummaries(summaries);
    SameCells same;
    std::vector<double> floors;
    std::vector<double> scrolls;
    std::vector<double> loads;
    std::vector<double> readings;
    double longest = 0;
    double longestFloor = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        MatrixWindow window(nullptr);
        window.show();
        loads.push_back(seconds([&window] { window.load(); }));
        readings.push_back(seconds([] { benchmark::DoNotOptimize(loadTitles(OldLayout::Leave)); }));
        auto *table = window.findChild<QTableView *>(u"matrixTable"_s);
        scrolls.push_back(scroll(*table, longest));
        table->setItemDelegate(new QStyledItemDelegate(table));
        table->setModel(&same);
        floors.push_back(scroll(*table, longestFloor));
    }
    state.counters["load_ms"] = median(loads) * 1e3;
    state.counters["load_ratio"] = median(loads) / median(readings);
    state.counters["step_ms"] = median(scrolls) * 1e3;
    state.counters["longest_ms"] = longest * 1e3;
    state.counters["longest_floor_ms"] = longestFloor * 1e3;
    state.counters["ratio"] = median(scrolls) / median(floors);
}
BENCHMARK(scrollMatrix)->Iterations(5)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const OwnHome home;
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
