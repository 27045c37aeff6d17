#include "controls/row_table.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>

namespace quillon {

QTableView *newRowTable(const QString &name, const QString &accessibleName, QWidget *parent)
{
    auto *table = new QTableView(parent);
    table->setObjectName(name);
    table->setAccessibleName(accessibleName);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setAlternatingRowColors(true);
    table->setShowGrid(false);
    table->setTabKeyNavigation(false);
    table->setWordWrap(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 8);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return table;
}

QWidget *captioned(QLabel *caption, QWidget *content)
{
    auto *box = new QWidget;
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    caption->setBuddy(content);
    layout->addWidget(caption);
    layout->addWidget(content);
    return box;
}

} // namespace quillon
