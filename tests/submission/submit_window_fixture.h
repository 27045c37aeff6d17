#pragma once

#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "submission/data_folder_fixture.h"
#include "submission/submit_program.h"
#include "support/program_test.h"
#include "support/web_server.h"

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTableView>
#include <QWebEngineLoadingInfo>
#include <QWebEnginePage>
#include <QWebEngineView>

namespace quillon {

/// The submission window as the program opens it, on a title "Mine", with sites on a server of the test's
/// own; what a page is given is read from what it posts there.
class SubmitWindowTest : public ProgramTest<SubmitProgram, DataFolderTest>
{
protected:
    void prepare() override
    {
        using namespace Qt::StringLiterals;
        NotificationCenter::defaultCenter().addObserver(notification::mwqnPClSiL432ds, &m_observer, [this] {
            mwqnSCPreallSitesDict = {{u"Alpha"_s, server.url(u"/form.html"_s)},
                                     {u"Beta"_s, server.url(u"/windows.html"_s)},
                                     {u"gamma"_s, server.url(u"/frames.html"_s)}};
        });
        makeTitle(u"Mine"_s, u"Beta"_s, u"1.0"_s, u"1.0"_s);
        writeTo(pathIn(u"Mine"_s, title_folder::padFile), pad);
    }
    /// The window is opened by the toolbar's item, and the first site's page is there.
    void start() override
    {
        using namespace Qt::StringLiterals;
        ProgramTest::start();
        ASSERT_TRUE(
            eventually([&] { return window().findChild<QWebEngineView *>(u"qnWebView"_s) != nullptr; }));
        ASSERT_TRUE(waitForPage(u"Submit"));
    }
    void submit() { program().toolbar.submitTBI(); }

    SubmitWindow &window() { return *program().submission.window(); }
    SubmitControl &control() { return window().control(); }
    static QWebEnginePage &page(const QString &view = QStringLiteral("qnWebView"))
    {
        return *visible<QWebEngineView>(view)->page();
    }

    /// Puts @p address into the address field, as an author does.
    void visit(const QString &address)
    {
        auto *field = visible<QLineEdit>(QStringLiteral("urlField"));
        field->selectAll();
        field->insert(address);
        QTest::keyClick(field, Qt::Key_Return);
    }
    bool waitForPage(QStringView title, const QString &view = QStringLiteral("qnWebView"))
    {
        return eventually([&] { return page(view).title() == title && !page(view).isLoading(); });
    }
    /// Visits a page of the server and waits for it.
    bool open(const QString &path)
    {
        // The end of the load before may be told late.
        const qsizetype asked = server.requests.size();
        bool isThere = false;
        const auto watch = QObject::connect(
            &page(), &QWebEnginePage::loadingChanged, &m_observer, [&](const QWebEngineLoadingInfo &info) {
                isThere = isThere || (info.status() == QWebEngineLoadingInfo::LoadSucceededStatus &&
                                      server.requests.size() > asked && info.url() == QUrl(server.url(path)));
            });
        visit(server.url(path));
        const bool opened = eventually([&] { return isThere; });
        QObject::disconnect(watch);
        return opened;
    }

    /// What @p script comes to in the page.
    static QVariant ask(const QString &script, const QString &view = QStringLiteral("qnWebView"))
    {
        const auto answer = std::make_shared<std::optional<QVariant>>();
        page(view).runJavaScript(script, [answer](const QVariant &value) { *answer = value; });
        EXPECT_TRUE(eventually([&] { return answer->has_value(); })) << script;
        return answer->value_or(QVariant());
    }
    static QString pageText(const QString &view = QStringLiteral("qnWebView"))
    {
        return ask(QStringLiteral("document.body.innerText"), view).toString();
    }

    /// Clicks the page's element @p id with the mouse; @p frame is the one that it lies in.
    static void click(const QString &id, const QString &frame = {},
                      const QString &view = QStringLiteral("qnWebView"))
    {
        const QString find =
            frame.isEmpty() ? QStringLiteral("let d = document, x = 0, y = 0;")
                            : QStringLiteral("let f = document.getElementById('%1'), d = f.contentDocument, "
                                             "b = f.getBoundingClientRect(), x = b.x + 2, y = b.y + 2;")
                                  .arg(frame);
        const QVariantList place =
            ask(QStringLiteral("(() => { %1 const e = d.getElementById('%2'); e.scrollIntoView();"
                               "e.addEventListener('mousemove', () => moved = true); moved = false;"
                               "const r = e.getBoundingClientRect();"
                               "return [x + r.x + r.width / 2, y + r.y + r.height / 2]; })()")
                    .arg(find, id),
                view)
                .toList();
        ASSERT_EQ(place.size(), 2) << id;
        QPoint point(place[0].toInt(), place[1].toInt());
        // The engine drops what comes before a page's first picture.
        ASSERT_TRUE(eventually([&] {
            moveMouse(view, point);
            point.rx() ^= 1; // The engine also drops a move to where the mouse is.
            return ask(QStringLiteral("moved"), view).toBool();
        })) << id;
        QTest::mouseClick(visible<QWebEngineView>(view)->focusProxy(), Qt::LeftButton, {}, point);
        ask(QStringLiteral("0"), view); // The page has had the click.
    }
    /// Waits for the post of a form or a report that has @p field, and gives its value.
    QString posted(const QString &field)
    {
        EXPECT_TRUE(eventually([&] { return server.posted(field) != u"(no such field)"; })) << field;
        return server.posted(field);
    }

    WebServer server;

private:
    static void moveMouse(const QString &view, const QPoint &point)
    {
        QWidget *target = visible<QWebEngineView>(view)->focusProxy();
        QMouseEvent move(QEvent::MouseMove, point, target->mapToGlobal(point), Qt::NoButton, {}, {});
        QApplication::sendEvent(target, &move);
    }

    static inline const QString pad = QStringLiteral(
        "<XML_DIZ_INFO><Company_Name>Tom &amp; Sons</Company_Name><City_Town>Leeds</City_Town>"
        "<Program_Version>1.0</Program_Version><File_Size_Bytes>12345</File_Size_Bytes>"
        "<Program_Release_Month>07</Program_Release_Month><Program_Release_Day>04</Program_Release_Day>"
        "<Program_Release_Year>2009</Program_Release_Year><Char_Desc_80>First line\nsecond "
        "line</Char_Desc_80>"
        "<Keywords> \n</Keywords><EULA></EULA><Expire_Year>x</Expire_Year></XML_DIZ_INFO>");

    QObject m_observer;
};

} // namespace quillon
