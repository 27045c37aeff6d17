#include "measuring.h"
#include "pad/pad_document.h"
#include "platform/atomic_file.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"

#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace {

struct File
{
    QByteArray name;
    QByteArray bytes;
};

bool syncPlainly(const QByteArray &path)
{
    const int descriptor = ::open(path.constData(), O_RDONLY);
    const bool isSynced = ::fsync(descriptor) == 0;
    return ::close(descriptor) == 0 && isSynced;
}

bool writePlainly(const QByteArray &path, const QByteArray &bytes)
{
    const int descriptor = ::open(path.constData(), O_WRONLY | O_CREAT | O_EXCL, 0666);
    const bool isWritten = ::write(descriptor, bytes.constData(), size_t(bytes.size())) == bytes.size();
    return ::close(descriptor) == 0 && isWritten;
}

/// Makes the folder @p name of @p files, in @p parent with its "/", by nothing but system calls, so that it
/// comes into being whole: filled and synced under a hidden name, then renamed.
bool makePlainly(const QByteArray &parent, const QByteArray &name, const QList<File> &files)
{
    const QByteArray hidden = parent + ".floor/";
    bool isDone = ::mkdir(hidden.constData(), 0777) == 0;
    for (const File &file : files)
        isDone &= writePlainly(hidden + file.name, file.bytes);
    for (const File &file : files)
        isDone &= syncPlainly(hidden + file.name);
    return isDone && syncPlainly(hidden) &&
           ::rename(hidden.constData(), QByteArray(parent + name).constData()) == 0 && syncPlainly(parent);
}

/// A PAD file of the usual size: everything filled in, and a licence of a page.
QByteArray typicalPad()
{
    QByteArray pad = atomic_file::read(QStringLiteral(QUILLON_SAMPLES "/filled_form.xml")).valueOr({});
    pad.insert(pad.indexOf("</EULA>"), QByteArray("The program is given as it is.\n").repeated(100));
    return pad;
}

/// Importing into a new title, in turn with plainly making the same folder of the same files, in the same
/// steps with the same syncs: each file, the folder, and after the renaming the data folder. In the current
/// folder, so that one chooses the disk.
void importPad(benchmark::State &state)
{
    const QTemporaryDir home(QDir::current().filePath(u"import_bench-XXXXXX"_s));
    setDataFolder(home.path());
    (void)AddDeleteImportEdit::checkAppSuppExists();
    const QByteArray pad = typicalPad();
    const QByteArray parent = QFile::encodeName(mwqnAppSuppLoc);
    auto isDone = bool(AddDeleteImportEdit::importExistingFile(u"import"_s, PadDocument(pad)));
    QList<File> files;
    const QDir imported(mwqnAppSuppLoc + u"import.qndata");
    for (const QString &name : imported.entryList(QDir::Files))
        files.append({QFile::encodeName(name), *atomic_file::read(imported.filePath(name))});

    const auto importIt = [&] {
        isDone &= bool(AddDeleteImportEdit::importExistingFile(u"import"_s, PadDocument(pad)));
    };
    const auto writeIt = [&] { isDone &= makePlainly(parent, "floor.qndata", files); };
    std::vector<double> imports;
    std::vector<double> floors;
    for ([[maybe_unused]] const auto iteration : state) {
        (void)AddDeleteImportEdit::deleteQnDataFile(u"import"_s);
        (void)AddDeleteImportEdit::deleteQnDataFile(u"floor"_s);
        ::sync(); // Or the first to sync would pay for the deletion.
        const bool isEven = imports.size() % 2 == 0;
        if (isEven)
            floors.push_back(seconds(writeIt));
        imports.push_back(seconds(importIt));
        if (!isEven)
            floors.push_back(seconds(writeIt));
        state.SetIterationTime(imports.back());
    }
    if (!isDone)
        state.SkipWithError("a file could not be written");
    state.counters["floor_ms"] = median(floors) * 1e3;
    state.counters["ratio"] = median(imports) / median(floors);
}
BENCHMARK(importPad)->MinTime(3.0)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
