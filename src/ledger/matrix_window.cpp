#include "ledger/matrix_window.h"

#include "editor/pop_up_accessible.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "platform/settings.h"
#include "store/storage_status.h"
#include "widgets/focus_frame.h"
#include "widgets/validation_palette.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTimer>

#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString geometryKey = u"matrixWindow/geometry"_s;
const QString onlyStaleKey = u"matrixWindow/onlyStale"_s;
constexpr QSize usualSize(1180, 620);
constexpr std::chrono::milliseconds reloadDelay(200);

/// In digits of the font.
constexpr int cellWidth = 18;
constexpr int fixedCellWidth = 9;
constexpr int titleWidth = 30;

/// What can be sorted by, as the box offers it.
enum SortChoice
{
    ByTitle,
    ByVersion,
    ByStaleCount,
    BySite
};

/// Cells in which nothing is to be done are paler.
class CellDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.column() < MatrixTable::FirstSite || index.data(MatrixTable::StaleRole).toBool())
            return;
        option->palette.setColor(QPalette::Text,
                                 mutedColour(option->palette, QPalette::Text, QPalette::Base));
    }
};

QLineEdit *newFilter(const QString &name, const QString &accessibleName)
{
    auto *field = new QLineEdit;
    field->setObjectName(name);
    field->setAccessibleName(accessibleName);
    field->setClearButtonEnabled(true);
    return field;
}

void addCaptioned(QBoxLayout &row, const QString &caption, QWidget *field, int stretch)
{
    auto *label = new QLabel(caption);
    label->setBuddy(field);
    row.addWidget(label);
    row.addWidget(field, stretch);
}

} // namespace

MatrixWindow::MatrixWindow(QWidget *parent) : QDialog(parent), m_matrix(new MatrixTable(this))
{
    setObjectName(u"matrixWindow"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Titles and Sites"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(newFilterRow());
    layout->addWidget(newTable(), 1);
    layout->addWidget(newBottomRow());
    m_onlyStale->setChecked(settings().value(onlyStaleKey, false).toBool());
    load();
    // Nobody who marks a site is to wait for it, and what is told several times is read once.
    auto *reload = new QTimer(this);
    reload->setSingleShot(true);
    reload->setInterval(reloadDelay);
    connect(reload, &QTimer::timeout, this, &MatrixWindow::load);
    NotificationCenter::defaultCenter().addObserver(notification::mwqnOvLSlst, this,
                                                    [reload] { reload->start(); });
    resize(usualSize.boundedTo(screen()->availableSize()));
    restoreGeometry(settings().value(geometryKey).toByteArray());
    m_table->setFocus();
}

MatrixWindow::~MatrixWindow()
{
    settings().setValue(geometryKey, saveGeometry());
    settings().setValue(onlyStaleKey, m_onlyStale->isChecked());
}

QWidget *MatrixWindow::newFilterRow()
{
    m_titleFilter = newFilter(u"matrixTitleFilter"_s, tr("Find a title"));
    m_siteFilter = newFilter(u"matrixSiteFilter"_s, tr("Find a site"));
    m_onlyStale = new QCheckBox(tr("&Only what is to be brought up to date"));
    m_onlyStale->setObjectName(u"matrixOnlyStale"_s);
    m_sort = new NamedPopUp;
    m_sort->setObjectName(u"matrixSort"_s);
    m_sort->setAccessibleName(tr("Sort by"));
    m_sort->addItems({tr("Title"), tr("Version"), tr("To do"), tr("Selected site")});
    auto *box = new QWidget;
    auto *row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    addCaptioned(*row, tr("Find a &title:"), m_titleFilter, 1);
    addCaptioned(*row, tr("a &site:"), m_siteFilter, 1);
    row->addWidget(m_onlyStale);
    addCaptioned(*row, tr("Sort &by:"), m_sort, 0);
    for (QLineEdit *field : {m_titleFilter, m_siteFilter})
        connect(field, &QLineEdit::textChanged, this, &MatrixWindow::filter);
    connect(m_onlyStale, &QCheckBox::toggled, this, &MatrixWindow::filter);
    connect(m_sort, &QComboBox::activated, this, &MatrixWindow::sortBy);
    return box;
}

QWidget *MatrixWindow::newTable()
{
    m_table = new WithFocusFrame<QTableView>;
    m_table->setObjectName(u"matrixTable"_s);
    m_table->setAccessibleName(tr("Titles and sites"));
    m_table->setModel(m_matrix);
    m_table->setItemDelegate(new CellDelegate(this));
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setAlternatingRowColors(true);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->setCornerButtonEnabled(false);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    const int digit = m_table->fontMetrics().horizontalAdvance(u'0');
    QHeaderView *titles = m_table->verticalHeader();
    titles->setSectionResizeMode(QHeaderView::Fixed);
    titles->setDefaultSectionSize(m_table->fontMetrics().height() + 8);
    titles->setFixedWidth(titleWidth * digit);
    titles->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    titles->setHighlightSections(true);
    titles->setTextElideMode(Qt::ElideRight);
    QHeaderView *sites = m_table->horizontalHeader();
    sites->setDefaultSectionSize(cellWidth * digit);
    sites->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    sites->setSectionsClickable(true);
    sites->setTextElideMode(Qt::ElideRight);
    connect(sites, &QHeaderView::sectionClicked, this, &MatrixWindow::showSort);
    connect(m_table, &QTableView::activated, this, &MatrixWindow::choose);
    connect(m_table, &QTableView::clicked, this, [this](const QModelIndex &index) {
        if (m_matrix->cell(index))
            choose(index);
    });
    return m_table;
}

QWidget *MatrixWindow::newBottomRow()
{
    m_count = new QLabel;
    m_count->setObjectName(u"matrixCount"_s);
    m_count->setTextFormat(Qt::PlainText);
    m_count->setWordWrap(true);
    auto *close = new QPushButton(tr("&Close"));
    close->setObjectName(u"closeMatrix"_s);
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    auto *box = new QWidget;
    auto *row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_count, 1);
    row->addWidget(close);
    return box;
}

