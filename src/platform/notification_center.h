#pragma once

#include <QHash>
#include <QList>
#include <QPointer>
#include <QString>

#include <functional>

namespace quillon {

/**
 * Lets rooms of the house talk without knowing one another: whoever posts a name need not know who observes
 * it.
 *
 * Delivery is synchronous and in the order of registration: when post() returns, every observer has run.
 * Main thread only.
 */
class NotificationCenter
{
public:
    using Handler = std::function<void()>;

    /// The process's one centre.
    static NotificationCenter &defaultCenter();

    /// Runs @p handler at each post of @p name, for as long as @p observer lives.
    void addObserver(QStringView name, QObject *observer, Handler handler);

    /// Runs the handlers of @p name. An observer that is added meanwhile is not called by this post; one that
    /// is destroyed meanwhile is passed over. A name that nobody observes does nothing.
    void post(QStringView name);

private:
    struct Observer
    {
        QPointer<QObject> object;
        Handler handler;
    };
    QHash<QString, QList<Observer>> m_observers;
};

} // namespace quillon
