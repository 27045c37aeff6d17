#include "widgets/command_set.h"

#include "widgets/lazy_icon.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

QAction *newSeparator(QObject *parent)
{
    auto *separator = new QAction(parent);
    separator->setSeparator(true);
    return separator;
}

} // namespace

CommandSet::CommandSet(const QList<Command> &commands, QWidget *window)
    : QObject(window), m_commands(commands)
{
    auto *views = new QActionGroup(this);
    for (const Command &command : m_commands) {
        QAction *action = newAction(command);
        m_actions[command.id] = action;
        if (command.isView)
            views->addAction(action);
        if (command.keysIn == Qt::WindowShortcut)
            window->addAction(action);
    }
    update();
}

QAction *CommandSet::newAction(const Command &command)
{
    const QIcon icon = command.icon.isEmpty() ? QIcon() : lazyIcon(command.icon);
    auto *action = new QAction(icon, command.text, this);
    action->setObjectName(command.id);
    action->setShortcuts(command.keys);
    action->setShortcutContext(command.keysIn);
    action->setToolTip(command.toolTip);
    action->setCheckable(command.isView);
    connect(action, &QAction::triggered, this, command.run);
    return action;
}

QAction *CommandSet::action(const QString &id) const
{
    Q_ASSERT(m_actions.contains(id));
    return m_actions.value(id);
}

void CommandSet::fillMenus(QMenuBar &bar) const
{
    QHash<QString, QMenu *> menus;
    for (const Command &command : m_commands) {
        if (command.menu.isEmpty())
            continue;
        QMenu *&menu = menus[command.menu];
        if (!menu)
            menu = bar.addMenu(command.menu);
        else if (command.opensGroup)
            menu->addSeparator();
        menu->addAction(m_actions[command.id]);
    }
}

void CommandSet::fillContextMenu(QWidget &list) const
{
    list.setContextMenuPolicy(Qt::ActionsContextMenu);
    for (const Command &command : m_commands) {
        if (!command.isForSelectedRow)
            continue;
        if (command.opensGroup && !list.actions().isEmpty())
            list.addAction(newSeparator(&list));
        list.addAction(m_actions[command.id]);
    }
}

void CommandSet::update()
{
    for (const Command &command : m_commands) {
        if (command.isEnabled)
            m_actions[command.id]->setEnabled(command.isEnabled());
    }
}

} // namespace quillon
