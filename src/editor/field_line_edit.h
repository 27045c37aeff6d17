#pragma once

#include "controls/controls.h"
#include "pad/field_catalogue.h"

#include <QLineEdit>

namespace quillon {

class Editor;

/// A native line edit that shows a text control of the editor, red parts included, and hands it what is
/// typed.
class FieldLineEdit : public QLineEdit
{
    Q_OBJECT
public:
    FieldLineEdit(Editor &editor, FieldId field, QWidget *parent = nullptr);

    /// As if @p text were typed in place of what is there, as a step of its own.
    void replaceText(const QString &text);

public Q_SLOTS:
    /// In place of the widget's own, whose menu calls them by their names: a step back or on to a text that
    /// is another, past those that the field's filter did not let stand.
    void undo();
    void redo();
    /// A step of its own where it replaces the whole text.
    void paste();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    /// Hands the typed text to the editor, and shows once what the rules have made of it.
    void handDown(const QString &text);
    void showControl();
    void showColours();
    void endEditing();
    void walkHistory(void (QLineEdit::*step)(), bool (QLineEdit::*canStep)() const);

    Editor &m_editor;
    FieldId m_field;
    TextControl &m_control;
    bool m_showing = false;     ///< The text changes because the control did.
    bool m_handingDown = false; ///< The control changes because the text did.
    bool m_walking = false;     ///< Undo or redo is under way; the text is not to be changed meanwhile.
    bool m_composing = false;   ///< An input method is at work; it must not be disturbed.
};

} // namespace quillon
