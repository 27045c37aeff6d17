#include "submission/sites_drawer.h"

#include "controls/icon_cell.h"
#include "platform/settings.h"
#include "submission/submit_control.h"
#include "widgets/icon_cell_delegate.h"
#include "widgets/row_table.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString headerKey = u"submitWindow/sitesTable"_s;
constexpr int statusWidth = 64;

} // namespace

SitesDrawer::SitesDrawer(SubmitControl &control, QWidget *parent)
    : QWidget(parent)
    , m_control(control)
    , m_sorted(new QSortFilterProxyModel(this))
    , m_filter(new QLineEdit)
    , m_sitesTableView(newRowTable(u"sitesTableView"_s, tr("Sites"), this))
    , m_count(new QLabel)
{
    setObjectName(u"sitesDrawer"_s);
    m_filter->setObjectName(u"sitesFilter"_s);
    m_filter->setAccessibleName(tr("Find a site"));
    m_filter->setToolTip(tr("Shows the sites of that name (Ctrl+F)"));
    m_filter->setClearButtonEnabled(true);
    m_filter->installEventFilter(this);
    auto *caption = new QLabel(tr("F&ind a site:"));
    caption->setBuddy(m_filter);
    buildTable();
    m_count->setObjectName(u"sitesCount"_s);

    auto *row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(m_filter, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(row);
    layout->addWidget(m_sitesTableView, 1);
    layout->addWidget(m_count);

    connect(m_filter, &QLineEdit::textChanged, this, &SitesDrawer::filter);
    connect(&control.sites(), &SubmissionSites::selectedRowChanged, this, &SitesDrawer::showSelectedRow);
    connect(&control.pageLoad(), &PageLoad::focusSitesTable, this, &SitesDrawer::focusTable);
    connect(&control.sites().table(), &QAbstractItemModel::modelReset, this, &SitesDrawer::showCount);
    connect(&control.sites().table(), &QAbstractItemModel::dataChanged, this, &SitesDrawer::showCount);
    showSelectedRow(control.sites().selectedRow());
    showCount();
}

SitesDrawer::~SitesDrawer()
{
    settings().setValue(headerKey, m_sitesTableView->horizontalHeader()->saveState());
}

void SitesDrawer::buildTable()
{
    m_sorted->setSourceModel(&m_control.sites().table());
    m_sorted->setSortRole(SortRole);
    m_sorted->setSortCaseSensitivity(Qt::CaseInsensitive);
    m_sorted->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_sorted->setFilterKeyColumn(SubmissionSitesTable::Sites);
    m_sorted->setFilterRole(SortRole);

    QTableView &table = *m_sitesTableView;
    table.setModel(m_sorted);
    table.verticalHeader()->setDefaultSectionSize(qMax(table.fontMetrics().height(), iconCellSize) + 8);
    table.setItemDelegateForColumn(SubmissionSitesTable::Status,
                                   new IconCellDelegate({}, this, u"submission/"_s));

    QHeaderView *header = table.horizontalHeader();
    table.setSortingEnabled(true);
    if (!header->restoreState(settings().value(headerKey).toByteArray()))
        table.sortByColumn(SubmissionSitesTable::Sites, Qt::AscendingOrder);
    header->setStretchLastSection(false);
    header->setSectionResizeMode(SubmissionSitesTable::Sites, QHeaderView::Stretch);
    header->setSectionResizeMode(SubmissionSitesTable::Status, QHeaderView::Fixed);
    header->resizeSection(SubmissionSitesTable::Status,
                          qMax(statusWidth, header->sectionSizeHint(SubmissionSitesTable::Status)));
    connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SitesDrawer::selectionChanged);
}

void SitesDrawer::filter(const QString &text)
{
    {
        // The table selects a neighbour of a row that goes.
        const QSignalBlocker blocker(m_sitesTableView->selectionModel());
        m_sorted->setFilterFixedString(text.trimmed());
    }
    showSelectedRow(m_control.sites().selectedRow());
    showCount();
}

void SitesDrawer::selectionChanged()
{
    const QModelIndex index = m_sitesTableView->selectionModel()->selectedRows().value(0);
    if (index.isValid())
        m_control.tableViewSelectionDidChange(m_sorted->mapToSource(index).row());
}

void SitesDrawer::showSelectedRow(int row)
{
    const QModelIndex index = m_sorted->mapFromSource(m_control.sites().table().index(row, 0));
    if (!index.isValid()) {
        m_sitesTableView->clearSelection();
        m_sitesTableView->setCurrentIndex({});
        return;
    }
    if (!m_sitesTableView->selectionModel()->isRowSelected(index.row()))
        m_sitesTableView->selectRow(index.row());
    m_sitesTableView->scrollTo(index);
}

void SitesDrawer::showCount()
{
    const SubmissionSites &sites = m_control.sites();
    const auto submitted = sites.submittedToArraySTR().count(u"1"_s);
    m_count->setText(
        sites.submittedToArray().isEmpty()
            ? tr("%Ln sites", nullptr, int(sites.allSitesArray().size()))
            : tr("%L1 of %L2 sites submitted to").arg(submitted).arg(sites.allSitesArray().size()));
}

void SitesDrawer::focusTable()
{
    // Pages begin to load while the author types the next site's name.
    if (m_sitesTableView->isVisible() && !m_filter->hasFocus())
        m_sitesTableView->setFocus();
}

void SitesDrawer::focusFilter()
{
    m_filter->setFocus(Qt::ShortcutFocusReason);
    m_filter->selectAll();
}

bool SitesDrawer::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_filter || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        m_sitesTableView->setFocus();
        if (!m_sitesTableView->selectionModel()->hasSelection())
            m_sitesTableView->selectRow(0);
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

} // namespace quillon
