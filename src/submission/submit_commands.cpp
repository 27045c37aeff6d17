#include "submission/submit_commands.h"

#include "store/process_state.h"
#include "submission/browser_module.h"
#include "submission/submit_window.h"
#include "submission/tour_control.h"

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr double zoomStep = 1.1;

/// @p commands with the first of its keys after each tool tip.
QList<Command> withKeysInToolTips(QList<Command> commands)
{
    for (Command &each : commands) {
        if (each.toolTip.isEmpty())
            each.toolTip = QString(each.text).remove(u'&');
        each.toolTip += u" (%1)"_s.arg(each.keys.first().toString(QKeySequence::NativeText));
    }
    return commands;
}

} // namespace

QList<Command> submitCommands(SubmitWindow &window)
{
    SubmitControl &control = window.control();
    WindowBrowser &browser = window.browser();
    TourControl &tour = window.tour();
    const auto unlessClosed = [&browser](void (WindowBrowser::*go)()) {
        return [&browser, go] {
            if (!mwqnWOSi78tgsda)
                (browser.*go)();
        };
    };
    const QString site = SubmitWindow::tr("&Site");
    const QString page = SubmitWindow::tr("Pa&ge");
    const QString view = SubmitWindow::tr("&View");
    // clang-format off
    return withKeysInToolTips({
        {.id = u"findSite"_s, .text = SubmitWindow::tr("&Find a Site"), .menu = site, .keys = {QKeySequence::Find},
         .run = [&window] { window.findSite(); }},
        {.id = u"mark"_s, .text = SubmitWindow::tr("Mark As Submitted"), .menu = site, .opensGroup = true, .icon = u"mark"_s,
         .keys = {u"Ctrl+M"_s}, .toolTip = SubmitWindow::tr("Note the selected site with the title's current version"),
         .isEnabled = [&control] { return control.canMark(); }, .run = [&control] { control.markSubmitted(); }},
        {.id = u"removeMark"_s, .text = SubmitWindow::tr("Remove Mark"), .menu = site, .icon = u"remove-mark"_s,
         .keys = {u"Ctrl+Shift+M"_s}, .toolTip = SubmitWindow::tr("Forget that the title was submitted to the selected site"),
         .isEnabled = [&control] { return control.canMark() && control.sites().isMarked(); },
         .run = [&control] { control.removeMark(); }},
        {.id = u"ledger"_s, .text = SubmitWindow::tr("What &Became of It…"), .menu = site, .keys = {u"Ctrl+D"_s},
         .isEnabled = [&control] { return control.title() && control.sites().selectedRow() >= 0; },
         .run = [&window] { window.openLedger(); }},
        {.id = u"siteNotes"_s, .text = SubmitWindow::tr("N&otes on the Site…"), .menu = site, .keys = {u"Ctrl+I"_s},
         .isEnabled = [&control] { return control.sites().selectedRow() >= 0; },
         .run = [&window] { window.openSiteNotes(); }},
        {.id = u"tourNext"_s, .text = SubmitWindow::tr("&Next"), .menu = site, .opensGroup = true, .keys = {u"Ctrl+N"_s},
         .toolTip = SubmitWindow::tr("Go to the next site that is to be brought up to date"),
         .isEnabled = [&tour] { return tour.isOffered(); }, .run = [&tour] { tour.next(); }},
        {.id = u"tourSkip"_s, .text = SubmitWindow::tr("S&kip"), .menu = site, .keys = {u"Ctrl+Shift+K"_s},
         .toolTip = SubmitWindow::tr("Leave this site as it is until the title has another version"),
         .isEnabled = [&tour] { return tour.isOffered(); }, .run = [&tour] { tour.skip(); }},
        {.id = u"tourLater"_s, .text = SubmitWindow::tr("&Later"), .menu = site, .keys = {u"Ctrl+Shift+L"_s},
         .toolTip = SubmitWindow::tr("Put this site off until all others are up to date"),
         .isEnabled = [&tour] { return tour.isOffered(); }, .run = [&tour] { tour.later(); }},
        {.id = u"checkSites"_s, .text = SubmitWindow::tr("Check &Sites…"), .menu = site, .opensGroup = true,
         .keys = {u"Ctrl+Shift+S"_s}, .toolTip = SubmitWindow::tr("See which of the sites that were used can still be reached"),
         .run = [&window] { Q_EMIT window.checkSites(); }},
        {.id = u"checkTitle"_s, .text = SubmitWindow::tr("Check &Title Online…"), .menu = site, .keys = {u"Ctrl+Shift+T"_s},
         .toolTip = SubmitWindow::tr("See what is behind the addresses of the title"),
         .isEnabled = [&control] { return control.title().has_value(); }, .run = [&window] { Q_EMIT window.checkTitle(); }},
        {.id = u"close"_s, .text = SubmitWindow::tr("&Close"), .menu = site, .opensGroup = true, .keys = {QKeySequence::Close},
         .run = [&window] { window.close(); }},

        {.id = u"findField"_s, .text = SubmitWindow::tr("&Paste a Field…"), .menu = page, .keys = {u"Ctrl+J"_s},
         .run = [&window] { window.findField(); }},
        {.id = u"fillForm"_s, .text = SubmitWindow::tr("Fi&ll a Form…"), .menu = page, .keys = {u"Ctrl+Shift+J"_s},
         .isEnabled = [&browser] { return !browser.host().isEmpty(); }, .run = [&window] { window.fillForm(); }},
        {.id = u"back"_s, .text = SubmitWindow::tr("&Back"), .menu = page, .opensGroup = true, .icon = u"back"_s,
         .keys = {u"Alt+Left"_s}, .isEnabled = [&browser] { return browser.canGoBack(); },
         .run = unlessClosed(&WindowBrowser::goBack)},
        {.id = u"forward"_s, .text = SubmitWindow::tr("&Forward"), .menu = page, .icon = u"forward"_s, .keys = {u"Alt+Right"_s},
         .isEnabled = [&browser] { return browser.canGoForward(); },
         .run = unlessClosed(&WindowBrowser::goForward)},
        {.id = u"reload"_s, .text = SubmitWindow::tr("&Reload"), .menu = page, .icon = u"reload"_s,
         .keys = {u"F5"_s, u"Ctrl+R"_s},
         .isEnabled = [&browser] { return !browser.currentUrl().isEmpty() && !browser.isLoading(); },
         .run = unlessClosed(&WindowBrowser::reload)},
        // The key is the page's while nothing is to be stopped.
        {.id = u"stop"_s, .text = SubmitWindow::tr("&Stop"), .menu = page, .icon = u"stop"_s, .keys = {u"Esc"_s},
         .isEnabled = [&browser] { return browser.isLoading(); }, .run = [&browser] { browser.stop(); }},
        {.id = u"address"_s, .text = SubmitWindow::tr("Type an &Address"), .menu = page, .opensGroup = true, .keys = {u"Ctrl+L"_s},
         .run = [&window] { window.findAddress(); }},
        {.id = u"openInDefaultBrowser"_s, .text = SubmitWindow::tr("&Open in Your Own Browser"), .menu = page,
         .icon = u"open-external"_s, .keys = {u"Ctrl+O"_s},
         .run = [&control] { control.pageLoad().openInDefaultBrowserAction(); }},
        {.id = u"clearPagesData"_s, .text = SubmitWindow::tr("&Clear Pages' Data…"), .menu = page, .opensGroup = true,
         .keys = {u"Ctrl+Shift+Del"_s}, .run = [&window] { window.clearPagesData(); }},

        {.id = u"drawer"_s, .text = SubmitWindow::tr("&List of Sites"), .menu = view, .icon = u"sites"_s, .keys = {u"F9"_s},
         .toolTip = SubmitWindow::tr("Show or hide the list of sites"), .run = [&window] { window.toggleDrawer(); }},
        {.id = u"zoomIn"_s, .text = SubmitWindow::tr("Zoom &In"), .menu = view, .opensGroup = true,
         .keys = {QKeySequence::ZoomIn, u"Ctrl+="_s},
         .run = [&window, &browser] { window.zoom(browser.zoomFactor() * zoomStep); }},
        {.id = u"zoomOut"_s, .text = SubmitWindow::tr("Zoom &Out"), .menu = view, .keys = {QKeySequence::ZoomOut},
         .run = [&window, &browser] { window.zoom(browser.zoomFactor() / zoomStep); }},
        {.id = u"zoomReset"_s, .text = SubmitWindow::tr("&Usual Size"), .menu = view, .keys = {u"Ctrl+0"_s},
         .run = [&window] { window.zoom(1); }},
    });
    // clang-format on
}

} // namespace quillon
