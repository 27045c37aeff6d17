#include "sites/preferences_window.h"

#include "platform/settings.h"
#include "sites/add_edit_panel_view.h"
#include "sites/backups_page.h"
#include "sites/preferences_controller.h"
#include "sites/sites_page.h"
#include "store/storage_status.h"
#include "widgets/failed_writes_label.h"
#include "widgets/scroll_area.h"

#include <QActionGroup>
#include <QBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString windowGeometryKey = u"preferences/geometry"_s;
constexpr QSize firstWindowSize(960, 600);
constexpr int iconSize = 32;

} // namespace

PreferencesWindow::PreferencesWindow(PreferencesController &preferences, QWidget *parent)
    : QDialog(parent), m_preferences(preferences), m_pages(new QStackedWidget)
{
    setObjectName(u"prefsWindow"_s);
    setWindowModality(Qt::WindowModal);
    m_pages->addWidget(new ScrollArea(new SitesPage(preferences)));
    m_pages->addWidget(new ScrollArea(new BackupsPage(preferences.backups())));
    new AddEditPanelView(preferences.addEditPanel(), this);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(newToolbar());
    layout->addWidget(m_pages, 1);
    layout->addLayout(newBottomRow());

    connect(&preferences, &PreferencesController::showPreferences, this, &PreferencesWindow::open);
    connect(&preferences, &PreferencesController::hidePreferences, this, &PreferencesWindow::hide);
    connect(&preferences, &PreferencesController::pageChanged, this, &PreferencesWindow::showPage);
    showPage();
    resize(firstWindowSize.boundedTo(screen()->availableSize()));
    restoreGeometry(settings().value(windowGeometryKey).toByteArray());
}

PreferencesWindow::~PreferencesWindow()
{
    settings().setValue(windowGeometryKey, saveGeometry());
}

QToolBar *PreferencesWindow::newToolbar()
{
    auto *toolbar = new QToolBar;
    toolbar->setObjectName(u"prefsToolbar"_s);
    toolbar->setAccessibleName(tr("Pages"));
    toolbar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    toolbar->setIconSize({iconSize, iconSize});
    auto *group = new QActionGroup(this);
    const auto add = [&](const QString &text, const QString &icon, const QString &shortcut,
                         void (PreferencesController::*show)()) {
        QAction *action = toolbar->addAction(QIcon(icon), text);
        action->setToolTip(text);
        action->setCheckable(true);
        action->setShortcut(shortcut);
        group->addAction(action);
        connect(action, &QAction::triggered, &m_preferences, show);
        QWidget *button = toolbar->widgetForAction(action);
        button->setObjectName(text);
        button->setFocusPolicy(Qt::TabFocus);
        return action;
    };
    m_sitesListAction = add(tr("Sites List"), u":/icons/OverviewTBI.svg"_s, u"Ctrl+1"_s,
                            &PreferencesController::sitesListViewAction);
    m_backupsAction =
        add(tr("Backups"), u":/icons/EditTBI.svg"_s, u"Ctrl+2"_s, &PreferencesController::backupViewAction);
    return toolbar;
}

QLayout *PreferencesWindow::newBottomRow()
{
    auto *close = new QPushButton(tr("&Close"));
    close->setObjectName(u"closeButton"_s);
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, &m_preferences, &PreferencesController::closePrefs);
    auto *row = new QHBoxLayout;
    row->addWidget(new FailedWritesLabel(u"prefsFailedWrites"_s, failedWritesLine, this), 1);
    row->addWidget(close, 0, Qt::AlignRight);
    return row;
}

void PreferencesWindow::showPage()
{
    const bool isSites = m_preferences.currentPage() == PreferencesPage::SitesList;
    (isSites ? m_sitesListAction : m_backupsAction)->setChecked(true);
    m_pages->setCurrentIndex(isSites ? 0 : 1);
    setWindowTitle(tr("Preferences – %1").arg(isSites ? m_sitesListAction->text() : m_backupsAction->text()));
}

void PreferencesWindow::reject()
{
    m_preferences.closePrefs();
}

} // namespace quillon
