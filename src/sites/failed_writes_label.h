#pragma once

#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/storage_status.h"

#include <QLabel>

namespace quillon {

/// Tells what could not be stored, for as long as it is so.
inline QLabel *newFailedWritesLabel(const QString &name)
{
    auto *label = new QLabel(failedWritesLine());
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    NotificationCenter::defaultCenter().addObserver(notification::failedWritesChanged, label,
                                                    [label] { label->setText(failedWritesLine()); });
    return label;
}

} // namespace quillon
