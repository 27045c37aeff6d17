#include "editor/editor.h"
#include "overview/overview_controller.h"
#include "overview/title_commands.h"
#include "platform/application_info.h"
#include "platform/delayed_calls.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "platform/settings.h"
#include "shell/main_window.h"
#include "shell/message_box_sheets.h"
#include "shell/single_instance.h"
#include "shell/toolbar_control.h"
#include "sites/preferences_controller.h"
#include "sites/preferences_window.h"
#include "store/add_delete_import_edit.h"
#include "store/data_folder_lock.h"
#include "store/process_state.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QIcon>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace {

/// The home folder that the command line names, or the user's own.
QString homeFolder(const QApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Keeps, checks and submits the PAD files of your software titles."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption home(u"home"_s, u"Use this folder as the user's home folder."_s, u"DIR"_s,
                                  QDir::homePath());
    parser.addOption(home);
    parser.process(application);
    return QDir(parser.value(home)).absolutePath();
}

/// Says what to do until there is a submission window, and takes back that one is open.
void tellOfMissingSubmitWindow(AlertSheets &alerts)
{
    mwqnWOSi78tgsda = true;
    NotificationCenter::defaultCenter().post(notification::mwqnRS87968tJHKgfds);
    alerts.show(
        SheetWindow::Main,
        {u"The submission window is not part of this version yet."_s,
         u"quillon-cli lists the sites, gives the values to be pasted and marks what was submitted."_s});
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"quillon"_s);
    QApplication::setApplicationDisplayName(u"Quillon"_s);
    QApplication::setApplicationVersion(application_info::version);
    QApplication::setDesktopFileName(u"quillon"_s);
    QApplication::setWindowIcon(QIcon(u":/icons/quillon.svg"_s));

    const QString home = homeFolder(application);
    setSettingsHome(home);
    setDataFolder(home);
    AddDeleteImportEdit::checkAppSuppExists(); // The lock lies in the data folder.
    const DataFolderLock lock;
    if (lock.state() == DataFolderLock::State::HeldByAnother) {
        const bool shown = SingleInstance::activateOther();
        std::fputs(shown ? "Quillon is running already; its window was brought to the front.\n"
                         : "Another program is working on the data folder.\n",
                   stderr);
        return shown ? EXIT_SUCCESS : EXIT_FAILURE;
    }

    MessageBoxSheets alerts;
    TimedCalls delayedCalls;
    OverviewController overview(alerts);
    TitleCommands commands(overview, alerts, delayedCalls);
    ToolbarControl toolbar(overview, alerts);
    Editor editor(alerts);
    PreferencesController preferences(alerts, delayedCalls);
    MainWindow window(toolbar, overview, commands, editor);
    alerts.setWidget(SheetWindow::Main, &window);
    alerts.setWidget(SheetWindow::Preferences, new PreferencesWindow(preferences, &window));
    QObject::connect(&window, &MainWindow::preferencesRequested, &preferences,
                     &PreferencesController::openPrefsWindow);
    QObject::connect(&window, &MainWindow::backupRequested, &preferences,
                     &PreferencesController::importBackupMenuAction);
    toolbar.awakeFromNib();
    editor.awakeFromNib();      // Before the overview, whose selection it is to hear of.
    preferences.awakeFromNib(); // Likewise, for the overview asks for the catalogue.
    overview.awakeFromNib();

    QObject::connect(&toolbar, &ToolbarControl::openSubmitWindow, &window,
                     [&alerts] { tellOfMissingSubmitWindow(alerts); });

    SingleInstance instance;
    QObject::connect(&instance, &SingleInstance::activated, &window, &MainWindow::bringToFront);
    if (lock.state() == DataFolderLock::State::Held)
        instance.listen();

    window.show();
    return QApplication::exec();
}
