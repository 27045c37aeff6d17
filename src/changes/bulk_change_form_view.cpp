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
constexpr qsizetype mostWhereRows = 3;
constexpr qsizetype mostSetRows = 6;

/// The field after that of the last row is proposed.
FieldId proposedAfter(const QList<FieldValueView *> &rows)
{
    const auto last = rows.isEmpty() ? std::nullopt : rows.last()->assignment();
    return last ? FieldId((int(last->field) + 1) % fieldCount) : FieldId::companyName;
}

} // namespace

BulkChangeFormView::BulkChangeFormView(const FormValues &values, QWidget *parent)
    : PlanForm(parent)
    , m_values(values)
    , m_rows(new QFormLayout)
    , m_moreWhere(
          newButton(u"anotherCondition"_s, tr("Another Con&dition"), &BulkChangeFormView::addWhereRow))
    , m_moreSet(newButton(u"anotherField"_s, tr("Another &Field"), &BulkChangeFormView::addSetRow))
{
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_moreWhere);
    buttons->addWidget(m_moreSet);
    buttons->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(m_rows);
    layout->addLayout(buttons);
    addWhereRow();
    addSetRow();
}

QPushButton *BulkChangeFormView::newButton(const QString &name, const QString &text,
                                           void (BulkChangeFormView::*add)())
{
    auto *button = new QPushButton(text);
    button->setObjectName(name);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, add);
    return button;
}

FieldValueView *BulkChangeFormView::newRow(const QString &name, const QString &purpose, FieldId field)
{
    auto *row = new FieldValueView(name, purpose, field, m_values);
    connect(row, &FieldValueView::changed, this, &PlanForm::changed);
    return row;
}

void BulkChangeFormView::addWhereRow()
{
    const qsizetype count = m_where.size();
    const QString number = count == 0 ? QString() : QString::number(count);
    auto *row = newRow(u"where"_s + number,
                       count == 0 ? tr("that titles have") : tr("that titles have (%L1)").arg(count + 1),
                       proposedAfter(m_where));
    if (count == 0)
        row->allowNoField(tr("(any text in any field)"));
    m_where.append(row);
    addRow(int(count), count == 0 ? tr("In titles that have") : tr("and"), row);
}

void BulkChangeFormView::addSetRow()
{
    const qsizetype count = m_set.size();
    auto *row = newRow(u"set%1"_s.arg(count), tr("that is set (%L1)").arg(count + 1), proposedAfter(m_set));
    m_set.append(row);
    addRow(m_rows->rowCount(), count == 0 ? tr("set") : tr("and"), row);
}

void BulkChangeFormView::addRow(int place, const QString &caption, FieldValueView *row)
{
    m_rows->insertRow(place, caption, row);
    m_moreWhere->setEnabled(m_where.size() < mostWhereRows);
    m_moreSet->setEnabled(m_set.size() < mostSetRows);
    orderForTab();
    row->show(); // What is hidden does not take the focus.
    row->focusValue();
    Q_EMIT changed();
}

/// The keys go from row to row as they stand, not as they came.
void BulkChangeFormView::orderForTab()
{
    QList<QWidget *> stops;
    for (const FieldValueView *row : m_where + m_set)
        stops += row->stops();
    stops << m_moreWhere << m_moreSet;
    for (qsizetype at = 1; at < stops.size(); ++at)
        setTabOrder(stops[at - 1], stops[at]);
}

Result<ChangePreview::Planner> BulkChangeFormView::planner() const
{
    bulk_change::BulkChange change;
    for (const FieldValueView *row : m_where) {
        if (const auto where = row->assignment())
            change.where.append(*where);
    }
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
