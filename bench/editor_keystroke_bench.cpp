#include "editor/editor.h"
#include "editor/other_titles.h"
#include "measuring.h"
#include "pad/pad_writer.h"
#include "platform/atomic_file.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "store/summary_file.h"
#include "store/title_folder.h"
#include "support/recorders.h"
#include "support/valid_form.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using namespace quillon;

void fillWithLongTexts(PadForm &form, qsizetype eulaLength = 20000)
{
    fillValidly(form, true);
    form.text(FieldId::pd2000CharDescript).setText(QString(2000, u'd'));
    form.text(FieldId::eula).setText(QString(eulaLength, u'e'));
}

/// The least that replaces a file safely: write beside it, sync, rename, sync the folder.
void replaceBare(const QString &path, const QByteArray &bytes)
{
    const QByteArray name = QFile::encodeName(path);
    const QByteArray temporary = name + ".floor";
    const int file = ::open(temporary.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    bool done = ::write(file, bytes.constData(), size_t(bytes.size())) == bytes.size();
    done = ::fsync(file) == 0 && done;
    ::close(file);
    done = ::rename(temporary.constData(), name.constData()) == 0 && done;
    const int folder = ::open(QFile::encodeName(QFileInfo(path).path()).constData(), O_RDONLY | O_DIRECTORY);
    done = ::fsync(folder) == 0 && done;
    ::close(folder);
    if (!done)
        std::abort();
}

/// A keystroke with all that it stores, in turn with bare writes of the bytes that it changed.
void keystrokeAgainstFloor(benchmark::State &state, FieldId field, const QStringList &texts)
{
    const QTemporaryDir home;
    setDataFolder(home.path());
    (void)AddDeleteImportEdit::checkAppSuppExists();
    (void)AddDeleteImportEdit::createNewListing(u"Title"_s);
    selectTitle(u"Title"_s);
    RecordingSheets sheets;
    Editor editor(sheets);
    fillWithLongTexts(editor.form());
    editor.typed(field, texts[1]);

    const QStringView files[] = {title_folder::errorLog, title_folder::padFile, title_folder::summaryFile};
    const auto pathOf = [](QStringView file) -> QString { return *mwqnCurrentSWBundle + u'/' + file; };
    std::vector<double> keystrokes;
    std::vector<double> floors;
    int turn = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        std::vector<QByteArray> before;
        for (const QStringView file : files)
            before.push_back(*atomic_file::read(pathOf(file)));
        keystrokes.push_back(seconds([&] { editor.typed(field, texts[turn++ % 2]); }));
        std::vector<std::pair<QString, QByteArray>> changed;
        for (size_t each = 0; each < before.size(); ++each) {
            const QString path = pathOf(files[each]);
            if (const QByteArray now = *atomic_file::read(path); now != before[each])
                changed.emplace_back(path, now);
        }
        floors.push_back(seconds([&] {
            for (const auto &[path, bytes] : changed)
                replaceBare(path, bytes);
        }));
        state.SetIterationTime(keystrokes.back());
        state.counters["files"] = double(changed.size());
    }
    const double floor = median(floors);
    state.counters["floor_us"] = floor * 1e6;
    state.counters["ratio"] = median(keystrokes) / floor;
    clearSelectedTitle();
}

void keystrokeThatChangesOneFile(benchmark::State &state)
{
    keystrokeAgainstFloor(state, FieldId::companyName, {u"Smith & Son"_s, u"Smith & Sons"_s});
}
BENCHMARK(keystrokeThatChangesOneFile)->UseManualTime()->Unit(benchmark::kMicrosecond);

void keystrokeThatChangesThreeFiles(benchmark::State &state)
{
    keystrokeAgainstFloor(state, FieldId::programVersion, {{}, u"1"_s});
}
BENCHMARK(keystrokeThatChangesThreeFiles)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// Makes @p count titles, plainly and without syncs, with what says who makes them.
void makeOtherTitles(int count)
{
    PadForm form;
    fillWithLongTexts(form, 2000);
    for (int number = 0; number < count; ++number) {
        form.text(FieldId::companyName).setText(u"Company %1"_s.arg(number));
        const QString folder = *title_folder::path(u"Other %1"_s.arg(number));
        QFile file(folder + u'/' + title_folder::padFile);
        if (!QDir().mkdir(folder) || !file.open(QIODevice::WriteOnly) ||
            file.write(pad_writer::document(form)) < 0)
            std::abort();
    }
}

