#pragma once

#include "controls/controls.h"
#include "pad/field_catalogue.h"

#include <QCheckBox>
#include <QComboBox>

namespace quillon {

class Editor;

/// A pop-up of the editor. Typing searches it for items that hold the text; Return and Tab take the only one
/// that does, else nothing changes. The mouse wheel scrolls the page.
class FieldComboBox : public QComboBox
{
    Q_OBJECT
public:
    FieldComboBox(Editor &editor, FieldId field, QWidget *parent = nullptr);

    /// Has screen readers tell @p text of the box, and of its line, which has the keyboard.
    void describe(const QString &text);

protected:
    void wheelEvent(QWheelEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void letSearchByTyping();
    void showControl();
    void choose(int index);
    /// Chooses the item that the text names; with @p orPart also the only one that holds it.
    void takeTypedText(bool orPart);
    [[nodiscard]] int indexOfTyped(bool orPart) const;

    Editor &m_editor;
    FieldId m_field;
    PopUpControl &m_control;
    bool m_isClickedInto = false; ///< The click that brings the focus is under way.
};

/// The check box of the editor; its title turns red when the expiry is not in order.
class FieldCheckBox : public QCheckBox
{
    Q_OBJECT
public:
    FieldCheckBox(Editor &editor, FieldId field, QWidget *parent = nullptr);
};

} // namespace quillon
