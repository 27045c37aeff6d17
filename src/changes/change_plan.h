#pragma once

#include "changes/change_set.h"
#include "platform/result.h"

#include <QStringList>

#include <functional>

namespace quillon {

class EditHistory;

/// A title as it is on the disk, judged in memory.
struct TitleState
{
    QString title;
    JudgedValues judged;
};

/// What is to become of one title.
struct TitlePlan
{
    QString title;
    QList<Change> changes;  ///< Never two of one field, none that changes nothing.
    Judgement judgement;    ///< What all of them do to the errors.
    QStringList notes = {}; ///< What the author should know before, one sentence each.
    FormValues values = {}; ///< What the title's fields held when it was planned.
};

/**
 * What is to be changed in one go in one title or in many: a release, fixes, a bulk change, taking one of
 * them back. To be shown, perhaps with titles or changes taken out (ticked()), and applied.
 */
struct ChangePlan
{
    QString origin; ///< One of history::origin, or "fix".
    QString label;  ///< What the author is told of it, also in the list of changes.
    QList<TitlePlan> titles;
    QList<Error> failures = {};    ///< Titles that could not be read, and are not planned.
    std::optional<qint64> of = {}; ///< The set of the journal that it takes back, or does again.
};

namespace change_plans {

/// What the title's stored PAD file holds and what the full check says of it; nothing is stored.
Result<TitleState> stateOf(const QString &title);

/// @p changes of @p state without those that change nothing, judged.
TitlePlan planned(const TitleState &state, const QList<Change> &changes, const QStringList &notes = {});

/// Adds to @p plan what @p planOne makes of each of @p titles, as far as it changes or notes something;
/// titles that cannot be read are its failures.
void planEach(ChangePlan &plan, const QStringList &titles,
              const std::function<TitlePlan(const TitleState &state)> &planOne);

/// Why apply() would refuse @p plan as things were when it was planned: a clause for each title in which
/// fields do not hold what they are to be changed from. None but where a set is taken back.
QStringList obstacles(const ChangePlan &plan);

/// @p plan with those changes only that @p isTicked accepts, judged anew; titles without any are left out.
ChangePlan ticked(const ChangePlan &plan,
                  const std::function<bool(const TitlePlan &title, const Change &change)> &isTicked);

/// What became of one title of a plan.
struct TitleOutcome
{
    QString title;
    Result<> stored;       ///< What could not be stored of it.
    bool isChanged = true; ///< Whether its PAD file holds the changes; else the title is as it was.
};

/// What became of a plan.
struct Applied
{
    qint64 set = 0; ///< Its number in the journal; 0 where nothing was to be done.
    QList<TitleOutcome> titles;
};

/**
 * Makes all changes of @p plan: those of a title in one full check, which stores it as editing does, and all
 * as one set of the journal, so that they are taken back together.
 *
 * Nothing at all is done, in no title, and Refused tells where, when any field no longer holds what it is to
 * be changed from; nothing either when a title cannot be read, or the journal cannot be written. A title that
 * could not be stored keeps none of the others from it.
 *
 * The title that is open in a window is changed there, through @p open; where none is, the selection is as it
 * was afterwards.
 */
Result<Applied> apply(const ChangePlan &plan, EditHistory *open = nullptr);

} // namespace change_plans

} // namespace quillon
