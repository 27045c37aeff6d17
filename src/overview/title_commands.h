#pragma once

#include "overview/import_run.h"
#include "overview/overview_controller.h"

namespace quillon {

/// What the panel that asks for a name shows; three commands share it.
struct NamePanel
{
    QString nameSheetCalledFrom; ///< "new", "rename" or "import".
    QString swNamePanelMessage;
    bool messageIsError = false; ///< Then the message is red.
    QString swNamePanelInputMessage;
    QString swNamePanelInput = {};
    QString swNamePanelOKButton;
    QString title = {};   ///< The one to be renamed.
    QString file = {};    ///< The one to be imported, without its folder.
    bool hasMore = false; ///< Other files wait for a name after this one.
};

/**
 * The commands that change the set of titles: New, Rename, Delete, Import and Export, and the help pages.
 *
 * Each ends in a sheet or in the list loaded anew; results are told after a short delay, so that the sheet
 * before has closed. What becomes of imported files is the ImportRun's to know; here it is told and asked.
 */
class TitleCommands : public QObject
{
    Q_OBJECT
public:
    TitleCommands(OverviewController &overview, AlertSheets &alerts, DelayedCalls &delayedCalls,
                  QObject *parent = nullptr);

    void newSoftwareButtonAction();
    void renameSWListItem();
    /// Confirms the name panel with @p name as it was typed.
    void addSWNPIAction(const QString &name);
    /// Closes the name panel; an import that waited for a name is given up.
    void cancelSWNPIAction();
    /// Does so, and gives up all other imports that wait for a name.
    void skipImports();
    void deleteButtonAction();
    void importPADFile();
    /// Imports one file, or several at once.
    void processImportedFile(const QStringList &paths);
    void exportButtonAction();
    /// Saves the file that the selected title came from.
    void exportOriginal();
    /// Makes the example and selects it; removes it.
    void tryExample();
    void removeExample();
    /// Whether the example is in the list.
    [[nodiscard]] bool hasExample() const;
    /// Open the manual, or its page about reporting errors, in the user's own browser.
    void helpAction();
    void bugReportAction();

    /// The panel that is open, if one is.
    [[nodiscard]] const std::optional<NamePanel> &namePanel() const { return m_namePanel; }

Q_SIGNALS:
    /// The name panel is to be opened, shown anew or closed.
    void namePanelChanged();
    /// @p done of @p total files have been looked at; equal numbers end the progress.
    void importProgress(int done, int total);
    void openWebAddress(const QString &address);

private:
    void exportChosen(const FileRequest &request, const std::shared_ptr<title_operations::Export> &content);
    void openNamePanel(const NamePanel &panel);
    void closeNamePanel();
    void importError2(const QString &message);
    void askForNextName();
    void tellOfImport(const ImportReport &report);
    void reload();
    void reloadAfterImport();
    void tellLater(const Alert &alert);
    void later(std::function<void()> call) { m_delayedCalls.after(resultDelay, this, std::move(call)); }

    OverviewController &m_overview;
    AlertSheets &m_alerts;
    DelayedCalls &m_delayedCalls;
    ImportRun m_imports;
    std::optional<NamePanel> m_namePanel;
};

} // namespace quillon
