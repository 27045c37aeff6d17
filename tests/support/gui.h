#pragma once

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace quillon {

/// Whether @p condition comes true; gives up after a while that no healthy run needs.
template<typename Condition>
bool eventually(const Condition &condition)
{
    static constexpr int patience = 60000; // Milliseconds.
    return QTest::qWaitFor(condition, patience);
}

/// The visible widget of that kind and name in any window; null without one, and then the test has failed.
template<typename Kind = QWidget>
Kind *visible(const QString &name)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        QList<Kind *> candidates = window->findChildren<Kind *>(name);
        if (auto *self = qobject_cast<Kind *>(window); self && self->objectName() == name)
            candidates.append(self);
        for (Kind *candidate : std::as_const(candidates)) {
            if (candidate->isVisible())
                return candidate;
        }
    }
    ADD_FAILURE() << "no visible widget is named " << name.toStdString();
    return nullptr;
}

/// The visible window of that kind, if there is one.
template<typename Kind>
Kind *openWindow()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (auto *found = qobject_cast<Kind *>(window); found && found->isVisible())
            return found;
    }
    return nullptr;
}

/// What a screen reader calls @p widget.
inline QString accessibleName(QWidget *widget)
{
    const QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
    return interface ? interface->text(QAccessible::Name) : QString();
}

/// The stops of the Tab key in @p window, from where the focus is until it comes back.
inline QList<QWidget *> tabStops(QWidget &window)
{
    QList<QWidget *> stops;
    static constexpr int most = 500;
    while (stops.size() < most) {
        QWidget *focus = QApplication::focusWidget();
        if (!focus || stops.contains(focus))
            break;
        stops.append(focus);
        QTest::keyClick(focus, Qt::Key_Tab);
    }
    EXPECT_LT(stops.size(), most) << "Tab never comes back in " << window.objectName().toStdString();
    return stops;
}

} // namespace quillon
