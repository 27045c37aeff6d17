#include "changes/change_plan.h"

#include "changes/edit_history.h"
#include "editor/editor_session.h"
#include "journal/journal.h"
#include "journal/set_log.h"
#include "pad/pad_reader.h"
#include "platform/atomic_file.h"
#include "store/process_state.h"
#include "store/title_folder.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

#include <QCoreApplication>
#include <QDateTime>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::change_plans {

namespace {

class ChangePlanText
{
    Q_DECLARE_TR_FUNCTIONS(ChangePlan)
};

/// Puts the texts in order as the full check does, and stores nothing.
StringDictionary check(PadForm &form)
{
    ErrorPass errors;
    field_rules::checkEntries(form, errors);
    return errors.errors();
}

/// The rows of the journal for @p plan's changes of @p before, with what the check will change besides.
set_log::TitleRows rowsOf(const TitlePlan &plan, const FormValues &before)
{
    set_log::TitleRows rows{plan.title, {}};
    const FormValues after = change_sets::judged(change_sets::changed(before, plan.changes)).values;
    for (const Change &change : change_sets::between(before, after)) {
        const auto planned = std::find_if(plan.changes.begin(), plan.changes.end(),
                                          [&](const Change &each) { return each.field == change.field; });
        rows.rows.append({.field = padField(change.field).control.toString(),
                          .before = change.before,
                          .after = change.after,
                          .origin = planned == plan.changes.end() ? QString() : planned->origin});
    }
    return rows;
}

/// A plan on its way: looked through, written down, made and finished, in this order.
class Run
{
public:
    Run(const ChangePlan &plan, EditHistory *open)
        : m_plan(plan), m_open(open), m_openTitle(open ? mwqnSelSW : std::nullopt)
    {
    }

    /// Whether everything can be made as it is planned.
    Result<> lookThrough()
    {
        QStringList reasons;
        for (const TitlePlan &title : m_plan.titles) {
            if (const Result<> looked = look(title); !looked)
                reasons.append(u"%1: %2"_s.arg(title.title, looked.error().reason));
        }
        return reasons.isEmpty() ? Result<>() : Error{Error::Kind::Refused, {}, reasons.join(u"; "_s)};
    }

    Result<> begin()
    {
        const set_log::SetHead head{.time = QDateTime::currentMSecsSinceEpoch(),
                                    .label = m_plan.label,
                                    .origin = m_plan.origin,
                                    .of = m_plan.of};
        return Journal::ofDataFolder().change([&](Database &database) -> Result<> {
            const auto set = set_log::begin(database, head, m_rows);
            m_applied.set = set.valueOr(0);
            return set ? Result<>() : set.error();
        });
    }

    void make()
    {
        for (const TitlePlan &title : m_plan.titles)
            m_applied.titles.append(made(title));
        m_session.close();
    }

    /// A set that is not finished here, because not all files of a title could be stored or the journal
    /// cannot be written, is seen to at the next start.
    Applied finish()
    {
        QStringList unchanged;
        bool isWhole = true;
        for (const TitleOutcome &title : m_applied.titles) {
            if (!title.isChanged)
                unchanged.append(title.title);
            else if (!title.stored)
                isWhole = false;
        }
        (void)Journal::ofDataFolder().change([&](Database &database) {
            Result<> done = set_log::forget(database, m_applied.set, unchanged);
            return done && isWhole ? set_log::finish(database, m_applied.set) : done;
        });
        return m_applied;
    }

private:
    [[nodiscard]] bool isOpen(const TitlePlan &title) const { return m_openTitle == title.title; }

    Result<> look(const TitlePlan &title)
    {
        if (isOpen(title)) {
            m_open->store();
            Result<> may = m_open->mayApply(title.changes);
            m_rows.append(rowsOf(title, change_sets::valuesOf(m_open->form())));
            return may;
        }
        const auto state = stateOf(title.title);
        if (!state)
            return state.error();
        const FormValues &values = state->judged.values;
        m_rows.append(rowsOf(title, values));
        const auto differing = change_sets::differing(values, title.changes);
        return differing.isEmpty() ? Result<>()
                                   : Error{Error::Kind::Refused, {}, change_sets::differingText(differing)};
    }

