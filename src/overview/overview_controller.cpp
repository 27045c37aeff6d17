#include "overview/overview_controller.h"

#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "platform/text_decoding.h"
#include "store/add_delete_import_edit.h"
#include "store/error_tracking.h"
#include "store/process_state.h"

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
    m_softwareTable.setTitles(loadTitles());
    if (!mwqnSelSW)
        return;
    const int row = int(m_softwareTable.swNameArray().indexOf(*mwqnSelSW));
    if (row < 0) {
        deselectAll();
    } else {
        m_selectedRow = row;
        Q_EMIT selectedRowChanged(row);
    }
}

bool OverviewController::pruneMarks(QStringList &sites, QStringList &versions)
{
    // Before the catalogue has been built there is nothing to tell by that a site is gone.
    if (mwqnSCPreallSitesDict.empty())
        return false;
    bool changed = false;
    for (qsizetype at = 0; at < sites.size();) {
        if (sites[at].isEmpty() || mwqnSCPreallSitesDict.contains(sites[at])) {
            ++at;
            continue;
        }
        sites.removeAt(at);
        if (at < versions.size())
            versions.removeAt(at);
        changed = true;
    }
    if (changed) {
        const QString text =
            decodedXmlText(AddDeleteImportEdit::returnDataObjectFor(u"general").value_or(QByteArray()));
        AddDeleteImportEdit::writeToFile(u"general",
                                         summary_file::withSubmissions(text, sites, versions).toUtf8());
    }
    return changed;
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

    const auto bytes = AddDeleteImportEdit::returnDataObjectFor(u"general");
    Summary summary = summary_file::parse(bytes.value_or(QByteArray()));
    QStringList sites = summary.siteList();
    QStringList versions = summary.versionList();
    if (pruneMarks(sites, versions)) {
        summary.sites = sites.join(u',');
        summary.versions = versions.join(u',');
        loadSoftwareList();
    }
    m_submittedToTable.setMarks(summary.siteList(), summary.versionList(),
                                summary.version.value_or(QString()));

    center.post(notification::mwqnLPDIed);
    center.post(notification::mwqnEdChFEr);
    // The check may have found the title valid, or have rewritten what an import left.
    if (m_selectedRow >= 0)
        m_softwareTable.updateRow(m_selectedRow, loadSummary(*mwqnSelSW));
    showErrors(ErrorTracking::returnErrorDictionary().value_or(StringDictionary()));
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
                      {u"The submission window must be closed to select a different software title"_s},
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
        Q_EMIT submissionTitleChanged(u"Submitting %1"_s.arg(*mwqnSelSW));
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
