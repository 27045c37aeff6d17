#include "submission/browser_loading.h"
#include "submission/browser_module.h"
#include "support/gui.h"
#include "support/temporary_home.h"
#include "support/web_server.h"
#include "widgets/qt_desktop.h"

#include <QBuffer>
#include <QImage>

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

using WebEngineVisitorTest = TemporaryDataFolder;

TEST_F(WebEngineVisitorTest, ItTellsWhatIsThereAndFetchesNothingElse)
{
    const auto module = loadBrowserModule(browserModulePath());
    ASSERT_TRUE(module) << module.error().reason;
    QtDesktop desktop;
    const auto engine = (*module)->newEngine(home() + u"/web"_s, desktop);
    const auto visitor = engine->newVisitor();

    WebServer server;
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
    const auto visit = [&](const VisitRequest &request) {
        std::optional<Visit> result;
        visitor->visit(request, [&result](const Visit &visit) { result = visit; });
        EXPECT_TRUE(eventually([&result] { return result.has_value(); })) << request.address;
        return described(result.value_or(Visit()), server.url({}));
    };
    for (const auto &[path, told] : cases)
        EXPECT_EQ(visit({.address = server.url(path), .wantsText = path.endsWith(u".xml")}), told);
    for (const QString &path : std::as_const(server.requests))
        EXPECT_TRUE(std::ranges::any_of(cases, [&path](const auto &each) { return each.first == path; }))
            << path << " was fetched though nobody asked for it";
    EXPECT_EQ(server.cookies, 0);
    server.close();
    EXPECT_EQ(visit({.address = server.url(u"/heavy"_s)}), u"net::ERR_CONNECTION_REFUSED");
}

} // namespace quillon