    TitleOutcome made(const TitlePlan &title)
    {
        if (isOpen(title)) {
            m_session.close();
            m_open->applyWritten(title.changes);
        } else if (const Result<> opened = m_session.open(title.title); opened) {
            m_session.editor().setValues(change_sets::newValues(title.changes));
        } else {
            return {title.title, opened, false};
        }
        return outcomeOfSelected();
    }

    static TitleOutcome outcomeOfSelected()
    {
        const QString folder = *mwqnCurrentSWBundle + u'/';
        TitleOutcome outcome{*mwqnSelSW, {}};
        for (auto failure = mwqnFailedWrites.cbegin(); failure != mwqnFailedWrites.cend(); ++failure) {
            if (!failure.key().startsWith(folder))
                continue;
            outcome.stored = *failure;
            if (failure.key() == folder + title_folder::padFile && failure->kind != Error::Kind::NotYetSafe)
                outcome.isChanged = false;
        }
        return outcome;
    }

    const ChangePlan &m_plan;
    EditHistory *m_open;
    const std::optional<QString> m_openTitle;
    EditorSession m_session;
    QList<set_log::TitleRows> m_rows;
    Applied m_applied;
};

} // namespace

Result<TitleState> stateOf(const QString &title)
{
    static PadForm form; // Making one takes longer than loading it.
    const auto folder = title_folder::path(title);
    if (!folder || !title_folder::exists(title))
        return Error{Error::Kind::Missing, title, ChangePlanText::tr("there is no such title")};
    const auto stored = atomic_file::read(*folder + u'/' + title_folder::padFile);
    if (!stored)
        return stored.error();
    form.clear(); // What the file lacks would stay as the last title had it.
    if (!loadPADData(*stored, form))
        return Error{Error::Kind::Unintelligible, *folder, ChangePlanText::tr("its PAD file is none")};
    StringDictionary errors = check(form);
    return TitleState{title, {change_sets::valuesOf(form), std::move(errors)}};
}

TitlePlan planned(const TitleState &state, const QList<Change> &changes, const QStringList &notes)
{
    TitlePlan plan{state.title, changes, {}, notes, state.judged.values};
    plan.changes.removeIf([](const Change &change) { return change.before == change.after; });
    if (!plan.changes.isEmpty())
        plan.judgement = change_sets::compared(
            state.judged.errors, change_sets::judged(change_sets::changed(plan.values, plan.changes)).errors);
    return plan;
}

void planEach(ChangePlan &plan, const QStringList &titles,
              const std::function<TitlePlan(const TitleState &state)> &planOne)
{
    for (const QString &title : titles) {
        const auto state = stateOf(title);
        if (!state) {
            plan.failures.append({state.error().kind, title, state.error().reason});
            continue;
        }
        TitlePlan one = planOne(*state);
        if (!one.changes.isEmpty() || !one.notes.isEmpty())
            plan.titles.append(std::move(one));
    }
}

QStringList obstacles(const ChangePlan &plan)
{
    QStringList sentences;
    for (const TitlePlan &title : plan.titles) {
        const auto differing = change_sets::differing(title.values, title.changes);
        if (!differing.isEmpty())
            sentences.append(u"%1: %2"_s.arg(title.title, change_sets::differingText(differing)));
    }
    return sentences;
}

ChangePlan ticked(const ChangePlan &plan,
                  const std::function<bool(const TitlePlan &title, const Change &change)> &isTicked)
{
    ChangePlan rest = plan;
    rest.titles.clear();
    for (const TitlePlan &title : plan.titles) {
        QList<Change> changes;
        std::copy_if(title.changes.begin(), title.changes.end(), std::back_inserter(changes),
                     [&](const Change &change) { return isTicked(title, change); });
        if (!changes.isEmpty())
            rest.titles.append(
                planned({title.title, change_sets::judged(title.values)}, changes, title.notes));
    }
    return rest;
}

Result<Applied> apply(const ChangePlan &plan, EditHistory *open)
{
    ChangePlan changing = plan;
    changing.titles.removeIf([](const TitlePlan &title) { return title.changes.isEmpty(); });
    if (changing.titles.isEmpty())
        return Applied();
    Run run(changing, open);
    if (const Result<> looked = run.lookThrough(); !looked)
        return looked.error();
    if (const Result<> begun = run.begin(); !begun)
        return begun.error();
    run.make();
    return run.finish();
}

} // namespace quillon::change_plans
