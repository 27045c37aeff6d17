#pragma once

#include <QHash>
#include <QKeySequence>
#include <QList>
#include <QObject>
#include <QString>

#include <functional>

class QAction;
class QMenuBar;
class QWidget;

namespace quillon {

/// One command of a window: a row of its table, and all that a new command needs.
struct Command
{
    QString id;              ///< The object name of its action, by which buttons and toolbars ask for it.
    QString text;            ///< With its mnemonic.
    QString menu = {};       ///< The title of the menu it stands in; empty for none.
    bool opensGroup = false; ///< A line stands above it in its menus.
    bool isForSelectedRow = false; ///< It stands in the context menu of the window's list as well.
    QString icon = {};             ///< One of the program's pictures; empty for none.
    QList<QKeySequence> keys = {};
    Qt::ShortcutContext keysIn = Qt::WindowShortcut; ///< Otherwise keys count in what has the action only.
    QString toolTip = {};                            ///< What a button says of it.
    bool isView = false;                  ///< One of several views, of which one is checked at a time.
    std::function<bool()> isEnabled = {}; ///< Asked by CommandSet::update(); without it, always.
    std::function<void()> run;
};

/// The actions of a window, made from its table of commands. Menus stand in the order in which the table
/// first names them, and their items in the order of its rows.
class CommandSet : public QObject
{
    Q_OBJECT
public:
    /// The actions belong to the set, and the set to @p window, in which their keys count.
    CommandSet(const QList<Command> &commands, QWidget *window);

    /// The action of the command @p id, which must be in the table.
    [[nodiscard]] QAction *action(const QString &id) const;

    void fillMenus(QMenuBar &bar) const;
    /// Gives @p list its context menu, and the keys that count in it only.
    void fillContextMenu(QWidget &list) const;

    /// Enables each command that can be used now, and disables the others.
    void update();

private:
    [[nodiscard]] QAction *newAction(const Command &command);

    const QList<Command> m_commands;
    QHash<QString, QAction *> m_actions;
};

} // namespace quillon
