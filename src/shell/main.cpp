#include "changes/unfinished_sets.h"
#include "overview/title_list.h"
#include "platform/application_info.h"
#include "platform/descriptor.h"
#include "platform/settings.h"
#include "shell/single_instance.h"
#include "shell/start_request.h"
#include "shell/translations.h"
#include "shell/workbench.h"
#include "store/add_delete_import_edit.h"
#include "store/data_folder_lock.h"
#include "store/process_state.h"
#include "store/storage_status.h"
#include "widgets/outlined_style.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDeadlineTimer>
#include <QDir>
#include <QIcon>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace {

constexpr int wrongUsage = 2;
constexpr std::chrono::milliseconds untilDrawn{200}; ///< From showing the window, at a guess.

/// What the command line asks for.
struct Start
{
    QString home;
    StartRequest request;
};

QString absolute(const QString &path)
{
    return path.startsWith(u'/') ? path : QDir::currentPath() + u'/' + path;
}

/// None, with a message, where --home names no folder.
std::optional<Start> readCommandLine(const QApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Keeps, checks and submits the PAD files of your software titles."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption home(u"home"_s, u"Use this folder as the user's home folder."_s, u"DIR"_s,
                                  QDir::homePath());
    const QCommandLineOption title(u"new"_s, u"Ask for the name of a new title."_s);
    parser.addOptions({home, title});
    parser.addPositionalArgument(
        u"FILE"_s, u"PAD files to import. Where Quillon is running already, its window does it."_s,
        u"[FILE...]"_s);
    parser.process(application);
    if (parser.value(home).isEmpty()) {
        std::fputs("--home needs the name of a folder.\n", stderr);
        return std::nullopt;
    }
    Start start{.home = QDir(parser.value(home)).absolutePath(),
                .request = {.asksForTitle = parser.isSet(title),
                            .activationToken = qEnvironmentVariable("XDG_ACTIVATION_TOKEN")}};
    for (const QString &file : parser.positionalArguments())
        start.request.files.append(absolute(file));
    return start;
}

/// Takes @p lock, or hands @p request over to the window that holds it, and gives what came of that. A
/// command may hold it for a moment only, and a window that has just started does not listen yet: so both are
/// tried again for a while.
Result<> lockOrHandOver(std::optional<DataFolderLock> &lock, const StartRequest &request)
{
    const QDeadlineTimer deadline(std::chrono::seconds(2));
    Result<> handed;
    do {
        lock.emplace(std::chrono::milliseconds(100));
        if (lock->state() != DataFolderLock::State::HeldByAnother)
            break;
        handed = SingleInstance::handOver(request);
    } while (handed.isError(Error::Kind::Missing) && !deadline.hasExpired());
    return handed;
}

/// Says what came of handing @p request over; the program's exit status.
int told(const Result<> &handed, const StartRequest &request)
{
    const QString done = request.files.isEmpty()
                             ? u"Quillon is running already; its window was brought to the front."_s
                             : u"Quillon is running already; its window was given the files."_s;
    std::fputs(qPrintable((handed ? done : handed.error().reason) + u'\n'), stderr);
    return handed ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// Sees to what a crash has left behind.
void removeRests()
{
    AddDeleteImportEdit::removeUnfinished();
    for (const Error &unfinished : unfinished_sets::settle())
        reportExtrasFailure(unfinished.path, unfinished);
}

} // namespace

int main(int argc, char *argv[])
{
    reserveStandardDescriptors();
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"quillon"_s);
    QApplication::setApplicationDisplayName(u"Quillon"_s);
    QApplication::setApplicationVersion(application_info::version);
    QApplication::setDesktopFileName(u"quillon"_s);
    OutlinedStyle::install();

    const std::optional<Start> start = readCommandLine(application);
    if (!start)
        return wrongUsage;
    setSettingsHome(start->home);
    setDataFolder(start->home);
    (void)
        AddDeleteImportEdit::checkAppSuppExists(); // The lock lies in the data folder; the status bar tells.
    std::optional<DataFolderLock> lock;
    const Result<> handed = lockOrHandOver(lock, start->request);
    if (lock->state() == DataFolderLock::State::Obstructed) {
        std::fputs(qPrintable(failureLine(lock->obstruction()) + u'\n'), stderr);
        return EXIT_FAILURE;
    }
    if (lock->state() == DataFolderLock::State::HeldByAnother)
        return told(handed, start->request);

    translations::load(QLocale(), translations::folder());
    const bool isWriter = lock->state() == DataFolderLock::State::Held;
    readTitlesAhead(); // The window is made meanwhile.
    Workbench workbench;
    if (isWriter)
        workbench.listen();
    workbench.window().show();
    // What nobody waits for: the list is to be on the screen first.
    QTimer::singleShot(untilDrawn, &workbench.window(), [isWriter, &workbench, &request = start->request] {
        QApplication::setWindowIcon(QIcon(u":/icons/quillon.svg"_s));
        if (isWriter)
            removeRests();
        if (!request.isEmpty())
            workbench.take(request);
    });
    return QApplication::exec();
}
