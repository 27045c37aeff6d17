#pragma once

#include "support/gui.h"

#include <QEvent>

namespace quillon {

/// What screen readers are told to say, as long as it lives.
class Listener : public QObject
{
public:
    Listener() { qApp->installEventFilter(this); }
    QStringList said;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show && watched->objectName() == QLatin1String("announcement")) {
            auto *interface = QAccessible::queryAccessibleInterface(watched);
            EXPECT_EQ(interface->role(), QAccessible::Notification);
            said.append(interface->text(QAccessible::Name));
        }
        return false;
    }
};

} // namespace quillon
