#pragma once

#include "platform/alert_sheets.h"
#include "platform/delayed_calls.h"
#include "platform/desktop.h"
#include "submission/browser.h"

#include <QMultiMap>
#include <QPointer>

#include <utility>

namespace quillon {

/// A browser that notes what it is asked for.
class FakeBrowser final : public Browser
{
public:
    void setDelegate(BrowserDelegate *newDelegate) override { delegate = newDelegate; }
    void loadUrl(const QString &url) override { loaded.append(url); }
    void loadHtml(const QString &html, const QString &baseUrl) override { pages.append({html, baseUrl}); }
    [[nodiscard]] double estimatedProgress() const override { return progress; }
    [[nodiscard]] QString currentUrl() const override { return url; }
    void paste() override { ++pastes; }
    void goBack() override {}
    void goForward() override {}
    void reload() override {}
    void stop() override {}
    [[nodiscard]] double zoomFactor() const override { return 1.0; }
    void setZoomFactor(double) override {}

    BrowserDelegate *delegate = nullptr;
    QStringList loaded;
    QList<std::pair<QString, QString>> pages;
    double progress = 0;
    QString url;
    int pastes = 0;
};

/// A desktop that notes what it is asked for.
class FakeDesktop final : public Desktop
{
public:
    void setClipboardText(const QString &text) override { clipboard = text; }
    void openWebAddress(const QUrl &address) override { opened.append(address.toString()); }

    QString clipboard = QStringLiteral("untouched");
    QStringList opened;
};

/// Sheets that note what is shown, and answer when the test says so.
class AlertRecorder final : public AlertSheets
{
public:
    void show(SheetWindow window, const Alert &alert, Answered answered) override
    {
        shown.append({window, alert});
        m_answers.append(std::move(answered));
    }
    void chooseFiles(SheetWindow, const FileRequest &request, FilesChosen chosen) override
    {
        requests.append(request);
        if (!choice.isEmpty())
            chosen({choice});
    }
    void chooseSaveFile(SheetWindow, const FileRequest &request, FileChosen chosen) override
    {
        requests.append(request);
        if (!choice.isEmpty())
            chosen(choice);
    }

    /// Closes the oldest sheet that is still open.
    void answer(AlertAnswer answer = AlertAnswer::Default)
    {
        if (const Answered answered = m_answers.takeFirst())
            answered(answer);
    }
    [[nodiscard]] qsizetype open() const { return m_answers.size(); }
    /// The messages of all sheets since the last call.
    QStringList takeMessages()
    {
        QStringList messages;
        for (const auto &[window, alert] : std::exchange(shown, {}))
            messages.append(alert.message);
        return messages;
    }

    QList<std::pair<SheetWindow, Alert>> shown;
    QList<FileRequest> requests;
    QString choice; ///< What the next choosers give; empty for cancel.

private:
    QList<Answered> m_answers;
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
