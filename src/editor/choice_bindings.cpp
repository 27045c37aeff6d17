#include "editor/choice_bindings.h"

#include "editor/editor.h"
#include "editor/editor_layout.h"
#include "editor/pop_up_accessible.h"
#include "platform/plain_text.h"
#include "widgets/validation_palette.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFocusEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace quillon {

FieldComboBox::FieldComboBox(Editor &editor, FieldId field, QWidget *parent)
    : QComboBox(parent), m_editor(editor), m_field(field), m_control(editor.form().popUp(field))
{
    [[maybe_unused]] static const bool once = (usePopUpAccessible(staticMetaObject.className()), true);
    setObjectName(m_control.objectName());
    setAccessibleName(accessibleNameOf(field));
    setFocusPolicy(Qt::StrongFocus); // Tab and clicks; turning the wheel over it gives it no focus.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    static constexpr int visibleCharacters = 12;
    setMinimumContentsLength(visibleCharacters);
    addItems(m_control.items());
    letSearchByTyping();
    // The lists are as wide as their longest item, not as the field.
    const int wide = view()->sizeHintForColumn(0) + view()->verticalScrollBar()->sizeHint().width();
    view()->setMinimumWidth(wide);
    completer()->popup()->setMinimumWidth(wide);

    connect(this, &QComboBox::activated, this, &FieldComboBox::choose);
    connect(lineEdit(), &QLineEdit::returnPressed, this, [this] { takeTypedText(true); });
    connect(&m_control, &Control::changed, this, &FieldComboBox::showControl);
    showControl();
}

void FieldComboBox::letSearchByTyping()
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    completer()->setCompletionMode(QCompleter::PopupCompletion);
    completer()->setFilterMode(Qt::MatchContains);
    completer()->setCaseSensitivity(Qt::CaseInsensitive);
    lineEdit()->setAccessibleName(accessibleName());
    lineEdit()->installEventFilter(this);
    view()->installEventFilter(this);
}

void FieldComboBox::showControl()
{
    const QSignalBlocker blocker(this);
    setCurrentIndex(m_control.index());
    setEditText(m_control.title());
    lineEdit()->setCursorPosition(0);
    lineEdit()->setToolTip(plainToolTip(m_control.title())); // Long categories do not fit.
    describe(accessibleDescription());
}

void FieldComboBox::describe(const QString &text)
{
    setAccessibleDescription(text);
    lineEdit()->setAccessibleDescription(text.isEmpty() ? m_control.title()
                                                        : text); // Not the tool tip's markup.
}

void FieldComboBox::choose(int index)
{
    m_control.setIndex(index);
    m_editor.controlAction(m_field);
    showControl();
}

void FieldComboBox::takeTypedText(bool orPart)
{
    const int index = indexOfTyped(orPart);
    if (index >= 0 && index != m_control.index())
        choose(index);
    else
        showControl();
}

int FieldComboBox::indexOfTyped(bool orPart) const
{
    const QString typed = currentText();
    const int named = findText(typed, Qt::MatchFixedString);
    if (named >= 0 || typed.isEmpty() || !orPart)
        return named;
    const QStringList items = m_control.items();
    const QStringList holding = items.filter(typed, Qt::CaseInsensitive);
    return holding.size() == 1 ? int(items.indexOf(holding.first())) : -1;
}

void FieldComboBox::focusInEvent(QFocusEvent *event)
{
    QComboBox::focusInEvent(event);
    m_isClickedInto = event->reason() == Qt::MouseFocusReason;
}

void FieldComboBox::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

void FieldComboBox::focusOutEvent(QFocusEvent *event)
{
    QComboBox::focusOutEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
        takeTypedText(reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason);
}

bool FieldComboBox::eventFilter(QObject *watched, QEvent *event)
{
    // What is typed after a click into the field replaces its text, unless the mouse has selected a part.
    if (watched == lineEdit() && event->type() == QEvent::MouseButtonRelease &&
        std::exchange(m_isClickedInto, false) && !lineEdit()->hasSelectedText())
        QTimer::singleShot(0, lineEdit(), &QLineEdit::selectAll);
    // The open list ends with its window; what was typed before is not to stand beside it.
    if (watched == view() && event->type() == QEvent::Hide)
        showControl();
    return QComboBox::eventFilter(watched, event);
}

FieldCheckBox::FieldCheckBox(Editor &editor, FieldId field, QWidget *parent)
    : QCheckBox(accessibleNameOf(field), parent)
{
    CheckBoxControl &control = editor.form().checkBox(field);
    setObjectName(control.objectName());
    setAccessibleName(text());
    const auto show = [this, &control] {
        setChecked(control.isOn());
        setCaptionColour(*this, control.caption().colour());
    };
    connect(this, &QCheckBox::clicked, this, [&editor, &control, field](bool on) {
        control.setOn(on);
        editor.controlAction(field);
    });
    connect(&control, &Control::changed, this, show);
    connect(&control.caption(), &Caption::changed, this, show);
    show();
}

} // namespace quillon
