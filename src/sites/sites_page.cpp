#include "sites/sites_page.h"

#include "platform/settings.h"
#include "sites/preferences_controller.h"
#include "widgets/row_table.h"

#include <QAction>
#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QTableView>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString sitesHeaderKey = u"preferences/sitesTable"_s;
const QString ignoredHeaderKey = u"preferences/ignoreTable"_s;
const QString splitterKey = u"preferences/splitter"_s;

/// The rows of the model behind @p rows that are selected in @p view.
QList<int> selectedRows(const QTableView &view, const QSortFilterProxyModel &rows)
{
    QList<int> selected;
    for (const QModelIndex &index : view.selectionModel()->selectedRows())
        selected.append(rows.mapToSource(index).row());
    return selected;
}

/// A button of that name that Return presses only while it has the focus.
QPushButton *newButton(const QString &name, const QString &text, const QString &toolTip)
{
    auto *button = new QPushButton(text);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    return button;
}

/// Lets @p view stay where it is scrolled to when @p sites are set anew.
void keepScrolled(QTableView &view, const QAbstractItemModel &sites)
{
    QScrollBar *bar = view.verticalScrollBar();
    const auto position = std::make_shared<int>(0);
    QObject::connect(&sites, &QAbstractItemModel::modelAboutToBeReset, &view,
                     [bar, position] { *position = bar->value(); });
    QObject::connect(
        &sites, &QAbstractItemModel::modelReset, &view, [bar, position] { bar->setValue(*position); },
        Qt::QueuedConnection);
}

/// @p table above a row of @p buttons.
QWidget *above(QWidget *table, const QList<QPushButton *> &buttons)
{
    auto *row = new QHBoxLayout;
    for (QPushButton *button : buttons)
        row->addWidget(button);
    row->addStretch(1);
    auto *panel = new QWidget;
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(table, 1);
    layout->addLayout(row);
    return panel;
}

} // namespace

SitesPage::SitesPage(PreferencesController &preferences, QWidget *parent)
    : QWidget(parent), m_preferences(preferences), m_splitter(new QSplitter(Qt::Horizontal))
{
    setObjectName(u"sitesListViewer"_s);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(newFilterRow());
    layout->addWidget(m_splitter, 1);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->addWidget(newSitesPanel());
    m_splitter->addWidget(newIgnoredPanel());
    m_splitter->setStretchFactor(0, 3);
    m_splitter->setStretchFactor(1, 2);
    addKeys();

    connect(&preferences, &PreferencesController::buttonsChanged, this, &SitesPage::updateButtons);
    connect(&preferences, &PreferencesController::deselectTables, this, [this] {
        m_sites.view->clearSelection();
        m_ignored.view->clearSelection();
    });
    restoreLayout();
    updateButtons();
}

SitesPage::~SitesPage()
{
    saveLayout();
}

