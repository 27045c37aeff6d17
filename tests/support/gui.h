#pragma once

#include "support/testing.h"

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWidget>

namespace quillon {

/// Whether @p condition comes true; gives up after a while that no healthy run needs. Events are handled as
/// they come.
template<typename Condition>
bool eventually(const Condition &condition)
{
    static constexpr int patience = 60000; // Milliseconds.
    QTimer look;                           // Not everything that comes true comes with an event.
    look.start(5);
    QElapsedTimer waited;
    waited.start();
    while (!condition()) {
        if (waited.elapsed() > patience)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
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
    ADD_FAILURE() << "no visible widget is named " << name;
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

/// Clicks the visible button of that name.
inline void press(const QString &button)
{
    QTest::mouseClick(visible<QPushButton>(button), Qt::LeftButton);
}

/// Types @p text into the visible field of that name, in the place of what it holds.
inline void type(const QString &field, const QString &text)
{
    auto *input = visible<QLineEdit>(field);
    input->clear();
    QTest::keyClicks(input, text);
}

/// Clicks the button of that text in the alert that is open. Gives what the alert says, its informative text
/// after a bar; null when none is open.
inline QString clickAlert(const QString &buttonText)
{
    auto *box = openWindow<QMessageBox>();
    if (!box)
        return {};
    QString texts = box->text();
    if (!box->informativeText().isEmpty())
        texts += u'|' + box->informativeText();
    for (QAbstractButton *button : box->buttons()) {
        if (button->text() == buttonText)
            QTest::mouseClick(button, Qt::LeftButton);
    }
    return texts;
}

/// Waits for an alert, answers it like clickAlert() and waits for its end.
inline QString answerAlert(const QString &buttonText)
{
    QString texts;
    EXPECT_TRUE(eventually([&] { return !(texts = clickAlert(buttonText)).isNull(); }));
    EXPECT_TRUE(eventually([] { return openWindow<QMessageBox>() == nullptr; })) << buttonText;
    return texts;
}

/// Waits for a file dialog and enters @p path in it.
inline void enterPath(const QString &path)
{
    ASSERT_TRUE(eventually([] { return openWindow<QFileDialog>() != nullptr; }));
    auto *name = openWindow<QFileDialog>()->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    name->setText(path);
    QTest::keyClick(name, Qt::Key_Return);
}

/// Chooses @p path in a file dialog, which closes.
inline void chooseFile(const QString &path)
{
    enterPath(path);
    ASSERT_TRUE(eventually([] { return openWindow<QFileDialog>() == nullptr; }));
}

/// What a screen reader calls @p widget.
inline QString accessibleName(QWidget *widget)
{
    const QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
    return interface ? interface->text(QAccessible::Name) : QString();
}

/// The stops of the Tab key in @p window, from where the focus is until it comes back. What has stops within,
/// such as the links of a page, is one stop.
inline QList<QWidget *> tabStops(QWidget &window)
{
    QList<QWidget *> stops;
    static constexpr int most = 500;
    int presses = 0;
    for (QWidget *focus = QApplication::focusWidget(); focus && presses < most; ++presses) {
        if (stops.isEmpty() || stops.last() != focus)
            stops.append(focus);
        QTest::keyClick(focus, Qt::Key_Tab);
        focus = QApplication::focusWidget();
        if (focus != stops.last() && stops.contains(focus))
            break;
    }
    EXPECT_TRUE(presses < most || stops.size() == 1) << "Tab never comes back in " << window.objectName();
    return stops;
}

/// The same; expects at least that many, and that each has a name for a screen reader.
inline QList<QWidget *> expectNamedTabStops(QWidget &window, qsizetype least)
{
    QList<QWidget *> stops = tabStops(window);
    EXPECT_GE(stops.size(), least);
    for (QWidget *stop : std::as_const(stops))
        EXPECT_FALSE(accessibleName(stop).isEmpty()) << stop->objectName();
    return stops;
}

} // namespace quillon
