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
    const QString site = u"&Site"_s;
    const QString page = u"Pa&ge"_s;
    const QString view = u"&View"_s;
    // clang-format off
    return withKeysInToolTips({
        {.id = u"findSite"_s, .text = u"&Find a Site"_s, .menu = site, .keys = {QKeySequence::Find},
         .run = [&window] { window.findSite(); }},
        {.id = u"mark"_s, .text = u"Mark As Submitted"_s, .menu = site, .opensGroup = true, .icon = u"mark"_s,
         .keys = {u"Ctrl+M"_s}, .toolTip = u"Note the selected site with the title's current version"_s,
         .isEnabled = [&control] { return control.canMark(); }, .run = [&control] { control.markSubmitted(); }},
        {.id = u"removeMark"_s, .text = u"Remove Mark"_s, .menu = site, .icon = u"remove-mark"_s,
         .keys = {u"Ctrl+Shift+M"_s}, .toolTip = u"Forget that the title was submitted to the selected site"_s,
         .isEnabled = [&control] { return control.canMark() && control.sites().isMarked(); },
         .run = [&control] { control.removeMark(); }},
        {.id = u"ledger"_s, .text = u"What &Became of It…"_s, .menu = site, .keys = {u"Ctrl+D"_s},
         .isEnabled = [&control] { return control.title() && control.sites().selectedRow() >= 0; },
         .run = [&window] { window.openLedger(); }},
        {.id = u"siteNotes"_s, .text = u"N&otes on the Site…"_s, .menu = site, .keys = {u"Ctrl+I"_s},
         .isEnabled = [&control] { return control.sites().selectedRow() >= 0; },
         .run = [&window] { window.openSiteNotes(); }},
        {.id = u"tourNext"_s, .text = u"&Next"_s, .menu = site, .opensGroup = true, .keys = {u"Ctrl+N"_s},
         .toolTip = u"Go to the next site that is to be brought up to date"_s,
         .isEnabled = [&tour] { return tour.isOffered(); }, .run = [&tour] { tour.next(); }},
        {.id = u"tourSkip"_s, .text = u"S&kip"_s, .menu = site, .keys = {u"Ctrl+Shift+K"_s},
         .toolTip = u"Leave this site as it is until the title has another version"_s,
         .isEnabled = [&tour] { return tour.isOffered(); }, .run = [&tour] { tour.skip(); }},
        {.id = u"tourLater"_s, .text = u"&Later"_s, .menu = site, .keys = {u"Ctrl+Shift+L"_s},
         .toolTip = u"Put this site off until all others are up to date"_s,
         .isEnabled = [&tour] { return tour.isOffered(); }, .run = [&tour] { tour.later(); }},
        {.id = u"checkSites"_s, .text = u"Check &Sites…"_s, .menu = site, .opensGroup = true,
         .keys = {u"Ctrl+Shift+S"_s}, .toolTip = u"See which of the sites that were used can still be reached"_s,
         .run = [&window] { Q_EMIT window.checkSites(); }},
        {.id = u"checkTitle"_s, .text = u"Check &Title Online…"_s, .menu = site, .keys = {u"Ctrl+Shift+T"_s},
         .toolTip = u"See what is behind the addresses of the title"_s,
         .isEnabled = [&control] { return control.title().has_value(); }, .run = [&window] { Q_EMIT window.checkTitle(); }},
        {.id = u"close"_s, .text = u"&Close"_s, .menu = site, .opensGroup = true, .keys = {QKeySequence::Close},
         .run = [&window] { window.close(); }},

        {.id = u"findField"_s, .text = u"&Paste a Field…"_s, .menu = page, .keys = {u"Ctrl+J"_s},
         .run = [&window] { window.findField(); }},
        {.id = u"fillForm"_s, .text = u"Fi&ll a Form…"_s, .menu = page, .keys = {u"Ctrl+Shift+J"_s},
         .isEnabled = [&browser] { return !browser.host().isEmpty(); }, .run = [&window] { window.fillForm(); }},
        {.id = u"back"_s, .text = u"&Back"_s, .menu = page, .opensGroup = true, .icon = u"back"_s,
         .keys = {u"Alt+Left"_s}, .isEnabled = [&browser] { return browser.canGoBack(); },
         .run = unlessClosed(&WindowBrowser::goBack)},
        {.id = u"forward"_s, .text = u"&Forward"_s, .menu = page, .icon = u"forward"_s, .keys = {u"Alt+Right"_s},
         .isEnabled = [&browser] { return browser.canGoForward(); },
         .run = unlessClosed(&WindowBrowser::goForward)},
        {.id = u"reload"_s, .text = u"&Reload"_s, .menu = page, .icon = u"reload"_s,
         .keys = {u"F5"_s, u"Ctrl+R"_s},
         .isEnabled = [&browser] { return !browser.currentUrl().isEmpty() && !browser.isLoading(); },
         .run = unlessClosed(&WindowBrowser::reload)},
        // The key is the page's while nothing is to be stopped.
        {.id = u"stop"_s, .text = u"&Stop"_s, .menu = page, .icon = u"stop"_s, .keys = {u"Esc"_s},
         .isEnabled = [&browser] { return browser.isLoading(); }, .run = [&browser] { browser.stop(); }},
        {.id = u"address"_s, .text = u"Type an &Address"_s, .menu = page, .opensGroup = true, .keys = {u"Ctrl+L"_s},
         .run = [&window] { window.findAddress(); }},
        {.id = u"openInDefaultBrowser"_s, .text = u"&Open in Your Own Browser"_s, .menu = page,
         .icon = u"open-external"_s, .keys = {u"Ctrl+O"_s},
         .run = [&control] { control.pageLoad().openInDefaultBrowserAction(); }},
        {.id = u"clearPagesData"_s, .text = u"&Clear Pages' Data…"_s, .menu = page, .opensGroup = true,
         .keys = {u"Ctrl+Shift+Del"_s}, .run = [&window] { window.clearPagesData(); }},

        {.id = u"drawer"_s, .text = u"&List of Sites"_s, .menu = view, .icon = u"sites"_s, .keys = {u"F9"_s},
         .toolTip = u"Show or hide the list of sites"_s, .run = [&window] { window.toggleDrawer(); }},
        {.id = u"zoomIn"_s, .text = u"Zoom &In"_s, .menu = view, .opensGroup = true,
         .keys = {QKeySequence::ZoomIn, u"Ctrl+="_s},
         .run = [&window, &browser] { window.zoom(browser.zoomFactor() * zoomStep); }},
        {.id = u"zoomOut"_s, .text = u"Zoom &Out"_s, .menu = view, .keys = {QKeySequence::ZoomOut},
         .run = [&window, &browser] { window.zoom(browser.zoomFactor() / zoomStep); }},
        {.id = u"zoomReset"_s, .text = u"&Usual Size"_s, .menu = view, .keys = {u"Ctrl+0"_s},
         .run = [&window] { window.zoom(1); }},
    });
    // clang-format on
}

} // namespace quillon
