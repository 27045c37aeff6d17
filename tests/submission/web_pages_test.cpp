#include "submission/engine_environment.h"
#include "submission/pop_up_window.h"
#include "submission/web_engine_page.h"
#include "submission/web_pages_fixture.h"
#include "support/listener.h"

#include <QSignalSpy>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>

#include <csignal>

TEST_F(WebPagesTest, WhatCannotBeLoadedShowsTheErrorPage)
{
    using Extent = WebServer::Extent;
    server.serve(u"/empty404"_s, {{}, "text/html", "404 Not Found"});
    server.serve(u"/half"_s, {QByteArray(4000, 'x'), "text/html", "200 OK", {}, Extent::Half});
    // Now and then the engine takes the address of a load back before it says that it has failed.
    QObject::connect(&page(), &QWebEnginePage::loadingChanged, &page(),
                     [](const QWebEngineLoadingInfo &info) {
                         if (info.status() == QWebEngineLoadingInfo::LoadStartedStatus)
                             Q_EMIT page().urlChanged({});
                     });
    const std::pair<QString, QString> cases[] = {
        {u"http://no-such-host.invalid/"_s, u"ERR_NAME_NOT_RESOLVED"_s},
        {u"http://127.0.0.1:1/"_s, u"ERR_UNSAFE_PORT"_s},
        {server.url(u"/empty404"_s), u"status 404"_s},
        {server.url(u"/half"_s), u"ERR_CONTENT_LENGTH_MISMATCH"_s},
        {u"file:///etc/hostname"_s, u"“file:”"_s},
        {u"javascript:alert(1)"_s, u"“javascript:”"_s},
        {u"ftp://127.0.0.1/pad.xml"_s, u"“ftp:”"_s},
        {u"http://"_s, u"not one of the web"_s},
    };
    for (const auto &[typed, reason] : cases) {
        const Listener listener;
        visit(typed);
        ASSERT_TRUE(waitForPage(errorTitle)) << typed;
        EXPECT_TRUE(pageText().contains(u"An error occurred while loading the page")) << typed;
        EXPECT_TRUE(pageText().contains(reason)) << pageText();
        EXPECT_EQ(address(), typed) << "the address that failed stays in sight";
        EXPECT_TRUE(eventually([] { return !isBusy(); }));
        const QString said = listener.said.value(listener.said.size() - 1);
        EXPECT_TRUE(said.startsWith(u"The page could not be loaded. ") && said.contains(reason))
            << said << ": that the error's page is there is no news";
        ASSERT_TRUE(open(u"/frames.html"_s));
        EXPECT_TRUE(eventually([&] { return listener.said.last() == u"Loading has ended."; }));
    }
    visit(server.url(u"/missing"_s));
    EXPECT_TRUE(eventually([] { return pageText().contains(u"No such page"); }))
        << "what the server says of a missing page is shown";
}

