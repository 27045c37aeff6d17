#pragma once

#include <QAccessible>
#include <QHash>
#include <QKeySequence>
#include <QLabel>
#include <QStringList>
#include <QWidget>

namespace quillon {

/// Whether the keys can come to @p widget in @p window as it is shown.
inline bool canBeStop(const QWidget &widget, const QWidget &window)
{
    // What hands the focus on is a part of the widget that gets it; an embedded page tells of itself.
    return widget.focusPolicy() != Qt::NoFocus && !widget.focusProxy() && widget.isVisible() &&
           widget.window() == &window && !widget.inherits("QQuickWidget");
}

/// Which widget a failed test speaks of.
inline QString nameForPeople(const QWidget &widget)
{
    return QLatin1String(widget.metaObject()->className()) + u' ' + widget.objectName();
}

/// The labels in @p window whose underlined letter leads nowhere, a line each.
inline QStringList deadMnemonics(const QWidget &window)
{
    QStringList faults;
    for (const QLabel *label : window.findChildren<QLabel *>()) {
        const bool isDead = !label->buddy() || label->buddy()->focusPolicy() == Qt::NoFocus;
        if (isDead && label->isVisible() && !QKeySequence::mnemonic(label->text()).isEmpty())
            faults.append(QStringLiteral("the letter of “%1” leads nowhere").arg(label->text()));
    }
    return faults;
}

/// The widgets in @p window of which a screen reader would read out markup, a line each.
inline QStringList markupTold(const QWidget &window)
{
    QStringList faults;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        const QAccessibleInterface *told = QAccessible::queryAccessibleInterface(widget);
        if (told && widget->isVisible() &&
            told->text(QAccessible::Description).contains(QLatin1String("<span")))
            faults.append(nameForPeople(*widget) + QStringLiteral(" is described by markup"));
    }
    return faults;
}

/// What a screen reader's user cannot make out in @p window as it is shown, a line each: a widget that takes
/// the focus and has no name, or another than it was given, or no role, or the name of another one. And what
/// leads nowhere by its letter, or is described by markup.
///
///     EXPECT_EQ(accessibilityFaults(window()), QStringList());
inline QStringList accessibilityFaults(const QWidget &window)
{
    QStringList faults = deadMnemonics(window) + markupTold(window);
    QHash<QString, QString> known;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        if (!canBeStop(*widget, window))
            continue;
        const QString which = nameForPeople(*widget);
        const QAccessibleInterface *told = QAccessible::queryAccessibleInterface(widget);
        const QString name = told ? told->text(QAccessible::Name) : QString();
        const int role = told ? told->role() : QAccessible::NoRole;
        if (name.isEmpty())
            faults.append(which + QStringLiteral(" has no name"));
        if (role == QAccessible::NoRole || role == QAccessible::Client)
            faults.append(which + QStringLiteral(" has no role"));
        if (!widget->accessibleName().isEmpty() && !widget->inherits("QTabBar") &&
            widget->accessibleName() != name)
            faults.append(QStringLiteral("%1 is called “%2” instead").arg(which, name));
        const QString other = known.value(name);
        if (!name.isEmpty() && !other.isNull())
            faults.append(QStringLiteral("%1 and %2 are both “%3”").arg(other, which, name));
        known.insert(name, which);
    }
    return faults;
}

} // namespace quillon
