#include "submission/sites_drawer.h"

#include "controls/icon_cell.h"
#include "platform/settings.h"
#include "submission/submit_control.h"
#include "widgets/icon_cell_delegate.h"

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
    , m_sitesTableView(new QTableView)
    , m_count(new QLabel)
{
    setObjectName(u"sitesDrawer"_s);
    m_filter->setObjectName(u"sitesFilter"_s);
    m_filter->setAccessibleName(u"Sites"_s);
    m_filter->setPlaceholderText(u"Find a site"_s);
    m_filter->setToolTip(u"Shows the sites of that name (Ctrl+F)"_s);
    m_filter->setClearButtonEnabled(true);
    m_filter->installEventFilter(this);
    auto *caption = new QLabel(u"S&ites:"_s);
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
    connect(&control, &SubmitControl::selectedRowChanged, this, &SitesDrawer::showSelectedRow);
    connect(&control, &SubmitControl::focusSitesTable, this, &SitesDrawer::focusTable);
    connect(&control.sitesTable(), &QAbstractItemModel::modelReset, this, &SitesDrawer::showCount);
    connect(&control.sitesTable(), &QAbstractItemModel::dataChanged, this, &SitesDrawer::showCount);
    showSelectedRow(control.selectedRow());
    showCount();
}

SitesDrawer::~SitesDrawer()
{
    settings().setValue(headerKey, m_sitesTableView->horizontalHeader()->saveState());
}

void SitesDrawer::buildTable()
{
    m_sorted->setSourceModel(&m_control.sitesTable());
    m_sorted->setSortRole(SortRole);
    m_sorted->setSortCaseSensitivity(Qt::CaseInsensitive);
    m_sorted->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_sorted->setFilterKeyColumn(SubmissionSitesTable::Sites);
    m_sorted->setFilterRole(SortRole);

    QTableView &table = *m_sitesTableView;
    table.setObjectName(u"sitesTableView"_s);
    table.setAccessibleName(u"Sites"_s);
    table.setModel(m_sorted);
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setAlternatingRowColors(true);
    table.setShowGrid(false);
    table.setTabKeyNavigation(false);
    table.setWordWrap(false);
    table.verticalHeader()->hide();
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(qMax(table.fontMetrics().height(), iconCellSize) + 8);
    table.setItemDelegateForColumn(SubmissionSitesTable::Status, new IconCellDelegate({}, this));

    QHeaderView *header = table.horizontalHeader();
    header->setHighlightSections(false);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table.setSortingEnabled(true);
    if (!header->restoreState(settings().value(headerKey).toByteArray()))
        table.sortByColumn(SubmissionSitesTable::Sites, Qt::AscendingOrder);
    header->setStretchLastSection(false);
    header->setSectionResizeMode(SubmissionSitesTable::Sites, QHeaderView::Stretch);
    header->setSectionResizeMode(SubmissionSitesTable::Status, QHeaderView::Fixed);
    header->resizeSection(SubmissionSitesTable::Status, statusWidth);
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
    showSelectedRow(m_control.selectedRow());
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
    const QModelIndex index = m_sorted->mapFromSource(m_control.sitesTable().index(row, 0));
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
    const auto submitted = m_control.submittedToArraySTR().count(u"1"_s);
    m_count->setText(u"%1 of %2 sites submitted to"_s.arg(submitted).arg(m_control.allSitesArray().size()));
}

void SitesDrawer::focusTable()
{
    // A key that finds a site must not lose its field to the page that it loads.
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
