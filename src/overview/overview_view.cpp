#include "overview/overview_view.h"

#include "controls/icon_cell.h"
#include "overview/guarded_selection_model.h"
#include "overview/natural_sort_proxy.h"
#include "overview/overview_controller.h"
#include "overview/title_commands.h"
#include "platform/settings.h"
#include "widgets/action_button.h"
#include "widgets/command_set.h"
#include "widgets/icon_cell_delegate.h"
#include "widgets/row_table.h"

#include <QBoxLayout>
#include <QDragEnterEvent>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString headerKey = u"overview/softwareTable"_s;
const QString submittedHeaderKey = u"overview/submittedToTable"_s;
const QString splitterKey = u"overview/splitter"_s;
const QString detailsKey = u"overview/detailsSplitter"_s;

/// A table of one row at a time that has room for icons.
QTableView *newTable(const QString &name, const QString &accessibleName, QWidget *parent)
{
    QTableView *table = newRowTable(name, accessibleName, parent);
    QHeaderView *rows = table->verticalHeader();
    rows->setDefaultSectionSize(qMax(rows->defaultSectionSize(), iconCellSize + 8));
    return table;
}

/// The local files among what is dragged.
QStringList localFiles(const QMimeData *data)
{
    QStringList paths;
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    return paths;
}

} // namespace

OverviewView::OverviewView(OverviewController &overview, TitleCommands &titles, const CommandSet &commands,
                           QWidget *parent)
    : QWidget(parent), m_overview(overview), m_titles(titles), m_sorted(new NaturalSortProxy(this))
{
    setObjectName(u"overviewView"_s);
    setAcceptDrops(true);
    m_sorted->setSourceModel(&overview.softwareTable());
    m_sorted->setSortRole(SortRole);

    m_splitter = new QSplitter(Qt::Vertical, this);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->addWidget(newTitlesPanel(commands));
    m_splitter->addWidget(newDetailsPanel());
    m_splitter->setStretchFactor(0, 3);
    m_splitter->setStretchFactor(1, 2);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_splitter);

    connect(&overview, &OverviewController::selectedRowChanged, this, &OverviewView::showSelectedRow);
    connect(&overview, &OverviewController::validationErrorsChanged, this, &OverviewView::showErrors);
    connect(&overview.softwareTable(), &QAbstractItemModel::modelReset, this, &OverviewView::showListOrHint);
    restoreLayout();
    connect(m_sorted, &QAbstractItemModel::modelReset, this, &OverviewView::showLoadedList);
    connect(m_softwareTableView->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this,
            [this] { showSelectedRow(m_overview.selectedRow()); });
    showListOrHint();
    showErrors();
}

OverviewView::~OverviewView()
{
    saveLayout();
}

QWidget *OverviewView::newTitlesPanel(const CommandSet &commands)
{
    m_softwareTableView = newTable(u"softwareTableView"_s, u"Software titles"_s, this);
    m_softwareTableView->setModel(m_sorted);
    m_softwareTableView->setSortingEnabled(true);
    commands.fillContextMenu(*m_softwareTableView);
    const auto mayBeSelected = [this](const QModelIndex &index, GuardedSelectionModel::Telling telling) {
        const int row = m_sorted->mapToSource(index).row();
        return telling == GuardedSelectionModel::Telling::Aloud ? m_overview.tableViewShouldSelectRow(row)
                                                                : m_overview.canSelectRow(row);
    };
    auto *selection = new GuardedSelectionModel(m_sorted, mayBeSelected, m_softwareTableView);
    m_softwareTableView->setSelectionModel(selection);
    connect(selection, &QItemSelectionModel::selectionChanged, this, [this, selection] {
        const QModelIndex index = selection->selectedRows().value(0);
        const int row = index.isValid() ? m_sorted->mapToSource(index).row() : -1;
        if (row != m_overview.selectedRow())
            m_overview.tableViewSelectionDidChange(row);
    });
    connect(m_softwareTableView, &QTableView::activated, this, &OverviewView::editRequested);

    auto *systems = new IconCellDelegate({}, this);
    m_softwareTableView->setItemDelegateForColumn(SoftwareTable::SupportedOS, systems);
    m_softwareTableView->setItemDelegateForColumn(SoftwareTable::Validated, systems);
    m_softwareTableView->setItemDelegateForColumn(SoftwareTable::Submissions,
                                                  new IconCellDelegate(u":/icons/site.svg"_s, this));

    m_titlesOrHint = new QStackedWidget;
    m_titlesOrHint->addWidget(captioned(new QLabel(u"Software &titles"_s), m_softwareTableView));
    m_titlesOrHint->addWidget(newEmptyPage());

    auto *panel = new QWidget;
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_titlesOrHint, 1);
    layout->addWidget(newButtonRow(commands));
    return panel;
}

