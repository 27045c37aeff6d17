#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/process_state.h"
#include "submission/hover_button.h"
#include "submission/load_progress.h"
#include "submission/prog_view.h"
#include "support/gui.h"
#include "support/testing.h"

#include <QEnterEvent>

static void enter(QWidget &widget)
{
    QEnterEvent event(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
    QApplication::sendEvent(&widget, &event);
}

static void leave(QWidget &widget)
{
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&widget, &event);
}

TEST(HoverButtonTest, MovesLongTitlesAsideUnderTheMouseOnceItIsOn)
{
    const std::pair<QString, bool> cases[] = {
        {u"Company Name"_s, false},    {u"Company Website"_s, true},   {u"Company Country"_s, true},
        {u"Supported OS 12"_s, false}, {u"Author First Name"_s, true}, // 15 and 17 letters
    };
    for (const auto &[title, moves] : cases) {
        HoverButtonControl button(title);
        button.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&button));
        const auto image = [&button] { return button.icon().pixmap(button.iconSize()).toImage(); };
        const QImage offImage = image();
        const QSize size = button.sizeHint();

        enter(button);
        EXPECT_EQ(button.text(), title) << "not on yet";
        leave(button);
        button.click();
        button.click();
        EXPECT_TRUE(button.isChecked()) << "once on, always on";
        enter(button);
        EXPECT_EQ(button.text(), moves ? QString(u"        "_s + title) : title);
        EXPECT_NE(image(), offImage);
        EXPECT_EQ(button.sizeHint(), size) << "the buttons around it stay where they are";
        EXPECT_EQ(accessibleName(&button), title);
        leave(button);
        EXPECT_EQ(button.text(), title);
        EXPECT_EQ(image(), offImage);

        button.setEnabled(false);
        enter(button);
        EXPECT_EQ(button.text(), title);
    }
}

TEST(ProgViewTest, DrawsTheProcessesStateOnceForEachChange)
{
    ProgView bar;
    bar.resize(200, load_progress::frameHeight);
    bar.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&bar));
    int drawn = 0;
    NotificationCenter::defaultCenter().addObserver(notification::mwqnTCRstVw, &bar, [&drawn] { ++drawn; });
    const auto colourAt = [&bar](int x) { return bar.grab().toImage().pixelColor(x, 10); };
    const QColor blue(load_progress::red, load_progress::green, load_progress::blue);

    load_progress::updateRectProgress(0, 0, 80, 22);
    EXPECT_TRUE(eventually([&drawn] { return drawn > 0; }));
    QApplication::processEvents();
    EXPECT_EQ(drawn, 1) << "drawing must not ask for drawing";
    EXPECT_EQ(colourAt(40), blue);
    EXPECT_EQ(colourAt(79), QColor(Qt::gray));
    EXPECT_EQ(colourAt(120), QColor(Qt::white));
    EXPECT_EQ(colourAt(0), QColor(Qt::gray));
    EXPECT_EQ(colourAt(199), QColor(Qt::gray));
    EXPECT_EQ(progressBarState.barWidth, 200);

    load_progress::resetRectProgress(0, 0, 200, 22);
    EXPECT_EQ(colourAt(40), QColor(Qt::white));
}
