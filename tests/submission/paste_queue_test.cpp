#include "submission/download_page.h"
#include "submission/fakes.h"
#include "submission/paste_queue.h"
#include "support/testing.h"

/// A page that notes what is begun there, with what the clipboard holds then.
struct FakeTarget final : PasteTarget
{
    FakeTarget(QStringList &newTold, QList<Done> &newBegun, const FakeDesktop &newDesktop)
        : told(newTold), begun(newBegun), desktop(newDesktop)
    {
    }
    void begin(const QString &text, Done done) override
    {
        EXPECT_EQ(desktop.clipboard, text);
        told.append(text);
        begun.append(std::move(done));
    }
    void giveUp() override { told.append(u"late"_s); }

    QStringList &told;
    QList<Done> &begun;
    const FakeDesktop &desktop;
};

TEST(PasteQueueTest, FillsTheClipboardForOnePageAfterTheOther)
{
    QStringList told;
    QList<PasteTarget::Done> begun;
    FakeDesktop desktop;
    PasteQueue queue(desktop);
    FakeTarget one(told, begun, desktop), other(told, begun, desktop);
    queue.add(one, u"a"_s);
    queue.add(other, u"b"_s);
    queue.add(one, u"c"_s);
    EXPECT_EQ(told, QStringList{u"a"_s});
    begun[0]();
    begun[0]();
    EXPECT_EQ(told, QStringList({u"a"_s, u"b"_s})) << "a paste is done once";
    EXPECT_TRUE(queue.drop(one));
    EXPECT_FALSE(queue.drop(one));
    EXPECT_EQ(desktop.clipboard, u"b"_s) << "the clipboard is the other page's for now";
    queue.add(other, u"d"_s);
    queue.add(other, u"e"_s);
    EXPECT_TRUE(queue.drop(other));
    EXPECT_EQ(desktop.clipboard, u"e"_s) << "the last value is there to be pasted by hand";
    begun[1]();
    queue.add(one, u"f"_s);
    EXPECT_EQ(begun.size(), 3) << "what is dropped is not begun";
    queue.add(other, u"g"_s);
    queue.giveUp();
    EXPECT_EQ(told.mid(2), QStringList({u"f"_s, u"late"_s, u"g"_s}));
}

TEST(DownloadPageTest, TellsTextFromOtherFilesAndShowsNamesAsTheyStand)
{
    for (const QString &type :
         words(u"text/csv TEXT/plain;charset=x application/xml image/svg+xml application/json"_s))
        EXPECT_TRUE(isTextType(type)) << type;
    for (const QString &type : {u"application/zip"_s, u"image/png"_s, u"application/x"_s, QString()})
        EXPECT_FALSE(isTextType(type)) << type;

    const QString page = downloadPage({u"<b>%1%2</b>.zip"_s, u"a&b"_s, u"http://x/\"?<"_s, 2048, {}});
    for (const QString &text :
         {u"&lt;b&gt;%1%2&lt;/b&gt;.zip"_s, u"a&amp;b"_s, u"http://x/&quot;?&lt;"_s, u"2.00 KiB"_s})
        EXPECT_TRUE(page.contains(text)) << page;
    EXPECT_TRUE(downloadPage({{}, {}, {}, {}, u"text"_s}).contains(u"unknown"));
}
