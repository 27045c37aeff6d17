#include "ledger/matrix_window.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "platform/settings.h"
#include "shell/site_jump.h"
#include "store/process_state.h"
#include "submission/browser_module.h"
#include "submission/data_folder_fixture.h"
#include "submission/submit_program.h"
#include "support/gui.h"
#include "support/web_server.h"

#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QTableView>

/// Submitting in a process that has started without a web engine, as the program does.
class SubmissionOpenerTest : public DataFolderTest
{
protected:
    void SetUp() override
    {
        DataFolderTest::SetUp();
        setSettingsHome(home());
        NotificationCenter::defaultCenter().addObserver(notification::mwqnPClSiL432ds, &m_observer, [this] {
            mwqnSCPreallSitesDict = {{u"Alpha"_s, server.url(u"/form.html"_s)},
                                     {u"Beta"_s, server.url(u"/windows.html"_s)}};
        });
        makeTitle(u"Mine"_s, u"Beta"_s, u"1.0"_s, u"1.0"_s);
        writeTo(pathIn(u"Mine"_s, title_folder::padFile),
                u"<City_Town>Leeds</City_Town><File_Size_Bytes>9</File_Size_Bytes><Primary_Download_URL>"_s +
                    server.url(u"/tool.zip"_s) + u"</Primary_Download_URL>"_s);
    }

    WebServer server;

private:
    QObject m_observer;
};

TEST_F(SubmissionOpenerTest, WithoutTheEngineItSaysWhatToDoAndAllElseGoesOn)
{
    QByteArray needsAnother = contents(browserModulePath());
    ASSERT_GT(needsAnother.replace("WebEngineWidgets.so.6", "WebEngineWidgets.so.0").count("so.0"), 0);
    const std::tuple<QString, QByteArray, QString> cases[] = {
        {u"missing.so"_s, {}, u"install the package quillon-browser"_s},
        {u"strange.so"_s, "not a library", u"strange.so"_s},
        {u"needs-another.so"_s, needsAnother, u"install the package libqt6webenginewidgets6"_s},
    };
    for (const auto &[name, bytes, told] : cases) {
        const QString module = home() + u'/' + name;
        ASSERT_TRUE(bytes.isEmpty() || put(module, bytes));
        SubmitProgram program(module);
        const QString says = answerAlert(u"OK"_s);
        EXPECT_TRUE(says.contains(told)) << says;
        EXPECT_EQ(program.submission.window(), nullptr) << "also when it was shown before the engine failed";
        EXPECT_TRUE(mwqnWOSi78tgsda) << "another title can be selected";
        EXPECT_TRUE(program.overview.fileMenu().isEnabled(FileMenu::Edit));
        program.toolbar.submitTBI();
        EXPECT_EQ(answerAlert(u"OK"_s), says);
    }
}

TEST_F(SubmissionOpenerTest, TheWindowIsOfUseBeforeItsEngineHasCome)
{
    SubmitProgram program;
    SubmitWindow &window = *program.submission.window();
    const auto hasPages = [&window] { return window.findChild<QWidget *>(u"qnWebView"_s) != nullptr; };
    ASSERT_TRUE(window.isVisible() && !hasPages());
    program.submission.close();
    QTest::qWait(50);
    EXPECT_FALSE(hasPages()) << "nobody waits for a page behind a closed window";

    program.toolbar.submitTBI();
    window.findSite();
    QTest::keyClicks(window.focusWidget(), u"be"_s);
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    press(u"companyCityTownButton"_s);
    EXPECT_EQ(visible<QLabel>(u"notice"_s)->text(), u"Nothing was pasted: the page is not there yet.");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall); // The load has begun, for the author.
    window.findField();
    QTest::keyClicks(window.focusWidget(), u"version"_s);
    ASSERT_FALSE(hasPages());
    ASSERT_TRUE(eventually([&] { return server.count(u"/windows.html"_s) == 1; }));
    ASSERT_TRUE(eventually([&] { return !window.browser().isLoading(); }));
    EXPECT_EQ(window.browser().currentUrl(), server.url(u"/windows.html"_s));
    EXPECT_EQ(server.count(u"/form.html"_s), 0) << "another site was chosen in time";
    auto *filter = visible<QLineEdit>(u"fieldFilter"_s);
    EXPECT_EQ(filter->text(), u"version");
    EXPECT_TRUE(filter->hasFocus()) << "what is typed goes on where it began";
}

