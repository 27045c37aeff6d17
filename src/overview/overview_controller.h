#pragma once

#include "overview/file_menu.h"
#include "overview/software_table.h"
#include "overview/submitted_to_table.h"
#include "platform/alert_sheets.h"
#include "platform/string_dictionary.h"

#include <QObject>

namespace quillon {

/**
 * The list of titles and, for the selected one, where it was submitted and which errors it has.
 *
 * Selecting a title here is the only way the rest of the program learns which title is current. The selection
 * is kept by name when the list is loaded anew, and given up when its title is gone.
 */
class OverviewController : public QObject
{
    Q_OBJECT
public:
    explicit OverviewController(AlertSheets &alerts, QObject *parent = nullptr);

    /// Begins to observe, sets the File menu and loads the list. Once, after the data folder is set.
    void awakeFromNib();

    /// Reads all titles from disk.
    void loadSoftwareList();

    /// Reads everything about the selected title anew: marks of sites that are gone from the catalogue are
    /// pruned, and the editor loads and checks it. Nothing when none is selected.
    void updateOverviewDisplay();

    /// Whether @p row may be selected: not another one while the submission window is open.
    [[nodiscard]] bool canSelectRow(int row) const;
    /// The same, and an alert says so when it may not.
    bool tableViewShouldSelectRow(int row);

    /// Makes the title in @p row the current one, -1 for none.
    void tableViewSelectionDidChange(int row);

    /// Leaves no row selected.
    void deselectAll() { tableViewSelectionDidChange(-1); }

    [[nodiscard]] SoftwareTable &softwareTable() { return m_softwareTable; }
    [[nodiscard]] SubmittedToTable &submittedToTable() { return m_submittedToTable; }
    [[nodiscard]] FileMenu &fileMenu() { return m_fileMenu; }

    /// -1 when none is selected.
    [[nodiscard]] int selectedRow() const { return m_selectedRow; }
    /// Messages of the selected title's error log by field, to be shown one a line.
    [[nodiscard]] const StringDictionary &validationErrors() const { return m_validationErrors; }

Q_SIGNALS:
    /// Another title is selected, or the same one stands in another row.
    void selectedRowChanged(int row);
    void validationErrorsChanged();
    /// What the submission window's title bar is to say.
    void submissionTitleChanged(const QString &title);

private:
    void showDetails(const Summary &summary);
    void showErrors(const StringDictionary &errors);
    void forgetSelectedTitle();

    AlertSheets &m_alerts;
    SoftwareTable m_softwareTable;
    SubmittedToTable m_submittedToTable;
    FileMenu m_fileMenu;
    int m_selectedRow = -1;
    bool m_isRefusing = false; ///< The alert about the open submission window is on show.
    StringDictionary m_validationErrors;
};

} // namespace quillon
