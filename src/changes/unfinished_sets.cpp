#include "changes/unfinished_sets.h"

#include "changes/change_set.h"
#include "editor/editor_session.h"
#include "journal/journal.h"
#include "journal/set_log.h"
#include "pad/pad_writer.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/add_delete_import_edit.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::unfinished_sets {

namespace {

class UnfinishedSetsText
{
    Q_DECLARE_TR_FUNCTIONS(UnfinishedSets)
};

/// A title of a set, and what its fields held after the set until they were changed again.
struct SetTitle
{
    QString title;
    QList<Change> wayBack; ///< A title that holds what this begins with was changed.
    QList<Change> later;   ///< The same, for fields that have been changed since.
};

struct UnfinishedSet
{
    qint64 id = 0;
    QString label;
    QList<SetTitle> titles;
};

Result<SetTitle> titleOf(Database &database, const set_log::TitleRows &rows)
{
    SetTitle title{rows.title, {}, {}};
    for (const history::Row &row : rows.rows) {
        const auto field = fieldNamed(row.field);
        const auto later = set_log::heldUntilNext(database, rows.title, row);
        if (!later)
            return later.error();
        if (field)
            title.wayBack.append({*field, row.after, row.before});
        if (field && *later)
            title.later.append({*field, row.after, **later});
    }
    return title;
}

Result<QList<UnfinishedSet>> found(Database &database)
{
    const auto ids = set_log::unfinished(database);
    if (!ids)
        return ids.error();
    QList<UnfinishedSet> sets;
    for (const qint64 id : *ids) {
        const auto titles = set_log::rowsOf(database, id);
        const auto label = set_log::labelOf(database, id);
        if (!titles || !label)
            return titles ? label.error() : titles.error();
        sets.append({id, *label, {}});
        for (const set_log::TitleRows &rows : *titles) {
            const auto title = titleOf(database, rows);
            if (!title)
                return title.error();
            if (!rows.title.isNull())
                sets.last().titles.append(*title);
        }
    }
    return sets;
}

/// Where a set was made, and where it was not.
struct Outcome
{
    QStringList made;
    QStringList notMade;
    QStringList unknown; ///< Titles that cannot be read.
};

/// Whether the selected title's PAD file is as the form that was loaded from it is stored. A title that was
/// never checked has the file as it came, which is not to be replaced for a change that was not made.
bool isAsStored(const PadForm &form)
{
    return AddDeleteImportEdit::returnDataObjectFor(u"data") == pad_writer::document(form);
}

Outcome lookedAt(const UnfinishedSet &set)
{
    EditorSession session;
    Outcome outcome;
    for (const SetTitle &title : set.titles) {
        const Result<> opened = session.open(title.title);
        const FormValues values =
            change_sets::changed(change_sets::valuesOf(session.editor().form()), title.later);
        const bool isMade = opened && change_sets::differing(values, title.wayBack).isEmpty();
        if (opened && isAsStored(session.editor().form()))
            session.editor().checkEntriesForErrors(); // The crash may have come between two of its files.
        (opened.isError(Error::Kind::Unreadable) ? outcome.unknown
         : isMade                                ? outcome.made
                                                 : outcome.notMade)
            .append(title.title);
    }
    return outcome;
}

/// The first of @p titles, and how many others there are.
QString listed(const QStringList &titles)
{
    static constexpr qsizetype most = 5;
    const QString first = titles.mid(0, most).join(u", "_s);
    return titles.size() <= most
               ? first
               : UnfinishedSetsText::tr("%1 and %n more", nullptr, int(titles.size() - most)).arg(first);
}

/// What to tell of a set that is not made everywhere.
Error told(const UnfinishedSet &set, const Outcome &outcome)
{
    QStringList parts;
    if (!outcome.made.isEmpty())
        parts.append(UnfinishedSetsText::tr("done in %1").arg(listed(outcome.made)));
    if (!outcome.notMade.isEmpty())
        parts.append(UnfinishedSetsText::tr("not done in %1").arg(listed(outcome.notMade)));
    if (!outcome.unknown.isEmpty())
        parts.append(
            UnfinishedSetsText::tr("unknown of %1, which cannot be read").arg(listed(outcome.unknown)));
    return {Error::Kind::NotDone, set.label,
            UnfinishedSetsText::tr("it was not finished: %1").arg(parts.join(u"; "_s))};
}

} // namespace

QList<Error> settle()
{
    const auto sets = Journal::ofDataFolder().find(found).valueOr({}); // The status bar tells of an error.
    QList<Error> errors;
    for (const UnfinishedSet &set : sets) {
        const Outcome outcome = lookedAt(set);
        if (!outcome.notMade.isEmpty() || !outcome.unknown.isEmpty())
            errors.append(told(set, outcome));
        if (outcome.unknown.isEmpty())
            (void)Journal::ofDataFolder().changeExisting([&](Database &database) {
                Result<> forgotten = set_log::forget(database, set.id, outcome.notMade);
                return forgotten ? set_log::finish(database, set.id) : forgotten;
            });
    }
    if (!sets.isEmpty()) // A list that was read before shows what the files held then.
        NotificationCenter::defaultCenter().post(notification::mwqnOvLSlst);
    return errors;
}

} // namespace quillon::unfinished_sets