QWidget *OverviewView::newEmptyPage()
{
    auto *page = new QWidget;
    page->setObjectName(u"emptyListPage"_s);
    auto *picture = new QLabel;
    picture->setPixmap(QIcon(u":/icons/empty-list.svg"_s).pixmap(QSize(96, 96)));
    auto *heading = new QLabel(u"No software titles yet"_s);
    QFont font = heading->font();
    font.setPointSizeF(font.pointSizeF() * 1.4);
    heading->setFont(font);
    auto *hint = new QLabel(u"Import the PAD files that you have, or drop them here.\n"
                            "Or begin with a new title and fill in its PAD file step by step."_s);
    hint->setAlignment(Qt::AlignCenter);

    auto *layout = new QVBoxLayout(page);
    layout->addStretch(1);
    for (QLabel *label : {picture, heading, hint})
        layout->addWidget(label, 0, Qt::AlignCenter);
    layout->addStretch(2);
    page->setAutoFillBackground(true);
    page->setBackgroundRole(QPalette::Base);
    return page;
}

QWidget *OverviewView::newButtonRow(const CommandSet &commands)
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const QString &name, const QString &command) {
        layout->addWidget(newActionButton(*commands.action(command), name, row));
    };
    add(u"newSoftwareButton"_s, u"new"_s);
    add(u"importButton"_s, u"import"_s);
    layout->addStretch(1); // What needs a selected title stands apart.
    add(u"renameButton"_s, u"rename"_s);
    add(u"exportButton"_s, u"export"_s);
    add(u"deleteButton"_s, u"delete"_s);
    return row;
}

QWidget *OverviewView::newDetailsPanel()
{
    m_submittedToTableView = newTable(u"submittedToTableView"_s, u"Submitted to"_s, this);
    m_submittedToTableView->setModel(&m_overview.submittedToTable());
    m_submittedToTableView->setItemDelegateForColumn(SubmittedToTable::Status,
                                                     new IconCellDelegate({}, this));

    m_validationErrorsView = new QListWidget;
    m_validationErrorsView->setObjectName(u"validationErrorsView"_s);
    m_validationErrorsView->setAccessibleName(u"Errors in the PAD file"_s);
    m_validationErrorsView->setWordWrap(true);
    connect(m_validationErrorsView, &QListWidget::itemActivated, this,
            [this](QListWidgetItem *item) { Q_EMIT fieldRequested(item->data(Qt::UserRole).toString()); });
    connect(m_validationErrorsView, &QListWidget::itemClicked, this,
            [this](QListWidgetItem *item) { Q_EMIT fieldRequested(item->data(Qt::UserRole).toString()); });

    m_errorsCaption = new QLabel;
    m_errorsCaption->setTextFormat(Qt::PlainText);
    m_details = new QSplitter(Qt::Horizontal);
    m_details->setObjectName(u"detailsSplitter"_s);
    m_details->setChildrenCollapsible(false);
    m_details->addWidget(captioned(new QLabel(u"&Submitted to"_s), m_submittedToTableView));
    m_details->addWidget(captioned(m_errorsCaption, m_validationErrorsView));
    return m_details;
}

