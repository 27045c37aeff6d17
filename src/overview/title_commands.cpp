#include "overview/title_commands.h"

#include "platform/application_info.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quillon {

using title_operations::Import;

TitleCommands::TitleCommands(OverviewController &overview, AlertSheets &alerts, DelayedCalls &delayedCalls,
                             QObject *parent)
    : QObject(parent), m_overview(overview), m_alerts(alerts), m_delayedCalls(delayedCalls)
{
}

void TitleCommands::newSoftwareButtonAction()
{
    (void)AddDeleteImportEdit::checkAppSuppExists(); // The status bar tells.
    m_overview.deselectAll();
    openNamePanel({u"new"_s, u"Add A New Software Title"_s, false, u"Name: "_s, {}, u"Add"_s});
}

void TitleCommands::renameSWListItem()
{
    if (mwqnSelSW)
        openNamePanel({u"rename"_s, u"Please Enter The New Name For "_s + *mwqnSelSW, false, u"New Name: "_s,
                       *mwqnSelSW, u"Rename"_s, *mwqnSelSW});
}

void TitleCommands::importError2(const QString &message)
{
    openNamePanel({u"import"_s,
                   message,
                   false,
                   u"Name: "_s,
                   {},
                   u"Add"_s,
                   {},
                   QFileInfo(mwqnIpFloc43).fileName(),
                   !m_needNames.isEmpty()});
}

void TitleCommands::openNamePanel(const NamePanel &panel)
{
    m_namePanel = panel;
    Q_EMIT namePanelChanged();
}

void TitleCommands::closeNamePanel()
{
    m_namePanel.reset();
    Q_EMIT namePanelChanged();
}

void TitleCommands::addSWNPIAction(const QString &name)
{
    if (!m_namePanel)
        return;
    NamePanel panel = *m_namePanel;
    if (const auto verdict = title_operations::judgeName(name);
        verdict != title_operations::NameVerdict::Free) {
        panel.swNamePanelMessage = title_operations::sentence(verdict);
        panel.messageIsError = true;
        panel.swNamePanelInput = name;
        openNamePanel(panel);
        return;
    }
    closeNamePanel();
    if (panel.nameSheetCalledFrom == u"import") {
        confirmImport(name);
        return;
    }
    const Result<> changed = panel.nameSheetCalledFrom == u"new"
                                 ? AddDeleteImportEdit::createNewListing(name)
                                 : AddDeleteImportEdit::renameExistingQnDataFile(panel.title, name);
    if (changed.isDone())
        reload();
    askForNextName();
}

void TitleCommands::cancelSWNPIAction()
{
    if (m_namePanel && m_namePanel->nameSheetCalledFrom == u"import")
        mwqnIpFloc43.clear();
    closeNamePanel();
    askForNextName();
}

void TitleCommands::skipImports()
{
    m_needNames.clear();
    cancelSWNPIAction();
}

void TitleCommands::deleteButtonAction()
{
    if (!mwqnSelSW)
        return;
    const Alert alert{u"Do you really want to delete "_s + *mwqnSelSW,
                      u"Deleting listings cannot be undone."_s, u"Delete"_s, u"Cancel"_s};
    m_alerts.show(SheetWindow::Main, alert, [this, name = *mwqnSelSW](AlertAnswer answer) {
        if (answer != AlertAnswer::Default)
            return;
        (void)AddDeleteImportEdit::deleteQnDataFile(name); // The list and the status bar tell.
        reload();
    });
}

void TitleCommands::importPADFile()
{
    m_overview.deselectAll();
    m_alerts.chooseFiles(SheetWindow::Main, {u"Choose PAD File"_s, u"xml"_s, {}, true},
                         [this](const QStringList &paths) { processImportedFile(paths); });
}

void TitleCommands::processImportedFile(const QStringList &paths)
{
    if (paths.isEmpty())
        return;
    const bool running = m_batch.next < m_batch.paths.size();
    if (running) {
        m_batch.paths += paths; // Dropped while others are still on their way.
        return;
    }
    m_batch = {paths, 0, 0, 0, {}, {}};
    importNextFile();
}

