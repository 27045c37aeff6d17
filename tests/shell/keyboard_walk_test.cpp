#include "manual/manual_pages.h"
#include "shell/main_window_fixture.h"
#include "shell/manual_topics.h"
#include "support/accessibility.h"
#include "support/cut_text.h"

#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTreeWidget>

namespace {

constexpr int mostLinks = 100; ///< On a page, each of which is a stop of its own.
constexpr QSize smallScreen(1280, 720);
constexpr QSize tinyScreen(640, 360); ///< The same one with everything twice as large.
constexpr int frameHeight = 30;       ///< What the window system takes of it for a window's title.

bool activated(QWidget &window)
{
    QCoreApplication::processEvents(); // What closed before tells the window below so.
    window.activateWindow();
    QCoreApplication::processEvents();
    return eventually([&window] { return QApplication::activeWindow() == &window; });
}

/// What does not fit when @p window stands on a small screen.
QStringList roomFaults(QWidget &window)
{
    const QSize room = smallScreen.shrunkBy({0, frameHeight, 0, 0});
    window.resize(window.parentWidget() ? window.size().boundedTo(room) : room);
    QCoreApplication::processEvents();
    QStringList faults = cutTexts(window);
    if (window.size() != window.size().boundedTo(room))
        faults.append(u"the window needs %1 x %2"_s.arg(window.width()).arg(window.height()));
    const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
    const bool isOfToolkit = qobject_cast<QMessageBox *>(&window); // It looks how large the screen is.
    if (!isOfToolkit && least != least.boundedTo(tinyScreen.shrunkBy({0, frameHeight, 0, 0})))
        faults.append(u"the window is at least %1 x %2"_s.arg(least.width()).arg(least.height()));
    return faults;
}

/// Whether it is seen that @p stop has the keyboard, which @p other has otherwise.
bool showsFocus(QWidget &stop, QWidget &other)
{
    other.setFocus(Qt::TabFocusReason);
    const QImage before = stop.grab().toImage();
    stop.setFocus(Qt::TabFocusReason);
    return !stop.hasFocus() || stop.grab().toImage() != before;
}

QStringList focusFaults(const QList<QWidget *> &stops)
{
    QStringList faults;
    QWidget *other = stops.last();
    for (QWidget *stop : stops) {
        if (stop != other && !showsFocus(*stop, *other))
            faults.append(nameForPeople(*stop) + u" does not show that it has the keyboard"_s);
        other = stop;
    }
    return faults;
}

/// What is wrong for somebody who has the keyboard alone, a screen reader, or a small screen, in @p window: a
/// line for each fault of names, for what is cut, for each control that Tab does not reach, and when F1 knows
/// no page for it.
QStringList keyboardFaults(QWidget &window)
{
    if (!activated(window))
        return {u"the window does not get the keyboard"_s};
    QStringList faults = accessibilityFaults(window) + roomFaults(window);
    QList<QWidget *> stops = tabStops(window);
    stops += tabStops(window); // Some come to life only when another one is reached.
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        if (canBeStop(*widget, window) && (widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() &&
            !stops.contains(widget))
            faults.append(nameForPeople(*widget) + u" is not reached by Tab"_s);
    }
    QWidget *back = stops.value(0);
    if (!back)
        return faults + QStringList{u"nothing has the keyboard"_s};
    for (int link = 0; QApplication::focusWidget() == back && link < mostLinks; ++link)
        QTest::keyClick(back, Qt::Key_Backtab, Qt::ShiftModifier);
    if (QApplication::focusWidget() != stops.last())
        faults.append(nameForPeople(*back) + u" leads backwards to "_s +
                      nameForPeople(*QApplication::focusWidget()));
    faults += focusFaults(tabStops(window));
    QStringList around;
    for (const QWidget *widget = back; widget; widget = widget->parentWidget())
        around.append(widget->objectName());
    if (manual_topics::pageOf(around) == u"index.html")
        faults.append(u"the manual has no page for it"_s);
    return faults;
}

/// The window that has come on top of @p main; null when none came.
QWidget *openedOver(const QWidget &main)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window != &main && window->isVisible() && window->isWindow() && !window->inherits("QMenu"))
            return window;
    }
    return nullptr;
}

} // namespace

