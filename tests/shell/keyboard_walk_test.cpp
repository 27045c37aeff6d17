#include "manual/manual_pages.h"
#include "shell/manual_topics.h"
#include "shell/window_walk.h"
#include "support/accessibility.h"

#include <QTextBrowser>
#include <QTreeWidget>

namespace {

constexpr int mostLinks = 100;        ///< On a page, each of which is a stop of its own.
constexpr QSize tinyScreen(640, 360); ///< The small one with everything twice as large.

/// Whether @p window can be made as small as such a screen.
QStringList leastSizeFaults(const QWidget &window)
{
    const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
    const bool isOfToolkit = qobject_cast<const QMessageBox *>(&window); // It looks how large the screen is.
    if (isOfToolkit || least == least.boundedTo(tinyScreen.shrunkBy({0, frameHeight, 0, 0})))
        return {};
    return {u"the window is at least %1 x %2"_s.arg(least.width()).arg(least.height())};
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
    QStringList faults = accessibilityFaults(window) + roomFaults(window) + leastSizeFaults(window);
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

} // namespace

using KeyboardWalkTest = WindowWalkTest;

TEST_F(KeyboardWalkTest, TheMainWindowWithItsViews)
{
    walkViews(keyboardFaults);
    window().findChild<QTabWidget *>()->setCurrentIndex(1);
    for (auto *box : window().findChildren<QComboBox *>()) {
        if (box->isVisible())
            QTest::keyClick(box, Qt::Key_Down);
    }
    EXPECT_EQ(markupTold(window()), QStringList()) << "with something chosen";
}

TEST_F(KeyboardWalkTest, EveryWindowThatACommandOpens)
{
    walkCommands(keyboardFaults);
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