void TitleCommands::importNextFile()
{
    const QString path = m_batch.paths[m_batch.next++];
    const Import import = title_operations::importPadFile(path);
    const QString prefix = m_batch.paths.size() > 1 ? QString(QFileInfo(path).fileName() + u": ") : QString();
    switch (import.outcome) {
    case Import::Imported:
        ++m_batch.imported;
        for (const QString &finding : import.findings)
            m_batch.findings.append(prefix + finding);
        break;
    case Import::NeedsName:
        ++m_batch.unnamed;
        m_needNames.append({path, import.message});
        break;
    case Import::NotPad:
    case Import::NotStored:
        m_batch.failures.append(prefix + import.message);
        break;
    }
    Q_EMIT importProgress(int(m_batch.next), int(m_batch.paths.size()));
    if (m_batch.next < m_batch.paths.size())
        m_delayedCalls.after(std::chrono::milliseconds(0), this, [this] { importNextFile(); });
    else
        finishImport();
}

void TitleCommands::finishImport()
{
    const auto total = m_batch.paths.size();
    const bool allWell = m_batch.imported + m_batch.unnamed == total;
    if (m_batch.imported > 0)
        reloadAfterImport();
    if (!allWell && total > 1)
        tellLater({u"%1 of %2 files were imported"_s.arg(m_batch.imported).arg(total),
                   {},
                   u"OK"_s,
                   {},
                   m_batch.failures + m_batch.findings});
    else if (!allWell)
        tellLater({m_batch.failures.first()});
    else if (m_batch.imported > 0)
        tellImported(m_batch.findings);
    else
        askForNextName();
}

void TitleCommands::askForNextName()
{
    if (m_needNames.isEmpty() || !mwqnIpFloc43.isEmpty())
        return;
    later([this] {
        // The panel may be open for something else by now; then its end asks again.
        if (m_needNames.isEmpty() || m_namePanel)
            return;
        const auto [path, reason] = m_needNames.takeFirst();
        mwqnIpFloc43 = path;
        importError2(reason);
    });
}

void TitleCommands::confirmImport(const QString &name)
{
    const Import import = title_operations::importPadFile(mwqnIpFloc43, name);
    mwqnIpFloc43.clear();
    if (import.outcome == Import::Imported) {
        reloadAfterImport();
        tellImported(import.findings);
    } else {
        tellLater({import.message});
    }
}

void TitleCommands::tellImported(const QStringList &findings)
{
    const QString hint =
        findings.isEmpty()
            ? QString()
            : u"Some of what the file holds will be lost at the first check; the details list it."_s;
    later([this, alert = Alert{title_operations::importSucceeded, hint, u"OK"_s, {}, findings}] {
        m_alerts.show(SheetWindow::Main, alert, [this](AlertAnswer) { askForNextName(); });
    });
}

void TitleCommands::exportButtonAction()
{
    if (!mwqnSelSW)
        return;
    const FileRequest request{u"Export PAD File"_s, u"xml"_s, mwqnSelSW->trimmed(), false};
    m_alerts.chooseSaveFile(SheetWindow::Main, request, [this, title = *mwqnSelSW](const QString &path) {
        const Result<> exported = title_operations::exportPadFile(title, path);
        tellLater(exported ? Alert{title_operations::exportSucceeded}
                           : Alert{title_operations::exportFailed, exported.error().reason});
    });
}

void TitleCommands::helpAction()
{
    Q_EMIT openWebAddress(application_info::helpPage);
}

void TitleCommands::bugReportAction()
{
    Q_EMIT openWebAddress(application_info::supportPage);
}

void TitleCommands::reload()
{
    m_overview.deselectAll();
    m_overview.loadSoftwareList();
}

/// While the files came in the author may have gone on to edit or to submit a title; that one stays selected.
void TitleCommands::reloadAfterImport()
{
    if (m_overview.fileMenu().isEnabled(FileMenu::Import))
        m_overview.deselectAll();
    m_overview.loadSoftwareList();
}

void TitleCommands::tellLater(const Alert &alert)
{
    later([this, alert] {
        m_alerts.show(SheetWindow::Main, alert, [this](AlertAnswer) { askForNextName(); });
    });
}

} // namespace quillon
