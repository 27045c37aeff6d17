#include "widgets/failed_writes_label.h"

#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "widgets/announcement.h"

namespace quillon {

FailedWritesLabel::FailedWritesLabel(const QString &name, QString (*line)(), QWidget *parent)
    : QLabel(parent), m_line(line)
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
    const QString line = m_line();
    const bool isNew = line != text();
    setText(line);
    setVisible(!line.isEmpty());
    if (isNew)
        announce(*this, line);
}

} // namespace quillon
