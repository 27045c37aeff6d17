#pragma once

#include "submission/field_copy.h"

#include <QWidget>

class QGridLayout;
class QLabel;
class QLineEdit;
class QScrollArea;

namespace quillon {

class HoverButtonControl;

/// The panel's buttons under the names of the editor's pages, in as many columns as there is room for, and a
/// field that finds one: Return presses the first that can be pressed.
class FieldCopyView : public QWidget
{
    Q_OBJECT
public:
    explicit FieldCopyView(FieldCopyPanel &panel, QWidget *parent = nullptr);

    /// Wide enough for the longest title of a button.
    [[nodiscard]] QSize sizeHint() const override;

    /// Puts the keyboard focus into the field that finds buttons.
    void focusFilter();

Q_SIGNALS:
    /// A button was pressed by way of the keyboard: its place is the page again.
    void pressedByKeyboard();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    /// The buttons of one page of the editor.
    struct Group
    {
        QWidget *box;
        QGridLayout *grid;
        QList<int> places;
    };

    QWidget *newFilterRow();
    QWidget *newButtons();
    void addButton(int place, QWidget *parent);
    void showStates();
    void showValues(const Result<QByteArray> &pad);
    void showValue(int place, const Result<QByteArray> &pad);
    void arrange();
    [[nodiscard]] int widestButton() const;
    [[nodiscard]] int columns() const;
    [[nodiscard]] bool isFound(int place) const;
    void pressFirst();

    FieldCopyPanel &m_panel;
    QList<HoverButtonControl *> m_buttons; ///< At the places of fieldCopyButtons.
    QList<Group> m_groups;
    QLineEdit *m_filter;
    QScrollArea *m_scrollArea;
    int m_columns = 0;
    /// As wide as its title needs; 0 before it is measured, at first and when font or style have changed.
    mutable int m_widestButton = 0;
};

} // namespace quillon
