#include "overview/software_table_view.h"

#include "overview/guarded_selection_model.h"
#include "overview/natural_sort_proxy.h"
#include "overview/overview_controller.h"
#include "platform/settings.h"
#include "widgets/action_button.h"
#include "widgets/command_set.h"
#include "widgets/icon_cell_delegate.h"
#include "widgets/row_table.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString headerKey = u"overview/softwareTable"_s;

QWidget *newEmptyPage(const CommandSet &commands)
{
    auto *page = new QWidget;
    page->setObjectName(u"emptyListPage"_s);
    auto *picture = new QLabel;
    picture->setPixmap(QIcon(u":/icons/empty-list.svg"_s).pixmap(QSize(96, 96)));
    auto *heading = new QLabel(SoftwareTableView::tr("No software titles yet"));
    QFont font = heading->font();
    static constexpr double size = 1.4; // As a part of the usual one.
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * size);
    else
        font.setPixelSize(qRound(font.pixelSize() * size));
    heading->setFont(font);
    auto *hint =
        new QLabel(SoftwareTableView::tr("Import the PAD files that you have, or drop them here.\n"
                                         "Or begin with a new title and fill in its PAD file step by step."));
    hint->setAlignment(Qt::AlignCenter);

    auto *layout = new QVBoxLayout(page);
    layout->addStretch(1);
    for (QLabel *label : {picture, heading, hint})
        layout->addWidget(label, 0, Qt::AlignCenter);
    layout->addWidget(newActionButton(*commands.action(u"tryExample"_s), u"tryExampleButton"_s, page), 0,
                      Qt::AlignCenter);
    layout->addStretch(2);
    page->setAutoFillBackground(true);
    page->setBackgroundRole(QPalette::Base);
    return page;
}

} // namespace

SoftwareTableView::SoftwareTableView(OverviewController &overview, const CommandSet &commands,
                                     QWidget *parent)
    : QStackedWidget(parent)
    , m_overview(overview)
    , m_commands(commands)
    , m_sorted(new NaturalSortProxy(this))
    , m_table(newIconRowTable(u"softwareTableView"_s, tr("Software titles"), this))
{
    m_sorted->setSourceModel(&overview.softwareTable());
    m_sorted->setSortRole(SortRole);
    buildTable(commands);
    bindSelection();
    addWidget(captioned(new QLabel(tr("Software &titles")), m_table));
    restoreColumns();

    connect(&overview, &OverviewController::selectedRowChanged, this, &SoftwareTableView::showSelectedRow);
    connect(m_sorted, &QAbstractItemModel::modelReset, this, &SoftwareTableView::showListOrHint);
    connect(m_sorted, &QAbstractItemModel::modelReset, this, &SoftwareTableView::showLoadedList);
    connect(m_table->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this,
            [this] { showSelectedRow(m_overview.selectedRow()); });
}

SoftwareTableView::~SoftwareTableView()
{
    settings().setValue(headerKey, m_table->horizontalHeader()->saveState());
}

void SoftwareTableView::buildTable(const CommandSet &commands)
{
    m_table->setModel(m_sorted);
    m_table->setSortingEnabled(true);
    auto *icons = new IconCellDelegate({}, this);
    m_table->setItemDelegateForColumn(SoftwareTable::SupportedOS, icons);
    m_table->setItemDelegateForColumn(SoftwareTable::Validated, icons);
    m_table->setItemDelegateForColumn(SoftwareTable::Submissions,
                                      new IconCellDelegate(u":/icons/site.svg"_s, this));
    commands.fillContextMenu(*m_table);
    connect(m_table, &QTableView::activated, this, &SoftwareTableView::editRequested);
}

void SoftwareTableView::bindSelection()
{
    const auto mayBeSelected = [this](const QModelIndex &index, GuardedSelectionModel::Telling telling) {
        const int row = m_sorted->mapToSource(index).row();
        return telling == GuardedSelectionModel::Telling::Aloud ? m_overview.tableViewShouldSelectRow(row)
                                                                : m_overview.canSelectRow(row);
    };
    auto *selection = new GuardedSelectionModel(m_sorted, mayBeSelected, m_table);
    m_table->setSelectionModel(selection);
    connect(selection, &QItemSelectionModel::selectionChanged, this, [this, selection] {
        const QModelIndex index = selection->selectedRows().value(0);
        const int row = index.isValid() ? m_sorted->mapToSource(index).row() : -1;
        if (row != m_overview.selectedRow())
            m_overview.tableViewSelectionDidChange(row);
    });
}

void SoftwareTableView::restoreColumns()
{
    QHeaderView *header = m_table->horizontalHeader();
    if (!header->restoreState(settings().value(headerKey).toByteArray())) {
        setColumnWidths(*m_table, {35, 11, 13, 27, 10, 20});
        m_table->sortByColumn(SoftwareTable::SoftwareTitle, Qt::AscendingOrder);
    }
    stretchLastColumn(*m_table);
    header->setSectionsMovable(true);
}

void SoftwareTableView::showEvent(QShowEvent *event)
{
    showListOrHint(); // Not before it is known whether there are titles: the hint costs some milliseconds.
    QStackedWidget::showEvent(event);
}

void SoftwareTableView::showListOrHint()
{
    const bool isEmpty = m_sorted->rowCount() == 0;
    if (isEmpty && count() == 1) {
        QWidget *page = newEmptyPage(m_commands);
        addWidget(page);
        setTabOrder(m_table, page->findChild<QPushButton *>());
    }
    setCurrentIndex(isEmpty ? 1 : 0);
}

void SoftwareTableView::showSelectedRow(int row)
{
    if (row < 0) {
        m_table->clearSelection();
        keepPlace();
        return;
    }
    const QModelIndex index = m_sorted->mapFromSource(m_overview.softwareTable().index(row, 0));
    m_place = index.row();
    if (!m_table->selectionModel()->isRowSelected(index.row()))
        m_table->selectRow(index.row());
    m_table->scrollTo(index);
}

void SoftwareTableView::showLoadedList()
{
    const int added = takeAddedRow();
    if (m_overview.selectedRow() >= 0)
        return;
    if (added >= 0)
        m_place = added;
    keepPlace();
    if (added < 0)
        return;
    m_table->scrollTo(m_sorted->index(added, 0));
    if (isVisible())
        m_table->setFocus();
}

/// The first row in sight's order whose title was not there before; -1 without one, and at the first load.
int SoftwareTableView::takeAddedRow()
{
    const QStringList &names = m_overview.softwareTable().swNameArray();
    const auto before = std::exchange(m_names, QSet<QString>(names.begin(), names.end()));
    int first = -1;
    for (int row = 0; before && row < int(names.size()); ++row) {
        if (before->contains(names[row]))
            continue;
        const int shown = m_sorted->mapFromSource(m_overview.softwareTable().index(row, 0)).row();
        first = first < 0 ? shown : qMin(first, shown);
    }
    return first;
}

/// With no title selected, keys go on where the last one was.
void SoftwareTableView::keepPlace()
{
    if (m_overview.selectedRow() >= 0 || m_place < 0)
        return;
    const QModelIndex index = m_sorted->index(qMin(m_place, m_sorted->rowCount() - 1), 0);
    // What is in sight stays there; a new current row would be scrolled to.
    m_table->setAutoScroll(false);
    m_table->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    m_table->setAutoScroll(true);
}

} // namespace quillon
