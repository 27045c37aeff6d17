#include "submission/download_page.h"
#include "submission/load_errors.h"
#include "submission/paste_queue.h"
#include "support/printing.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quillon {
namespace {

TEST(PasteQueueTest, FillsTheClipboardForOnePageAfterTheOther)
{
    QStringList told;
    QList<PasteQueue::Done> begun;
    PasteQueue queue;
    const int pages[] = {0, 1};
    const auto add = [&](int page, const QString &text) {
        queue.add({.page = &pages[page],
                   .fillClipboard = [&told, text] { told.append(text); },
                   .begin = [&begun](PasteQueue::Done done) { begun.append(std::move(done)); },
                   .giveUp = [&told, text] { told.append(u"late "_s + text); }});
    };
    add(0, u"a"_s);
    add(1, u"b"_s);
    add(0, u"c"_s);
    EXPECT_EQ(told, QStringList{u"a"_s});
    begun[0]();
    begun[0]();
    EXPECT_EQ(told, QStringList({u"a"_s, u"b"_s})) << "a paste is done once";
    EXPECT_TRUE(queue.drop(&pages[0]));
    EXPECT_FALSE(queue.drop(&pages[0]));
    EXPECT_EQ(told.size(), 2) << "the clipboard is the other page's for now";
    add(1, u"d"_s);
    add(1, u"e"_s);
    EXPECT_TRUE(queue.drop(&pages[1]));
    EXPECT_EQ(told.last(), u"e"_s) << "the last value is there to be pasted by hand";
    begun[1]();
    add(0, u"f"_s);
    EXPECT_EQ(begun.size(), 3) << "what is dropped is not begun";
    add(1, u"g"_s);
    queue.giveUp();
    EXPECT_EQ(told.mid(told.size() - 3), QStringList({u"f"_s, u"late f"_s, u"g"_s}));
}

TEST(DownloadPageTest, TellsTextFromOtherFilesAndShowsNamesAsTheyStand)
{
    for (const QString &type : {u"text/csv"_s, u"TEXT/plain; charset=x"_s, u"application/xml"_s,
                                u"image/svg+xml"_s, u"application/json"_s})
        EXPECT_TRUE(isTextType(type)) << type.toStdString();
    for (const QString &type :
         {u"application/zip"_s, u"image/png"_s, u"application/octet-stream"_s, QString()})
        EXPECT_FALSE(isTextType(type)) << type.toStdString();

    const QString page = downloadPage({u"<b>%1%2</b>.zip"_s, u"a&b"_s, u"http://x/\"?<"_s, 2048, {}});
    for (const QString &text :
         {u"&lt;b&gt;%1%2&lt;/b&gt;.zip"_s, u"a&amp;b"_s, u"http://x/&quot;?&lt;"_s, u"2.00 KiB"_s})
        EXPECT_TRUE(page.contains(text)) << page.toStdString();
    EXPECT_TRUE(downloadPage({{}, {}, {}, {}, u"text"_s}).contains(u"unknown"));
}

TEST(LoadErrorsTest, PutASentenceBeforeTheEnginesOwnWord)
{
    EXPECT_EQ(loadErrorDescription(u"net::ERR_NAME_NOT_RESOLVED"_s),
              u"There is no server of this name. (net::ERR_NAME_NOT_RESOLVED)"_s);
    EXPECT_TRUE(loadErrorDescription(u"net::ERR_CERT_DATE_INVALID"_s).contains(u"certificate"));
    EXPECT_EQ(loadErrorDescription(u"net::ERR_NEW"_s), u"net::ERR_NEW"_s);
}

} // namespace
} // namespace quillon