TEST_F(WebPagesTest, TheServerOfThePageIsUnmistakable)
{
    const auto host = [] {
        return visible<QWidget>(u"submitWindow"_s)->findChild<QLabel *>(u"pageHost"_s)->text();
    };
    server.serve(u"/slow"_s, {{}, "text/html", "200 OK", {}, WebServer::Extent::Held});
    server.serve(u"/%E2%80%AEmoc.knab"_s, {"<title>Turned</title>"});
    const std::pair<QString, QString> cases[] = {
        {u"http://www.bank.example@127.0.0.1:%1/form.html"_s, u"127.0.0.1:%1"_s},
        {u"http://www.bank.example%20%E2%80%AE:80@localhost:%1/form.html"_s, u"localhost:%1"_s},
        {u"http://\u0430pple.localhost:%1/form.html"_s, u"xn--pple-43d.localhost:%1"_s},
        {u"http://\uff45xample.localhost:%1/\u202emoc.knab"_s, u"example.localhost:%1"_s},
        {u"http://bank.example:1/"_s, u"bank.example:1"_s},
        {u"http://"_s, {}},
    };
    for (const auto &[typed, shown] : cases) {
        visit(QString(typed).replace(u"%1"_s, QString::number(server.serverPort())));
        const QString wanted = QString(shown).replace(u"%1"_s, QString::number(server.serverPort()));
        ASSERT_TRUE(eventually([&] { return host() == wanted && !page().isLoading(); }))
            << typed << ' ' << host();
        EXPECT_EQ(address(), QString::fromLatin1(address().toLatin1()))
            << "no look-alikes, nothing turned around";
    }
    ASSERT_TRUE(open(u"/windows.html"_s));
    const QString before = host();
    ask(u"location = URL.createObjectURL(new Blob(['<title>Made</title>'], {type: 'text/html'})); 0"_s);
    ASSERT_TRUE(waitForPage(u"Made"));
    EXPECT_EQ(host(), before);
    visit(server.url(u"/slow"_s).replace(u"127.0.0.1"_s, u"localhost"_s));
    ASSERT_TRUE(eventually([this] { return server.count(u"/slow"_s) == 1; }));
    EXPECT_EQ(host(), before) << "a page that says where it goes does not get there by that";
    EXPECT_TRUE(address().startsWith(u"http://localhost"));
    Q_EMIT page().linkHovered(u"http://www.bank.example@pages.example/\u202emoc.knab"_s);
    EXPECT_EQ(visible<QLabel>(u"notice"_s)->text(), u"http://pages.example/%E2%80%AEmoc.knab");
    const QString ending = u".pages.localhost:%1"_s.arg(server.serverPort());
    visit(u"http://www.bank.example."_s + QString(40, u'x') + ending);
    EXPECT_TRUE(eventually([&] { return host().startsWith(u'\u2026') && host().endsWith(ending); }))
        << host();
}

TEST_F(WebPagesTest, LoadsAreToldFromTheirBeginToTheirEnd)
{
    using Extent = WebServer::Extent;
    server.serve(u"/slow"_s, {"<title>Late</title>", "text/html", "200 OK", {}, Extent::Held});
    server.serve(u"/moved"_s, {{}, "text/html", "302 Found", "Location: /frames.html\r\n"});

    visit(server.url(u"/slow"_s));
    EXPECT_TRUE(eventually([this] { return isBusy() && server.count(u"/slow"_s) == 1; }));
    EXPECT_EQ(address(), server.url(u"/slow"_s));
    EXPECT_EQ(QApplication::focusWidget(), visible<QWidget>(u"sitesTableView"_s));
    visit(server.url(u"/frames.html"_s));
    ASSERT_TRUE(waitForPage(u"Frames")) << "a load that another one replaces is no failure";

    visit(server.url(u"/slow"_s));
    EXPECT_TRUE(eventually([this] { return server.count(u"/slow"_s) == 2; }));
    QTest::keyClick(&window(), Qt::Key_Escape);
    EXPECT_TRUE(eventually([] { return !isBusy(); }));
    EXPECT_EQ(page().title(), u"Frames"_s) << "nor is one that is stopped";
    EXPECT_EQ(address(), server.url(u"/frames.html"_s));

    visit(server.url(u"/slow"_s));
    EXPECT_TRUE(eventually([this] { return server.count(u"/slow"_s) == 3; }));
    server.release();
    EXPECT_TRUE(waitForPage(u"Late"));
    EXPECT_EQ(QApplication::focusWidget(), visible<QWidget>(u"sitesTableView"_s))
        << "nor does it take the keys";
    EXPECT_TRUE(eventually([] { return !isBusy(); }));
    visit(server.url(u"/moved"_s));
    ASSERT_TRUE(waitForPage(u"Frames"));
    EXPECT_EQ(address(), server.url(u"/frames.html"_s));
}