using KeyboardWalkTest = MainWindowTest;

TEST_F(KeyboardWalkTest, TheMainWindowWithItsViews)
{
    EXPECT_EQ(keyboardFaults(window()), QStringList()) << "without titles";
    drop({padFile(u"A"_s)});
    ASSERT_TRUE(eventually([] { return openWindow<QMessageBox>() != nullptr; }));
    EXPECT_EQ(keyboardFaults(*openWindow<QMessageBox>()), QStringList()) << "what is lost";
    answerAlert(u"OK"_s);
    clickTitle(0);
    EXPECT_EQ(keyboardFaults(window()), QStringList()) << "the list";
    command(u"Edit"_s)->trigger();
    auto *pages = window().findChild<QTabWidget *>();
    for (int page = 0; page < pages->count(); ++page) {
        pages->setCurrentIndex(page);
        EXPECT_EQ(keyboardFaults(window()), QStringList()) << pages->tabText(page);
    }
}

// The submission window is walked where it has its engine.
TEST_F(KeyboardWalkTest, EveryWindowThatACommandOpens)
{
    drop({padFile(u"A"_s)});
    answerAlert(u"OK"_s);
    const QSet<QString> others = {u"quit"_s, u"Submit"_s, u"help"_s, u"bugReport"_s, u"updates"_s};
    int opened = 0;
    for (const QMenu *menu : window().menuBar()->findChildren<QMenu *>()) {
        for (QAction *action : menu->actions()) {
            ASSERT_TRUE(activated(window()));
            clickTitle(0);
            if (others.contains(action->objectName()) || !action->isEnabled())
                continue;
            action->trigger();
            QWidget *over = openedOver(window());
            if (over && !qobject_cast<QFileDialog *>(over)) {
                EXPECT_EQ(keyboardFaults(*over), QStringList()) << action->text();
                ++opened;
            }
            if (over)
                over->close();
            command(u"Overview"_s)->trigger();
        }
    }
    EXPECT_GE(opened, 7);
}

TEST_F(KeyboardWalkTest, F1OpensTheManualAtWhatHasTheKeyboard)
{
    const auto shown = [](QWidget *focus) {
        EXPECT_TRUE(activated(*focus->window()));
        QTest::keyClick(focus, Qt::Key_F1);
        return visible<QTextBrowser>(u"manualPage"_s)->source().toString().section(u'/', -1);
    };
    press(u"newSoftwareButton"_s);
    EXPECT_EQ(shown(visible<QLineEdit>(u"swNamePanelInput"_s)), u"titles.html") << "in a sheet, too";
    const auto picture = [](const QString &file) {
        return visible<QTextBrowser>(u"manualPage"_s)
            ->loadResource(QTextDocument::ImageResource, manual::address(file))
            .value<QImage>();
    };
    EXPECT_EQ(picture(u"images/overview.png"_s).width(), 640) << "it fits beside the list";
    EXPECT_TRUE(picture(u"../../../../../docs/images/overview.png"_s).isNull()) << "no other file is read";
    auto *search = visible<QLineEdit>(u"manualSearch"_s);
    ASSERT_TRUE(activated(*search->window()));
    QTest::keyClicks(search, u"one program at a time"_s);
    QTest::keyClick(search, Qt::Key_Return);
    auto *found = visible<QTreeWidget>(u"manualList"_s);
    QTest::keyClick(found, Qt::Key_Home);
    EXPECT_EQ(visible<QTextBrowser>(u"manualPage"_s)->source().fragment(), u"one");
    QTest::keyClick(found, Qt::Key_Escape);
    EXPECT_FALSE(found->isVisible());

    typeName(u"A"_s);
    clickTitle(0);
    command(u"Edit"_s)->trigger();
    auto *field = visible<QLineEdit>(u"companyName"_s);
    field->setFocus();
    EXPECT_EQ(shown(field), u"fields.html#companyName");
    window().close();
    EXPECT_FALSE(found->isVisible()) << "it goes with the program";
}
