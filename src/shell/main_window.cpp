#include "shell/main_window.h"

#include "editor/editor.h"
#include "editor/editor_view.h"
#include "overview/name_panel_view.h"
#include "overview/overview_view.h"
#include "overview/title_commands.h"
#include "platform/application_info.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "platform/plain_text.h"
#include "platform/settings.h"
#include "shell/customise_toolbar_dialog.h"
#include "shell/toolbar_layout.h"
#include "store/process_state.h"
#include "store/storage_status.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressBar>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString geometryKey = u"mainWindow/geometry"_s;
const QString stateKey = u"mainWindow/state"_s;

/// A gap in the toolbar: of an icon's width, or as wide as there is room.
QWidget *newSpace(bool flexible)
{
    auto *space = new QWidget;
    space->setSizePolicy(flexible ? QSizePolicy::Expanding : QSizePolicy::Fixed, QSizePolicy::Preferred);
    if (!flexible)
        space->setFixedWidth(32);
    return space;
}

} // namespace

MainWindow::MainWindow(ToolbarControl &toolbar, OverviewController &overview, TitleCommands &commands,
                       Editor &editor)
    : m_toolbarControl(toolbar), m_overview(overview), m_commands(commands)
{
    setObjectName(u"mainWindow"_s);
    setWindowTitle(u"Quillon"_s);
    m_content = new QStackedWidget;
    m_overviewView = new OverviewView(overview, commands);
    m_editView = new EditorView(editor);
    m_content->addWidget(m_overviewView);
    m_content->addWidget(m_editView);
    setCentralWidget(m_content);
    new NamePanelView(commands, this);

    buildActions();
    buildMenus();
    buildToolbar();
    buildStatusBar();
    m_overviewView->setListActions(
        {m_actions[u"edit"_s], m_actions[u"rename"_s], m_actions[u"export"_s], m_actions[u"delete"_s]});

    connect(&toolbar, &ToolbarControl::showView, this, &MainWindow::showContent);
    connect(&overview.fileMenu(), &FileMenu::changed, this, &MainWindow::updateFileMenu);
    connect(m_overviewView, &OverviewView::editRequested, &toolbar, &ToolbarControl::editTBI);
    connect(m_overviewView, &OverviewView::fieldRequested, this, &MainWindow::editField);
    connect(&toolbar, &ToolbarControl::focusField, m_editView, &EditorView::focusField);
    connect(m_editView, &EditorView::tabSelected, &toolbar, &ToolbarControl::setSelectedTabLabel);
    connect(&commands, &TitleCommands::importProgress, this, &MainWindow::showImportProgress);
    connect(&commands, &TitleCommands::openWebAddress, this,
            [](const QString &address) { QDesktopServices::openUrl(QUrl(address)); });
    updateFileMenu();

    resize(QSize(1100, 700).boundedTo(screen()->availableSize()));
    restoreGeometry(settings().value(geometryKey).toByteArray());
    restoreState(settings().value(stateKey).toByteArray());
}

MainWindow::~MainWindow() = default;

QAction *MainWindow::newAction(const QString &name, const QString &text, const QString &icon,
                               const QKeySequence &shortcut, std::function<void()> run)
{
    auto *action = new QAction(icon.isEmpty() ? QIcon() : QIcon(u":/icons/%1.svg"_s.arg(icon)), text, this);
    action->setObjectName(name);
    action->setShortcut(shortcut);
    connect(action, &QAction::triggered, this, std::move(run));
    m_actions[name] = action;
    return action;
}

