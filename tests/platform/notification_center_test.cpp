#include "platform/delayed_calls.h"
#include "platform/notification_center.h"
#include "support/testing.h"

#include <QCoreApplication>

class NotificationCenterTest : public testing::Test
{
protected:
    NotificationCenter::Handler noting(const QString &note)
    {
        return [this, note] { heard.append(note); };
    }

    NotificationCenter center;
    QObject first;
    std::unique_ptr<QObject> second = std::make_unique<QObject>();
    QStringList heard;
};

TEST_F(NotificationCenterTest, AHandlerMayAddEndAndPost)
{
    center.addObserver(u"n", second.get(), [this, text = u"inside"_s] {
        center.addObserver(u"n", &first, noting(u"added"_s));
        second.reset();
        heard.append(text); // What the handler holds outlives its observer.
        center.post(u"m");
    });
    center.addObserver(u"n", second.get(), noting(u"destroyed"_s));
    center.addObserver(u"n", &first, noting(u"n"_s));
    center.addObserver(u"other", &first, noting(u"other"_s));
    center.addObserver(u"n", &first, noting(u"n2"_s));
    center.addObserver(u"m", &first, noting(u"m"_s));
    center.post(u"n");
    EXPECT_EQ(heard, words(u"inside m n n2"_s)) << "in their order, before it returns";
    center.post(u"n");
    center.post(u"nobody");
    EXPECT_EQ(heard.sliced(4), words(u"n n2 added"_s));
}

TEST_F(NotificationCenterTest, DelayedCallsRunInTimeAndNotForTheDestroyed)
{
    int count = 0;
    QCoreApplication application(count, nullptr);
    TimedCalls calls;
    using std::chrono::milliseconds;
    calls.after(milliseconds(0), second.get(), noting(u"destroyed"_s));
    calls.after(milliseconds(2), &first, &QCoreApplication::quit);
    calls.after(milliseconds(1), &first, noting(u"early"_s));
    second.reset();
    QCoreApplication::exec();
    EXPECT_EQ(heard, QStringList{u"early"_s});
}
