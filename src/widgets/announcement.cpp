#include "widgets/announcement.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString announcementName = u"announcement"_s;

QAccessibleInterface *newAnnouncement(const QString &, QObject *object)
{
    auto *widget = object->objectName() == announcementName ? qobject_cast<QWidget *>(object) : nullptr;
    return widget ? new QAccessibleWidget(widget, QAccessible::Notification) : nullptr;
}

/// What is said: a part of the window that takes no room in it. Readers speak of such a part when it appears.
QWidget *announcementIn(QWidget *window)
{
    [[maybe_unused]] static const bool once = (QAccessible::installFactory(newAnnouncement), true);
    if (auto *known = window->findChild<QWidget *>(announcementName, Qt::FindDirectChildrenOnly))
        return known;
    auto *made = new QWidget(window);
    made->setObjectName(announcementName);
    made->setAttribute(Qt::WA_TransparentForMouseEvents);
    made->setFixedSize(0, 0);
    return made;
}

} // namespace

void announce(const QWidget &widget, const QString &text)
{
    if (text.isEmpty() || !widget.isVisible())
        return;
    QWidget *said = announcementIn(widget.window());
    said->hide();
    said->setAccessibleName(text);
    said->show();
    QAccessibleEvent event(said, QAccessible::Alert); // Some desktops hear of this one alone.
    QAccessible::updateAccessibility(&event);
}

} // namespace quillon