void MainWindow::buildActions()
{
    newAction(u"new"_s, u"&New…"_s, u"new-title"_s, QKeySequence::New,
              [this] { m_commands.newSoftwareButtonAction(); });
    newAction(u"edit"_s, u"&Edit"_s, {}, u"Ctrl+E"_s, [this] { m_toolbarControl.editTBI(); });
    newAction(u"rename"_s, u"&Rename…"_s, u"rename"_s, u"F2"_s, [this] { m_commands.renameSWListItem(); });
    newAction(u"delete"_s, u"&Delete…"_s, u"delete"_s, QKeySequence::Delete,
              [this] { m_commands.deleteButtonAction(); });
    newAction(u"import"_s, u"&Import…"_s, u"import"_s, u"Ctrl+I"_s, [this] { m_commands.importPADFile(); });
    newAction(u"export"_s, u"E&xport…"_s, u"export"_s, u"Ctrl+Shift+E"_s,
              [this] { m_commands.exportButtonAction(); });
    newAction(u"backup"_s, u"&Backup…"_s, u"backup"_s, {}, [this] { Q_EMIT backupRequested(); });
    newAction(u"preferences"_s, u"&Preferences…"_s, {}, u"Ctrl+,"_s,
              [this] { Q_EMIT preferencesRequested(); });
    newAction(u"quit"_s, u"&Quit"_s, {}, QKeySequence::Quit, [this] { close(); });
    newAction(u"customise"_s, u"&Customise Toolbar…"_s, {}, {}, [this] { customiseToolbar(); });
    newAction(u"help"_s, u"Quillon &Help"_s, u"help"_s, QKeySequence::HelpContents,
              [this] { m_commands.helpAction(); });
    newAction(u"bugReport"_s, u"Report a &Bug"_s, u"bug-report"_s, {},
              [this] { m_commands.bugReportAction(); });
    newAction(u"about"_s, u"&About Quillon"_s, {}, {}, [this] { openAboutPanelAction(); });
    newAction(u"Overview"_s, u"&Overview"_s, u"OverviewTBI"_s, u"Ctrl+1"_s, [this] {
        m_toolbarControl.overviewTBI();
        checkShownView();
    });
    newAction(u"Edit"_s, u"&Edit"_s, u"EditTBI"_s, u"Ctrl+2"_s, [this] {
        m_toolbarControl.editTBI();
        checkShownView();
    });
    newAction(u"Submit"_s, u"&Submit"_s, u"Submit"_s, u"Ctrl+3"_s, [this] { m_toolbarControl.submitTBI(); });
    auto *views = new QActionGroup(this);
    for (const QString &view : {u"Overview"_s, u"Edit"_s}) {
        m_actions[view]->setCheckable(true);
        views->addAction(m_actions[view]);
    }
    m_actions[u"preferences"_s]->setMenuRole(QAction::PreferencesRole);
    m_actions[u"quit"_s]->setMenuRole(QAction::QuitRole);
    m_actions[u"about"_s]->setMenuRole(QAction::AboutRole);
}

void MainWindow::buildMenus()
{
    /// A menu and its actions; an empty name is a separator.
    struct Menu
    {
        QString title;
        QStringList actions;
    };
    const QList<Menu> menus = {
        {u"&File"_s,
         {u"new"_s,
          u"edit"_s,
          u"rename"_s,
          u"delete"_s,
          {},
          u"import"_s,
          u"export"_s,
          {},
          u"backup"_s,
          {},
          u"preferences"_s,
          {},
          u"quit"_s}},
        {u"&View"_s, {u"Overview"_s, u"Edit"_s, u"Submit"_s, {}, u"customise"_s}},
        {u"&Help"_s, {u"help"_s, u"bugReport"_s, {}, u"about"_s}},
    };
    for (const Menu &each : menus) {
        QMenu *menu = menuBar()->addMenu(each.title);
        for (const QString &name : each.actions) {
            if (name.isEmpty())
                menu->addSeparator();
            else
                menu->addAction(m_actions[name]);
        }
    }
}

void MainWindow::buildToolbar()
{
    m_toolbar = addToolBar(u"Toolbar"_s);
    m_toolbar->setObjectName(u"quillonToolbar"_s);
    m_toolbar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    m_toolbar->setIconSize({32, 32});
    m_toolbar->setMovable(false);
    m_toolbar->setContextMenuPolicy(Qt::ActionsContextMenu);
    fillToolbar();
}

