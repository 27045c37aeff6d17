#pragma once

#include "platform/result.h"

#include <QObject>

#include <chrono>
#include <functional>

namespace quillon {

class AlertSheets;
class DelayedCalls;
class Desktop;

/**
 * Leads the author to updates: hands over to the desktop's software centre; where there is none, says how the
 * program was installed and how it is updated.
 *
 * The system's own xdg-mime and dpkg-query are asked, meanwhile the window goes on. Nothing is asked of the
 * network.
 */
class UpdateCheck : public QObject
{
    Q_OBJECT
public:
    /// For each of the programs; one that takes longer is ended.
    static constexpr std::chrono::seconds patience{5};

    /// All must outlive it.
    UpdateCheck(Desktop &desktop, AlertSheets &alerts, DelayedCalls &delayedCalls);

    /// Does nothing while the last one is still under way.
    void begin();

private:
    /// What a program came to.
    struct Answer
    {
        int status = 0;
        QString output;
    };
    using Answered = std::function<void(const Result<Answer> &answer)>;

    /// Runs @p program. The error is Missing where it is not installed, and NotDone when it did not end well.
    void ask(const QString &program, const QStringList &arguments, Answered answered);
    void askForSoftwareCentre();
    void askForPackage();
    void tell(const Result<Answer> &packages);

    Desktop &m_desktop;
    AlertSheets &m_alerts;
    DelayedCalls &m_delayedCalls;
    bool m_isUnderWay = false;
};

} // namespace quillon