TEST_F(WebPagesTest, OfferedFilesAreShownAndNotStored)
{
    const QByteArray offer = "Content-Disposition: attachment; filename=\"a<b>.txt\"\r\n";
    server.serve(u"/text"_s, {"<b>1</b>,\"2\"\n\xc3\xa4", "text/csv"});
    server.serve(u"/long"_s, {QByteArray(3'000'000, ' ') + "end", "text/csv"});
    server.serve(u"/offered"_s, {"plain", "text/plain", "200 OK", offer});
    server.serve(u"/program"_s, {QByteArray(2048, '\1'), "application/octet-stream"});
    server.serve(u"/paper.pdf"_s, {"%PDF-1.4", "application/pdf"});
    const QStringList before = files();
    const QString offered = page().profile()->persistentStoragePath() + u"/offered";
    const QObject here;
    QObject::connect(
        page().profile(), &QWebEngineProfile::downloadRequested, &here, [&offered](auto *request) {
            EXPECT_EQ(request->downloadDirectory(), offered) << "elsewhere a kill would leave it for ever";
        });

    visit(server.url(u"/text"_s));
    EXPECT_TRUE(eventually([] { return pageText().contains(u"<b>1</b>,\"2\"\nä"); }));
    EXPECT_EQ(address(), server.url(u"/text"_s));
    visit(server.url(u"/offered"_s));
    EXPECT_TRUE(eventually([] { return pageText().contains(u"plain\n") || pageText().endsWith(u"plain"); }));
    for (const auto &[path, words] : QList<std::pair<QString, QStringList>>{
             {u"/program"_s, {u"program"_s, u"application/octet-stream"_s, u"2.00 KiB"_s}},
             {u"/paper.pdf"_s, {u"paper.pdf"_s, u"application/pdf"_s}}}) {
        visit(server.url(path));
        for (const QString &word : words)
            EXPECT_TRUE(eventually([&] { return pageText().contains(word); })) << word;
    }
    visit(server.url(u"/long"_s));
    EXPECT_TRUE(eventually([] {
        return ask(u"document.getElementById('text')?.textContent.length ?? 0"_s).toInt() == longestShownText;
    }));
    EXPECT_EQ(files(), before);
    EXPECT_TRUE(eventually([&] { return tree(offered).isEmpty(); })) << "what was shown is not kept either";
    QTest::keyClick(&window(), Qt::Key_F5);
    EXPECT_TRUE(eventually([this] { return server.count(u"/long"_s) == 2; }))
        << "reloading asks the server again";
    server.serve(u"/moved"_s, {{}, "text/html", "302 Found", "Location: /text\r\n"});
    visit(server.url(u"/moved"_s));
    EXPECT_TRUE(eventually([] { return pageText().contains(u"<b>1</b>,"); }));
}

TEST_F(WebPagesTest, AnOfferedFileThatBreaksOffIsNotShownAsAWholeOne)
{
    server.serve(u"/half"_s, {QByteArray(4000, 'x'), "text/csv", "200 OK", {}, WebServer::Extent::Half});
    visit(server.url(u"/half"_s));
    ASSERT_TRUE(eventually([] { return !isBusy() && pageText().contains(u"half"); })) << pageText();
    EXPECT_TRUE(pageText().contains(u"could not be fetched")) << pageText();
    EXPECT_TRUE(pageText().contains(u"3.91 KiB")) << "what the server says of its size";
    const QString offered = page().profile()->persistentStoragePath() + u"/offered";
    EXPECT_TRUE(eventually([&] { return tree(offered).isEmpty(); }));
}