void MatrixWindow::load()
{
    const QModelIndex before = m_table->currentIndex();
    const QString title = before.isValid() ? m_matrix->titleAt(before.row()) : QString();
    const QString site = m_matrix->siteAt(before.column());
    auto read = readMatrix();
    QStringList failures;
    for (const Error &failure : read ? read->failures : QList<Error>{read.error()})
        failures.append(failureLine(failure));
    m_failures = failures.join(u' ');
    m_matrix->setMatrix(read ? std::move(read->matrix) : Matrix());
    filter();
    const int row = m_matrix->rowOf(title);
    const int column = site.isNull() ? before.column() : m_matrix->columnOf(site);
    m_table->setCurrentIndex(m_matrix->index(qMax(row, 0), qMax(column, 0)));
}

void MatrixWindow::filter()
{
    m_matrix->setFilter({.titles = m_titleFilter->text().trimmed(),
                         .sites = m_siteFilter->text().trimmed(),
                         .onlyStale = m_onlyStale->isChecked()});
    const int digit = m_table->fontMetrics().horizontalAdvance(u'0');
    for (const int column : {MatrixTable::Version, MatrixTable::StaleCount})
        m_table->setColumnWidth(column, fixedCellWidth * digit);
    showCount();
}

void MatrixWindow::sortBy(int choice)
{
    static constexpr std::array<int, 3> columns = {-1, MatrixTable::Version, MatrixTable::StaleCount};
    const int column = choice < BySite ? columns[size_t(choice)] : m_table->currentIndex().column();
    const bool isLargestFirst = column == MatrixTable::StaleCount;
    m_matrix->sort(column, isLargestFirst ? Qt::DescendingOrder : Qt::AscendingOrder);
    m_table->setCurrentIndex(m_matrix->index(0, qMax(column, 0)));
}

/// A click on a column's head sorts by it.
void MatrixWindow::showSort(int column)
{
    m_sort->setCurrentIndex(column == MatrixTable::Version      ? ByVersion
                            : column == MatrixTable::StaleCount ? ByStaleCount
                                                                : BySite);
    m_table->setCurrentIndex(m_matrix->index(0, column));
    sortBy(m_sort->currentIndex());
}

void MatrixWindow::choose(const QModelIndex &index)
{
    const QString site = m_matrix->siteAt(index.column());
    if (!site.isNull())
        Q_EMIT siteChosen(m_matrix->titleAt(index.row()), site);
}

void MatrixWindow::showCount()
{
    const int sites = m_matrix->columnCount() - MatrixTable::FirstSite;
    const QString counts =
        tr("Titles: %L1, sites: %L2, to be brought up to date: %L3. Return goes to the submission window.")
            .arg(m_matrix->rowCount())
            .arg(sites)
            .arg(m_matrix->staleCount());
    m_count->setText(m_failures.isEmpty() ? counts : m_failures + u' ' + counts);
}

} // namespace quillon
