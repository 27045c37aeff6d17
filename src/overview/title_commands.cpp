#include "overview/title_commands.h"

#include "journal/originals.h"
#include "manual/manual_pages.h"
#include "overview/example_title.h"
#include "overview/title_deletion.h"
#include "platform/translated_text.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"

using namespace Qt::StringLiterals;

namespace quillon {

using title_operations::Export;

TitleCommands::TitleCommands(OverviewController &overview, AlertSheets &alerts, DelayedCalls &delayedCalls,
                             QObject *parent)
    : QObject(parent)
    , m_overview(overview)
    , m_alerts(alerts)
    , m_delayedCalls(delayedCalls)
    , m_imports(delayedCalls)
{
    connect(&m_imports, &ImportRun::progressed, this, &TitleCommands::importProgress);
    connect(&m_imports, &ImportRun::imported, this, &TitleCommands::reloadAfterImport);
    connect(&m_imports, &ImportRun::finished, this, &TitleCommands::tellOfImport);
}

void TitleCommands::newSoftwareButtonAction()
{
    (void)AddDeleteImportEdit::checkAppSuppExists(); // The status bar tells.
    m_overview.deselectAll();
    openNamePanel({.nameSheetCalledFrom = u"new"_s,
                   .swNamePanelMessage = tr("Add A New Software Title"),
                   .swNamePanelInputMessage = tr("Name: "),
                   .swNamePanelOKButton = tr("Add")});
}

void TitleCommands::renameSWListItem()
{
    if (mwqnSelSW)
        openNamePanel({.nameSheetCalledFrom = u"rename"_s,
                       .swNamePanelMessage = tr("Please Enter The New Name For %1").arg(*mwqnSelSW),
                       .swNamePanelInputMessage = tr("New Name: "),
                       .swNamePanelInput = *mwqnSelSW,
                       .swNamePanelOKButton = tr("Rename"),
                       .title = *mwqnSelSW});
}

void TitleCommands::importError2(const QString &message)
{
    openNamePanel({.nameSheetCalledFrom = u"import"_s,
                   .swNamePanelMessage = message,
                   .swNamePanelInputMessage = tr("Name: "),
                   .swNamePanelOKButton = tr("Add"),
                   .file = m_imports.askedFile(),
                   .hasMore = m_imports.hasMore()});
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
        m_imports.confirm(name);
        return;
    }
    const Result<> changed = panel.nameSheetCalledFrom == u"new"
                                 ? AddDeleteImportEdit::createNewListing(name)
                                 : title_operations::renameTitle(panel.title, name);
    if (changed.isDone())
        reload();
    askForNextName();
}

void TitleCommands::cancelSWNPIAction()
{
    if (m_namePanel && m_namePanel->nameSheetCalledFrom == u"import")
        m_imports.giveUp();
    closeNamePanel();
    askForNextName();
}

void TitleCommands::skipImports()
{
    m_imports.giveUpAll();
    cancelSWNPIAction();
}

void TitleCommands::deleteButtonAction()
{
    if (!mwqnSelSW)
        return;
    const Alert alert{tr("Do you really want to delete %1").arg(*mwqnSelSW),
                      tr("Deleting listings cannot be undone."), tr("Delete"), tr("Cancel")};
    m_alerts.show(SheetWindow::Main, alert, [this, name = *mwqnSelSW](AlertAnswer answer) {
        if (answer != AlertAnswer::Default)
            return;
        (void)title_operations::deleteTitle(name); // The list and the status bar tell.
        reload();
    });
}

void TitleCommands::importPADFile()
{
    m_overview.deselectAll();
    m_alerts.chooseFiles(SheetWindow::Main, {tr("Choose PAD File"), u"xml"_s, {}, true},
                         [this](const QStringList &paths) { processImportedFile(paths); });
}

void TitleCommands::processImportedFile(const QStringList &paths)
{
    m_imports.start(paths);
}

void TitleCommands::tellOfImport(const ImportReport &report)
{
    if (report.isWorthTelling())
        tellLater(report.alert());
    else
        askForNextName();
}

void TitleCommands::askForNextName()
{
    if (!m_imports.canAskForName())
        return;
    later([this] {
        // The panel may be open for something else by now; then its end asks again.
        if (m_imports.canAskForName() && !m_namePanel)
            importError2(m_imports.askForName());
    });
}

void TitleCommands::exportButtonAction()
{
    if (!mwqnSelSW)
        return;
    auto content = std::make_shared<Export>(Export::Stored);
    FileRequest request{tr("Export PAD File"), u"xml"_s, mwqnSelSW->trimmed(), false};
    if (originals::has(*mwqnSelSW)) {
        request.option = tr("&Merge into the imported file, so that what Quillon does not keep stays");
        request.optionChosen = [content](bool isTicked) {
            *content = isTicked ? Export::Merged : Export::Stored;
        };
    }
    exportChosen(request, content);
}

void TitleCommands::exportOriginal()
{
    if (!mwqnSelSW)
        return;
    const auto original = originals::of(*mwqnSelSW);
    if (!original) {
        m_alerts.show(
            SheetWindow::Main,
            original.isError(Error::Kind::Missing)
                ? Alert{tr("No original was kept of %1").arg(*mwqnSelSW),
                        tr("It was made in Quillon, or came in before originals were kept.")}
                : Alert{tr("The original of %1 cannot be read").arg(*mwqnSelSW), original.error().reason});
        return;
    }
    exportChosen({tr("Export Original"), u"xml"_s, original->name, false},
                 std::make_shared<Export>(Export::Original));
}

void TitleCommands::exportChosen(const FileRequest &request, const std::shared_ptr<Export> &content)
{
    m_alerts.chooseSaveFile(
        SheetWindow::Main, request, [this, content, title = *mwqnSelSW](const QString &path) {
            const Result<> exported = title_operations::exportPadFile(title, path, *content);
            tellLater(exported ? Alert{translated("TitleOperations", title_operations::exportSucceeded)}
                               : Alert{translated("TitleOperations", title_operations::exportFailed),
                                       exported.error().reason});
        });
}

void TitleCommands::tryExample()
{
    (void)AddDeleteImportEdit::checkAppSuppExists(); // The status bar tells, here and below.
    (void)example_title::make();
    reload();
    m_overview.tableViewSelectionDidChange(
        int(m_overview.softwareTable().swNameArray().indexOf(example_title::name)));
}

void TitleCommands::removeExample()
{
    (void)title_operations::deleteTitle(example_title::name); // The list and the status bar tell.
    reload();
}

bool TitleCommands::hasExample() const
{
    return m_overview.softwareTable().swNameArray().contains(example_title::name);
}

void TitleCommands::helpAction()
{
    Q_EMIT openWebAddress(manual::address(u"index.html"_s).toString());
}

void TitleCommands::bugReportAction()
{
    Q_EMIT openWebAddress(manual::address(u"bugs.html"_s).toString());
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
