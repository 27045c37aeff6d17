// Replaces a backup as the preferences window does, for script/torture, which stops it meanwhile:
//
//     quillon_replacer --home HOME replace titles|sites|all PLACE
//
// Tells on standard output what the window would. Ends with 0 when that is success, with 4 when it is not,
// and with 3 when another holds the data folder.

#include "platform/settings.h"
#include "sites/preferences_backups.h"
#include "store/data_folder_lock.h"
#include "store/process_state.h"
#include "support/recorders.h"

#include <QCoreApplication>

#include <cstdio>
#include <map>

using namespace quillon;

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    setSettingsHome(arguments.value(2));
    setDataFolder(arguments.value(2));
    const DataFolderLock lock;
    if (lock.state() != DataFolderLock::State::Held)
        return 3;
    RecordingSheets sheets;
    sheets.filesToChoose = {arguments.value(5)};
    ManualCalls calls;
    PreferencesBackups backups(sheets, calls);
    const std::map<QString, void (PreferencesBackups::*)()> actions{
        {QStringLiteral("titles"), &PreferencesBackups::backupSoftwareAction},
        {QStringLiteral("sites"), &PreferencesBackups::backupSitesListAction},
        {QStringLiteral("all"), &PreferencesBackups::backupAllAction}};
    (backups.*actions.at(arguments.value(4)))();
    while (sheets.alerts.isEmpty())
        calls.pass(std::chrono::seconds(1));
    std::puts(sheets.lastTexts().toUtf8().constData());
    return sheets.lastMessage() == backups::backupSucceeded ? 0 : 4;
}
