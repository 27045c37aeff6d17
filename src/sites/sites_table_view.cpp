#include "sites/sites_table_view.h"

#include "platform/settings.h"
#include "sites/site_list_table.h"
#include "widgets/row_table.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QTableView>

#include <memory>

using namespace Qt::StringLiterals;

namespace quillon {

SitesTableView::SitesTableView(const QString &name, const QString &caption, SiteListTable &sites,
                               const QString &settingsKey)
    : m_caption(caption)
    , m_settingsKey(settingsKey)
    , m_rows(new QSortFilterProxyModel(this))
    , m_table(newRowTable(name, QString(caption).remove(u'&'), this))
    , m_label(new QLabel)
    , m_buttons(new QHBoxLayout)
{
    m_rows->setSourceModel(&sites);
    m_rows->setFilterKeyColumn(SiteListTable::SiteName);
    m_rows->setFilterCaseSensitivity(Qt::CaseInsensitive);
    bindTable();
    keepScrolled();
    m_label->setTextFormat(Qt::PlainText);
    connect(&sites, &QAbstractItemModel::modelReset, this, &SitesTableView::showCount);
    showCount();

    m_buttons->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(captioned(m_label, m_table), 1);
    layout->addLayout(m_buttons);
}

SitesTableView::~SitesTableView()
{
    settings().setValue(m_settingsKey, m_table->horizontalHeader()->saveState());
}

void SitesTableView::bindTable()
{
    static constexpr int nameWidth = 24; // In digits.
    m_table->setModel(m_rows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    if (!m_table->horizontalHeader()->restoreState(settings().value(m_settingsKey).toByteArray()))
        setColumnWidths(*m_table, {nameWidth});
    stretchLastColumn(*m_table);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { Q_EMIT selectedRowsChanged(selectedRows()); });
    connect(m_table, &QTableView::doubleClicked, this,
            [this](const QModelIndex &index) { Q_EMIT rowDoubleClicked(m_rows->mapToSource(index).row()); });
}

/// Lets the table stay where it is scrolled to when the sites are set anew.
void SitesTableView::keepScrolled()
{
    QScrollBar *bar = m_table->verticalScrollBar();
    const auto position = std::make_shared<int>(0);
    connect(m_rows->sourceModel(), &QAbstractItemModel::modelAboutToBeReset, m_table,
            [bar, position] { *position = bar->value(); });
    connect(
        m_rows->sourceModel(), &QAbstractItemModel::modelReset, m_table,
        [bar, position] { bar->setValue(*position); }, Qt::QueuedConnection);
}

QList<int> SitesTableView::selectedRows() const
{
    QList<int> selected;
    for (const QModelIndex &index : m_table->selectionModel()->selectedRows())
        selected.append(m_rows->mapToSource(index).row());
    return selected;
}

QPushButton *SitesTableView::addButton(const QString &name, const QString &text, const QString &toolTip)
{
    auto *button = new QPushButton(text);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    m_buttons->insertWidget(m_buttons->count() - 1, button);
    return button;
}

void SitesTableView::setFilter(const QString &text)
{
    m_rows->setFilterFixedString(text.trimmed());
    showCount();
}

void SitesTableView::showCount()
{
    const int all = m_rows->sourceModel()->rowCount();
    const int shown = m_rows->rowCount();
    m_label->setText(shown == all ? u"%1 (%L2)"_s.arg(m_caption).arg(all)
                                  : tr("%1 (%L2 of %L3)").arg(m_caption).arg(shown).arg(all));
}

} // namespace quillon
