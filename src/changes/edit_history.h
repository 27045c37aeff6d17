#pragma once

#include "changes/change_set.h"
#include "changes/undo_stacks.h"
#include "journal/history.h"
#include "platform/result.h"

#include <QObject>

namespace quillon {

class DelayedCalls;
class Editor;

/**
 * Writes down what becomes of the fields in the editor, and takes it back.
 *
 * Everything between entering a field and leaving it, or a pause of two seconds, is one step: a row for each
 * field whose value is another one then. Rows are kept in memory until the step is over, so that a keystroke
 * costs no more than remembering it, and written to the journal together. What cannot be written there is
 * tried again with the next step.
 *
 * Undo and redo walk through the title's steps in the journal, also those of earlier runs. They are steps
 * themselves, so that nothing is ever forgotten.
 */
class EditHistory : public QObject
{
    Q_OBJECT
public:
    /// Both must outlive it.
    EditHistory(Editor &editor, DelayedCalls &delayedCalls, QObject *parent = nullptr);
    ~EditHistory() override;

    /// What the editor holds.
    [[nodiscard]] const PadForm &form() const;

    /// Ends the step that is under way, and stores all that waits.
    void store();

    /// Whether the field that the author works in is @p field, and a step is under way there.
    [[nodiscard]] bool isUnderWayIn(FieldId field) const { return m_field == field; }

    /// Whether the selected title has a step that can be taken back, or done again. The first call reads the
    /// journal.
    [[nodiscard]] bool canUndo();
    [[nodiscard]] bool canRedo();

    /// Takes the last step back, or does again what was taken back last. Gives the fields that have changed;
    /// none where there was nothing to do. Refused, and nothing is done, when a field no longer holds what
    /// the step has made of it.
    Result<QList<FieldId>> undo();
    Result<QList<FieldId>> redo();

    /// Makes the changes of @p set in the open title, as one step with a full check; under the same rule.
    Result<QList<FieldId>> apply(const ChangeSet &set);

    /// Whether apply() would make @p changes, or why not.
    [[nodiscard]] Result<> mayApply(const QList<Change> &changes) const;

    /// Makes the changes of a step that the journal has already, after store() and mayApply().
    void applyWritten(const QList<Change> &changes);

Q_SIGNALS:
    /// Perhaps something else can be taken back or done again now.
    void changed();

private:
    void begin();
    void note(FieldId field);
    void endStep(const ChangeSet &set);
    void endTyping();
    void write();
    const UndoStacks &stacks();
    Result<QList<FieldId>> walk(QList<history::StepHead> UndoStacks::*from, const QString &origin);

    Editor &m_editor;
    DelayedCalls &m_delayedCalls;
    FormValues m_before;                ///< The form's values when the last step had ended.
    std::optional<FieldId> m_field;     ///< Where a step is under way.
    QString m_title;                    ///< Whose it is, and m_steps.
    QList<history::Step> m_steps;       ///< Ended and not yet written.
    std::optional<UndoStacks> m_stacks; ///< As of the last reading.
    int m_edits = 0;
};

} // namespace quillon
