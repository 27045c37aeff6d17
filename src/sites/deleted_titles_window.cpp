#include "sites/deleted_titles_window.h"

#include "platform/settings.h"
#include "sites/deleted_titles.h"
#include "widgets/row_table.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString geometryKey = u"deletedTitles/geometry"_s;
constexpr QSize firstSize(720, 360);

} // namespace

DeletedTitlesWindow::DeletedTitlesWindow(DeletedTitles &deleted, QWidget *parent)
    : QDialog(parent)
    , m_deleted(deleted)
    , m_table(newRowTable(u"deletedTitles"_s, tr("Deleted titles and sites"), this))
{
    setObjectName(u"deletedTitlesWindow"_s);
    setWindowTitle(tr("Deleted Titles"));
    setWindowModality(Qt::WindowModal);
    m_table->setModel(&deleted);
    setColumnWidths(*m_table, {30, 27, 12});
    stretchLastColumn(*m_table);
    auto *caption = new QLabel(
        tr("&Titles and own sites that you deleted in the last %L1 days:").arg(deleted_items::keptDays));
    caption->setBuddy(m_table);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(caption);
    layout->addWidget(m_table, 1);
    layout->addLayout(newBottomRow());

    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &DeletedTitlesWindow::showSelected);
    connect(&deleted, &QAbstractItemModel::modelReset, this, &DeletedTitlesWindow::showSelected);
    connect(m_table, &QTableView::activated, this, [this] { m_deleted.restore(selectedRow()); });
    connect(&deleted, &DeletedTitles::showWindow, this, &DeletedTitlesWindow::open);
    showSelected();
    resize(firstSize.boundedTo(screen()->availableSize()));
    restoreGeometry(settings().value(geometryKey).toByteArray());
}

DeletedTitlesWindow::~DeletedTitlesWindow()
{
    settings().setValue(geometryKey, saveGeometry());
}

QLayout *DeletedTitlesWindow::newBottomRow()
{
    auto *row = new QHBoxLayout;
    const auto add = [row](const QString &name, const QString &text, const QString &toolTip) {
        auto *button = new QPushButton(text);
        button->setObjectName(name);
        button->setToolTip(toolTip);
        button->setAutoDefault(false);
        row->addWidget(button);
        return button;
    };
    m_restore = add(u"restoreDeletedButton"_s, tr("&Restore"), tr("Bring the selected title or site back"));
    m_forget =
        add(u"forgetNowButton"_s, tr("&Forget Now…"), tr("Remove the selected title or site for good"));
    row->addStretch(1);
    QPushButton *close = add(u"closeButton"_s, tr("&Close"), {});
    connect(m_restore, &QPushButton::clicked, this, [this] { m_deleted.restore(selectedRow()); });
    connect(m_forget, &QPushButton::clicked, this, [this] { m_deleted.forgetNow(selectedRow()); });
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    return row;
}

int DeletedTitlesWindow::selectedRow() const
{
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void DeletedTitlesWindow::showSelected()
{
    m_restore->setEnabled(selectedRow() >= 0);
    m_forget->setEnabled(selectedRow() >= 0);
}

} // namespace quillon