void MainWindow::fillToolbar()
{
    m_toolbar->clear();
    for (const QString &identifier : toolbar_layout::storedOrder()) {
        if (identifier == toolbar_layout::separator)
            m_toolbar->addSeparator();
        else if (toolbar_layout::mayRepeat(identifier))
            m_toolbar->addWidget(newSpace(identifier == toolbar_layout::flexibleSpace));
        else
            m_toolbar->addAction(m_actions[identifier]);
    }
}

void MainWindow::customiseToolbar()
{
    auto *dialog = new CustomiseToolbarDialog(this);
    connect(dialog, &CustomiseToolbarDialog::orderStored, this, &MainWindow::fillToolbar);
    dialog->open();
}

void MainWindow::buildStatusBar()
{
    m_failedWrites = new QLabel;
    m_failedWrites->setObjectName(u"failedWrites"_s);
    m_failedWrites->setTextFormat(Qt::PlainText);
    m_importProgress = new QProgressBar;
    m_importProgress->setObjectName(u"importProgress"_s);
    m_importProgress->setAccessibleName(u"Import progress"_s);
    m_importProgress->setMaximumWidth(200);
    m_importProgress->hide();
    statusBar()->addWidget(m_failedWrites, 1);
    statusBar()->addPermanentWidget(m_importProgress);
    NotificationCenter::defaultCenter().addObserver(notification::failedWritesChanged, this,
                                                    [this] { showFailedWrites(); });
    showFailedWrites();
}

void MainWindow::showFailedWrites()
{
    m_failedWrites->setText(failedWritesLine());
}

void MainWindow::showImportProgress(int done, int total)
{
    m_importProgress->setRange(0, total);
    m_importProgress->setValue(done);
    m_importProgress->setVisible(done < total);
}

void MainWindow::updateFileMenu()
{
    /// Actions by the item of the File menu that stands for them; deleting goes with renaming.
    const QList<std::pair<FileMenu::Item, QString>> actions = {
        {FileMenu::New, u"new"_s},       {FileMenu::Edit, u"edit"_s},     {FileMenu::Export, u"export"_s},
        {FileMenu::Rename, u"rename"_s}, {FileMenu::Rename, u"delete"_s}, {FileMenu::Import, u"import"_s},
        {FileMenu::Backup, u"backup"_s},
    };
    for (const auto &[item, name] : actions)
        m_actions[name]->setEnabled(m_overview.fileMenu().isEnabled(item));
}

void MainWindow::showContent(ContentView view)
{
    m_content->setCurrentWidget(view == ContentView::Overview ? static_cast<QWidget *>(m_overviewView)
                                                              : m_editView);
    checkShownView();
    const bool isTitleShown = view == ContentView::Editor && mwqnSelSW;
    setWindowTitle(isTitleShown ? plainWindowTitle(*mwqnSelSW) : u"Quillon"_s);
}

/// Also after a command that was refused, which leaves the view as it is but checks its action.
void MainWindow::checkShownView()
{
    m_actions[m_content->currentWidget() == m_editView ? u"Edit"_s : u"Overview"_s]->setChecked(true);
}

void MainWindow::editField(const QString &key)
{
    const auto field = fieldNamed(key);
    m_toolbarControl.editTBI();
    if (field)
        m_editView->revealField(*field);
}

void MainWindow::openAboutPanelAction()
{
    auto *panel = new QMessageBox(this);
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setWindowTitle(u"About Quillon"_s);
    panel->setIconPixmap(QIcon(u":/icons/quillon.svg"_s).pixmap(QSize(64, 64)));
    panel->setText(u"Quillon"_s);
    panel->setInformativeText(
        u"Version %1\n\nKeeps the PAD files of your software titles, checks every field as you "
        "type, and takes you from download site to download site.\n\nFree software under the "
        "MIT licence."_s.arg(application_info::version));
    panel->setTextFormat(Qt::PlainText);
    panel->setModal(false);
    panel->show();
    panel->raise();
    panel->activateWindow();
}

void MainWindow::bringToFront()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    settings().setValue(geometryKey, saveGeometry());
    settings().setValue(stateKey, saveState());
    QMainWindow::closeEvent(event);
    Q_EMIT closed();
}

} // namespace quillon
