#pragma once

class QWidget;

namespace quillon {

class EditHistory;
class OverviewController;

/// The windows in which changes of titles are planned, looked at and applied. One of each kind is open at a
/// time, above @p window; the list of @p overview is loaded anew when titles have changed.
namespace plan_windows {

/// What can be mended in the selected title.
void openFixes(QWidget &window, OverviewController &overview, EditHistory &edits);
/// A new release of the selected title, and of others that are ticked.
void openRelease(QWidget &window, OverviewController &overview, EditHistory &edits);
/// The same values for many titles.
void openBulkChange(QWidget &window, OverviewController &overview, EditHistory &edits);

} // namespace plan_windows

} // namespace quillon
