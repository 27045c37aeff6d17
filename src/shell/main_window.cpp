#include "shell/main_window.h"

#include "changes/edit_history.h"
#include "changes/history_window.h"
#include "editor/editor.h"
#include "editor/editor_view.h"
#include "findings/rule_packs_window.h"
#include "ledger/matrix_window.h"
#include "overview/name_panel_view.h"
#include "overview/overview_view.h"
#include "overview/taking_over_bar.h"
#include "overview/title_commands.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "platform/plain_text.h"
#include "platform/settings.h"
#include "shell/about_panel.h"
#include "shell/main_toolbar.h"
#include "shell/main_window_commands.h"
#include "store/process_state.h"
#include "store/storage_status.h"
#include "widgets/announcement.h"
#include "widgets/bring_to_front.h"
#include "widgets/failed_writes_label.h"

#include <QAction>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString geometryKey = u"mainWindow/geometry"_s;
const QString stateKey = u"mainWindow/state"_s;

} // namespace

MainWindow::MainWindow(ToolbarControl &toolbar, OverviewController &overview, TitleCommands &titles,
                       Editor &editor, PreferencesController &preferences, EditHistory &edits,
                       DeletedTitles &deleted)
    : m_toolbarControl(toolbar)
    , m_editor(editor)
    , m_edits(edits)
    , m_commands(new CommandSet(
          mainWindowCommands({*this, toolbar, overview, titles, preferences, deleted, edits}), this))
    , m_content(new QStackedWidget)
    , m_toolbar(new MainToolbar(*m_commands, this))
    , m_importProgress(new QProgressBar)
    , m_waiting(new QLabel)
{
    setObjectName(u"mainWindow"_s);
    setWindowTitle(u"Quillon"_s);
    buildContent(overview, titles);
    m_commands->fillMenus(*menuBar());
    addToolBar(m_toolbar);
    buildStatusBar();

    connect(&overview.fileMenu(), &FileMenu::changed, m_commands, &CommandSet::update);
    connect(&overview.softwareTable(), &QAbstractItemModel::modelReset, m_commands, &CommandSet::update);
    for (const QString &view : {u"Overview"_s, u"Edit"_s}) // Also when the command was refused.
        connect(m_commands->action(view), &QAction::triggered, this, &MainWindow::checkShownView);
    connect(&edits, &EditHistory::changed, m_commands, &CommandSet::update);
    connect(&toolbar, &ToolbarControl::showView, this, &MainWindow::showContent);
    connect(
        &titles, &TitleCommands::namePanelChanged, this,
        [this, &titles] { (new NamePanelView(titles, this))->showPanel(); }, Qt::SingleShotConnection);
    connect(&titles, &TitleCommands::importProgress, this, &MainWindow::showImportProgress);
    restoreLayout();
}

void MainWindow::buildContent(OverviewController &overview, TitleCommands &titles)
{
    m_overviewView = new OverviewView(overview, titles, m_editor, *m_commands);
    m_content->addWidget(m_overviewView);
    setCentralWidget(m_content);
    connect(m_overviewView, &OverviewView::editRequested, &m_toolbarControl, &ToolbarControl::editTBI);
    connect(m_overviewView, &OverviewView::fieldRequested, this, &MainWindow::editField);
    connect(&m_toolbarControl, &ToolbarControl::focusField, this,
            [this](FieldId field) { editView().focusField(field); });
}

EditorView &MainWindow::editView()
{
    if (!m_editView) {
        m_editView = new EditorView(m_editor);
        m_editView->addBar(new TakingOverBar(m_editor, m_edits));
        m_content->addWidget(m_editView);
        connect(m_editView, &EditorView::earlierTextsRequested, this,
                [this](FieldId field) { openHistory(field); });
        connect(m_editView, &EditorView::tabSelected, &m_toolbarControl,
                &ToolbarControl::setSelectedTabLabel);
    }
    return *m_editView;
}

void MainWindow::buildStatusBar()
{
    m_importProgress->setObjectName(u"importProgress"_s);
    m_importProgress->setAccessibleName(tr("Import progress"));
    m_importProgress->setFormat(tr("Importing file %v of %m"));
    m_importProgress->setMaximumWidth(240);
    m_importProgress->hide();
    statusBar()->addWidget(new FailedWritesLabel(u"failedWrites"_s, failedWritesLine, this), 1);
    statusBar()->addWidget(new FailedWritesLabel(u"failedExtras"_s, failedExtrasLine, this), 1);
    m_waiting->setObjectName(u"waitingRequest"_s);
    m_waiting->setTextFormat(Qt::PlainText);
    m_waiting->setWordWrap(true);
    statusBar()->addWidget(m_waiting, 1);
    showWaiting({});
    statusBar()->addPermanentWidget(m_importProgress);
}

