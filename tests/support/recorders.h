#pragma once

#include "platform/alert_sheets.h"
#include "platform/delayed_calls.h"

#include <QList>
#include <QObject>
#include <QPointer>

namespace quillon {

/// Alert sheets that are written down instead of shown; the test answers for the user.
class RecordingSheets final : public AlertSheets
{
public:
    void show(SheetWindow window, const Alert &alert, Answered answered) override
    {
        windows.append(window);
        alerts.append(alert);
        m_answered = std::move(answered);
    }
    void chooseFiles(SheetWindow, const FileRequest &request, FilesChosen chosen) override
    {
        requests.append(request);
        if (!filesToChoose.isEmpty())
            chosen(filesToChoose);
    }
    void chooseSaveFile(SheetWindow, const FileRequest &request, FileChosen chosen) override
    {
        requests.append(request);
        if (!filesToChoose.isEmpty())
            chosen(filesToChoose.first());
    }

    /// Answers the sheet that is open.
    void answer(AlertAnswer answer)
    {
        if (const Answered answered = std::exchange(m_answered, {}))
            answered(answer);
    }
    /// The message of the newest alert; empty when there was none.
    [[nodiscard]] QString lastMessage() const { return alerts.isEmpty() ? QString() : alerts.last().message; }

    QList<SheetWindow> windows;
    QList<Alert> alerts;
    QList<FileRequest> requests;
    QStringList filesToChoose; ///< What the user chooses next; empty for cancelling.

private:
    Answered m_answered;
};

/// Delayed calls whose time the test moves.
class ManualCalls final : public DelayedCalls
{
public:
    void after(std::chrono::milliseconds delay, QObject *context, std::function<void()> call) override
    {
        m_calls.append({delay, context, std::move(call)});
    }

    /// Runs all that is due within @p time, also what is asked for meanwhile.
    void pass(std::chrono::milliseconds time)
    {
        for (qsizetype at = 0; at < m_calls.size();) {
            if (m_calls[at].delay > time) {
                ++at;
                continue;
            }
            const Call call = m_calls.takeAt(at);
            if (call.context)
                call.run();
            at = 0;
        }
    }

private:
    struct Call
    {
        std::chrono::milliseconds delay;
        QPointer<QObject> context;
        std::function<void()> run;
    };
    QList<Call> m_calls;
};

} // namespace quillon