TEST_F(SubmissionOpenerTest, SitesAndAddressesOfTheTitleAreVisitedOnDemand)
{
    server.serve(u"/tool.zip"_s, {.body = "12345678", .type = "application/zip"});
    SubmitProgram program;
    SubmitWindow &window = *program.submission.window();
    ASSERT_TRUE(eventually([&] { return server.count(u"/form.html"_s) == 1; }));
    const std::tuple<QString, QString, QString> cases[] = {
        {u"checkSites"_s, u"Beta"_s, u"reachable|The page is there."_s},
        {u"checkTitle"_s, u"Primary download"_s, u"differs|The file has 8 bytes, and the title states 9."_s},
    };
    for (const auto &[command, what, found] : cases) {
        window.findChild<QAction *>(command)->trigger();
        auto *check = window.findChild<QDialog *>(u"onlineCheckWindow"_s);
        const QAbstractItemModel &table = *visible<QTableView>(u"onlineCheck"_s)->model();
        const auto cell = [&table](int column) { return table.index(0, column).data().toString(); };
        EXPECT_EQ(std::pair(table.rowCount(), cell(0)), std::pair(1, what));
        EXPECT_EQ(cell(1), QString()) << "nothing is visited unasked";
        press(u"visitNowButton"_s);
        ASSERT_TRUE(eventually([&] { return !cell(1).isEmpty(); }));
        EXPECT_EQ(cell(1) + u'|' + cell(2), found);
        check->close();
        ASSERT_TRUE(eventually([&] { return !window.findChild<QDialog *>(u"onlineCheckWindow"_s); }));
    }

    window.findChild<QAction *>(u"siteNotes"_s)->trigger();
    visible<QCheckBox>(u"siteIsGone"_s)->click();
    type(u"siteNote"_s, u"Since May"_s);
    QTest::keyClick(visible<QLineEdit>(u"siteNote"_s), Qt::Key_Return);
    window.findChild<QAction *>(u"siteNotes"_s)->trigger();
    EXPECT_EQ(visible<QLineEdit>(u"siteNote"_s)->text(), u"Since May");
    EXPECT_TRUE(visible<QCheckBox>(u"siteIsGone"_s)->isChecked());
}

TEST_F(SubmissionOpenerTest, TheMatrixLeadsToASiteOfAnotherTitle)
{
    makeTitle(u"Other"_s, u"Beta,Gone"_s, u"0.9,0.8"_s, u"1.0"_s);
    SubmitProgram program;
    program.submission.close();
    SiteJump jump(program.overview, program.toolbar, program.submission, program.sheets);
    MatrixWindow matrix(nullptr);
    QObject::connect(&matrix, &MatrixWindow::siteChosen, &jump, &SiteJump::go);
    matrix.show();
    type(u"matrixTitleFilter"_s, u"oth"_s);
    auto *table = visible<QTableView>(u"matrixTable"_s);
    EXPECT_EQ(visible<QLabel>(u"matrixCount"_s)->text().section(u'.', 0, 0),
              u"Titles: 1, sites: 2, to be brought up to date: 2");
    table->setCurrentIndex(table->model()->index(0, MatrixTable::FirstSite + 1));
    QTest::keyClick(table, Qt::Key_Return);
    EXPECT_TRUE(answerAlert(u"OK"_s).contains(u"Gone is no longer in the list of sites"_s));
    QTest::keyClick(table, Qt::Key_Left);
    QTest::keyClick(table, Qt::Key_Return);
    SubmitWindow &window = *program.submission.window();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(*mwqnSelSW, u"Other");
    EXPECT_EQ(window.control().sites().selectedSite(), u"Beta");
    makeTitle(u"Another"_s, u"Alpha"_s, u"0.9"_s, u"1.0"_s);
    matrix.load();
    const auto *rows = qobject_cast<MatrixTable *>(table->model());
    EXPECT_EQ(rows->titleAt(table->currentIndex().row()), u"Other") << "although rows have come before it";
    EXPECT_EQ(rows->siteAt(table->currentIndex().column()), u"Beta");
    jump.go(u"Other"_s, u"Alpha"_s);
    EXPECT_EQ(window.control().sites().selectedSite(), u"Alpha");
    jump.go(u"Mine"_s, u"Beta"_s);
    EXPECT_TRUE(answerAlert(u"OK"_s).contains(u"must be closed"_s));
    EXPECT_EQ(*mwqnSelSW, u"Other");
}
