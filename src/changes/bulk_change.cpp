#include "changes/bulk_change.h"

#include "journal/history.h"
#include "platform/translated_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::bulk_change {

namespace {

/// What the author is told of a set.
QString label(const BulkChange &change)
{
    QStringList names;
    for (const FieldAssignment &each : change.set)
        names.append(padField(each.field).element.toString());
    return fixedEnglish(u"Change of %1").arg(names.join(u", "_s));
}

TitlePlan planOne(const BulkChange &change, const TitleState &state)
{
    const FormValues &before = state.judged.values;
    const bool isFor =
        std::all_of(change.where.begin(), change.where.end(),
                    [&](const FieldAssignment &each) { return before[size_t(each.field)] == each.value; });
    FormValues after = before;
    for (const FieldAssignment &each : isFor ? change.set : QList<FieldAssignment>())
        after = change_sets::changed(after, field_assignments::typedInto(after, each));
    return change_plans::planned(state, change_sets::between(before, after));
}

} // namespace

ChangePlan plan(const BulkChange &change, const QStringList &titles)
{
    ChangePlan plan{.origin = history::origin::bulk, .label = label(change), .titles = {}};
    change_plans::planEach(plan, titles,
                           [&change](const TitleState &state) { return planOne(change, state); });
    return plan;
}

} // namespace quillon::bulk_change
