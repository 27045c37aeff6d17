#include "changes/field_assignment.h"

#include "pad/pad_form.h"
#include "pad/vocabularies.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::field_assignments {

namespace {

class FieldAssignmentText
{
    Q_DECLARE_TR_FUNCTIONS(FieldAssignment)
};

QStringList listEntries(const QString &value)
{
    return value.isEmpty() ? QStringList() : value.split(u',');
}

Error refused(const QString &sentence)
{
    return {Error::Kind::Refused, {}, sentence};
}

} // namespace

Result<FieldAssignment> parsed(const QString &text)
{
    const qsizetype sign = text.indexOf(u'=');
    const auto field = sign < 0 ? std::nullopt : fieldNamed(QStringView(text).first(sign));
    if (!field)
        return refused(FieldAssignmentText::tr("%1 is no FIELD=VALUE of a field that exists.").arg(text));
    const FieldAssignment assignment{*field, text.sliced(sign + 1)};
    if (!isPossible(assignment))
        return refused(FieldAssignmentText::tr("%1 cannot be set to %2.")
                           .arg(padField(*field).control, assignment.value));
    return assignment;
}

bool isPossible(const FieldAssignment &assignment)
{
    const QStringList &vocabulary = vocabulary::of(assignment.field);
    switch (padField(assignment.field).kind) {
    case FieldKind::Text:
    case FieldKind::MultiLine:
        return true;
    case FieldKind::PopUp:
        return assignment.value.isEmpty() || vocabulary.contains(assignment.value);
    case FieldKind::CheckBox:
        return assignment.value == u"Y" || assignment.value == u"N";
    case FieldKind::CheckList: {
        const QStringList entries = listEntries(assignment.value);
        return std::all_of(entries.begin(), entries.end(),
                           [&](const QString &entry) { return vocabulary.contains(entry); });
    }
    case FieldKind::Computed:
        break;
    }
    return false;
}

QList<Change> typedInto(const FormValues &values, const FieldAssignment &assignment)
{
    static PadForm form; // Making one takes longer than all the rest.
    for (const PadField &field : padFields)
        form.setValue(field.id, values[size_t(field.id)]);
    form.setValue(assignment.field, assignment.value);
    if (padField(assignment.field).kind == FieldKind::Text) {
        ErrorPass errors;
        const int tag = field_rules::of(assignment.field).tag;
        field_rules::textChanged(tag, form, errors);
        (void)field_rules::editingEnded(tag, form, errors);
    }
    return change_sets::between(values, change_sets::valuesOf(form));
}

} // namespace quillon::field_assignments
