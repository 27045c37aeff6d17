#include "changes/unfinished_sets.h"
#include "overview/title_list.h"
#include "platform/application_info.h"
#include "platform/settings.h"
#include "shell/single_instance.h"
#include "shell/workbench.h"
#include "store/add_delete_import_edit.h"
#include "store/data_folder_lock.h"
#include "store/process_state.h"
#include "store/storage_status.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QIcon>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace {

constexpr int wrongUsage = 2;
constexpr std::chrono::milliseconds untilDrawn{200}; ///< From showing the window, at a guess.

/// The home folder that the command line names, or the user's own; none, with a message, for an empty name.
std::optional<QString> homeFolder(const QApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Keeps, checks and submits the PAD files of your software titles."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption home(u"home"_s, u"Use this folder as the user's home folder."_s, u"DIR"_s,
                                  QDir::homePath());
    parser.addOption(home);
    parser.process(application);
    if (parser.value(home).isEmpty()) {
        std::fputs("--home needs the name of a folder.\n", stderr);
        return std::nullopt;
    }
    return QDir(parser.value(home)).absolutePath();
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
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"quillon"_s);
    QApplication::setApplicationDisplayName(u"Quillon"_s);
    QApplication::setApplicationVersion(application_info::version);
    QApplication::setDesktopFileName(u"quillon"_s);

    const std::optional<QString> home = homeFolder(application);
    if (!home)
        return wrongUsage;
    setSettingsHome(*home);
    setDataFolder(*home);
    (void)
        AddDeleteImportEdit::checkAppSuppExists(); // The lock lies in the data folder; the status bar tells.
    const DataFolderLock lock;
    if (lock.state() == DataFolderLock::State::Obstructed) {
        std::fputs(qPrintable(failureLine(lock.obstruction()) + u'\n'), stderr);
        return EXIT_FAILURE;
    }
    if (lock.state() == DataFolderLock::State::HeldByAnother) {
        const bool shown = SingleInstance::activateOther();
        std::fputs(shown ? "Quillon is running already; its window was brought to the front.\n"
                         : "Another program is working on the data folder.\n",
                   stderr);
        return shown ? EXIT_SUCCESS : EXIT_FAILURE;
    }

    const bool isWriter = lock.state() == DataFolderLock::State::Held;
    readTitlesAhead(); // The window is made meanwhile.
    Workbench workbench;
    if (isWriter)
        workbench.listen();
    workbench.window().show();
    // What nobody waits for: the list is to be on the screen first.
    QTimer::singleShot(untilDrawn, &workbench.window(), [isWriter] {
        QApplication::setWindowIcon(QIcon(u":/icons/quillon.svg"_s));
        if (isWriter)
            removeRests();
    });
    return QApplication::exec();
}
