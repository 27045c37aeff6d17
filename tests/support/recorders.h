#pragma once

#include "platform/alert_sheets.h"
#include "platform/delayed_calls.h"
#include "platform/notification_center.h"

#include <QList>
#include <QMultiMap>
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
        if (request.optionChosen && !filesToChoose.isEmpty())
            request.optionChosen(ticksOption);
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

    /// All that it says, a line each.
    [[nodiscard]] QString lastTexts() const
    {
        return (QStringList{alerts.last().message, alerts.last().informativeText} + alerts.last().details)
            .join(u'\n');
    }

    QList<SheetWindow> windows;
    QList<Alert> alerts;
    QList<FileRequest> requests;
    QStringList filesToChoose; ///< What the user chooses next; empty for cancelling.
    bool ticksOption = false;  ///< Whether the user ticks what there is beside the place to save.

private:
    Answered m_answered;
};

/// Writes down which of some notifications are posted.
class PostedNotifications
{
public:
    explicit PostedNotifications(std::initializer_list<QStringView> observed)
    {
        for (const QStringView name : observed)
            NotificationCenter::defaultCenter().addObserver(name, &m_observer,
                                                            [this, name] { names.append(name.toString()); });
    }

    QStringList names;

private:
    QObject m_observer;
};

/// Delayed calls by a clock that the test moves.
class ManualCalls final : public DelayedCalls
{
public:
    void after(std::chrono::milliseconds delay, QObject *context, std::function<void()> call) override
    {
        m_calls.insert(m_now + delay, {context, std::move(call)});
    }

    /// Lets @p time go by, and what becomes due in it happen in its order.
    void pass(std::chrono::milliseconds time)
    {
        const std::chrono::milliseconds end = m_now + time;
        while (!m_calls.isEmpty() && m_calls.firstKey() <= end) {
            m_now = m_calls.firstKey();
            const auto [context, run] = m_calls.take(m_now);
            if (context)
                run();
        }
        m_now = end;
    }

private:
    QMultiMap<std::chrono::milliseconds, std::pair<QPointer<QObject>, std::function<void()>>> m_calls;
    std::chrono::milliseconds m_now{0};
};

} // namespace quillon
