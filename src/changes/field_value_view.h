#pragma once

#include "changes/field_assignment.h"

#include <QWidget>

class QComboBox;
class QLineEdit;
class QPlainTextEdit;

namespace quillon {

/// A field, chosen from all that can be typed into, and beside it a value of the kind that it has.
class FieldValueView : public QWidget
{
    Q_OBJECT
public:
    /// Its parts are called @p name, screen readers call them after @p purpose. They begin with @p field; a
    /// field that is chosen begins with what it has in @p values.
    FieldValueView(const QString &name, const QString &purpose, FieldId field, const FormValues &values);

    /// Lets the author choose no field as well, which is called @p text.
    void allowNoField(const QString &text);

    /// Puts the focus to the value.
    void focusValue();
    /// What Tab stops at, in order.
    [[nodiscard]] QList<QWidget *> stops() const;

    /// None where no field is chosen.
    [[nodiscard]] std::optional<FieldAssignment> assignment() const;

    void setField(FieldId field);

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] std::optional<FieldId> field() const;
    [[nodiscard]] QWidget *widgetFor(FieldKind kind) const;
    void showValue();

    const FormValues m_values;
    QComboBox *m_field;
    QLineEdit *m_line; ///< Of these three the one that the field's kind needs is shown.
    QPlainTextEdit *m_text;
    QComboBox *m_choice;
};

} // namespace quillon
