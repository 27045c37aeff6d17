#include "changes/change_set.h"

#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "pad/pad_writer.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::change_sets {

namespace {

class ChangeSetText
{
    Q_DECLARE_TR_FUNCTIONS(ChangeSet)
};

StringDictionary missingIn(const StringDictionary &errors, const StringDictionary &others)
{
    StringDictionary missing;
    for (const auto &[field, message] : errors) {
        const auto other = others.find(field);
        if (other == others.end() || other->second != message)
            missing[field] = message;
    }
    return missing;
}

/// What the field holds when a title with @p text in it is opened again.
QString asRead(FieldId field, const QString &text)
{
    PadForm written;
    written.setValue(field, text);
    PadForm read;
    loadPADData(pad_writer::document(written), read);
    return read.value(field);
}

} // namespace

FormValues valuesOf(const PadForm &form)
{
    FormValues values;
    for (const PadField &field : padFields)
        values[size_t(field.id)] = form.value(field.id);
    return values;
}

JudgedValues judged(const FormValues &values)
{
    // Making a form, and setting all of its fields, takes longer than all the rest.
    static PadForm form;
    static FormValues held = valuesOf(form);
    for (const Change &change : between(held, values))
        form.setValue(change.field, change.after);
    ErrorPass errors;
    field_rules::checkEntries(form, errors);
    held = valuesOf(form);
    return {held, errors.errors()};
}

FormValues changed(FormValues values, const QList<Change> &changes)
{
    for (const Change &change : changes)
        values[size_t(change.field)] = change.after;
    return values;
}

QList<Change> between(const FormValues &from, const FormValues &to)
{
    QList<Change> changes;
    for (const PadField &field : padFields) {
        const auto place = size_t(field.id);
        if (from[place] != to[place])
            changes.append({field.id, from[place], to[place]});
    }
    return changes;
}

QList<std::pair<FieldId, QString>> newValues(const QList<Change> &changes)
{
    QList<std::pair<FieldId, QString>> values;
    for (const Change &change : changes)
        values.append({change.field, change.after});
    return values;
}

QList<Change> reversed(const QList<Change> &changes)
{
    QList<Change> reversed;
    for (const Change &change : changes)
        reversed.prepend({change.field, change.after, change.before});
    return reversed;
}

Judgement judge(const PadForm &form, const QList<Change> &changes)
{
    const FormValues values = valuesOf(form);
    return compared(judged(values).errors, judged(changed(values, changes)).errors);
}

Judgement compared(const StringDictionary &before, const StringDictionary &after)
{
    return {missingIn(before, after), missingIn(after, before)};
}

QList<FieldId> differing(const FormValues &values, const QList<Change> &changes)
{
    QList<FieldId> fields;
    for (const Change &change : changes) {
        const QString &value = values[size_t(change.field)];
        if (padField(change.field).kind != FieldKind::Computed && value != change.before &&
            value != asRead(change.field, change.before))
            fields.append(change.field);
    }
    return fields;
}

QString differingText(const QList<FieldId> &fields)
{
    QStringList names;
    for (const FieldId field : fields)
        names.append(padField(field).element.toString());
    return ChangeSetText::tr("it holds another text by now: %1").arg(names.join(u", "_s));
}

} // namespace quillon::change_sets
