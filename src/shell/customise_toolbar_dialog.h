#pragma once

#include <QDialog>

class QDialogButtonBox;
class QListWidget;
class QListWidgetItem;

namespace quillon {

class CommandSet;

/// Lets the user choose what stands in the toolbar and in which order, by dragging or with the buttons. What
/// was chosen is stored when the dialog is accepted.
class CustomiseToolbarDialog : public QDialog
{
    Q_OBJECT
public:
    /// @p commands outlives the dialog.
    CustomiseToolbarDialog(const CommandSet &commands, QWidget *parent);

    void accept() override;

Q_SIGNALS:
    /// Another order was stored.
    void orderStored();

private:
    [[nodiscard]] QLayout *newButtonColumn();
    [[nodiscard]] QDialogButtonBox *newButtonBox();
    [[nodiscard]] QListWidgetItem *newItem(const QString &identifier) const;
    void showOrder(const QStringList &identifiers);
    [[nodiscard]] QStringList order() const;
    [[nodiscard]] bool canAdd() const;
    void add();
    void remove();
    void move(int step);

    const CommandSet &m_commands;
    QListWidget *m_available;
    QListWidget *m_shown;
};

} // namespace quillon
