#pragma once

#include "widgets/command_set.h"

namespace quillon {

class DeletedTitles;
class EditHistory;
class MainWindow;
class OverviewController;
class PreferencesController;
class TitleCommands;
class ToolbarControl;

/// What the commands of the main window act on.
struct MainWindowParts
{
    MainWindow &window;
    ToolbarControl &toolbar;
    OverviewController &overview;
    TitleCommands &titles;
    PreferencesController &preferences;
    DeletedTitles &deleted;
    EditHistory &edits;
};

/// Every command of the main window: its menus, toolbar, the buttons and the context menu of its list.
QList<Command> mainWindowCommands(const MainWindowParts &parts);

} // namespace quillon