void OverviewView::showSelectedRow(int row)
{
    if (row < 0) {
        m_softwareTableView->clearSelection();
        m_submittedToTableView->clearSelection();
        keepPlace();
        return;
    }
    const QModelIndex index = m_sorted->mapFromSource(m_overview.softwareTable().index(row, 0));
    m_place = index.row();
    if (!m_softwareTableView->selectionModel()->isRowSelected(index.row()))
        m_softwareTableView->selectRow(index.row());
    m_softwareTableView->scrollTo(index);
}

void OverviewView::showLoadedList()
{
    const int added = takeAddedRow();
    if (m_overview.selectedRow() >= 0)
        return;
    if (added >= 0)
        m_place = added;
    keepPlace();
    if (added < 0)
        return;
    m_softwareTableView->scrollTo(m_sorted->index(added, 0));
    if (isVisible())
        m_softwareTableView->setFocus();
}

/// The first row in sight's order whose title was not there before; -1 without one, and at the first load.
int OverviewView::takeAddedRow()
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
void OverviewView::keepPlace()
{
    if (m_overview.selectedRow() >= 0 || m_place < 0)
        return;
    const QModelIndex index = m_sorted->index(qMin(m_place, m_sorted->rowCount() - 1), 0);
    // What is in sight stays there; a new current row would be scrolled to.
    m_softwareTableView->setAutoScroll(false);
    m_softwareTableView->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    m_softwareTableView->setAutoScroll(true);
}

void OverviewView::showErrors()
{
    const StringDictionary &errors = m_overview.validationErrors();
    m_validationErrorsView->clear();
    for (const auto &[key, message] : errors) {
        auto *item = new QListWidgetItem(message, m_validationErrorsView);
        item->setData(Qt::UserRole, key);
    }
    m_errorsCaption->setText(errors.empty() ? u"&Errors in the PAD file"_s
                                            : u"&Errors in the PAD file (%1)"_s.arg(errors.size()));
}

void OverviewView::showListOrHint()
{
    m_titlesOrHint->setCurrentIndex(m_overview.softwareTable().rowCount() == 0 ? 1 : 0);
}

void OverviewView::dragEnterEvent(QDragEnterEvent *event)
{
    if (m_overview.fileMenu().isEnabled(FileMenu::Import) && !localFiles(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void OverviewView::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    m_titles.processImportedFile(localFiles(event->mimeData()));
}

void OverviewView::saveLayout() const
{
    settings().setValue(headerKey, m_softwareTableView->horizontalHeader()->saveState());
    settings().setValue(submittedHeaderKey, m_submittedToTableView->horizontalHeader()->saveState());
    settings().setValue(splitterKey, m_splitter->saveState());
    settings().setValue(detailsKey, m_details->saveState());
}

void OverviewView::restoreLayout()
{
    QHeaderView *titles = m_softwareTableView->horizontalHeader();
    if (!titles->restoreState(settings().value(headerKey).toByteArray())) {
        static constexpr std::array<int, SoftwareTable::ColumnCount> widths = {280, 90, 110, 220, 80, 160};
        for (int column = 0; column < SoftwareTable::ColumnCount; ++column)
            m_softwareTableView->setColumnWidth(column, widths[size_t(column)]);
        m_softwareTableView->sortByColumn(SoftwareTable::SoftwareTitle, Qt::AscendingOrder);
    }
    titles->setStretchLastSection(true);
    titles->setSectionsMovable(true);
    QHeaderView *sites = m_submittedToTableView->horizontalHeader();
    if (!sites->restoreState(settings().value(submittedHeaderKey).toByteArray()))
        m_submittedToTableView->setColumnWidth(SubmittedToTable::Site, 220);
    sites->setStretchLastSection(true);
    m_splitter->restoreState(settings().value(splitterKey).toByteArray());
    m_details->restoreState(settings().value(detailsKey).toByteArray());
}

} // namespace quillon