TEST_F(WebPagesTest, OfferedFilesTakeThePlaceOfNoForm)
{
    server.serve(u"/program"_s, {QByteArray(2048, '\1'), "application/octet-stream"});
    for (int i = 0; i < 200; ++i)
        server.serve(u"/program?%1"_s.arg(i), {"\1", "application/octet-stream"});
    server.serve(u"/advert"_s, {"<title>Advert</title><iframe src='/program'></iframe>"});
    server.serve(u"/late.csv"_s,
                 {QByteArray(4000, 'x'), "text/csv", "200 OK", {}, WebServer::Extent::HalfHeld});
    ASSERT_TRUE(open(u"/advert"_s));
    EXPECT_TRUE(eventually([] {
        return visible<QLabel>(u"notice"_s)->text().contains(u"“program”") || page().title() != u"Advert";
    }));
    ASSERT_EQ(page().title(), u"Advert"_s) << "a frame's file";

    QSignalSpy offered(page().profile(), &QWebEngineProfile::downloadRequested);
    visit(server.url(u"/late.csv"_s));
    EXPECT_TRUE(eventually([&] { return offered.count() == 1; }));
    ASSERT_TRUE(open(u"/frames.html"_s));
    server.release();
    ASSERT_TRUE(open(u"/form.html"_s)) << "a file that the author has left meanwhile";
    ask(u"for (let i = 0; i < 200; ++i) document.body.append(Object.assign(document.createElement('iframe'),"
        "{ src: '/program?' + i })); 0"_s);
    EXPECT_TRUE(eventually([&] { return offered.count() == 201; }));
    offered.clear();
    EXPECT_EQ(page().title(), u"Submit"_s);

    ask(u"document.getElementById('heading').onclick = () => window.open('/late.csv'); 0"_s);
    click(u"heading"_s);
    EXPECT_TRUE(eventually([&] { return offered.count() == 1 && openWindow<PopUpWindow>(); }));
    press(u"closePopUpWindowButton"_s);
    server.release();
    EXPECT_TRUE(open(u"/frames.html"_s)) << "nor one whose window is gone";
}

TEST_F(WebPagesTest, OtherWindowsAreOneWindow)
{
    const QString popUp = u"popUpWebView"_s;
    ASSERT_TRUE(open(u"/windows.html"_s));
    click(u"link"_s);
    ASSERT_TRUE(eventually([] { return openWindow<PopUpWindow>() != nullptr; }));
    ASSERT_TRUE(waitForPage(u"Submit", popUp));
    EXPECT_EQ(page().title(), u"Windows"_s);
    EXPECT_EQ(visible<QLabel>(u"popUpAddress"_s)->text(), server.url(u"/form.html"_s));
    EXPECT_EQ(visible<QLabel>(u"popUpHost"_s)->text(), u"127.0.0.1:%1"_s.arg(server.serverPort()));

    click(u"text"_s, {}, popUp);
    press(u"companyNameButton"_s);
    EXPECT_TRUE(eventually([&] {
        return ask(u"document.getElementById('text').value"_s, popUp) == u"Tom &amp; Sons"_s;
    })) << "values go to the page that the author works in";
    EXPECT_EQ(ask(u"document.getElementById('text').value"_s), QString());

    click(u"open"_s);
    ASSERT_TRUE(waitForPage(u"Windows", popUp));
    click(u"link"_s, {}, popUp);
    ASSERT_TRUE(waitForPage(u"Submit", popUp)) << "a window of the window takes its place";
    for (int time = 0; time < 2; ++time) {
        press(u"closePopUpWindowButton"_s);
        EXPECT_EQ(openWindow<PopUpWindow>(), nullptr);
        click(u"named"_s);
        ASSERT_TRUE(eventually([] { return openWindow<PopUpWindow>() != nullptr; })) << time;
        ASSERT_TRUE(waitForPage(u"Submit", popUp));
    }
    ASSERT_TRUE(open(u"/windows.html"_s));
    click(u"open"_s);
    ASSERT_TRUE(waitForPage(u"Windows", popUp));
    click(u"post"_s, {}, popUp);
    EXPECT_EQ(posted(u"kept"_s), u"all"_s) << "a form of the window's";
    press(u"closePopUpWindowButton"_s);

    click(u"open"_s);
    ASSERT_TRUE(eventually([] { return openWindow<PopUpWindow>() != nullptr; }));
    ASSERT_TRUE(waitForPage(u"Windows", popUp));
    click(u"close"_s, {}, popUp);
    EXPECT_TRUE(eventually([] { return openWindow<PopUpWindow>() == nullptr; }));
    click(u"text"_s);
    press(u"companyCityTownButton"_s);
    click(u"report"_s);
    EXPECT_EQ(posted(u"text"_s), u"Leeds"_s);
    // The page asks before it is left; it is not heard.
    EXPECT_TRUE(open(u"/frames.html"_s));
}

