#include "shell/customise_toolbar_dialog.h"

#include "shell/toolbar_layout.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

QListWidgetItem *newItem(const QString &identifier)
{
    QString icon;
    for (const ToolbarItem &item : toolbar_layout::allowedItems()) {
        if (item.identifier == identifier)
            icon = item.icon;
    }
    return new QListWidgetItem(QIcon(icon), identifier);
}

QListWidget *newList(const QString &name)
{
    auto *list = new QListWidget;
    list->setObjectName(name);
    list->setIconSize({24, 24});
    list->setDragEnabled(true);
    return list;
}

QLabel *labelFor(const QString &text, QWidget *buddy)
{
    auto *label = new QLabel(text);
    label->setBuddy(buddy);
    return label;
}

} // namespace

CustomiseToolbarDialog::CustomiseToolbarDialog(QWidget *parent)
    : QDialog(parent), m_available(newList(u"availableItems"_s)), m_shown(newList(u"toolbarItems"_s))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(u"Customise Toolbar"_s);
    for (const ToolbarItem &item : toolbar_layout::allowedItems())
        m_available->addItem(newItem(item.identifier));
    m_available->setDragDropMode(QAbstractItemView::DragOnly);
    m_shown->setDragDropMode(QAbstractItemView::DragDrop);
    m_shown->setDefaultDropAction(Qt::MoveAction);
    showOrder(toolbar_layout::storedOrder());

    /// A button between or beside the lists.
    struct Command
    {
        QString text;
        std::function<void()> run;
    };
    auto *column = new QVBoxLayout;
    column->addStretch();
    for (const Command &command : {Command{u"&Add →"_s, [this] { add(); }},
                                   {u"← &Remove"_s, [this] { remove(); }},
                                   {u"Move &Up"_s, [this] { move(-1); }},
                                   {u"Move &Down"_s, [this] { move(1); }}}) {
        auto *button = new QPushButton(command.text);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, command.run);
        column->addWidget(button);
    }
    column->addStretch();

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel |
                                         QDialogButtonBox::RestoreDefaults);
    connect(buttons, &QDialogButtonBox::accepted, this, &CustomiseToolbarDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CustomiseToolbarDialog::reject);
    connect(buttons->button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this,
            [this] { showOrder(toolbar_layout::defaultOrder()); });
    connect(m_available, &QListWidget::itemActivated, this, &CustomiseToolbarDialog::add);

    auto *layout = new QGridLayout(this);
    layout->addWidget(labelFor(u"A&vailable items:"_s, m_available), 0, 0);
    layout->addWidget(labelFor(u"&Toolbar, from left to right:"_s, m_shown), 0, 2);
    layout->addWidget(m_available, 1, 0);
    layout->addLayout(column, 1, 1);
    layout->addWidget(m_shown, 1, 2);
    layout->addWidget(buttons, 2, 0, 1, 3);
}

void CustomiseToolbarDialog::showOrder(const QStringList &identifiers)
{
    m_shown->clear();
    for (const QString &identifier : identifiers)
        m_shown->addItem(newItem(identifier));
}

QStringList CustomiseToolbarDialog::order() const
{
    QStringList identifiers;
    for (int row = 0; row < m_shown->count(); ++row) {
        const QString identifier = m_shown->item(row)->text();
        // An action that was dragged in a second time stands where it stood first.
        if (toolbar_layout::mayRepeat(identifier) || !identifiers.contains(identifier))
            identifiers.append(identifier);
    }
    return identifiers;
}

void CustomiseToolbarDialog::add()
{
    const QListWidgetItem *chosen = m_available->currentItem();
    if (!chosen)
        return;
    const bool there = !m_shown->findItems(chosen->text(), Qt::MatchExactly).isEmpty();
    if (there && !toolbar_layout::mayRepeat(chosen->text()))
        return;
    const int row = m_shown->currentRow() < 0 ? m_shown->count() : m_shown->currentRow() + 1;
    m_shown->insertItem(row, newItem(chosen->text()));
    m_shown->setCurrentRow(row);
}

void CustomiseToolbarDialog::remove()
{
    delete m_shown->takeItem(m_shown->currentRow());
}

void CustomiseToolbarDialog::move(int step)
{
    const int row = m_shown->currentRow();
    const int target = row + step;
    if (row < 0 || target < 0 || target >= m_shown->count())
        return;
    m_shown->insertItem(target, m_shown->takeItem(row));
    m_shown->setCurrentRow(target);
}

void CustomiseToolbarDialog::accept()
{
    toolbar_layout::storeOrder(order());
    Q_EMIT orderStored();
    QDialog::accept();
}

} // namespace quillon
