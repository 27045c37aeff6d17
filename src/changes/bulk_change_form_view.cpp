#include "changes/bulk_change_form_view.h"

#include "changes/bulk_change.h"
#include "changes/field_value_view.h"
#include "editor/editor_layout.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// More fields than these are seldom changed together, and would leave the preview no room.
constexpr qsizetype mostSetRows = 6;

} // namespace

BulkChangeFormView::BulkChangeFormView(const FormValues &values, QWidget *parent)
    : PlanForm(parent)
    , m_values(values)
    , m_where(newRow(u"where"_s, tr("that titles have"), FieldId::companyName))
    , m_rows(new QFormLayout)
{
    auto *more = new QPushButton(tr("Another &Field"));
    more->setObjectName(u"anotherField"_s);
    more->setAutoDefault(false);
    connect(more, &QPushButton::clicked, this, [this, more] {
        addSetRow();
        more->setEnabled(m_set.size() < mostSetRows);
    });
    m_where->allowNoField(tr("(any text in any field)"));
    m_rows->addRow(tr("In titles that have"), m_where);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(m_rows);
    layout->addWidget(more, 0, Qt::AlignLeft);
    addSetRow();
}

FieldValueView *BulkChangeFormView::newRow(const QString &name, const QString &purpose, FieldId field)
{
    auto *row = new FieldValueView(name, purpose, field, m_values);
    connect(row, &FieldValueView::changed, this, &PlanForm::changed);
    return row;
}

/// The field after the last one is proposed.
void BulkChangeFormView::addSetRow()
{
    const bool isFirst = m_set.isEmpty();
    const FieldId field =
        isFirst ? FieldId::companyName : FieldId((int(m_set.last()->assignment()->field) + 1) % fieldCount);
    auto *row = newRow(u"set%1"_s.arg(m_set.size()), tr("that is set (%1)").arg(m_set.size() + 1), field);
    m_set.append(row);
    m_rows->addRow(isFirst ? tr("set") : tr("and"), row);
    row->show(); // What is hidden does not take the focus.
    row->focusValue();
    Q_EMIT changed();
}

Result<ChangePreview::Planner> BulkChangeFormView::planner() const
{
    bulk_change::BulkChange change;
    if (const auto where = m_where->assignment())
        change.where.append(*where);
    for (const FieldValueView *row : m_set) {
        const FieldAssignment assignment = *row->assignment();
        if (!field_assignments::isPossible(assignment))
            return Error{
                Error::Kind::Refused,
                {},
                tr("“%1” cannot become “%2”.").arg(accessibleNameOf(assignment.field), assignment.value)};
        change.set.append(assignment);
    }
    return ChangePreview::Planner(
        [change](const QStringList &titles) { return bulk_change::plan(change, titles); });
}

} // namespace quillon
