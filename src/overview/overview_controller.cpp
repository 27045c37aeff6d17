#include "overview/overview_controller.h"

#include "overview/title_operations.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/error_tracking.h"
#include "store/process_state.h"
#include "store/storage_status.h"

using namespace Qt::StringLiterals;

namespace quillon {

OverviewController::OverviewController(AlertSheets &alerts, QObject *parent)
    : QObject(parent), m_alerts(alerts)
{
}

void OverviewController::awakeFromNib()
{
    mwqnWOSi78tgsda = true;
    m_fileMenu.enableWithoutTitle();
    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(notification::mwqnOvLSlst, this, [this] { loadSoftwareList(); });
    center.addObserver(notification::mwqnOCu432hjiudsh, this, [this] { updateOverviewDisplay(); });
    loadSoftwareList();
}

void OverviewController::loadSoftwareList()
{
    const Result<TitleList> loaded = loadTitles();
    if (!reported(mwqnAppSuppLoc, loaded ? Result<>() : loaded.error()))
        return; // What is shown is at least what there was.
    m_softwareTable.setTitles(loaded->titles);
    if (!mwqnSelSW)
        return;
    const int row = int(m_softwareTable.swNameArray().indexOf(*mwqnSelSW));
    if (row < 0) {
        deselectAll();
    } else {
        m_selectedRow = row;
        showDetails(loadSummary(*mwqnSelSW).valueOr({}));
        Q_EMIT selectedRowChanged(row);
    }
}

void OverviewController::showDetails(const Summary &summary)
{
    m_submittedToTable.setMarks(summary.siteList(), summary.versionList(),
                                summary.version.value_or(QString()));
    showErrors(ErrorTracking::returnErrorDictionary().valueOr({}));
}

void OverviewController::updateOverviewDisplay()
{
    NotificationCenter &center = NotificationCenter::defaultCenter();
    if (mwqnSCPreallSitesDict.empty())
        center.post(notification::mwqnPClSiL432ds);
    if (m_selectedRow < 0) {
        clearSelectedTitle();
        return;
    }
    selectTitle(m_softwareTable.swNameArray()[m_selectedRow]);

    title_operations::pruneAndCheck([this, &center](bool isPruned) {
        if (isPruned)
            loadSoftwareList();
        center.post(notification::mwqnLPDIed);
        center.post(notification::mwqnEdChFEr);
    });
    // The check may have found the title valid, or have rewritten what an import left.
    if (m_selectedRow < 0)
        return;
    const Summary checked = loadSummary(*mwqnSelSW).valueOr({});
    m_softwareTable.updateRow(m_selectedRow, checked);
    showDetails(checked);
}

bool OverviewController::canSelectRow(int row) const
{
    return mwqnWOSi78tgsda || row == m_selectedRow;
}

bool OverviewController::tableViewShouldSelectRow(int row)
{
    if (canSelectRow(row))
        return true;
    // Dragging the mouse over the list asks again and again.
    if (!std::exchange(m_isRefusing, true))
        m_alerts.show(SheetWindow::Main,
                      {tr("The submission window must be closed to select a different software title")},
                      [this](AlertAnswer) { m_isRefusing = false; });
    return false;
}

void OverviewController::tableViewSelectionDidChange(int row)
{
    m_selectedRow = row < m_softwareTable.rowCount() ? row : -1;
    if (m_selectedRow < 0) {
        forgetSelectedTitle();
    } else {
        m_fileMenu.enableAll();
        updateOverviewDisplay();
        Q_EMIT submissionTitleChanged(tr("Submitting %1").arg(*mwqnSelSW));
        NotificationCenter::defaultCenter().post(notification::mwqnLSLsc);
    }
    Q_EMIT selectedRowChanged(m_selectedRow);
}

void OverviewController::forgetSelectedTitle()
{
    clearSelectedTitle();
    showErrors({});
    m_fileMenu.enableWithoutTitle();
    m_submittedToTable.clear();
}

void OverviewController::showErrors(const StringDictionary &errors)
{
    if (errors == m_validationErrors)
        return;
    m_validationErrors = errors;
    Q_EMIT validationErrorsChanged();
}

} // namespace quillon
