#pragma once

#include <QDialog>

class QListWidget;

namespace quillon {

/// Lets the user choose what stands in the toolbar and in which order, by dragging or with the buttons. What
/// was chosen is stored when the dialog is accepted.
class CustomiseToolbarDialog : public QDialog
{
    Q_OBJECT
public:
    explicit CustomiseToolbarDialog(QWidget *parent);

    void accept() override;

Q_SIGNALS:
    /// Another order was stored.
    void orderStored();

private:
    void showOrder(const QStringList &identifiers);
    [[nodiscard]] QStringList order() const;
    void add();
    void remove();
    void move(int step);

    QListWidget *m_available;
    QListWidget *m_shown;
};

} // namespace quillon
