#include "editor/text_bindings.h"

#include "editor/editor.h"
#include "editor/editor_layout.h"
#include "editor/text_change.h"
#include "widgets/raw_text.h"
#include "widgets/validation_palette.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// Leaves the keys of undo and redo to the window's commands; they come as keys where it has none to offer.
bool isLeftToWindow(QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    if (!key->matches(QKeySequence::Undo) && !key->matches(QKeySequence::Redo))
        return false;
    event->ignore();
    return true;
}

QTextCharFormat redFormat(const QWidget &widget)
{
    QTextCharFormat format;
    format.setForeground(validationColour(widget.palette(), Colour::Red, QPalette::Base));
    format.setFontUnderline(true); // Not everybody sees the colour.
    return format;
}

/// The length of the longest stretch of @p text without a place where words end.
qsizetype longestWord(QStringView text)
{
    qsizetype longest = 0;
    qsizetype start = 0;
    for (qsizetype at = 0; at <= text.size(); ++at) {
        if (at == text.size() || text[at].isSpace()) {
            longest = qMax(longest, at - start);
            start = at + 1;
        }
    }
    return longest;
}

/// Line ends as a text widget has them.
QString withPlainLineEnds(QString text)
{
    return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

} // namespace

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

FieldTextEdit::FieldTextEdit(Editor &editor, FieldId field, int lines, QWidget *parent)
    : WithFocusFrame(parent)
    , m_editor(editor)
    , m_field(field)
    , m_control(editor.form().text(field))
    , m_lines(lines)
{
    setObjectName(m_control.objectName());
    setAccessibleName(accessibleNameOf(field));
    setTabChangesFocus(true);
    setMinimumHeight(FieldTextEdit::sizeHint().height());
    connect(&m_control, &Control::changed, this, &FieldTextEdit::showControl);
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
        if (!m_showing)
            m_editor.typed(m_field, rawText(*this));
    });
    showControl();
}

QSize FieldTextEdit::sizeHint() const
{
    const QMargins frame = viewportMargins();
    const int margins =
        2 * int(document()->documentMargin()) + 2 * frameWidth() + frame.top() + frame.bottom();
    return {QPlainTextEdit::sizeHint().width(), fontMetrics().lineSpacing() * m_lines + margins};
}

void FieldTextEdit::showControl()
{
    const QString wanted = withPlainLineEnds(m_control.text());
    if (const QString shown = rawText(*this); wanted != shown) {
        chooseWrapMode(wanted);
        const QScopedValueRollback guard(m_showing, true);
        if (hasFocus()) {
            const TextChange change = TextChange::between(shown, wanted);
            QTextCursor cursor(document());
            cursor.setPosition(int(change.start));
            cursor.setPosition(int(change.start + change.removed), QTextCursor::KeepAnchor);
            cursor.insertText(change.inserted);
        } else {
            setPlainText(wanted);
        }
    }
    showColours();
}

void FieldTextEdit::showColours()
{
    // Positions of the control's text, in the widget's where two characters end a line in the former.
    const QString text = m_control.text();
    const auto shownPosition = [&text](qsizetype position) {
        return int(position - QStringView(text).first(position).count(u"\r\n"));
    };
    QList<QTextEdit::ExtraSelection> selections;
    for (const ColourRun &run : m_control.redRuns()) {
        QTextEdit::ExtraSelection selection;
        selection.format = redFormat(*this);
        selection.cursor = QTextCursor(document());
        selection.cursor.setPosition(qMin(shownPosition(run.start), document()->characterCount() - 1));
        selection.cursor.setPosition(
            qMin(shownPosition(run.start + run.length), document()->characterCount() - 1),
            QTextCursor::KeepAnchor);
        selections.append(selection);
    }
    setExtraSelections(selections);
}

void FieldTextEdit::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showColours();
}

bool FieldTextEdit::event(QEvent *event)
{
    return isLeftToWindow(event) || WithFocusFrame::event(event);
}

void FieldTextEdit::insertFromMimeData(const QMimeData *source)
{
    if (!source->hasText())
        return;
    const qsizetype selected = textCursor().selectionEnd() - textCursor().selectionStart();
    const bool replacesAll = selected > 0 && selected == document()->characterCount() - 1;
    if (replacesAll)
        m_editor.endStep();
    chooseWrapMode(source->text());
    insertPlainText(source->text());
    if (replacesAll)
        m_editor.endStep();
}

void FieldTextEdit::chooseWrapMode(const QString &text)
{
    // Breaking lines between words looks to the end of a word for each of its lines: a pasted megabyte
    // without a blank would take minutes. No word is as long as this.
    static constexpr qsizetype longestSensibleWord = 2000;
    setWordWrapMode(longestWord(text) > longestSensibleWord ? QTextOption::WrapAnywhere
                                                            : QTextOption::WrapAtWordBoundaryOrAnywhere);
}

} // namespace quillon
