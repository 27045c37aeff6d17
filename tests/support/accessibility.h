#pragma once

#include <QAccessible>
#include <QHash>
#include <QStringList>
#include <QWidget>

namespace quillon {

/// What a screen reader's user cannot make out in @p window as it is shown, a line each: a widget that takes
/// the focus and has no name, or no role, or the role and name of another one.
///
///     EXPECT_EQ(accessibilityFaults(window()), QStringList());
inline QStringList accessibilityFaults(const QWidget &window)
{
    QStringList faults;
    QHash<std::pair<int, QString>, QString> known;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        // What hands the focus on is a part of the widget that gets it; an embedded page tells of itself.
        if (widget->focusPolicy() == Qt::NoFocus || widget->focusProxy() || !widget->isVisible() ||
            widget->window() != &window || widget->inherits("QQuickWidget"))
            continue;
        const QString which = QLatin1String(widget->metaObject()->className()) + u' ' + widget->objectName();
        const QAccessibleInterface *told = QAccessible::queryAccessibleInterface(widget);
        const QString name = told ? told->text(QAccessible::Name) : QString();
        const int role = told ? told->role() : QAccessible::NoRole;
        if (name.isEmpty())
            faults.append(which + QStringLiteral(" has no name"));
        if (role == QAccessible::NoRole || role == QAccessible::Client)
            faults.append(which + QStringLiteral(" has no role"));
        const QString other = known.value({role, name});
        if (!name.isEmpty() && !other.isNull())
            faults.append(QStringLiteral("%1 and %2 are both “%3”").arg(other, which, name));
        known.insert({role, name}, which);
    }
    return faults;
}

} // namespace quillon
