#include "platform/plain_text.h"
#include "platform/web_address.h"
#include "submission/address_catcher.h"
#include "submission/browser_loading.h"
#include "submission/engine_environment.h"
#include "submission/pop_up_window.h"
#include "submission/web_engine_page.h"
#include "submission/web_pages_fixture.h"
#include "support/faults.h"
#include "support/markup.h"
#include "widgets/qt_desktop.h"

#include <QHelpEvent>
#include <QSignalSpy>
#include <QSslKey>
#include <QSslServer>
#include <QSslSocket>
#include <QStandardPaths>
#include <QTextDocument>
#include <QToolTip>
#include <QWebEngineCertificateError>
#include <QWebEngineClientCertificateStore>
#include <QWebEngineProfile>

TEST_F(WebPagesTest, ASiteThatWantsALogInIsAskedOnce)
{
    server.serve(u"/private"_s,
                 {"<p>Members only</p>", "text/html", "401 No", "WWW-Authenticate: Basic realm=\"x\"\r\n"});
    visit(server.url(u"/private"_s));
    EXPECT_TRUE(eventually([] { return pageText().contains(u"Members only"); }));
    EXPECT_EQ(server.count(u"/private"_s), 1);
}

TEST_F(WebPagesTest, PagesGoToPagesOfTheWebOnly)
{
    AddressCatcher catcher;
    ASSERT_TRUE(open(u"/windows.html"_s));
    const struct
    {
        QString address;
        bool isTold; // Else the engine refuses it before it asks.
    } cases[] = {{u"mailto:a@host.example"_s, true},
                 {u"smb://host.example/x"_s, true},
                 {u"tel:110"_s, true},
                 {u"data:text/html,x"_s, false},
                 {u"qrc:/icons/quillon.svg"_s, false},
                 {u"file:///etc/hostname"_s, false},
                 {u"chrome://version"_s, false},
                 {u"view-source:about:blank"_s, false},
                 {u"devtools://devtools"_s, false}};
    for (const auto &[address, isTold] : cases) {
        visible<QLabel>(u"notice"_s)->clear();
        ask(u"Object.assign(document.createElement('a'), { href: '%1' }).click(); 0"_s.arg(address));
        const QString kind = u"“%1:”"_s.arg(QUrl(address).scheme());
        EXPECT_TRUE(!isTold || eventually([&] {
            return visible<QLabel>(u"notice"_s)->text().contains(kind);
        })) << address;
        EXPECT_EQ(ask(u"document.title"_s), u"Windows"_s) << address;
    }
    EXPECT_EQ(catcher.opened, QStringList());
}

