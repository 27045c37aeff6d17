#include "changes/field_value_view.h"

#include "editor/editor_layout.h"
#include "editor/pop_up_accessible.h"
#include "pad/vocabularies.h"
#include "widgets/focus_frame.h"
#include "widgets/raw_text.h"

#include <QBoxLayout>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr int textLines = 3;

QStringList choicesOf(FieldId field)
{
    if (padField(field).kind == FieldKind::CheckBox)
        return {u"N"_s, u"Y"_s};
    return QStringList{QString()} + vocabulary::of(field);
}

} // namespace

FieldValueView::FieldValueView(const QString &name, const QString &purpose, FieldId field,
                               const FormValues &values)
    : m_values(values)
    , m_field(new NamedPopUp)
    , m_line(new QLineEdit)
    , m_text(new WithFocusFrame<QPlainTextEdit>)
    , m_choice(new NamedPopUp)
{
    m_field->setObjectName(name + u"Field"_s);
    m_field->setAccessibleName(tr("Field %1").arg(purpose));
    for (const PadField &each : padFields) {
        if (each.kind != FieldKind::Computed)
            m_field->addItem(accessibleNameOf(each.id), int(each.id));
    }
    m_text->setTabChangesFocus(true);
    m_text->setMaximumHeight(m_text->fontMetrics().lineSpacing() * textLines + 12);
    m_line->setObjectName(name + u"Line"_s);
    m_text->setObjectName(name + u"Text"_s);
    m_choice->setObjectName(name + u"Choice"_s);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_field);
    for (QWidget *each : std::initializer_list<QWidget *>{m_line, m_text, m_choice}) {
        each->setAccessibleName(tr("Value %1").arg(purpose));
        row->addWidget(each, 1);
    }
    setField(field);
    connect(m_field, &QComboBox::currentIndexChanged, this, &FieldValueView::showValue);
    connect(m_line, &QLineEdit::textChanged, this, &FieldValueView::changed);
    connect(m_text, &QPlainTextEdit::textChanged, this, &FieldValueView::changed);
    connect(m_choice, &QComboBox::currentIndexChanged, this, &FieldValueView::changed);
}

void FieldValueView::allowNoField(const QString &text)
{
    m_field->insertItem(0, text);
}

void FieldValueView::focusValue()
{
    for (QWidget *each : std::initializer_list<QWidget *>{m_line, m_text, m_choice}) {
        if (!each->isHidden())
            each->setFocus();
    }
}

QList<QWidget *> FieldValueView::stops() const
{
    return {m_field, m_line, m_text, m_choice};
}

std::optional<FieldId> FieldValueView::field() const
{
    const QVariant id = m_field->currentData();
    return id.isValid() ? std::optional(FieldId(id.toInt())) : std::nullopt;
}

void FieldValueView::setField(FieldId field)
{
    m_field->setCurrentIndex(qMax(0, m_field->findData(int(field)))); // Nobody fills in a computed one.
    showValue();
}

QWidget *FieldValueView::widgetFor(FieldKind kind) const
{
    switch (kind) {
    case FieldKind::MultiLine:
        return m_text;
    case FieldKind::PopUp:
    case FieldKind::CheckBox:
        return m_choice;
    default:
        return m_line;
    }
}

std::optional<FieldAssignment> FieldValueView::assignment() const
{
    const auto id = field();
    if (!id)
        return std::nullopt;
    const QWidget *widget = widgetFor(padField(*id).kind);
    return FieldAssignment{*id, widget == m_text     ? rawText(*m_text)
                                : widget == m_choice ? m_choice->currentText()
                                                     : m_line->text()};
}

void FieldValueView::showValue()
{
    const auto id = field();
    const QString value = id ? m_values[size_t(*id)] : QString();
    const QWidget *shown = id ? widgetFor(padField(*id).kind) : m_line;
    for (QWidget *each : std::initializer_list<QWidget *>{m_line, m_text, m_choice})
        each->setVisible(each == shown);
    m_line->setEnabled(id.has_value());
    m_choice->clear();
    if (shown == m_choice)
        m_choice->addItems(choicesOf(*id));
    m_choice->setCurrentText(value);
    m_text->setPlainText(value);
    m_line->setText(value);
    Q_EMIT changed();
}

} // namespace quillon
