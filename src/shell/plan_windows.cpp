#include "shell/plan_windows.h"

#include "changes/bulk_change_form_view.h"
#include "changes/change_preview_window.h"
#include "changes/fix_form_view.h"
#include "changes/release_form_view.h"
#include "overview/overview_controller.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "platform/plain_text.h"
#include "store/process_state.h"
#include "store/title_folder.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quillon::plan_windows {

namespace {

class PlanWindowsText
{
    Q_DECLARE_TR_FUNCTIONS(PlanWindows)
};

/// What differs from window to window.
struct Kind
{
    QString name;
    QString title;
    QString nothing; ///< What it says where nothing would change.
};

/// All titles but those in other folders, which can be looked at only.
QStringList titlesOf(OverviewController &overview)
{
    QStringList titles = overview.softwareTable().swNameArray();
    titles.removeIf([](const QString &title) { return !title_folder::isUsableName(title); });
    return titles;
}

QSet<QString> selectedTitle()
{
    return mwqnSelSW ? QSet<QString>{*mwqnSelSW} : QSet<QString>();
}

void open(const Kind &kind, ChangePreview *preview, PlanForm *form, QWidget &window, EditHistory &edits)
{
    if (auto *old = window.findChild<ChangePreviewWindow *>(kind.name))
        old->close();
    auto *opened = new ChangePreviewWindow(kind.title, preview, form, edits, &window);
    opened->setObjectName(kind.name);
    opened->setNothingText(kind.nothing);
    QObject::connect(opened, &ChangePreviewWindow::applied, &window,
                     [] { NotificationCenter::defaultCenter().post(notification::mwqnOvLSlst); });
    opened->show();
}

} // namespace

void openFixes(QWidget &window, OverviewController &, EditHistory &edits)
{
    const QSet<QString> titles = selectedTitle();
    if (titles.isEmpty())
        return;
    open({u"fixWindow"_s, PlanWindowsText::tr("Fix – %1").arg(plainWindowTitle(*mwqnSelSW)),
          PlanWindowsText::tr("Nothing in this title can be mended without guessing.")},
         new ChangePreview(ChangePreview::Rows::All, titles.values(), titles), new FixFormView, window,
         edits);
}

void openRelease(QWidget &window, OverviewController &overview, EditHistory &edits)
{
    const QStringList titles = titlesOf(overview);
    const QSet<QString> ticked = titles.size() == 1 ? QSet(titles.begin(), titles.end()) : selectedTitle();
    open({u"releaseWindow"_s, PlanWindowsText::tr("New Release"),
          PlanWindowsText::tr("No title is ticked, or nothing would change in those that are.")},
         new ChangePreview(ChangePreview::Rows::All, titles, ticked), new ReleaseFormView, window, edits);
}

void openBulkChange(QWidget &window, OverviewController &overview, EditHistory &edits)
{
    const QStringList titles = titlesOf(overview);
    const auto selected = mwqnSelSW ? change_plans::stateOf(*mwqnSelSW) : Result<TitleState>(TitleState());
    open({u"bulkChangeWindow"_s, PlanWindowsText::tr("Change in Titles"),
          PlanWindowsText::tr("No title has that, or those that have it hold the new value already.")},
         new ChangePreview(ChangePreview::Rows::Changing, titles, {titles.begin(), titles.end()}),
         new BulkChangeFormView(selected.valueOr({}).judged.values), window, edits);
}

} // namespace quillon::plan_windows