TEST_F(WebPagesTest, ScriptsMayTellAndAsk)
{
    ASSERT_TRUE(open(u"/windows.html"_s));
    click(u"alert"_s);
    EXPECT_EQ(posted(u"alert"_s), u"went on"_s) << "no script waits for the author to read";
    EXPECT_EQ(answerAlert(u"OK"_s), u"JavaScript Alert|Some <b>text</b>"_s);

    for (const auto &[button, answer] :
         QList<std::pair<QString, QString>>{{u"OK"_s, u"true"_s}, {u"Cancel"_s, u"false"_s}}) {
        server.forget();
        // The engine waits for the answer, and with it this test: so the answer comes from the event loop.
        QTimer answers;
        QObject::connect(&answers, &QTimer::timeout, &answers, [button = button] {
            const QString texts = clickAlert(button);
            EXPECT_TRUE(texts.isNull() || texts == u"JavaScript Confirm|Sure?") << texts;
        });
        answers.start(10);
        click(u"confirm"_s);
        EXPECT_EQ(posted(u"confirm"_s), answer);
    }

    click(u"open"_s);
    ASSERT_TRUE(eventually([] { return openWindow<PopUpWindow>() != nullptr; }));
    ASSERT_TRUE(waitForPage(u"Windows", u"popUpWebView"_s));
    QTimer closer; // The window is closed first, and then the sheet.
    QObject::connect(&closer, &QTimer::timeout, &closer, [] {
        if (openWindow<QMessageBox>() && openWindow<PopUpWindow>())
            press(u"closePopUpWindowButton"_s);
        else
            clickAlert(u"OK"_s);
    });
    closer.start(10);
    page(u"popUpWebView"_s).runJavaScript(u"confirm('Sure?')"_s);
    EXPECT_TRUE(eventually([] { return !openWindow<PopUpWindow>() && !openWindow<QMessageBox>(); }));
    EXPECT_TRUE(open(u"/frames.html"_s));
}

TEST_F(WebPagesTest, ADeadRendererIsAnErrorThatReloadingMends)
{
    for (int time = 0; time < 2; ++time) {
        ASSERT_GT(page().renderProcessPid(), 0);
        const QByteArray status = contents(u"/proc/%1/status"_s.arg(page().renderProcessPid()));
        EXPECT_TRUE(status.contains("Seccomp:\t2") || !sandboxWarning().isEmpty()) << status;
        EXPECT_EQ(window().findChild<QLabel *>(u"pageWarning"_s)->isVisible(), !sandboxWarning().isEmpty());
        kill(pid_t(page().renderProcessPid()), SIGKILL);
        ASSERT_TRUE(waitForPage(errorTitle));
        EXPECT_TRUE(pageText().contains(u"ended unexpectedly"));
        EXPECT_EQ(address(), server.url(u"/form.html"_s));
        QTest::keyClick(&window(), Qt::Key_F5);
        ASSERT_TRUE(waitForPage(u"Submit"));
    }
    click(u"text"_s);
    press(u"companyCityTownButton"_s);
    EXPECT_TRUE(eventually([] { return ask(u"document.getElementById('text').value"_s) == u"Leeds"_s; }));
}
