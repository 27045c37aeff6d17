#include "submission/script_alerts.h"

#include "platform/alert_sheets.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace quillon {

ScriptAlerts::ScriptAlerts(AlertSheets &alerts, QObject *parent) : QObject(parent), m_alerts(alerts) {}

void ScriptAlerts::show(const QString &message)
{
    if (!mayAsk())
        return;
    m_waiting.append(message.left(longestMessage));
    if (!m_showing)
        showNext();
}

bool ScriptAlerts::mayAsk()
{
    if (m_inARow == mostInARow)
        return false;
    ++m_inARow;
    return true;
}

void ScriptAlerts::showNext()
{
    m_showing = !m_waiting.isEmpty();
    if (!m_showing)
        return;
    // The sheet may outlive the window's control.
    m_alerts.show(SheetWindow::Submission, {tr("JavaScript Alert"), m_waiting.takeFirst()},
                  [self = QPointer(this)](AlertAnswer) {
                      if (self)
                          self->showNext();
                  });
}

} // namespace quillon
