#include "changes/edit_history.h"
#include "editor/editor.h"
#include "journal/journal.h"
#include "measuring.h"
#include "overview/title_list.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "support/recorders.h"
#include "support/valid_form.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using namespace quillon;

/// A title that is open in two editors, of which one writes its history.
struct TwoEditors
{
    TwoEditors()
    {
        setDataFolder(home.path());
        (void)AddDeleteImportEdit::checkAppSuppExists();
        (void)AddDeleteImportEdit::createNewListing(u"Title"_s);
        selectTitle(u"Title"_s);
        fillValidly(with.form(), true);
        fillValidly(without.form(), true);
        with.checkEntriesForErrors();
    }
    ~TwoEditors()
    {
        edits.store();
        Journal::ofDataFolder().close();
        clearSelectedTitle();
    }

    const QTemporaryDir home;
    RecordingSheets sheets;
    Editor with{sheets};
    Editor without{sheets};
    TimedCalls calls;
    EditHistory edits{with, calls};
};

/// A text of always the same length that is another one each time.
QString newText()
{
    static int number = 100'000;
    return u"Smith & Sons "_s + QString::number(++number);
}

/// A keystroke with history beside one without, in turn.
void keystroke(benchmark::State &state)
{
    TwoEditors editors;
    std::vector<double> with;
    std::vector<double> without;
    for ([[maybe_unused]] const auto iteration : state) {
        const QString text = newText();
        with.push_back(seconds([&] { editors.with.typed(FieldId::companyName, text); }));
        const QString other = newText();
        without.push_back(seconds([&] { editors.without.typed(FieldId::companyName, other); }));
        QCoreApplication::processEvents();
        state.SetIterationTime(with.back());
    }
    state.counters["floor_us"] = median(without) * 1e6;
    state.counters["ratio"] = median(with) / median(without);
}
BENCHMARK(keystroke)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// Leaving a field that was changed; the floor is leaving it without a history, and one sync.
void leavingAField(benchmark::State &state)
{
    TwoEditors editors;
    std::vector<double> with;
    std::vector<double> floors;
    QFile synced(editors.home.filePath(u"synced"_s));
    (void)synced.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    for ([[maybe_unused]] const auto iteration : state) {
        editors.with.typed(FieldId::companyName, newText());
        with.push_back(seconds([&] { editors.with.controlTextDidEndEditing(FieldId::companyName); }));
        editors.without.typed(FieldId::companyName, newText());
        floors.push_back(seconds([&] {
            editors.without.controlTextDidEndEditing(FieldId::companyName);
            synced.write(QByteArray(4096, 'x'));
            ::fdatasync(synced.handle());
        }));
        state.SetIterationTime(with.back());
    }
    state.counters["floor_us"] = median(floors) * 1e6;
    state.counters["ratio"] = median(with) / median(floors);
}
BENCHMARK(leavingAField)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// Gives each of @p titles a history of @p rows rows. The bytes of their texts.
qint64 makeHistories(int titles, int rows)
{
    qint64 bytes = 0;
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    (void)Journal::ofDataFolder().change([&](Database &database) -> Result<> {
        for (int title = 0; title < titles; ++title) {
            QList<history::Step> steps;
            for (int row = 0; row < rows; ++row) {
                const QString before = u"A description of some length, as it was in version %1"_s.arg(row);
                const QString after = u"A description of some length, as it was in version %1"_s.arg(row + 1);
                bytes += before.toUtf8().size() + after.toUtf8().size();
                steps.append({history::origin::typed,
                              {},
                              now + row,
                              {{.field = u"pd450CharDescript"_s, .before = before, .after = after}}});
            }
            if (Result<> kept = history::append(database, u"Title %1"_s.arg(title), steps); !kept)
                return kept;
        }
        return {};
    });
    Journal::ofDataFolder().close();
    return bytes;
}

/// The first 200 rows of a history of 10,000, with opening the database, beside the library's bare query.
void firstRowsOfALongHistory(benchmark::State &state)
{
    const QTemporaryDir home;
    setDataFolder(home.path());
    (void)AddDeleteImportEdit::checkAppSuppExists();
    makeHistories(1, 9'999);
    const QByteArray path = QFile::encodeName(mwqnAppSuppLoc + u"quillon.sqlite"_s);
    std::vector<double> ours;
    std::vector<double> bare;
    for ([[maybe_unused]] const auto iteration : state) {
        ours.push_back(seconds([] {
            (void)Journal::ofDataFolder().read([](Database &database) -> Result<> {
                benchmark::DoNotOptimize(history::rows(database, u"Title 0"_s, {}, 200));
                return {};
            });
        }));
        sqlite3 *database = nullptr;
        ::sqlite3_open(path.constData(), &database);
        ::sqlite3_exec(database, "SELECT count(*) FROM sqlite_schema", nullptr, nullptr, nullptr);
        bare.push_back(seconds([database] {
            sqlite3_stmt *rows = nullptr;
            ::sqlite3_prepare_v2(database,
                                 "SELECT * FROM history WHERE title_id = 1 ORDER BY row DESC LIMIT 200", -1,
                                 &rows, nullptr);
            while (::sqlite3_step(rows) == SQLITE_ROW) {
                for (int column = 0; column < ::sqlite3_column_count(rows); ++column)
                    benchmark::DoNotOptimize(::sqlite3_column_text(rows, column));
            }
            ::sqlite3_finalize(rows);
        }));
        ::sqlite3_close(database);
        state.SetIterationTime(ours.back());
    }
    state.counters["floor_us"] = median(bare) * 1e6;
    state.counters["ratio"] = median(ours) / median(bare);
    Journal::ofDataFolder().close();
}
BENCHMARK(firstRowsOfALongHistory)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// Loading a list of 2,000 titles with 100 rows of history each, beside loading it without a database; and
/// the size of the database beside that of the texts in it.
void listOfTitlesWithHistories(benchmark::State &state)
{
    const QTemporaryDir home;
    setDataFolder(home.path());
    (void)AddDeleteImportEdit::checkAppSuppExists();
    static constexpr int titles = 2'000;
    for (int title = 0; title < titles; ++title)
        (void)AddDeleteImportEdit::createNewListing(u"Title %1"_s.arg(title));
    const qint64 bytes = makeHistories(titles, 100);
    const QString path = mwqnAppSuppLoc + u"quillon.sqlite"_s;
    state.counters["database_to_texts"] = double(QFile(path).size()) / double(bytes);
    std::vector<double> with;
    std::vector<double> without;
    for ([[maybe_unused]] const auto iteration : state) {
        with.push_back(seconds([] { benchmark::DoNotOptimize(loadTitles()); }));
        QFile::rename(path, home.filePath(u"away"_s));
        without.push_back(seconds([] { benchmark::DoNotOptimize(loadTitles()); }));
        QFile::rename(home.filePath(u"away"_s), path);
        state.SetIterationTime(with.back());
    }
    state.counters["floor_us"] = median(without) * 1e6;
    state.counters["ratio"] = median(with) / median(without);
}
BENCHMARK(listOfTitlesWithHistories)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv); // The pauses between steps are timers.
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
