#include "widgets/failed_writes_label.h"

#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/storage_status.h"

namespace quillon {

FailedWritesLabel::FailedWritesLabel(const QString &name, QWidget *parent) : QLabel(parent)
{
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    NotificationCenter::defaultCenter().addObserver(notification::failedWritesChanged, this,
                                                    [this] { showFailedWrites(); });
    showFailedWrites();
}

void FailedWritesLabel::showFailedWrites()
{
    setText(failedWritesLine());
    setVisible(!text().isEmpty());
}

} // namespace quillon
