#include "changes/restoring.h"

#include "journal/history.h"
#include "journal/journal.h"
#include "journal/originals.h"
#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "platform/translated_text.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::restoring {

namespace {

class RestoringText
{
    Q_DECLARE_TR_FUNCTIONS(Restoring)
};

Result<QList<history::Row>> rowsOf(const QString &title)
{
    return Journal::ofDataFolder().find([&](Database &database) { return history::rows(database, title); });
}

/// What an import of the title's original makes of it.
std::optional<FormValues> valuesOfOriginal(const QString &title)
{
    const auto original = originals::of(title);
    PadForm form;
    if (!original || !loadPADData(original->bytes, form))
        return std::nullopt;
    ErrorPass errors;
    field_rules::checkEntries(form, errors); // As the first opening does; it puts texts in order.
    return change_sets::valuesOf(form);
}

/// The value of each field when the row @p number had come in; @p rows are newest first.
FormValues valuesAt(const QList<history::Row> &rows, qint64 number, FormValues values)
{
    std::array<bool, fieldCount> isKnown{};
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
        const auto field = fieldNamed(row->field);
        if (!field)
            continue;
        const auto place = size_t(*field);
        if (row->number <= number)
            values[place] = row->after;
        else if (!isKnown[place])
            values[place] = row->before;
        isKnown[place] = true;
    }
    return values;
}

} // namespace

Result<ChangeSet> plan(const QString &title, const PadForm &form, qint64 row,
                       const std::optional<FieldId> &field)
{
    const auto rows = rowsOf(title);
    if (!rows)
        return rows.error();
    const bool isThere = std::any_of(rows->begin(), rows->end(),
                                     [row](const history::Row &each) { return each.number == row; });
    if (!isThere && row != 0)
        return Error{Error::Kind::Refused, title, RestoringText::tr("its history has no row %1").arg(row)};
    const FormValues now = change_sets::valuesOf(form);
    const auto original = row == 0 ? valuesOfOriginal(title) : std::nullopt; // The rows may be thinned out.
    ChangeSet set{history::origin::restore, fixedEnglish(u"Back to row %1").arg(row),
                  change_sets::between(now, original ? *original : valuesAt(*rows, row, now))};
    if (field)
        set.changes.removeIf([&field](const Change &change) { return change.field != *field; });
    return set;
}

} // namespace quillon::restoring
