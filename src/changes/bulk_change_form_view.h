#pragma once

#include "changes/plan_form.h"

class QFormLayout;
class QPushButton;

namespace quillon {

class FieldValueView;

/// What an author says of a change in many titles: in which ones, and what is set there.
class BulkChangeFormView : public PlanForm
{
    Q_OBJECT
public:
    /// Values begin with @p values, those of the title that the author works on.
    explicit BulkChangeFormView(const FormValues &values, QWidget *parent = nullptr);

    [[nodiscard]] Result<ChangePreview::Planner> planner() const override;

private:
    FieldValueView *newRow(const QString &name, const QString &purpose, FieldId field);
    QPushButton *newButton(const QString &name, const QString &text, void (BulkChangeFormView::*add)());
    void addWhereRow();
    void addSetRow();
    void addRow(int place, const QString &caption, FieldValueView *row);
    void orderForTab();

    const FormValues m_values;
    QList<FieldValueView *> m_where;
    QList<FieldValueView *> m_set;
    QFormLayout *m_rows;
    QPushButton *m_moreWhere;
    QPushButton *m_moreSet;
};

} // namespace quillon
