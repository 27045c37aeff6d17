#pragma once

#include <QObject>
#include <QStringList>

namespace quillon {

class AlertSheets;

/**
 * What scripts of pages call alert with, one sheet after the other.
 *
 * A page can call without end, and load itself anew to go on; while a sheet is open the author can do nothing
 * else. So there is a bound to how many come until the author has done something in the window again, to
 * questions as well, and to how long each may be.
 */
class ScriptAlerts : public QObject
{
    Q_OBJECT
public:
    /// Sheets beyond this many in a row are dropped; of each message, this many UTF-16 units are shown.
    static constexpr int mostInARow = 10;
    static constexpr qsizetype longestMessage = 2000;

    explicit ScriptAlerts(AlertSheets &alerts, QObject *parent = nullptr);

    void show(const QString &message);

    /// Whether a page may ask something in a sheet of its own; it counts as one more.
    [[nodiscard]] bool mayAsk();

    /// The author has done something in the window itself.
    void authorActed() { m_inARow = 0; }

    /// Drops what has not been shown.
    void clear() { m_waiting.clear(); }

private:
    void showNext();

    AlertSheets &m_alerts;
    QStringList m_waiting;
    int m_inARow = 0;
    bool m_showing = false;
};

} // namespace quillon