TEST_F(WebPagesTest, ServersAreKnownByGoodCertificatesAndLearnNoneOfTheAuthors)
{
    QFile file(QStringLiteral(QUILLON_SAMPLES "/self_signed.pem"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray pem = file.readAll();
    const QSslCertificate certificate(pem);
    const QSslKey key(pem, QSsl::Ec);
    QSslServer secure;
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(certificate);
    configuration.setPrivateKey(key);
    configuration.setPeerVerifyMode(QSslSocket::QueryPeer);
    secure.setSslConfiguration(configuration);
    int answered = 0;
    QObject::connect(&secure, &QTcpServer::pendingConnectionAvailable, &secure, [&] {
        auto *connection = static_cast<QSslSocket *>(secure.nextPendingConnection());
        QObject::connect(connection, &QIODevice::readyRead, connection, [&, connection] {
            ++answered;
            EXPECT_TRUE(connection->peerCertificate().isNull());
            connection->write("HTTP/1.1 200 OK\r\nContent-Length: 21\r\n\r\n<title>Secret</title>");
        });
    });
    ASSERT_TRUE(secure.listen(QHostAddress::LocalHost));
    const QString address = u"https://127.0.0.1:%1/"_s.arg(secure.serverPort());
    visit(address);
    ASSERT_TRUE(waitForPage(errorTitle));
    EXPECT_TRUE(pageText().contains(u"ERR_CERT_AUTHORITY_INVALID")) << pageText();
    EXPECT_EQ(answered, 0);

    int asked = 0;
    QObject::connect(&page(), &QWebEnginePage::selectClientCertificate, &secure, [&asked] { ++asked; });
    page().profile()->clientCertificateStore()->add(certificate, key);
    QObject::connect(&page(), &QWebEnginePage::certificateError, &secure,
                     [](QWebEngineCertificateError error) { error.acceptCertificate(); });
    visit(address);
    EXPECT_TRUE(waitForPage(u"Secret")) << pageText();
    EXPECT_GT(answered, 0);
    EXPECT_GT(asked, 0) << "there was one to send";
}

TEST_F(WebPagesTest, PagesGetNothingFromTheDesktop)
{
    QApplication::clipboard()->setText(u"secret"_s);
    server.serve(u"/worker.js"_s, {";", "text/javascript"});
    const QString file = home() + u"/chosen.txt";
    ASSERT_TRUE(put(file, "the author's"));
    QTimer author; // Chooses the file for whoever asks; the engine waits for it, and with it this test.
    QPointer<QFileDialog> last;
    int dialogs = 0;
    QObject::connect(&author, &QTimer::timeout, &author, [&] {
        auto *dialog = openWindow<QFileDialog>();
        if (!dialog || dialog == last)
            return;
        last = dialog;
        ++dialogs;
        enterPath(file);
    });
    author.start(10);
    ASSERT_TRUE(open(u"/curious.html"_s));
    click(u"ask"_s);
    for (const QString &what :
         {u"save"_s, u"write"_s, u"clipboard"_s, u"execPaste"_s, u"file"_s, u"place"_s, u"camera"_s,
          u"notification"_s, u"fullscreen"_s, u"mouse"_s, u"screen"_s, u"midi"_s, u"quota"_s, u"room"_s,
          u"program"_s, u"disk"_s, u"network"_s, u"worker"_s})
        EXPECT_EQ(posted(what), u"refused"_s) << what;
    EXPECT_EQ(page().title(), u"Curious"_s);
    EXPECT_EQ(dialogs, 1) << "for a file to read, and none for one to write";
    EXPECT_EQ(contents(file), "the author's");

    QWebEnginePage plain(page().profile()); // Goes wherever it is told to.
    QSignalSpy ended(&plain, &QWebEnginePage::loadFinished);
    plain.load(QUrl(u"web+form:x"_s));
    EXPECT_TRUE(eventually([&] { return ended.count() > 0; }));
    EXPECT_EQ(server.count(u"/handled?web%2Bform%3Ax"_s), 0) << "no page opens addresses of a kind";
}

TEST_F(WebPagesTest, AFrameFromElsewhereStoresNothing)
{
    server.serve(u"/store"_s,
                 {"<script>document.cookie = 'a=1; SameSite=None; Secure'; let kept = '';"
                  "try { localStorage.a = 1; kept = 'local'; } catch {}"
                  "const tell = more => top.postMessage(`${document.cookie} ${kept} ${more}`, '*');"
                  "const ask = indexedDB.open('a'); ask.onsuccess = () => tell('database'); ask.onerror = () "
                  "=> tell('')</script>"});
    for (const auto &[host, stored] :
         {std::pair(u"127.0.0.1"_s, u"a=1 local database"_s), {u"localhost"_s, u"  "_s}}) {
        const QString frame = server.url(u"/store"_s).replace(u"127.0.0.1"_s, host);
        server.serve(u"/around"_s,
                     {"<title>Around</title><script>told = ''; onmessage = event => told = event.data"
                      "</script><iframe src='" +
                      frame.toUtf8() + "'></iframe>"});
        ASSERT_TRUE(open(u"/around"_s));
        EXPECT_TRUE(eventually([] { return !ask(u"told"_s).toString().isEmpty(); }));
        EXPECT_EQ(ask(u"told"_s), stored) << host;
    }
}

TEST_F(WebPagesTest, WhatPagesStoreIsBoundedAndCanBeCleared)
{
    const QString kept = u"document.cookie + localStorage.a"_s;
    const QDir folder(QFileInfo(settings().fileName()).path() + u"/Quillon-web"_s);
    ASSERT_TRUE(open(u"/windows.html"_s));
    ask(u"document.cookie = 'a=1; max-age=9999'; localStorage.a = 2; 0"_s);
    window().findChild<QAction *>(u"clearPagesData"_s)->trigger();
    answerAlert(u"Cancel"_s);
    ASSERT_TRUE(open(u"/windows.html"_s));
    EXPECT_EQ(ask(kept), u"a=12"_s);
    window().findChild<QAction *>(u"clearPagesData"_s)->trigger();
    answerAlert(u"Clear"_s);
    ASSERT_TRUE(waitForPage(u"Windows")) << "the page is loaded anew";
    EXPECT_EQ(ask(kept), u"undefined"_s);

    ask(u"document.cookie = 'a=1; max-age=9999'; 0"_s);
    ask(u"caches.open('a').then(all => all.put('/a', new Response(new Uint8Array(70e6)))); 0"_s);
    ASSERT_TRUE(waitForPage(errorTitle));
    EXPECT_TRUE(pageText().contains(u"stored more than 64 MB"));
    start();
    ASSERT_TRUE(open(u"/windows.html"_s));
    EXPECT_EQ(ask(kept), u"undefined"_s);
    EXPECT_EQ(folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList(u"3"_s));
    EXPECT_FALSE(QFileInfo::exists(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)))
        << "something was stored where it is not cleared";
    const QString left = folder.filePath(u"4/offered/1.download"_s); // Of a later run that was killed.
    ASSERT_TRUE(folder.mkpath(u"4/offered"_s) && put(left, "x"));
    start();
    EXPECT_FALSE(QFile::exists(left));
}

TEST_F(WebPagesTest, WhatCannotBeClearedOfPagesIsTold)
{
    const QString folder = QFileInfo(settings().fileName()).path() + u"/Quillon-web"_s;
    {
        const FaultPlan plan(folder, "unlink+=EACCES");
        window().findChild<QAction *>(u"clearPagesData"_s)->trigger();
        EXPECT_TRUE(eventually([] { return !clickAlert(u"Clear"_s).isNull(); }));
        EXPECT_TRUE(eventually([&] { return plan.met(); }));
    }
    EXPECT_TRUE(eventually([] { return openWindow<QMessageBox>() != nullptr; }));
    EXPECT_TRUE(answerAlert(u"OK"_s).contains(folder + u"/1"));
}

TEST(WebEngineEnvironmentTest, OpensNoPagesToOthersAndHidesNoMissingSandbox)
{
    const QByteArray sandboxVariable = "QTWEBENGINE_DISABLE_SANDBOX";
    const struct
    {
        QByteArray variable, value;
        bool stays, warns;
    } cases[] = {
        {"QTWEBENGINE_REMOTE_DEBUGGING", "9222", false, false},
        {"QTWEBENGINEPROCESS_PATH", "/bin/false", false, false},
        {"QTWEBENGINE_CHROMIUM_FLAGS", "--no-sandbox --remote-debugging-port=9222", false, false},
        {"QTWEBENGINE_CHROMIUM_FLAGS", "--remote-deb\"ugging-pipe\"", false, false},
        {"QTWEBENGINE_CHROMIUM_FLAGS", "--renderer-cmd-prefix=/bin/false", false, false},
        {"QTWEBENGINE_CHROMIUM_FLAGS", "--browser-subprocess-path=/bin/false", false, false},
        {"QTWEBENGINE_CHROMIUM_FLAGS", "--gpu-launcher=/bin/false", false, false},
        {"QTWEBENGINE_CHROMIUM_FLAGS", "--disable-gpu", true, false},
        {"QTWEBENGINE_CHROMIUM_FLAGS", "--no\"-sandbox\"", true, true},
        {sandboxVariable, "1", true, true},
    };
    const QByteArray before = qgetenv(sandboxVariable.constData());
    qunsetenv(sandboxVariable.constData());
    for (const auto &each : cases) {
        qputenv(each.variable.constData(), each.value);
        testing::internal::CaptureStderr();
        prepareEngineEnvironment();
        const QByteArray said = QByteArray::fromStdString(testing::internal::GetCapturedStderr());
        if (each.variable != sandboxVariable)
            qunsetenv(sandboxVariable.constData()); // For root it was set.
        EXPECT_EQ(qEnvironmentVariableIsSet(each.variable.constData()), each.stays) << each.value;
        EXPECT_EQ(said.contains(each.variable), !each.stays) << each.value;
        EXPECT_EQ(said.contains("sandbox"), each.warns || geteuid() == 0) << each.value;
        EXPECT_EQ(sandboxWarning(false).isEmpty(), !each.warns) << each.value;
        qunsetenv(each.variable.constData());
    }
    EXPECT_FALSE(sandboxWarning(true).isEmpty());
    if (!before.isEmpty())
        qputenv(sandboxVariable.constData(), before);
    qputenv("QTWEBENGINE_REMOTE_DEBUGGING", "9222");
    (void)loadBrowserModule(browserModulePath());
    EXPECT_FALSE(qEnvironmentVariableIsSet("QTWEBENGINE_REMOTE_DEBUGGING")) << "before the engine starts";
}

TEST_F(WebPagesTest, WindowsOpenForThePressesOfTheAuthorOnly)
{
    const QString popUp = u"popUpWebView"_s;
    auto *filter = visible<QLineEdit>(u"sitesFilter"_s);
    ASSERT_TRUE(open(u"/windows.html"_s));
    ask(u"tries = 0; setInterval(() => { ++tries; open('/form.html'); document.forms[0].submit();"
        "document.links[0].dispatchEvent(new MouseEvent('click', { ctrlKey: true })); }, 50); 0"_s);
    filter->setFocus();
    EXPECT_TRUE(eventually([] { return ask(u"tries"_s).toInt() > 5; }));
    EXPECT_EQ(openWindow<PopUpWindow>(), nullptr);
    EXPECT_EQ(ask(u"open('/form.html') === null"_s), true) << "the script gets none to write into either";

    ASSERT_TRUE(open(u"/windows.html"_s));
    click(u"text"_s);
    ask(u"onclick = () => { setTimeout(() => open('/windows.html?again'), 300);"
        "[1, 2].forEach(n => setTimeout(() => { document.links[0].href = '/form.html?' + n;"
        "document.links[0].dispatchEvent(new MouseEvent('click', { ctrlKey: true })); }, 300 + 300 * n)); }; 0"_s);
    visible<QLabel>(u"notice"_s)->clear(); // The page before may have tried until it had gone.
    click(u"text"_s);
    filter->setFocus();
    ASSERT_TRUE(eventually([] { return openWindow<PopUpWindow>() != nullptr; }));
    EXPECT_TRUE(eventually([&] {
        return server.count(u"/form.html?1"_s) > 0 ||
               visible<QLabel>(u"notice"_s)->text().contains(u"wanted to open a window");
    }));
    EXPECT_EQ(server.count(u"/form.html?1"_s), 0) << "one window for each press";
    EXPECT_EQ(QApplication::focusWidget(), filter) << "what the author types in keeps the keyboard";
    ASSERT_TRUE(waitForPage(u"Windows", popUp));
    const QString host = unmistakableHost(QUrl(server.url({})));
    ASSERT_EQ(openWindow<PopUpWindow>()->windowTitle(), host + u" – “Windows”");
    ask(u"document.title = 'Quillon\\u202e[*]' + 'x'.repeat(300)"_s, popUp);
    EXPECT_TRUE(eventually(
        [&] { return openWindow<PopUpWindow>()->windowTitle().startsWith(host + u" – “Quillon [*]"); }));
    EXPECT_LT(openWindow<PopUpWindow>()->windowTitle().size(), 150);
    const QWidget *panel = visible<QWidget>(u"fieldCopyPanel"_s);
    EXPECT_FALSE(openWindow<PopUpWindow>()->frameGeometry().intersects(
        QRect(panel->mapToGlobal(QPoint()), panel->size())))
        << "the window lies beside the panel that it needs";
}

/// Names of strangers are plain text in the windows of pages.
class PagesMarkupTest : public WebPagesTest
{
protected:
    void prepare() override
    {
        WebPagesTest::prepare();
        NotificationCenter::defaultCenter().addObserver(notification::mwqnPClSiL432ds, &m_names, [this] {
            mwqnSCPreallSitesDict.insert_or_assign(markup, server.url(u"/form.html"_s));
        });
        makeTitle(markup); // Which comes before the other one in the list.
        writeTo(pathIn(markup, title_folder::padFile),
                u"<XML_DIZ_INFO><Company_Name>%1</Company_Name><Company_WebSite_URL>http://host.example/%1"
                "</Company_WebSite_URL></XML_DIZ_INFO>"_s.arg(markup.toHtmlEscaped()));
    }
    /// What is wrong in the windows that lie over the one for submitting, which are closed then.
    QStringList faultsAbove(int expected)
    {
        QStringList faults;
        for (QWidget *over : QApplication::topLevelWidgets()) {
            if (over->isVisible() && over != &window()) {
                faults += markupFaults(*over);
                over->close();
                --expected;
            }
        }
        return expected == 0 ? faults
                             : faults + QStringList{u"%1 windows more were expected"_s.arg(expected)};
    }

private:
    QObject m_names;
};

TEST_F(PagesMarkupTest, IsNoneInTheSubmissionWindowAndItsDialogs)
{
    EXPECT_EQ(markupFaults(window()), QStringList());
    for (const QString &id : {u"ledger"_s, u"siteNotes"_s, u"checkSites"_s, u"checkTitle"_s}) {
        window().findChild<QAction *>(id)->trigger();
        EXPECT_EQ(faultsAbove(1), QStringList()) << id;
    }
    server.serve(u"/offered"_s, {"x", "text/csv"});
    ask(u"document.body.append(Object.assign(document.createElement('a'), { href: '/offered', "
        "download: '%1', id: 'offer' })); document.getElementById('offer').click(); 0"_s.arg(markup));
    EXPECT_TRUE(eventually([] { return visible<QLabel>(u"notice"_s)->text().contains(u"The page offers"); }));
    const QString summary = pathIn(markup, title_folder::summaryFile); // The tour names it when it is none.
    ASSERT_TRUE(QFile::remove(summary) && QDir().mkpath(summary));
    NotificationCenter::defaultCenter().post(notification::mwqnLSLsc);
    const auto *tour = window().findChild<QLabel *>(u"tourLine"_s);
    EXPECT_TRUE(eventually([&] { return tour->text().contains(markup); }));
    EXPECT_EQ(markupFaults(window()), QStringList());
}

TEST_F(PagesMarkupTest, IsNoneInWhatPagesNameAndSay)
{
    const QString popUp = u"popUpWebView"_s;
    server.serve(
        u"/named"_s,
        {"<title>Named</title><style>* { display: block; min-height: 30px }</style><p id=tip>Text</p>"
         "<label id=label><input></label><button id=other>Other</button><script>"
         "hold = text => { tip.title = label.firstChild.before(text) ?? text; other.onclick = () => "
         "window.open('/named#' + text); document.title = text; }</script>"});
    ASSERT_TRUE(open(u"/named"_s));
    ask(u"hold('%1')"_s.arg(markup));
    window().findChild<QAction *>(u"fillForm"_s)->trigger();
    const auto *fields = visible<QTableView>(u"formFields"_s);
    ASSERT_TRUE(eventually([&] { return fields->model()->rowCount() == 1; }));
    EXPECT_TRUE(fields->model()->index(0, 0).data().toString().contains(markup));
    EXPECT_EQ(faultsAbove(1), QStringList());

    click(u"tip"_s);
    ASSERT_TRUE(eventually([] { return !visible<QWebEngineView>(u"qnWebView"_s)->toolTip().isEmpty(); }));
    QHelpEvent help(QEvent::ToolTip, {}, {});
    QApplication::sendEvent(visible<QWebEngineView>(u"qnWebView"_s)->focusProxy(), &help);
    EXPECT_EQ(QToolTip::text(), plainToolTip(markup));

    click(u"other"_s);
    ASSERT_TRUE(eventually([] { return openWindow<PopUpWindow>() != nullptr; }));
    ASSERT_TRUE(waitForPage(u"Named", popUp));
    ask(u"hold('%1')"_s.arg(markup), popUp);
    EXPECT_TRUE(eventually([] { return openWindow<PopUpWindow>()->windowTitle().contains(markup); }));
    EXPECT_EQ(faultsAbove(1), QStringList());

    QStringList said;
    QTimer author; // A page that asks is waited for.
    QObject::connect(&author, &QTimer::timeout, &author, [&said] {
        if (auto *sheet = openWindow<QMessageBox>())
            said += markupFaults(*sheet) + QStringList{clickAlert(u"OK"_s)};
    });
    author.start(10);
    ask(u"setTimeout(() => { alert('%1'); confirm('%1'); }); 0"_s.arg(markup));
    EXPECT_TRUE(eventually([&said] { return said.size() > 1; }));
    said.sort(); // A page does not wait for the end of an alert.
    EXPECT_EQ(said, QStringList({u"JavaScript Alert|"_s + markup, u"JavaScript Confirm|"_s + markup}));
}

TEST_F(WebPagesTest, WhatAPageSaysIsNoMarkup)
{
    ASSERT_TRUE(open(u"/windows.html"_s));
    ask(u"setTimeout(() => alert('<a href=\"file:///\">Go</a> <img src=\"/etc/x.png\">')); 0"_s);
    ASSERT_TRUE(eventually([] { return openWindow<QMessageBox>() != nullptr; }));
    for (const QLabel *label : openWindow<QMessageBox>()->findChildren<QLabel *>())
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text();
    answerAlert(u"OK"_s);

    AddressCatcher catcher;
    for (const QString &scheme : AddressCatcher::schemes())
        QtDesktop().openWebAddress(QUrl(scheme + u"://host.example/x"_s));
    EXPECT_EQ(catcher.opened, QStringList({u"ftp://host.example/x"_s, u"http://host.example/x"_s,
                                           u"https://host.example/x"_s}));
    for (const QString &text : {u"a\nb"_s, u"  two  blanks"_s, u"<b>&amp;"_s}) {
        QTextDocument document;
        document.setHtml(plainToolTip(text));
        EXPECT_EQ(document.toPlainText(), text);
    }
}

TEST_F(WebPagesTest, APageThatDoesNotAnswerCanBeEnded)
{
    ASSERT_TRUE(open(u"/windows.html"_s));
    ask(u"setTimeout(() => { for (const end = Date.now() + 30000; Date.now() < end;); "
        "document.title = 'Done'; }); 0"_s);
    auto *end = window().findChild<QPushButton *>(u"endPageButton"_s);
    ASSERT_TRUE(eventually([end] { return end->isVisible() || page().title() == u"Done"; }));
    ASSERT_NE(page().title(), u"Done") << "nothing was said meanwhile";
    QTest::mouseClick(end, Qt::LeftButton);
    ASSERT_TRUE(waitForPage(errorTitle));
    EXPECT_TRUE(pageText().contains(u"was ended"));
    EXPECT_FALSE(end->isVisible());
    QTest::keyClick(&window(), Qt::Key_F5);
    EXPECT_TRUE(waitForPage(u"Windows"));
}

TEST_F(WebPagesTest, APageThatWasLeftOwesNoAnswer)
{
    ASSERT_TRUE(open(u"/windows.html"_s));
    ask(u"setTimeout(() => { for (const end = Date.now() + 8000; Date.now() < end;); }); 0"_s);
    QTest::qWait(2000); // It is asked every second.
    visit(server.url(u"/form.html"_s).replace(u"127.0.0.1"_s, u"localhost"_s));
    ASSERT_TRUE(waitForPage(u"Submit"));
    const auto *end = window().findChild<QPushButton *>(u"endPageButton"_s);
    EXPECT_TRUE(eventually([end] { return !end->isVisible(); }));
    QTest::qWait(6000);
    EXPECT_FALSE(end->isVisible());
}
