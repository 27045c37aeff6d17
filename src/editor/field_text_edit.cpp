#include "editor/field_text_edit.h"

#include "editor/editor.h"
#include "editor/editor_layout.h"
#include "editor/text_change.h"
#include "editor/text_widgets.h"
#include "widgets/raw_text.h"

#include <QMimeData>
#include <QScopedValueRollback>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

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
