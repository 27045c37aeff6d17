#include "submission/download_page.h"
#include "submission/load_errors.h"
#include "submission/paste_queue.h"
#include "support/printing.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quillon {
namespace {

TEST(PasteQueueTest, FillsTheClipboardOnlyWhenThePasteBeforeIsDone)
{
    QStringList filled;
    QList<PasteQueue::Done> begun;
    PasteQueue queue([&begun](PasteQueue::Done done) { begun.append(std::move(done)); });
    const auto add = [&](const QString &text) { queue.add([&filled, text] { filled.append(text); }); };

    add(u"a"_s);
    add(u"b"_s);
    add(u"c"_s);
    EXPECT_EQ(filled, QStringList{u"a"_s});
    begun[0]();
    begun[0]();
    EXPECT_EQ(filled, QStringList({u"a"_s, u"b"_s})) << "a paste is done once";

    queue.clear();
    EXPECT_EQ(filled, QStringList({u"a"_s, u"b"_s, u"c"_s}))
        << "the last value is there to be pasted by hand";
    EXPECT_EQ(begun.size(), 2);
    begun[1]();
    add(u"d"_s);
    EXPECT_EQ(begun.size(), 3);
    begun[2]();
    add(u"e"_s);
    EXPECT_EQ(filled.last(), u"e"_s);
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
