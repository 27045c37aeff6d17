#include "changes/edit_history.h"

#include "editor/editor.h"
#include "journal/journal.h"
#include "platform/delayed_calls.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/process_state.h"

#include <QDateTime>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillon {

namespace {

constexpr auto pauseBetweenSteps = 2s;

/// Steps of a journal that cannot be written are kept in memory up to this number.
constexpr qsizetype mostWaiting = 1000;

QList<Change> changesOf(const QList<history::Row> &newestFirst)
{
    QList<Change> changes;
    for (const history::Row &row : newestFirst) {
        if (const auto field = fieldNamed(row.field))
            changes.prepend({*field, row.before, row.after});
    }
    return changes;
}

} // namespace

EditHistory::EditHistory(Editor &editor, DelayedCalls &delayedCalls, QObject *parent)
    : QObject(parent), m_editor(editor), m_delayedCalls(delayedCalls)
{
    connect(&editor, &Editor::formAboutToLoad, this, &EditHistory::store);
    connect(&editor, &Editor::formLoaded, this, &EditHistory::begin);
    connect(&editor, &Editor::rechecked, this, [this] {
        if (!m_field) // What the check itself has put in order is nobody's editing.
            m_before = change_sets::valuesOf(m_editor.form());
    });
    connect(&editor, &Editor::edited, this, &EditHistory::note);
    connect(&editor, &Editor::stepEnded, this, &EditHistory::endTyping);
    connect(&editor, &Editor::left, this, [this](FieldId field) {
        if (!m_field)
            note(field); // Leaving may put a text in order that nobody was typing in.
        store();
    });
    // The title may be renamed, or deleted, when the list is to be seen.
    NotificationCenter::defaultCenter().addObserver(notification::mwqnOvLSlst, this, [this] { store(); });
    begin();
}

EditHistory::~EditHistory()
{
    store();
}

const PadForm &EditHistory::form() const
{
    return m_editor.form();
}

void EditHistory::begin()
{
    m_before = change_sets::valuesOf(m_editor.form());
    m_stacks.reset();
    Q_EMIT changed();
}

void EditHistory::note(FieldId field)
{
    if (!mwqnSelSW || !m_editor.loaded())
        return;
    if (m_field != field) {
        endTyping();
        if (m_title != *mwqnSelSW)
            write();
        m_title = *mwqnSelSW;
        m_field = field;
        Q_EMIT changed();
    }
    const int edits = ++m_edits;
    m_delayedCalls.after(pauseBetweenSteps, this, [this, edits] {
        if (edits == m_edits)
            store();
    });
}

void EditHistory::endTyping()
{
    if (m_field)
        endStep({.origin = history::origin::typed, .label = {}, .changes = {}});
}

/// Notes what has become of the fields since the last step; of @p set its changes are not looked at.
void EditHistory::endStep(const ChangeSet &set)
{
    m_field.reset();
    const FormValues now = change_sets::valuesOf(m_editor.form());
    const QList<Change> changes = change_sets::between(m_before, now);
    m_before = now;
    if (changes.isEmpty())
        return Q_EMIT changed();
    history::Step step{set.origin, set.label, QDateTime::currentMSecsSinceEpoch(), {}, set.of};
    for (const Change &change : changes)
        step.rows.append({.field = padField(change.field).control.toString(),
                          .before = change.before,
                          .after = change.after});
    m_steps.append(std::move(step));
    if (m_steps.size() > mostWaiting)
        m_steps.removeFirst();
}

void EditHistory::store()
{
    endTyping();
    write();
}

void EditHistory::write()
{
    if (m_steps.isEmpty())
        return;
    const Result<> written = Journal::ofDataFolder().change(
        [this](Database &database) { return history::append(database, m_title, m_steps); });
    if (!written)
        return;
    m_steps.clear();
    m_stacks.reset();
    Q_EMIT changed();
}

const UndoStacks &EditHistory::stacks()
{
    if (m_stacks)
        return *m_stacks;
    static const UndoStacks none;
    if (!mwqnSelSW)
        return none;
    const auto steps =
        Journal::ofDataFolder().find([](Database &database) { return history::steps(database, *mwqnSelSW); });
    if (!steps) // The status bar tells; the next look may succeed.
        return none;
    m_stacks = UndoStacks::of(*steps);
    return *m_stacks;
}

bool EditHistory::canUndo()
{
    return m_field || !stacks().done.isEmpty();
}

bool EditHistory::canRedo()
{
    return m_field || !stacks().undone.isEmpty();
}

Result<QList<FieldId>> EditHistory::undo()
{
    return walk(&UndoStacks::done, history::origin::undo);
}

Result<QList<FieldId>> EditHistory::redo()
{
    return walk(&UndoStacks::undone, history::origin::redo);
}

Result<QList<FieldId>> EditHistory::walk(QList<history::StepHead> UndoStacks::*from, const QString &origin)
{
    store();
    const QList<history::StepHead> &steps = stacks().*from;
    if (steps.isEmpty())
        return QList<FieldId>();
    const history::StepHead step = steps.last();
    QList<Change> changes;
    const Result<> read = Journal::ofDataFolder().read([&](Database &database) -> Result<> {
        const auto rows = history::rows(database, *mwqnSelSW, {}, step.last - step.first + 1, step.last + 1);
        if (!rows)
            return rows.error();
        changes = changesOf(*rows);
        return {};
    });
    if (!read)
        return read.error();
    const bool isUndo = origin == history::origin::undo;
    return apply({origin, {}, isUndo ? change_sets::reversed(changes) : changes, step.set});
}

Result<> EditHistory::mayApply(const QList<Change> &changes) const
{
    if (!mwqnSelSW || !m_editor.loaded())
        return Error{Error::Kind::Refused, {}, tr("no title is open")};
    const auto differing = change_sets::differing(change_sets::valuesOf(m_editor.form()), changes);
    return differing.isEmpty()
               ? Result<>()
               : Error{Error::Kind::Refused, *mwqnSelSW, change_sets::differingText(differing)};
}

Result<QList<FieldId>> EditHistory::apply(const ChangeSet &set)
{
    store();
    if (const Result<> may = mayApply(set.changes); !may)
        return may.error();
    m_title = *mwqnSelSW;
    m_editor.setValues(change_sets::newValues(set.changes));
    endStep(set);
    write();
    QList<FieldId> fields;
    for (const Change &change : set.changes)
        fields.append(change.field);
    return fields;
}

void EditHistory::applyWritten(const QList<Change> &changes)
{
    m_editor.setValues(change_sets::newValues(changes));
    begin();
}

} // namespace quillon
