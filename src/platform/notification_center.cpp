#include "platform/notification_center.h"

namespace quillon {

NotificationCenter &NotificationCenter::defaultCenter()
{
    static NotificationCenter center;
    return center;
}

void NotificationCenter::addObserver(QStringView name, QObject *observer, Handler handler)
{
    QList<Observer> &observers = m_observers[name.toString()];
    observers.removeIf([](const Observer &each) { return each.object.isNull(); });
    observers.append({observer, std::move(handler)});
}

void NotificationCenter::post(QStringView name)
{
    const QList<Observer> observers = m_observers.value(name.toString());
    for (const Observer &observer : observers) {
        if (observer.object)
            observer.handler();
    }
}

} // namespace quillon
