#include "shell/customise_toolbar_dialog.h"

#include "shell/toolbar_layout.h"
#include "widgets/action_button.h"
#include "widgets/button_box.h"
#include "widgets/command_set.h"
#include "widgets/focus_frame.h"

#include <QAction>
#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

QListWidget *newList(const QString &name, const QString &accessibleName)
{
    auto *list = new WithFocusFrame<QListWidget>;
    list->setObjectName(name);
    list->setAccessibleName(accessibleName);
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

CustomiseToolbarDialog::CustomiseToolbarDialog(const CommandSet &commands, QWidget *parent)
    : QDialog(parent)
    , m_commands(commands)
    , m_available(newList(u"availableItems"_s, tr("Available items")))
    , m_shown(newList(u"toolbarItems"_s, tr("Toolbar, from left to right")))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(tr("Customise Toolbar"));
    for (const QString &identifier : toolbar_layout::allowedItems())
        m_available->addItem(newItem(identifier));
    m_available->setDragDropMode(QAbstractItemView::DragOnly);
    m_shown->setDragDropMode(QAbstractItemView::DragDrop);
    m_shown->setDefaultDropAction(Qt::MoveAction);
    connect(m_available, &QListWidget::itemActivated, this, &CustomiseToolbarDialog::add);
    showOrder(toolbar_layout::storedOrder());

    auto *layout = new QGridLayout(this);
    layout->addWidget(labelFor(tr("A&vailable items:"), m_available), 0, 0);
    layout->addWidget(labelFor(tr("&Toolbar, from left to right:"), m_shown), 0, 2);
    layout->addWidget(m_available, 1, 0);
    layout->addLayout(newButtonColumn(), 1, 1);
    layout->addWidget(m_shown, 1, 2);
    layout->addWidget(newButtonBox(), 2, 0, 1, 3);
}

QLayout *CustomiseToolbarDialog::newButtonColumn()
{
    const QList<Command> commands = {
        {.id = u"add"_s,
         .text = tr("&Add →"),
         .isEnabled = [this] { return canAdd(); },
         .run = [this] { add(); }},
        {.id = u"remove"_s,
         .text = tr("← &Remove"),
         .isEnabled = [this] { return m_shown->currentRow() >= 0; },
         .run = [this] { remove(); }},
        {.id = u"up"_s,
         .text = tr("Move &Up"),
         .isEnabled = [this] { return m_shown->currentRow() > 0; },
         .run = [this] { move(-1); }},
        {.id = u"down"_s,
         .text = tr("Move &Down"),
         .isEnabled =
             [this] { return m_shown->currentRow() >= 0 && m_shown->currentRow() + 1 < m_shown->count(); },
         .run = [this] { move(1); }},
    };
    auto *actions = new CommandSet(commands, this);
    for (const QListWidget *list : {m_available, m_shown})
        connect(list, &QListWidget::currentRowChanged, actions, &CommandSet::update);
    connect(m_shown->model(), &QAbstractItemModel::rowsInserted, actions, &CommandSet::update);
    connect(m_shown->model(), &QAbstractItemModel::rowsRemoved, actions, &CommandSet::update);
    auto *column = new QVBoxLayout;
    column->addStretch();
    for (const Command &each : commands) {
        QPushButton *button = newActionButton(*actions->action(each.id), each.id + u"Button"_s, this);
        button->setAutoDefault(false);
        column->addWidget(button);
    }
    column->addStretch();
    return column;
}

QDialogButtonBox *CustomiseToolbarDialog::newButtonBox()
{
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel |
                                         QDialogButtonBox::RestoreDefaults);
    connect(buttons, &QDialogButtonBox::accepted, this, &CustomiseToolbarDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CustomiseToolbarDialog::reject);
    connect(buttons->button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this,
            [this] { showOrder(toolbar_layout::defaultOrder()); });
    orderForTab(*buttons);
    return buttons;
}

QListWidgetItem *CustomiseToolbarDialog::newItem(const QString &identifier) const
{
    if (!toolbar_layout::mayRepeat(identifier))
        return new QListWidgetItem(m_commands.action(identifier)->icon(), identifier);
    QPixmap nothing(m_shown->iconSize()); // Takes an icon's room, so that all names stand in one column.
    nothing.fill(Qt::transparent);
    return new QListWidgetItem(nothing, identifier);
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

bool CustomiseToolbarDialog::canAdd() const
{
    const QListWidgetItem *chosen = m_available->currentItem();
    return chosen && (toolbar_layout::mayRepeat(chosen->text()) ||
                      m_shown->findItems(chosen->text(), Qt::MatchExactly).isEmpty());
}

void CustomiseToolbarDialog::add()
{
    if (!canAdd())
        return;
    const int row = m_shown->currentRow() < 0 ? m_shown->count() : m_shown->currentRow() + 1;
    m_shown->insertItem(row, newItem(m_available->currentItem()->text()));
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
