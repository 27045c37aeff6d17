#pragma once

#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/storage_status.h"

#include <QLabel>

namespace quillon {

/// Tells what could not be stored, for as long as it is so; otherwise it takes no room.
inline QLabel *newFailedWritesLabel(const QString &name, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    const auto show = [label] {
        label->setText(failedWritesLine());
        label->setVisible(!label->text().isEmpty());
    };
    NotificationCenter::defaultCenter().addObserver(notification::failedWritesChanged, label, show);
    show();
    return label;
}

} // namespace quillon
