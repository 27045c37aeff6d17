#include "submission/browser_loading.h"
#include "submission/browser_module.h"
#include "support/gui.h"
#include "support/temporary_home.h"
#include "support/web_server.h"
#include "widgets/qt_desktop.h"

#include <QBuffer>
#include <QEventLoop>
#include <QImage>
#include <QStandardPaths>

namespace quillon {

namespace {

QByteArray picture(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    image.save(&bytes, "PNG");
    return bytes.data();
}

QString described(const Visit &visit, const QString &server)
{
    QString text = visit.failure.isEmpty() ? QString::number(visit.status) : visit.failure;
    if (!visit.reached.isEmpty())
        text += u" at "_s + QString(visit.reached).remove(server);
    if (visit.isFile)
        text += u", a file of %1"_s.arg(visit.fileSize.value_or(-1));
    if (visit.pictureSize.isValid())
        text += u", %1 x %2"_s.arg(visit.pictureSize.width()).arg(visit.pictureSize.height());
    if (visit.text)
        text += u": "_s + QString::fromUtf8(*visit.text);
    return text;
}

} // namespace

class WebEngineVisitorTest : public TemporaryDataFolder
{
protected:
    void SetUp() override
    {
        TemporaryDataFolder::SetUp();
        const auto module = loadBrowserModule(browserModulePath());
        ASSERT_TRUE(module) << module.error().reason;
        ASSERT_TRUE(QDir().mkpath(web() + u"/offered-123456")); // By a run that was killed.
        engine = (*module)->newEngine(web(), desktop);
        visitor = engine->newVisitor();
    }
    /// The engine may store something there to the end of the program, when home() has gone.
    [[nodiscard]] QString web() const { return QDir::homePath() + u"/web" + QFileInfo(home()).fileName(); }
    QString visit(const VisitRequest &request)
    {
        std::optional<Visit> result;
        visitor->visit(request, [&result](const Visit &visit) { result = visit; });
        EXPECT_TRUE(eventually([&result] { return result.has_value(); })) << request.address;
        return described(result.value_or(Visit()), server.url({}));
    }

    WebServer server;
    QtDesktop desktop;
    std::unique_ptr<BrowserEngine> engine;
    std::unique_ptr<Visitor> visitor; ///< Goes before its engine.
};

TEST_F(WebEngineVisitorTest, ItTellsWhatIsThereAndFetchesNothingElse)
{
    EXPECT_EQ(names(web()).count(u"offered-123456"_s), 0);
    const QString temporary = home() + u"/temporary";
    ASSERT_TRUE(QDir().mkdir(temporary));
    const QByteArray usual = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(temporary));
    visitor = engine->newVisitor();
    server.serve(u"/there"_s, {.body = {}, .status = "302 Found", .header = "Location: /heavy\r\n"});
    server.serve(u"/refresh"_s, {.body = "<meta http-equiv=refresh content='0; url=/heavy'>"});
    server.serve(u"/heavy"_s,
                 {.body = "<img src=a.png><script src=b.js></script><iframe src=c.html></iframe>"
                          "<script>location = '/elsewhere'</script><link rel=stylesheet href=d.css>",
                  .header = "Set-Cookie: a=b\r\n"});
    server.serve(u"/guard"_s, {.body = "<p>Are you human?", .status = "403 Forbidden"});
    server.serve(u"/empty"_s, {.body = "", .status = "410 Gone"});
    server.serve(
        u"/tool.zip"_s,
        {.body = QByteArray(123456, 'z'), .type = "application/zip", .extent = WebServer::Extent::HalfHeld});
    server.serve(u"/offered.xml"_s, {.body = "<b/>", .type = "application/octet-stream"});
    server.serve(u"/icon.png"_s, {.body = picture(32, 48), .type = "image/png"});
    server.serve(u"/pad.xml"_s, {.body = "<a>\xc3\xa9 &amp;\r\n</a>", .type = "text/xml"});
    const std::pair<QString, QString> cases[] = {
        {u"/heavy"_s, u"200 at /heavy"_s},
        {u"/there"_s, u"200 at /heavy"_s},
        {u"/refresh"_s, u"200 at /heavy"_s},
        {u"/none"_s, u"404 at /none"_s},
        {u"/guard"_s, u"403 at /guard"_s},
        {u"/empty"_s, u"410 at /empty"_s},
        {u"/tool.zip"_s, u"200 at /tool.zip, a file of 123456"_s},
        {u"/offered.xml"_s, u"200 at /offered.xml, a file of 4: <b/>"_s},
        {u"/icon.png"_s, u"200 at /icon.png, 32 x 48"_s},
        {u"/pad.xml"_s, u"200 at /pad.xml: <a>\u00e9 &amp;\r\n</a>"_s},
    };
    for (const auto &[path, told] : cases)
        EXPECT_EQ(visit({.address = server.url(path), .wantsText = path.endsWith(u".xml")}), told);
    for (const QString &path : std::as_const(server.requests))
        EXPECT_TRUE(std::ranges::any_of(cases, [&path](const auto &each) { return each.first == path; }))
            << path << " was fetched though nobody asked for it";
    EXPECT_EQ(server.cookies, 0);
    EXPECT_EQ(names(temporary), QStringList()) << "a kill would leave it there";
    usual.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", usual);
    server.close();
    EXPECT_EQ(visit({.address = server.url(u"/heavy"_s)}), u"net::ERR_CONNECTION_REFUSED");
}

TEST_F(WebEngineVisitorTest, WhatComesOfAVisitThatWasGivenUpIsNoAnswerToTheNext)
{
    const VisitRequest first{.address = server.url(u"/first.xml"_s), .wantsText = true};
    const VisitRequest second{.address = server.url(u"/second.xml"_s), .wantsText = true};
    server.serve(u"/first.xml"_s, {.body = "<first/>", .type = "text/xml"});
    server.serve(u"/second.xml"_s, {.body = "<second/>", .type = "text/xml"});
    visitor->visit(first, [](const Visit &) { ADD_FAILURE() << "it was given up"; });
    ASSERT_TRUE(eventually([&] { return server.count(u"/first.xml"_s) == 1; }));
    server.serve(u"/first.xml"_s,
                 {.body = "<first/>", .type = "text/xml", .extent = WebServer::Extent::Held});
    ASSERT_TRUE(eventually([&] { return server.count(u"/first.xml"_s) == 2; })) << "its text is asked for";

    QString told;
    QEventLoop loop; // What is to be deleted stays until the loop around this one goes on.
    QTimer::singleShot(0, &loop, [&] {
        visitor->visit(second, [&](const Visit &visit) {
            told = described(visit, server.url({}));
            loop.quit();
        });
        server.release();
        loop.exec();
    });
    EXPECT_TRUE(eventually([&] { return !told.isEmpty(); }));
    EXPECT_EQ(told, u"200 at /second.xml: <second/>");
}

TEST_F(WebEngineVisitorTest, WithoutAFolderForItNothingIsStoredElsewhere)
{
    // The engine may just be storing something.
    ASSERT_TRUE(eventually([&] { return QDir(web()).removeRecursively() && put(web(), "in its place"); }));
    visitor = engine->newVisitor();
    server.serve(u"/tool.zip"_s, {.body = "zip", .type = "application/zip"});
    EXPECT_EQ(visit({.address = server.url(u"/tool.zip"_s), .wantsText = true}),
              u"200 at /tool.zip, a file of -1");
    EXPECT_TRUE(tree(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation)).isEmpty());
}

} // namespace quillon
