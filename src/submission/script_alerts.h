#pragma once

#include <QObject>
#include <QStringList>

namespace quillon {

class AlertSheets;

/**
 * What scripts of pages call alert with, one sheet after the other.
 *
 * A page can call without end, and no page waits for the answer: so there is a bound to how many wait and to
 * how long each may be.
 */
class ScriptAlerts : public QObject
{
    Q_OBJECT
public:
    /// Messages beyond this many in waiting are dropped; of each, this many UTF-16 units are shown.
    static constexpr qsizetype mostWaiting = 10;
    static constexpr qsizetype longestMessage = 2000;

    explicit ScriptAlerts(AlertSheets &alerts, QObject *parent = nullptr);

    void show(const QString &message);

private:
    void showNext();

    AlertSheets &m_alerts;
    QStringList m_waiting;
    bool m_showing = false;
};

} // namespace quillon
