#include "sites/sites_page.h"

#include "platform/settings.h"
#include "sites/preferences_controller.h"
#include "sites/sites_table_view.h"

#include <QAction>
#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace quillon {

static const QString splitterKey = u"preferences/splitter"_s;

SitesPage::SitesPage(PreferencesController &preferences, QWidget *parent)
    : QWidget(parent)
    , m_preferences(preferences)
    , m_sites(new SitesTableView(u"sitesTableView"_s, tr("&Sites"), preferences.sitesTable(),
                                 u"preferences/sitesTable"_s))
    , m_ignored(new SitesTableView(u"ignoreTableView"_s, tr("Removed &default sites"),
                                   preferences.ignoredTable(), u"preferences/ignoreTable"_s))
    , m_splitter(new QSplitter(Qt::Horizontal))
{
    setObjectName(u"sitesListViewer"_s);
    buildSites(); // Before it gets its place, so that Tab goes through one side after the other.
    buildIgnoredSites();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(newFilterRow());
    layout->addWidget(m_splitter, 1);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->addWidget(m_sites);
    m_splitter->addWidget(m_ignored);
    m_splitter->setStretchFactor(0, 3);
    m_splitter->setStretchFactor(1, 2);
    m_splitter->restoreState(settings().value(splitterKey).toByteArray());

    connect(&preferences, &PreferencesController::buttonsChanged, this, &SitesPage::updateButtons);
    connect(&preferences, &PreferencesController::deselectTables, this, [this] {
        m_sites->table().clearSelection();
        m_ignored->table().clearSelection();
    });
    updateButtons();
}

SitesPage::~SitesPage()
{
    settings().setValue(splitterKey, m_splitter->saveState());
}

QLayout *SitesPage::newFilterRow()
{
    auto *field = new QLineEdit;
    field->setObjectName(u"siteFilterField"_s);
    field->setAccessibleName(tr("Filter by name"));
    field->setClearButtonEnabled(true);
    auto *label = new QLabel(tr("&Filter by name:"));
    label->setBuddy(field);
    connect(field, &QLineEdit::textChanged, m_sites, &SitesTableView::setFilter);
    connect(field, &QLineEdit::textChanged, m_ignored, &SitesTableView::setFilter);
    connect(&m_preferences, &PreferencesController::showPreferences, field, &QLineEdit::clear);
    auto *find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, field, [field] {
        field->setFocus(Qt::ShortcutFocusReason);
        field->selectAll();
    });
    auto *row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(field, 1);
    return row;
}

void SitesPage::buildSites()
{
    QPushButton *add = m_sites->addButton(u"addSiteButton"_s, tr("&Add…"), tr("Add a site of your own"));
    m_editSiteButton =
        m_sites->addButton(u"editSiteButton"_s, tr("&Edit…"), tr("Change the selected site's name or URL"));
    m_removeSiteButton =
        m_sites->addButton(u"removeSiteButton"_s, tr("&Remove…"), tr("Remove the selected sites"));
    m_sites->table().setContextMenuPolicy(Qt::ActionsContextMenu);
    m_editAction = newKey(m_editSiteButton->text(), Qt::Key_Return);
    m_removeAction = newKey(m_removeSiteButton->text(), QKeySequence::Delete);

    connect(m_sites, &SitesTableView::selectedRowsChanged, &m_preferences,
            &PreferencesController::setSelectedSites);
    connect(m_sites, &SitesTableView::rowDoubleClicked, &m_preferences, &PreferencesController::doubleClick);
    connect(add, &QPushButton::clicked, &m_preferences.addEditPanel(), &AddEditPanel::addNewSiteAction);
    connect(m_editSiteButton, &QPushButton::clicked, this, &SitesPage::editSelected);
    connect(m_editAction, &QAction::triggered, this, &SitesPage::editSelected);
    connect(m_removeSiteButton, &QPushButton::clicked, &m_preferences,
            &PreferencesController::removeSiteAction);
    connect(m_removeAction, &QAction::triggered, &m_preferences, &PreferencesController::removeSiteAction);
}

void SitesPage::buildIgnoredSites()
{
    m_restoreSiteButton =
        m_ignored->addButton(u"restoreSiteButton"_s, tr("Res&tore"),
                             tr("Put the selected default sites back into the list of sites"));
    connect(m_ignored, &SitesTableView::selectedRowsChanged, &m_preferences,
            &PreferencesController::setSelectedIgnoredSites);
    connect(m_restoreSiteButton, &QPushButton::clicked, &m_preferences,
            &PreferencesController::restoreSiteAction);
}

/// A command of the table of sites, on that key.
QAction *SitesPage::newKey(const QString &text, const QKeySequence &key)
{
    auto *action = new QAction(text, &m_sites->table());
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    m_sites->table().addAction(action);
    return action;
}

void SitesPage::editSelected()
{
    const QList<int> rows = m_sites->selectedRows();
    if (rows.size() == 1)
        m_preferences.doubleClick(rows.first());
}

void SitesPage::updateButtons()
{
    const bool isOne = m_sites->selectedRows().size() == 1;
    m_editSiteButton->setEnabled(isOne);
    m_editAction->setEnabled(isOne);
    m_removeSiteButton->setEnabled(m_preferences.canRemove());
    m_removeAction->setEnabled(m_preferences.canRemove());
    m_restoreSiteButton->setEnabled(m_preferences.canRestore());
}

} // namespace quillon