QLayout *SitesPage::newFilterRow()
{
    auto *field = new QLineEdit;
    field->setObjectName(u"siteFilterField"_s);
    field->setAccessibleName(u"Filter by name"_s);
    field->setClearButtonEnabled(true);
    auto *label = new QLabel(u"&Filter by name:"_s);
    label->setBuddy(field);
    connect(field, &QLineEdit::textChanged, this, &SitesPage::setFilter);
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

QWidget *SitesPage::newSitesPanel()
{
    m_sites = newSiteTable(u"sitesTableView"_s, u"&Sites"_s, m_preferences.sitesTable(),
                           &PreferencesController::setSelectedSites);
    connect(m_sites.view, &QTableView::doubleClicked, this, [this](const QModelIndex &index) {
        m_preferences.doubleClick(m_sites.rows->mapToSource(index).row());
    });

    QPushButton *add = newButton(u"addSiteButton"_s, u"&Add…"_s, u"Add a site of your own"_s);
    m_editSiteButton =
        newButton(u"editSiteButton"_s, u"&Edit…"_s, u"Change the selected site's name or URL"_s);
    m_removeSiteButton = newButton(u"removeSiteButton"_s, u"&Remove…"_s, u"Remove the selected sites"_s);
    connect(add, &QPushButton::clicked, &m_preferences.addEditPanel(), &AddEditPanel::addNewSiteAction);
    connect(m_editSiteButton, &QPushButton::clicked, this, &SitesPage::editSelected);
    connect(m_removeSiteButton, &QPushButton::clicked, &m_preferences,
            &PreferencesController::removeSiteAction);
    return above(captioned(m_sites.label, m_sites.view), {add, m_editSiteButton, m_removeSiteButton});
}

QWidget *SitesPage::newIgnoredPanel()
{
    m_ignored = newSiteTable(u"ignoreTableView"_s, u"Removed &default sites"_s, m_preferences.ignoredTable(),
                             &PreferencesController::setSelectedIgnoredSites);
    m_restoreSiteButton = newButton(u"restoreSiteButton"_s, u"Res&tore"_s,
                                    u"Put the selected default sites back into the list of sites"_s);
    connect(m_restoreSiteButton, &QPushButton::clicked, &m_preferences,
            &PreferencesController::restoreSiteAction);
    return above(captioned(m_ignored.label, m_ignored.view), {m_restoreSiteButton});
}

SitesPage::SiteTable SitesPage::newSiteTable(const QString &name, const QString &caption,
                                             SiteListTable &sites,
                                             void (PreferencesController::*select)(const QList<int> &))
{
    SiteTable table{caption, new QSortFilterProxyModel(this),
                    newRowTable(name, QString(caption).remove(u'&'), this), new QLabel};
    table.rows->setSourceModel(&sites);
    table.rows->setFilterKeyColumn(SiteListTable::SiteName);
    table.rows->setFilterCaseSensitivity(Qt::CaseInsensitive);
    table.view->setModel(table.rows);
    table.view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table.label->setTextFormat(Qt::PlainText);
    connect(table.view->selectionModel(), &QItemSelectionModel::selectionChanged, &m_preferences,
            [&preferences = m_preferences, table, select] {
                std::invoke(select, preferences, selectedRows(*table.view, *table.rows));
            });
    connect(&sites, &QAbstractItemModel::modelReset, this, [this, table] { showCount(table); });
    keepScrolled(*table.view, sites);
    showCount(table);
    return table;
}

void SitesPage::addKeys()
{
    const auto add = [this](const QString &text, const QKeySequence &key) {
        auto *action = new QAction(text, m_sites.view);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        m_sites.view->addAction(action);
        return action;
    };
    m_sites.view->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_editAction = add(m_editSiteButton->text(), Qt::Key_Return);
    m_removeAction = add(m_removeSiteButton->text(), QKeySequence::Delete);
    connect(m_editAction, &QAction::triggered, this, &SitesPage::editSelected);
    connect(m_removeAction, &QAction::triggered, &m_preferences, &PreferencesController::removeSiteAction);
}

void SitesPage::showCount(const SiteTable &table) const
{
    const int all = table.rows->sourceModel()->rowCount();
    const int shown = table.rows->rowCount();
    table.label->setText(shown == all ? u"%1 (%2)"_s.arg(table.caption).arg(all)
                                      : u"%1 (%2 of %3)"_s.arg(table.caption).arg(shown).arg(all));
}

void SitesPage::setFilter(const QString &text)
{
    for (const SiteTable &table : {m_sites, m_ignored}) {
        table.rows->setFilterFixedString(text.trimmed());
        showCount(table);
    }
}

void SitesPage::editSelected()
{
    const QList<int> rows = selectedRows(*m_sites.view, *m_sites.rows);
    if (rows.size() == 1)
        m_preferences.doubleClick(rows.first());
}

void SitesPage::updateButtons()
{
    const bool isOne = m_sites.view->selectionModel()->selectedRows().size() == 1;
    m_editSiteButton->setEnabled(isOne);
    m_editAction->setEnabled(isOne);
    m_removeSiteButton->setEnabled(m_preferences.canRemove());
    m_removeAction->setEnabled(m_preferences.canRemove());
    m_restoreSiteButton->setEnabled(m_preferences.canRestore());
}

void SitesPage::saveLayout() const
{
    settings().setValue(sitesHeaderKey, m_sites.view->horizontalHeader()->saveState());
    settings().setValue(ignoredHeaderKey, m_ignored.view->horizontalHeader()->saveState());
    settings().setValue(splitterKey, m_splitter->saveState());
}

void SitesPage::restoreLayout()
{
    static constexpr int nameWidth = 190;
    for (const auto &[view, key] :
         {std::pair(m_sites.view, sitesHeaderKey), std::pair(m_ignored.view, ignoredHeaderKey)}) {
        if (!view->horizontalHeader()->restoreState(settings().value(key).toByteArray()))
            view->setColumnWidth(SiteListTable::SiteName, nameWidth);
        view->horizontalHeader()->setStretchLastSection(true);
    }
    m_splitter->restoreState(settings().value(splitterKey).toByteArray());
}

} // namespace quillon