void MainWindow::showWaiting(const QString &sentence)
{
    m_waiting->setText(sentence);
    m_waiting->setVisible(!sentence.isEmpty());
}

void MainWindow::restoreLayout()
{
    resize(QSize(1100, 700).boundedTo(screen()->availableSize()));
    restoreGeometry(settings().value(geometryKey).toByteArray());
    restoreState(settings().value(stateKey).toByteArray());
}

void MainWindow::customiseToolbar()
{
    m_toolbar->customise();
}

void MainWindow::openAboutPanelAction()
{
    openAboutPanel(this);
}

QMenu *MainWindow::createPopupMenu()
{
    auto *menu = new QMenu(this);
    menu->addAction(m_commands->action(u"customise"_s));
    return menu;
}

void MainWindow::showImportProgress(int done, int total)
{
    m_importProgress->setRange(0, total);
    m_importProgress->setValue(done);
    m_importProgress->setVisible(done < total);
}

void MainWindow::showContent(ContentView view)
{
    m_content->setCurrentWidget(view == ContentView::Overview ? static_cast<QWidget *>(m_overviewView)
                                                              : &editView());
    m_isEditorShown = view == ContentView::Editor;
    checkShownView();
    const bool isTitleShown = m_isEditorShown && mwqnSelSW;
    setWindowTitle(isTitleShown ? plainWindowTitle(*mwqnSelSW) : u"Quillon"_s);
    m_commands->update();
}

void MainWindow::checkShownView()
{
    m_commands->action(m_content->currentWidget() == m_editView ? u"Edit"_s : u"Overview"_s)
        ->setChecked(true);
}

void MainWindow::editField(const QString &key)
{
    const auto field = fieldNamed(key);
    m_toolbarControl.editTBI();
    if (field)
        editView().revealField(*field);
}

bool MainWindow::canUndo() const
{
    return m_isEditorShown && m_edits.canUndo();
}

bool MainWindow::canRedo() const
{
    return m_isEditorShown && m_edits.canRedo();
}

void MainWindow::undo()
{
    const auto field = editView().focusedText();
    if (!field || !m_edits.isUnderWayIn(*field) || !editView().undoTyping())
        showChanged(m_edits.undo());
}

void MainWindow::redo()
{
    const auto field = editView().focusedText();
    if (!field || !m_edits.isUnderWayIn(*field) || !editView().redoTyping())
        showChanged(m_edits.redo());
}

void MainWindow::openHistory(const std::optional<FieldId> &field)
{
    if (auto *open = findChild<HistoryWindow *>())
        open->close();
    auto *history = new HistoryWindow(m_editor, m_edits, field, this);
    connect(history, &HistoryWindow::restored, this, [this](const QList<FieldId> &fields) {
        if (m_isEditorShown)
            showChanged(fields);
        else
            NotificationCenter::defaultCenter().post(notification::mwqnOCu432hjiudsh);
    });
    history->show();
}

void MainWindow::openRulePacks()
{
    auto *packs = new RulePacksWindow(this);
    connect(packs, &RulePacksWindow::chosen, m_overviewView, &OverviewView::adviseAnew);
    packs->open();
}

void MainWindow::openMatrix()
{
    auto *matrix = findChild<MatrixWindow *>();
    if (!matrix) {
        matrix = new MatrixWindow(this);
        connect(matrix, &MatrixWindow::siteChosen, this, &MainWindow::submissionRequested);
    }
    quillon::bringToFront(*matrix);
}

void MainWindow::showChanged(const Result<QList<FieldId>> &fields)
{
    static constexpr int milliseconds = 10000;
    if (!fields) {
        const QString sentence = tr("Nothing was changed: %1").arg(fields.error().reason);
        statusBar()->showMessage(sentence, milliseconds);
        return announce(*statusBar(), sentence);
    }
    for (const FieldId field : *fields) {
        if (padField(field).kind != FieldKind::Computed)
            return editView().revealField(field);
    }
}

void MainWindow::bringToFront()
{
    quillon::bringToFront(*this);
}

bool MainWindow::event(QEvent *event)
{
    const bool isHandled = QMainWindow::event(event);
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked) {
        m_isBlocked = event->type() == QEvent::WindowBlocked;
        Q_EMIT blockedChanged();
    }
    return isHandled;
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    settings().setValue(geometryKey, saveGeometry());
    settings().setValue(stateKey, saveState());
    QMainWindow::closeEvent(event);
    Q_EMIT closed();
}

} // namespace quillon