/// The first keystroke in a field while 2,000 other titles are read for being offered there, in turn with the
/// same one while nothing is read. Each comes right after another one, whose files the disk may still be at,
/// and changes the PAD file alone.
void keystrokeWhileOthersAreRead(benchmark::State &state)
{
    int count = 0;
    const QCoreApplication application(count, nullptr);
    const QTemporaryDir home;
    setDataFolder(home.path());
    (void)AddDeleteImportEdit::checkAppSuppExists();
    makeOtherTitles(int(state.range(0)));
    ::sync(); // Else the first keystroke waits for all of these, too.
    (void)AddDeleteImportEdit::createNewListing(u"Title"_s);
    selectTitle(u"Title"_s);
    RecordingSheets sheets;
    Editor editor(sheets);
    OtherTitles others(editor);
    const auto typed = [&editor](const QString &text) { editor.typed(FieldId::companyName, text); };
    std::vector<double> during;
    std::vector<double> alone;
    std::vector<double> readings;
    for ([[maybe_unused]] const auto iteration : state) {
        typed(u"Comp"_s);
        alone.push_back(seconds([&] { typed(u"Compa"_s); }));
        typed(u"Comp"_s);
        Q_EMIT editor.formLoaded(); // What was read is forgotten, as when another title is opened.
        readings.push_back(seconds([&] {
            during.push_back(seconds([&] {
                others.read();
                typed(u"Compa"_s);
            }));
            while (others.matching(FieldId::companyName, u"Compa"_s, 1).isEmpty())
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }));
        state.SetIterationTime(during.back());
    }
    state.counters["floor_us"] = median(alone) * 1e6;
    state.counters["ratio"] = median(during) / median(alone);
    state.counters["floor_worst_us"] = std::ranges::max(alone) * 1e6;
    state.counters["worst_us"] = std::ranges::max(during) * 1e6;
    state.counters["reading_ms"] = median(readings) * 1e3;
    state.counters["offer_us"] =
        seconds([&] { benchmark::DoNotOptimize(others.matching(FieldId::companyName, u"9"_s, 8)); }) * 1e6;
    clearSelectedTitle();
}
BENCHMARK(keystrokeWhileOthersAreRead)->Arg(2000)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// All of a keystroke but the files: the rules, the PAD file's and the summary's text.
void keystrokeWithoutFiles(benchmark::State &state)
{
    PadForm form;
    fillWithLongTexts(form, state.range(0));
    TextControl &name = form.text(FieldId::companyName);
    name.setEditing(true);
    std::vector<double> times;
    bool turn = false;
    for ([[maybe_unused]] const auto iteration : state) {
        times.push_back(seconds([&] {
            turn = !turn;
            name.setText(turn ? u"Smith & Son"_s : u"Smith & Sons"_s);
            ErrorPass errors;
            field_rules::textChanged(field_rules::of(FieldId::companyName).tag, form, errors);
            field_rules::checkEntries(form, errors);
            benchmark::DoNotOptimize(pad_writer::document(form));
            Summary summary;
            summary.version = form.value(FieldId::programVersion);
            summary.operatingSystems = form.value(FieldId::osTable);
            benchmark::DoNotOptimize(summary_file::text(summary).toUtf8());
        }));
    }
    state.counters["median_us"] = median(times) * 1e6;
    state.SetComplexityN(state.range(0));
}
BENCHMARK(keystrokeWithoutFiles)->Arg(20000)->Unit(benchmark::kMicrosecond);
BENCHMARK(keystrokeWithoutFiles)
    ->RangeMultiplier(4)
    ->Range(16 << 10, 4 << 20)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
