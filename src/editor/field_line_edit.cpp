#include "editor/field_line_edit.h"

#include "editor/editor.h"
#include "editor/editor_layout.h"
#include "editor/text_change.h"
#include "editor/text_widgets.h"

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <limits>

namespace quillon {

FieldLineEdit::FieldLineEdit(Editor &editor, FieldId field, QWidget *parent)
    : QLineEdit(parent), m_editor(editor), m_field(field), m_control(editor.form().text(field))
{
    setObjectName(m_control.objectName());
    setAccessibleName(accessibleNameOf(field));
    setMaxLength(std::numeric_limits<int>::max()); // Too long is told, never cut.
    connect(&m_control, &Control::changed, this, &FieldLineEdit::showControl);
    connect(this, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (!m_showing)
            handDown(text);
        else
            showColours();
    });
    connect(this, &QLineEdit::returnPressed, this, &FieldLineEdit::endEditing);
    showControl();
}

void FieldLineEdit::handDown(const QString &text)
{
    {
        const QScopedValueRollback guard(m_handingDown, true);
        m_editor.typed(m_field, text);
    }
    showControl();
}

void FieldLineEdit::showControl()
{
    if (m_handingDown || m_walking)
        return;
    const QScopedValueRollback guard(m_showing, true);
    if (const QString wanted = m_control.text(); wanted != text()) {
        const TextChange change = TextChange::between(text(), wanted);
        const qsizetype cursor = change.moved(cursorPosition());
        if (hasFocus()) {
            setSelection(int(change.start), int(change.removed));
            if (change.inserted.isEmpty() && change.removed > 0)
                del();
            else
                insert(change.inserted);
        }
        if (text() != wanted)
            setText(wanted);
        setCursorPosition(int(cursor));
    }
    showColours();
}

void FieldLineEdit::showColours()
{
    if (m_composing)
        return;
    // A line edit has no formats of its own; those of an empty composition colour the text that is there, and
    // leave cursor, selection, undo and accessibility to the widget.
    const QTextCharFormat red = redFormat(*this);
    QList<QInputMethodEvent::Attribute> attributes;
    for (const ColourRun &run : m_control.redRuns())
        attributes.append(
            {QInputMethodEvent::TextFormat, int(run.start) - cursorPosition(), int(run.length), red});
    QInputMethodEvent event({}, attributes);
    QLineEdit::inputMethodEvent(&event);
}

void FieldLineEdit::undo()
{
    walkHistory(&QLineEdit::undo, &QLineEdit::isUndoAvailable);
}

void FieldLineEdit::redo()
{
    walkHistory(&QLineEdit::redo, &QLineEdit::isRedoAvailable);
}

void FieldLineEdit::walkHistory(void (QLineEdit::*step)(), bool (QLineEdit::*canStep)() const)
{
    const QString before = text();
    {
        const QScopedValueRollback guard(m_walking, true);
        // A text that the filter changes is another in the control.
        const auto isPassed = [&] { return text() == before || text() != m_control.text(); };
        do
            (this->*step)();
        while (isPassed() && (this->*canStep)());
    }
    showControl();
}

void FieldLineEdit::replaceText(const QString &text)
{
    m_editor.endStep();
    selectAll();
    insert(text);
    m_editor.endStep();
}

void FieldLineEdit::paste()
{
    const bool replacesAll = !text().isEmpty() && selectedText() == text();
    if (replacesAll)
        m_editor.endStep();
    QLineEdit::paste();
    if (replacesAll)
        m_editor.endStep();
}

bool FieldLineEdit::event(QEvent *event)
{
    return isLeftToWindow(event) || QLineEdit::event(event);
}

void FieldLineEdit::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Paste))
        paste();
    else if (event->matches(QKeySequence::Undo))
        undo();
    else if (event->matches(QKeySequence::Redo))
        redo();
    else
        QLineEdit::keyPressEvent(event);
}

void FieldLineEdit::inputMethodEvent(QInputMethodEvent *event)
{
    m_composing = !event->preeditString().isEmpty();
    QLineEdit::inputMethodEvent(event);
    showColours();
}

void FieldLineEdit::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    // Another window, a menu or a list that opens does not end the work in the field.
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason &&
        event->reason() != Qt::MenuBarFocusReason)
        endEditing();
}

void FieldLineEdit::endEditing()
{
    m_editor.controlTextDidEndEditing(m_field);
}

void FieldLineEdit::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showColours();
}

} // namespace quillon
