#include "measuring.h"
#include "sites/backups.h"
#include "store/process_state.h"
#include "store/title_folder.h"

#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

// Backing up and restoring 2,000 titles beside `cp -r` with the same sync, in turns in one run, so that both
// meet the same state of the machine. The goal: at most twice as long, at the median.

namespace {

using namespace quillon;

constexpr int titleCount = 2000;
constexpr int rounds = 3;

void put(const QString &path, qsizetype size)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray(size, 'x')) != size)
        qFatal("the test data could not be written");
}

/// Titles of the size that real ones have.
void makeTitles()
{
    for (int number = 0; number < titleCount; ++number) {
        const QString folder = mwqnAppSuppLoc + u"Title %1.qndata"_s.arg(number);
        QDir().mkpath(folder);
        put(folder + u'/' + title_folder::padFile, 12'000);
        put(folder + u'/' + title_folder::summaryFile, 700);
        put(folder + u'/' + title_folder::errorLog, 400);
    }
}

void run(const QString &program, const QStringList &arguments)
{
    if (QProcess::execute(program, arguments) != 0)
        qFatal("the command failed");
}

/// What has been measured so far, in seconds.
struct Times
{
    std::vector<double> backups;
    std::vector<double> restores;
    std::vector<double> copies;
};

/// The median of @p ours beside that of @p floor.
void report(const char *what, const std::vector<double> &ours, const std::vector<double> &floor)
{
    std::printf("%zu  %-8s %7.3f s   cp -r and sync %7.3f s   ratio %.2f\n", ours.size(), what, median(ours),
                median(floor), median(ours) / median(floor));
    std::fflush(stdout);
}

/// Copies the data folder, backs it up, restores that into an empty one, and copies it again.
void measureRound(const QTemporaryDir &home, int round, Times &times)
{
    const auto place = [&](const char *name) {
        return home.filePath(QLatin1String(name) + QString::number(round));
    };
    const auto copyPlainly = [&times](const QString &copy) {
        times.copies.push_back(seconds([&copy] {
            run(u"cp"_s, {u"-r"_s, mwqnAppSuppLoc, copy});
            run(u"sync"_s, {u"-f"_s, copy});
        }));
    };
    copyPlainly(place("before"));
    const QString backup = place("list") + u".swback"_s;
    times.backups.push_back(seconds([&backup] {
        if (backups::backupTitles(backup, backups::Existing::Refuse).copied != titleCount)
            qFatal("the backup is not whole");
    }));
    const QString fullFolder = mwqnAppSuppLoc;
    setDataFolder(place("empty"));
    QDir().mkpath(mwqnAppSuppLoc);
    times.restores.push_back(seconds([&backup] {
        if (backups::restoreTitles(backup).copied != titleCount)
            qFatal("not all was restored");
    }));
    mwqnAppSuppLoc = fullFolder;
    copyPlainly(place("after"));
}

} // namespace

int main(int argc, char *argv[])
{
    QLoggingCategory::setFilterRules(u"quillon.backups.info=false"_s);
    // A folder on the disk that is meant; by default where temporary files are.
    const QTemporaryDir home(QString::fromLocal8Bit(argc > 1 ? argv[1] : "/tmp") + u"/bench-XXXXXX"_s);
    setDataFolder(home.path());
    makeTitles();
    run(u"sync"_s, {u"-f"_s, home.path()});
    // Nothing is removed between the rounds: some file systems look long for a number for a new file when
    // many were freed a moment ago, and that would be all that is measured.
    Times times;
    for (int round = 0; round < rounds; ++round) {
        measureRound(home, round, times);
        report("backup", times.backups, times.copies);
        report("restore", times.restores, times.copies);
    }
    return 0;
}
