#pragma once

#include <QApplication>
#include <QEvent>

namespace quillon {

/// Sees when the widget of a name, or something in it, is drawn.
class Drawing : public QObject
{
public:
    explicit Drawing(QString name) : m_name(std::move(name)) { qApp->installEventFilter(this); }
    void wait() const
    {
        while (!m_isDrawn)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            for (const QObject *each = watched; each && !m_isDrawn; each = each->parent())
                m_isDrawn = each->objectName() == m_name;
        }
        return false;
    }

private:
    QString m_name;
    bool m_isDrawn = false;
};

} // namespace quillon
