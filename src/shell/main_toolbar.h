#pragma once

#include <QToolBar>

namespace quillon {

class CommandSet;

/// The toolbar "quillonToolbar": the commands that the author wants in it, in the author's order.
class MainToolbar : public QToolBar
{
    Q_OBJECT
public:
    /// @p commands has every command that toolbar_layout allows, and outlives the toolbar.
    MainToolbar(const CommandSet &commands, QWidget *parent);

    /// Opens the dialog in which the author arranges the toolbar.
    void customise();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fill();
    void addItem(const QString &identifier);

    const CommandSet &m_commands;
};

} // namespace quillon
