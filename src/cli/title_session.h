#pragma once

#include "changes/edit_history.h"
#include "cli/command.h"
#include "editor/editor_session.h"
#include "platform/alert_sheets.h"
#include "platform/delayed_calls.h"

namespace quillon::cli {

/// Alerts of a command without a window: told on standard error, and kept for the JSON.
class ToldAlerts final : public AlertSheets
{
public:
    void show(SheetWindow window, const Alert &alert, Answered answered) override;
    /// A command asks for nothing: its files stand on the command line.
    void chooseFiles(SheetWindow, const FileRequest &, FilesChosen) override {}
    void chooseSaveFile(SheetWindow, const FileRequest &, FileChosen) override {}

    QStringList messages;
};

/// Builds the process's catalogue of sites, as the site list editor does in the window.
void buildCatalogue();

/// A title selected as the window's list selects it: marks of sites that are gone are pruned, the PAD file is
/// loaded and checked, and what the check changes is stored.
class TitleSession
{
public:
    TitleSession() : m_session(m_alerts), m_history(editor(), m_delayedCalls) {}

    /// Done; or the complaint that there is no title @p name, or that it cannot be read.
    ExitStatus open(const QString &name);

    [[nodiscard]] Editor &editor() { return m_session.editor(); }
    [[nodiscard]] const QStringList &alerts() const { return m_alerts.messages; }

    [[nodiscard]] EditHistory &history() { return m_history; }

    /// Done, or the complaint that something could not be stored.
    static ExitStatus stored();

private:
    /// A command ends before any time has gone by.
    struct NoDelayedCalls final : DelayedCalls
    {
        void after(std::chrono::milliseconds, QObject *, std::function<void()>) override {}
    };

    ToldAlerts m_alerts;
    EditorSession m_session;
    NoDelayedCalls m_delayedCalls;
    EditHistory m_history;
};

/// Shows @p fields of the open title, its alerts among them: as JSON or as lines.
void showFields(TitleSession &session, const QString &title, const QList<FieldId> &fields, bool asJson);

/// All fields, in the catalogue's order.
QList<FieldId> allFields();

} // namespace quillon::cli
