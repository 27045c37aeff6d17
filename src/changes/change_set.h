#pragma once

#include "pad/field_catalogue.h"
#include "platform/string_dictionary.h"

#include <QList>
#include <QString>

#include <array>
#include <optional>

namespace quillon {

class PadForm;

/// A field's value that is to become another; both as PadForm::value() gives them.
struct Change
{
    FieldId field;
    QString before;
    QString after;
    QString origin = {}; ///< Where it is not that of all the others.
};

/// What is to be changed in one go, in one title: undo, restoring, and all else that no author types.
struct ChangeSet
{
    QString origin; ///< One of history::origin, or a fix.
    QString label;  ///< What the author is told of it.
    QList<Change> changes;
    std::optional<qint64> of = {}; ///< The set of the journal that this one takes back, or does again.
};

/// What a set of changes does to the errors, by the key of the field.
struct Judgement
{
    StringDictionary vanishing;
    StringDictionary appearing; ///< Also another message for a field that had one.
};

/// The values of a form, by the place of the field in the catalogue.
using FormValues = std::array<QString, fieldCount>;

/// Values as the full check leaves them, and the errors that it finds.
struct JudgedValues
{
    FormValues values;
    StringDictionary errors;
};

namespace change_sets {

FormValues valuesOf(const PadForm &form);

/// What the full check makes of @p values.
JudgedValues judged(const FormValues &values);

/// @p values with @p changes made, which are not compared with them.
FormValues changed(FormValues values, const QList<Change> &changes);

/// What makes @p to of @p from.
QList<Change> between(const FormValues &from, const FormValues &to);

/// What @p changes make of their fields.
QList<std::pair<FieldId, QString>> newValues(const QList<Change> &changes);

/// @p changes the other way round.
QList<Change> reversed(const QList<Change> &changes);

/// What @p changes do to the errors, judged on a copy of @p form, which stays as it is.
Judgement judge(const PadForm &form, const QList<Change> &changes);

/// What becomes of errors.
Judgement compared(const StringDictionary &before, const StringDictionary &after);

/// The fields of @p changes that do not hold in @p values what they are to be changed from. What a PAD file
/// cannot hold unit for unit may have become what reading the file gives. Computed fields are nobody's and
/// left out.
QList<FieldId> differing(const FormValues &values, const QList<Change> &changes);

/// What the author is told of fields that hold another text than they should: a clause.
QString differingText(const QList<FieldId> &fields);

} // namespace change_sets

} // namespace quillon
