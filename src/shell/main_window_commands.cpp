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
    const QString file = u"&File"_s;
    const QString edit = u"&Edit"_s;
    const QString view = u"&View"_s;
    const QString title = u"Tit&le"_s;
    const QString help = u"&Help"_s;
    // clang-format off
    return {
        {.id = u"new"_s, .text = u"&New…"_s, .menu = file, .icon = u"new-title"_s, .keys = {QKeySequence::New},
         .toolTip = u"Add a new software title"_s,
         .isEnabled = ifFileMenuHas(FileMenu::New), .run = [parts] { parts.titles.newSoftwareButtonAction(); }},
        {.id = u"edit"_s, .text = u"&Edit"_s, .menu = file, .isForSelectedRow = true, .keys = {u"Ctrl+E"_s},
         .isEnabled = ifFileMenuHas(FileMenu::Edit), .run = [parts] { parts.toolbar.editTBI(); }},
        {.id = u"rename"_s, .text = u"&Rename…"_s, .menu = file, .isForSelectedRow = true, .icon = u"rename"_s,
         .keys = {u"F2"_s}, .toolTip = u"Give the selected title another name"_s,
         .isEnabled = ifFileMenuHas(FileMenu::Rename), .run = [parts] { parts.titles.renameSWListItem(); }},
        // Its key belongs to the list: in the editor it would delete the title instead of a text.
        {.id = u"delete"_s, .text = u"&Delete…"_s, .menu = file, .isForSelectedRow = true, .icon = u"delete"_s,
         .keys = {QKeySequence::Delete}, .keysIn = Qt::WidgetShortcut,
         .toolTip = u"Delete the selected title"_s,
         .isEnabled = ifFileMenuHas(FileMenu::Rename), .run = [parts] { parts.titles.deleteButtonAction(); }},
        {.id = u"import"_s, .text = u"&Import…"_s, .menu = file, .opensGroup = true, .icon = u"import"_s,
         .keys = {u"Ctrl+I"_s}, .toolTip = u"Add titles from PAD files"_s,
         .isEnabled = ifFileMenuHas(FileMenu::Import), .run = [parts] { parts.titles.importPADFile(); }},
        {.id = u"export"_s, .text = u"E&xport…"_s, .menu = file, .isForSelectedRow = true, .icon = u"export"_s,
         .keys = {u"Ctrl+Shift+E"_s}, .toolTip = u"Save the selected title's PAD file"_s,
         .isEnabled = ifFileMenuHas(FileMenu::Export), .run = [parts] { parts.titles.exportButtonAction(); }},
        {.id = u"backup"_s, .text = u"&Backup…"_s, .menu = file, .opensGroup = true, .icon = u"backup"_s,
         .isEnabled = ifFileMenuHas(FileMenu::Backup),
         .run = [parts] { parts.preferences.importBackupMenuAction(); }},
        {.id = u"preferences"_s, .text = u"&Preferences…"_s, .menu = file, .opensGroup = true,
         .keys = {u"Ctrl+,"_s}, .run = [parts] { parts.preferences.openPrefsWindow(); }},
        {.id = u"quit"_s, .text = u"&Quit"_s, .menu = file, .opensGroup = true, .keys = {QKeySequence::Quit},
         .run = [parts] { parts.window.close(); }},

        {.id = u"undo"_s, .text = u"&Undo"_s, .menu = edit, .keys = {QKeySequence::Undo},
         .isEnabled = [parts] { return parts.window.canUndo(); }, .run = [parts] { parts.window.undo(); }},
        {.id = u"redo"_s, .text = u"&Redo"_s, .menu = edit, .keys = {u"Ctrl+Shift+Z"_s},
         .isEnabled = [parts] { return parts.window.canRedo(); }, .run = [parts] { parts.window.redo(); }},

        {.id = u"Overview"_s, .text = u"&Overview"_s, .menu = view, .icon = u"OverviewTBI"_s,
         .keys = {u"Ctrl+1"_s}, .isView = true, .run = [parts] { parts.toolbar.overviewTBI(); }},
        {.id = u"Edit"_s, .text = u"&Edit"_s, .menu = view, .icon = u"EditTBI"_s, .keys = {u"Ctrl+2"_s},
         .isView = true, .run = [parts] { parts.toolbar.editTBI(); }},
        {.id = u"Submit"_s, .text = u"&Submit"_s, .menu = view, .icon = u"Submit"_s, .keys = {u"Ctrl+3"_s},
         .run = [parts] { parts.toolbar.submitTBI(); }},
        {.id = u"customise"_s, .text = u"&Customise Toolbar…"_s, .menu = view, .opensGroup = true,
         .run = [parts] { parts.window.customiseToolbar(); }},

        {.id = u"history"_s, .text = u"&History…"_s, .menu = title,
         .toolTip = u"What was changed in the selected title, and the way back"_s,
         .isEnabled = [] { return mwqnSelSW.has_value(); }, .run = [parts] { parts.window.openHistory({}); }},
        {.id = u"fix"_s, .text = u"&Fix…"_s, .menu = title, .opensGroup = true,
         .toolTip = u"What of the errors can be mended without guessing"_s,
         .isEnabled = [] { return mwqnSelSW.has_value(); },
         .run = [parts] { plan_windows::openFixes(parts.window, parts.overview, parts.edits); }},
        {.id = u"newRelease"_s, .text = u"&New Release…"_s, .menu = title,
         .toolTip = u"Version, date, sizes and what is new, in one or many titles"_s,
         .isEnabled = ifFileMenuHas(FileMenu::New),
         .run = [parts] { plan_windows::openRelease(parts.window, parts.overview, parts.edits); }},
        {.id = u"changeInTitles"_s, .text = u"&Change in Titles…"_s, .menu = title,
         .toolTip = u"Set fields in all titles that have a value in common"_s,
         .isEnabled = ifFileMenuHas(FileMenu::New),
         .run = [parts] { plan_windows::openBulkChange(parts.window, parts.overview, parts.edits); }},
        {.id = u"exportOriginal"_s, .text = u"Export &Original…"_s, .menu = title, .opensGroup = true,
         .toolTip = u"Save the file that the selected title was imported from"_s,
         .isEnabled = ifFileMenuHas(FileMenu::Export), .run = [parts] { parts.titles.exportOriginal(); }},
        {.id = u"matrix"_s, .text = u"Titles and &Sites…"_s, .menu = title, .opensGroup = true,
         .keys = {u"Ctrl+4"_s}, .toolTip = u"Which version of each title is on which site"_s,
         .run = [parts] { parts.window.openMatrix(); }},
        {.id = u"deletedTitles"_s, .text = u"&Deleted Titles…"_s, .menu = title, .opensGroup = true,
         .toolTip = u"Bring back titles and sites of your own that you deleted"_s,
         .isEnabled = ifFileMenuHas(FileMenu::New), .run = [parts] { parts.deleted.open(); }},

        {.id = u"rulePacks"_s, .text = u"Rule &Packs…"_s, .menu = title,
         .toolTip = u"Choose by which further rules is advised"_s, .run = [parts] { parts.window.openRulePacks(); }},

        {.id = u"manual"_s, .text = u"&Help for What Is Shown"_s, .menu = help, .icon = u"help"_s,
         .keys = {QKeySequence::HelpContents}, .run = [parts] { Q_EMIT parts.window.manualRequested(); }},
        {.id = u"help"_s, .text = u"Quillon Help in Your &Web Browser"_s, .menu = help,
         .run = [parts] { parts.titles.helpAction(); }},
        {.id = u"tryExample"_s, .text = u"Tr&y It With an Example"_s, .menu = help, .opensGroup = true,
         .toolTip = u"Add a complete title to look around in; one click removes it"_s,
         .isEnabled = [parts] { return parts.overview.fileMenu().isEnabled(FileMenu::New) && !parts.titles.hasExample(); },
         .run = [parts] { parts.titles.tryExample(); }},
        {.id = u"removeExample"_s, .text = u"Remove the Exam&ple"_s, .menu = help,
         .toolTip = u"Remove the title that Quillon made to be tried out"_s,
         .isEnabled = [parts] { return parts.overview.fileMenu().isEnabled(FileMenu::New) && parts.titles.hasExample(); },
         .run = [parts] { parts.titles.removeExample(); }},
        {.id = u"bugReport"_s, .text = u"Report a &Bug"_s, .menu = help, .opensGroup = true, .icon = u"bug-report"_s,
         .run = [parts] { parts.titles.bugReportAction(); }},
        {.id = u"about"_s, .text = u"&About Quillon"_s, .menu = help, .opensGroup = true,
         .run = [parts] { parts.window.openAboutPanelAction(); }},
    };
    // clang-format on
}

} // namespace quillon
