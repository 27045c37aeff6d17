#include "shell/main_window_commands.h"

#include "overview/overview_controller.h"
#include "overview/title_commands.h"
#include "shell/main_window.h"
#include "shell/plan_windows.h"
#include "shell/toolbar_control.h"
#include "sites/deleted_titles.h"
#include "sites/preferences_controller.h"
#include "store/process_state.h"

using namespace Qt::StringLiterals;

namespace quillon {

QList<Command> mainWindowCommands(const MainWindowParts &parts)
{
    const auto ifFileMenuHas = [&menu = parts.overview.fileMenu()](FileMenu::Item item) {
        return [&menu, item] { return menu.isEnabled(item); };
    };
    // What is planned for many titles reaches the one that is open in the editor, too.
    const auto canPlan = [parts] {
        return parts.overview.fileMenu().isEnabled(FileMenu::New) || parts.window.isEditorShown();
    };
    const QString file = MainWindow::tr("&File");
    const QString edit = MainWindow::tr("&Edit");
    const QString view = MainWindow::tr("&View");
    const QString title = MainWindow::tr("Tit&le");
    const QString help = MainWindow::tr("&Help");
    // clang-format off
    return {
        {.id = u"new"_s, .text = MainWindow::tr("&New…"), .menu = file, .icon = u"new-title"_s, .keys = {QKeySequence::New},
         .toolTip = MainWindow::tr("Add a new software title"),
         .isEnabled = ifFileMenuHas(FileMenu::New), .run = [parts] { parts.titles.newSoftwareButtonAction(); }},
        {.id = u"edit"_s, .text = MainWindow::tr("&Edit"), .menu = file, .isForSelectedRow = true, .keys = {u"Ctrl+E"_s},
         .isEnabled = ifFileMenuHas(FileMenu::Edit), .run = [parts] { parts.toolbar.editTBI(); }},
        {.id = u"rename"_s, .text = MainWindow::tr("&Rename…"), .menu = file, .isForSelectedRow = true, .icon = u"rename"_s,
         .keys = {u"F2"_s}, .toolTip = MainWindow::tr("Give the selected title another name"),
         .isEnabled = ifFileMenuHas(FileMenu::Rename), .run = [parts] { parts.titles.renameSWListItem(); }},
        // Its key belongs to the list: in the editor it would delete the title instead of a text.
        {.id = u"delete"_s, .text = MainWindow::tr("&Delete…"), .menu = file, .isForSelectedRow = true, .icon = u"delete"_s,
         .keys = {QKeySequence::Delete}, .keysIn = Qt::WidgetShortcut,
         .toolTip = MainWindow::tr("Delete the selected title"),
         .isEnabled = ifFileMenuHas(FileMenu::Rename), .run = [parts] { parts.titles.deleteButtonAction(); }},
        {.id = u"import"_s, .text = MainWindow::tr("&Import…"), .menu = file, .opensGroup = true, .icon = u"import"_s,
         .keys = {u"Ctrl+I"_s}, .toolTip = MainWindow::tr("Add titles from PAD files"),
         .isEnabled = ifFileMenuHas(FileMenu::Import), .run = [parts] { parts.titles.importPADFile(); }},
        {.id = u"export"_s, .text = MainWindow::tr("E&xport…"), .menu = file, .isForSelectedRow = true, .icon = u"export"_s,
         .keys = {u"Ctrl+Shift+E"_s}, .toolTip = MainWindow::tr("Save the selected title's PAD file"),
         .isEnabled = ifFileMenuHas(FileMenu::Export), .run = [parts] { parts.titles.exportButtonAction(); }},
        {.id = u"backup"_s, .text = MainWindow::tr("&Backup…"), .menu = file, .opensGroup = true, .icon = u"backup"_s,
         .isEnabled = ifFileMenuHas(FileMenu::Backup),
         .run = [parts] { parts.preferences.importBackupMenuAction(); }},
        {.id = u"preferences"_s, .text = MainWindow::tr("&Preferences…"), .menu = file, .opensGroup = true,
         .keys = {u"Ctrl+,"_s}, .run = [parts] { parts.preferences.openPrefsWindow(); }},
        {.id = u"quit"_s, .text = MainWindow::tr("&Quit"), .menu = file, .opensGroup = true, .keys = {QKeySequence::Quit},
         .run = [parts] { parts.window.close(); }},

        {.id = u"undo"_s, .text = MainWindow::tr("&Undo"), .menu = edit, .keys = {QKeySequence::Undo},
         .isEnabled = [parts] { return parts.window.canUndo(); }, .run = [parts] { parts.window.undo(); }},
        {.id = u"redo"_s, .text = MainWindow::tr("&Redo"), .menu = edit, .keys = {u"Ctrl+Shift+Z"_s},
         .isEnabled = [parts] { return parts.window.canRedo(); }, .run = [parts] { parts.window.redo(); }},

        {.id = u"Overview"_s, .text = MainWindow::tr("&Overview"), .menu = view, .icon = u"OverviewTBI"_s,
         .keys = {u"Ctrl+1"_s}, .isView = true, .run = [parts] { parts.toolbar.overviewTBI(); }},
        {.id = u"Edit"_s, .text = MainWindow::tr("&Edit"), .menu = view, .icon = u"EditTBI"_s, .keys = {u"Ctrl+2"_s},
         .isView = true, .run = [parts] { parts.toolbar.editTBI(); }},
        {.id = u"Submit"_s, .text = MainWindow::tr("&Submit"), .menu = view, .icon = u"Submit"_s, .keys = {u"Ctrl+3"_s},
         .run = [parts] { parts.toolbar.submitTBI(); }},
        {.id = u"customise"_s, .text = MainWindow::tr("&Customise Toolbar…"), .menu = view, .opensGroup = true,
         .run = [parts] { parts.window.customiseToolbar(); }},

        {.id = u"history"_s, .text = MainWindow::tr("&History…"), .menu = title,
         .toolTip = MainWindow::tr("What was changed in the selected title, and the way back"),
         .isEnabled = [] { return mwqnSelSW.has_value(); }, .run = [parts] { parts.window.openHistory({}); }},
        {.id = u"fix"_s, .text = MainWindow::tr("&Fix…"), .menu = title, .opensGroup = true,
         .toolTip = MainWindow::tr("What of the errors can be mended without guessing"),
         .isEnabled = [] { return mwqnSelSW.has_value(); },
         .run = [parts] { plan_windows::openFixes(parts.window, parts.overview, parts.edits); }},
        {.id = u"newRelease"_s, .text = MainWindow::tr("&New Release…"), .menu = title,
         .toolTip = MainWindow::tr("Version, date, sizes and what is new, in one or many titles"),
         .isEnabled = canPlan,
         .run = [parts] { plan_windows::openRelease(parts.window, parts.overview, parts.edits); }},
        {.id = u"changeInTitles"_s, .text = MainWindow::tr("&Change in Titles…"), .menu = title,
         .toolTip = MainWindow::tr("Set fields in all titles that have a value in common"),
         .isEnabled = canPlan,
         .run = [parts] { plan_windows::openBulkChange(parts.window, parts.overview, parts.edits); }},
        {.id = u"exportOriginal"_s, .text = MainWindow::tr("Export &Original…"), .menu = title, .opensGroup = true,
         .toolTip = MainWindow::tr("Save the file that the selected title was imported from"),
         .isEnabled = ifFileMenuHas(FileMenu::Export), .run = [parts] { parts.titles.exportOriginal(); }},
        {.id = u"matrix"_s, .text = MainWindow::tr("Titles and &Sites…"), .menu = title, .opensGroup = true,
         .keys = {u"Ctrl+4"_s}, .toolTip = MainWindow::tr("Which version of each title is on which site"),
         .run = [parts] { parts.window.openMatrix(); }},
        {.id = u"deletedTitles"_s, .text = MainWindow::tr("&Deleted Titles…"), .menu = title, .opensGroup = true,
         .toolTip = MainWindow::tr("Bring back titles and sites of your own that you deleted"),
         .isEnabled = ifFileMenuHas(FileMenu::New), .run = [parts] { parts.deleted.open(); }},

        {.id = u"rulePacks"_s, .text = MainWindow::tr("Rule &Packs…"), .menu = title,
         .toolTip = MainWindow::tr("Choose by which further rules is advised"), .run = [parts] { parts.window.openRulePacks(); }},

        {.id = u"manual"_s, .text = MainWindow::tr("&Help for What Is Shown"), .menu = help, .icon = u"help"_s,
         .keys = {QKeySequence::HelpContents}, .run = [parts] { Q_EMIT parts.window.manualRequested(); }},
        {.id = u"help"_s, .text = MainWindow::tr("Quillon Help in Your &Web Browser"), .menu = help,
         .run = [parts] { parts.titles.helpAction(); }},
        {.id = u"tryExample"_s, .text = MainWindow::tr("Tr&y It With an Example"), .menu = help, .opensGroup = true,
         .toolTip = MainWindow::tr("Add a complete title to look around in; one click removes it"),
         .isEnabled = [parts] { return parts.overview.fileMenu().isEnabled(FileMenu::New) && !parts.titles.hasExample(); },
         .run = [parts] { parts.titles.tryExample(); }},
        {.id = u"removeExample"_s, .text = MainWindow::tr("Remove the Exam&ple"), .menu = help,
         .toolTip = MainWindow::tr("Remove the title that Quillon made to be tried out"),
         .isEnabled = [parts] { return parts.overview.fileMenu().isEnabled(FileMenu::New) && parts.titles.hasExample(); },
         .run = [parts] { parts.titles.removeExample(); }},
        {.id = u"bugReport"_s, .text = MainWindow::tr("Report a &Bug"), .menu = help, .opensGroup = true, .icon = u"bug-report"_s,
         .run = [parts] { parts.titles.bugReportAction(); }},
        {.id = u"updates"_s, .text = MainWindow::tr("Check for &Updates…"), .menu = help,
         .toolTip = MainWindow::tr("Go to the desktop's software centre, or see how Quillon is updated"),
         .run = [parts] { Q_EMIT parts.window.updatesRequested(); }},
        {.id = u"about"_s, .text = MainWindow::tr("&About Quillon"), .menu = help, .opensGroup = true,
         .run = [parts] { parts.window.openAboutPanelAction(); }},
    };
    // clang-format on
}

} // namespace quillon
