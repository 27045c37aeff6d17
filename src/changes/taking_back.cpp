#include "changes/taking_back.h"

#include "changes/undo_stacks.h"
#include "journal/journal.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::taking_back {

namespace {

class TakingBackText
{
    Q_DECLARE_TR_FUNCTIONS(TakingBack)
};

/// A title of a set as the journal knows it.
struct SetTitle
{
    set_log::TitleRows rows;
    UndoStacks stacks;
};

Result<QList<SetTitle>> titlesOf(Database &database, qint64 set)
{
    const auto rows = set_log::rowsOf(database, set);
    if (!rows)
        return rows.error();
    QList<SetTitle> titles;
    for (const set_log::TitleRows &each : *rows) {
        if (each.title.isNull())
            continue;
        const auto steps = history::steps(database, each.title);
        if (!steps)
            return steps.error();
        titles.append({each, UndoStacks::of(*steps)});
    }
    return titles;
}

bool isUndo(const set_log::SetHead &set)
{
    return set.origin == history::origin::undo;
}

bool canBeLatest(const set_log::SetHead &set)
{
    return !isUndo(set) && set.origin != history::origin::redo && set.takenBack < set.titles;
}

QList<Change> wayBack(const QList<history::Row> &rows)
{
    QList<Change> changes;
    for (const history::Row &row : rows) {
        if (const auto field = fieldNamed(row.field))
            changes.prepend({*field, row.after, row.before});
    }
    return changes;
}

/// What takes @p set back: its rows the other way round, in the titles where it is still made.
Result<ChangePlan> reverse(const set_log::SetHead &set)
{
    // An undo, and a redo, is of the set that was there first.
    const qint64 made = set.of.value_or(set.id);
    const bool isAgain = isUndo(set);
    const auto titles =
        Journal::ofDataFolder().find([&](Database &database) { return titlesOf(database, set.id); });
    if (!titles)
        return titles.error();
    ChangePlan plan{.origin = isAgain ? history::origin::redo : history::origin::undo,
                    .label = set.label,
                    .titles = {},
                    .of = made};
    QStringList names;
    for (const SetTitle &title : *titles) {
        if (title.stacks.holdsDone(made) != isAgain)
            names.append(title.rows.title);
    }
    change_plans::planEach(plan, names, [&](const TitleState &state) {
        const auto title = std::find_if(titles->begin(), titles->end(),
                                        [&](const SetTitle &each) { return each.rows.title == state.title; });
        return change_plans::planned(state, wayBack(title->rows.rows));
    });
    return plan;
}

} // namespace

Result<QList<set_log::SetHead>> sets()
{
    return Journal::ofDataFolder().find(set_log::all);
}

Result<ChangePlan> plan(const std::optional<qint64> &id)
{
    const auto all = sets();
    if (!all)
        return all.error();
    const auto set = std::find_if(all->begin(), all->end(), [&id](const set_log::SetHead &each) {
        return id ? each.id == *id : canBeLatest(each);
    });
    if (set == all->end())
        return Error{Error::Kind::Refused,
                     {},
                     id ? TakingBackText::tr("There is no set of changes %1.").arg(*id)
                        : TakingBackText::tr("There is no set of changes to take back.")};
    return reverse(*set);
}

} // namespace quillon::taking_back
