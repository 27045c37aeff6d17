#include "controls/icon_cell.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "submission/data_folder_fixture.h"
#include "submission/fakes.h"
#include "submission/submit_control.h"
#include "submission/tour_control.h"
#include "support/recorders.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <QSignalSpy>

namespace {

/// A control over three sites, with a title selected that is marked for one.
class SubmitControlTest : public DataFolderTest
{
protected:
    void SetUp() override
    {
        DataFolderTest::SetUp();
        m_catalogue = {{u"alpha"_s, u"http://a/submit"_s},
                       {u"Beta"_s, u"http://b/submit"_s},
                       {u"Gamma"_s, u"http://g/submit"_s}};
        NotificationCenter &center = NotificationCenter::defaultCenter();
        center.addObserver(notification::mwqnPClSiL432ds, &m_observer,
                           [this] { mwqnSCPreallSitesDict = m_catalogue; });
        center.addObserver(notification::mwqnOvLSlst, &m_observer, [this] { ++m_listReloads; });
        center.addObserver(notification::mwqnRS87968tJHKgfds, &m_observer, [this] { ++m_closings; });
        makeTitle(u"Mine"_s, u"Beta"_s, u"1"_s, u"1"_s);
        m_control.awakeFromNib();
        m_control.pageLoad().windowDidResize({2, 3, 200.9, 22});
    }

    void openWindow()
    {
        mwqnWOSi78tgsda = false;
        NotificationCenter::defaultCenter().post(notification::mwqnLSLsc);
    }
    [[nodiscard]] BrowserDelegate &engine() const { return *m_browser.delegate; }
    [[nodiscard]] QString stateAt(int row)
    {
        const QModelIndex status = m_control.sites().table().index(row, SubmissionSitesTable::Status);
        return status.data(IconsRole).toStringList().join(u' ');
    }

    QObject m_observer;
    StringDictionary m_catalogue;
    int m_listReloads = 0;
    int m_closings = 0;
    FakeBrowser m_browser;
    FakeBrowser m_popUp;
    FakeDesktop m_desktop;
    RecordingSheets m_alerts;
    ManualCalls m_calls;
    SubmitControl m_control{{m_browser, m_popUp, m_alerts, m_desktop, m_calls}};
    QAbstractItemModelTester m_tester{&m_control.sites().table()};
};

} // namespace

TEST_F(SubmitControlTest, AnOpenWindowLoadsEachSelectedSiteOnce)
{
    QSignalSpy drawer(&m_control, &SubmitControl::openSitesDrawer);
    NotificationCenter::defaultCenter().post(notification::mwqnLSLsc);
    EXPECT_EQ(drawer.count(), 0);
    EXPECT_TRUE(m_browser.loaded.isEmpty()) << "a closed window loads nothing";
    EXPECT_EQ(m_control.sites().selectedRow(), 0);

    openWindow();
    EXPECT_EQ(drawer.count(), 1);
    EXPECT_EQ(m_control.sites().submittedToArraySTR(), QStringList({u"0"_s, u"1"_s, u"0"_s}));
    EXPECT_EQ(stateAt(0) + stateAt(1) + stateAt(2), u"NotValidatedValidatedNotValidated");
    for (int time = 0; time < 2; ++time)
        m_control.tableViewSelectionDidChange(1);
    EXPECT_EQ(m_browser.loaded, QStringList({u"http://a/submit"_s, u"http://b/submit"_s}));

    m_control.windowWillClose();
    EXPECT_TRUE(mwqnWOSi78tgsda);
    EXPECT_EQ(m_closings, 1);
    m_control.tableViewSelectionDidChange(2);
    m_control.pageLoad().loadSiteToWebview(u"http://elsewhere/"_s);
    EXPECT_EQ(m_browser.loaded.size(), 2);
    EXPECT_EQ(m_control.sites().submittingToField(), u"Submitting To Gamma");

    m_control.tableViewSelectionDidChange(-1);
    m_control.markSubmitted();
    m_control.removeMark();
    EXPECT_EQ(m_listReloads, 0) << "without a site there is nothing to mark";
    EXPECT_TRUE(m_control.reloadWebView());
}

TEST_F(SubmitControlTest, MarkingKeepsThePageAndTheSelectedSite)
{
    openWindow();
    m_control.tableViewSelectionDidChange(2);
    m_control.markSubmitted();
    EXPECT_EQ(m_control.sites().markSubmittedButtonTitle(), u"Mark Re-Submitted");
    EXPECT_EQ(stateAt(2), u"Validated");
    EXPECT_EQ(m_listReloads, 1);
    EXPECT_FALSE(m_control.reloadWebView());

    m_catalogue.emplace(u"Aaa"_s, u"http://new"_s);
    QSignalSpy selection(&m_control.sites(), &SubmissionSites::selectedRowChanged);
    openWindow();
    ASSERT_EQ(selection.count(), 1);
    EXPECT_EQ(selection.first().first().toInt(), 3) << "the site moved down by one row";
    EXPECT_EQ(m_browser.loaded.size(), 2) << "the page on show stays";

    m_control.removeMark();
    EXPECT_EQ(m_control.sites().markSubmittedButtonTitle(), u"Mark As Submitted");
    EXPECT_EQ(stateAt(3), u"NotValidated");
    EXPECT_EQ(m_control.sites().submittedToArraySTR()[2], u"1") << "the other mark stays";
    EXPECT_EQ(m_listReloads, 2);

    m_catalogue.erase(u"Gamma"_s);
    openWindow();
    EXPECT_EQ(m_control.sites().selectedRow(), -1) << "no other site takes the place of one that is gone";
    m_control.markSubmitted();
    EXPECT_EQ(m_listReloads, 2);
}

TEST_F(SubmitControlTest, WithoutASummaryTheTableStaysAsItWas)
{
    openWindow();
    QFile::remove(pathIn(u"Mine"_s, title_folder::summaryFile));
    m_catalogue.erase(u"alpha"_s);
    QSignalSpy reset(&m_control.sites().table(), &QAbstractItemModel::modelReset);
    openWindow();
    EXPECT_EQ(m_control.sites().allSitesArray(), QStringList({u"Beta"_s, u"Gamma"_s}));
    EXPECT_EQ(m_control.sites().submittedToArraySTR().size(), 3);
    EXPECT_EQ(m_control.sites().table().rowCount(), 3);
    EXPECT_EQ(reset.count(), 0);
    m_control.markSubmitted();
    EXPECT_FALSE(QFileInfo::exists(pathIn(u"Mine"_s, title_folder::summaryFile))) << "none is made up";
}

TEST_F(SubmitControlTest, MarksThatCannotBeReadAreNotWrittenOver)
{
    const QString summary = pathIn(u"Mine"_s, title_folder::summaryFile);
    openWindow();
    EXPECT_EQ(m_control.hindrance(), QString());
    ASSERT_TRUE(QFile::rename(summary, summary + u".kept") && QDir().mkdir(summary));
    openWindow();
    EXPECT_TRUE(m_control.hindrance().startsWith(u"Nothing can be marked"));
    EXPECT_EQ(stateAt(1), QString()) << "no mark is shown that nobody knows";
    EXPECT_FALSE(m_control.canMark());
    m_control.markSubmitted();
    EXPECT_EQ(m_listReloads, 0);

    ASSERT_TRUE(QDir().rmdir(summary) && QFile::rename(summary + u".kept", summary));
    openWindow();
    EXPECT_TRUE(m_control.canMark());
    EXPECT_EQ(m_control.hindrance(), QString());
    EXPECT_EQ(stateAt(1), u"Validated");
    ASSERT_TRUE(QFile::rename(summary, summary + u".kept") && QDir().mkdir(summary));
    m_control.removeMark();
    EXPECT_FALSE(m_control.hindrance().isEmpty()) << "nor is a mark that fails passed over";

    ASSERT_TRUE(QDir().rmdir(summary) && QFile::rename(summary + u".kept", summary));
    m_catalogue.emplace(u"0, with a comma"_s, u"http://0"_s);
    openWindow();
    m_control.tableViewSelectionDidChange(0);
    m_control.markSubmitted();
    EXPECT_TRUE(m_control.hindrance().startsWith(u"A mark for 0, with a comma cannot be kept"));
    EXPECT_EQ(stateAt(0), u"NotValidated");
    m_control.tableViewSelectionDidChange(1);
    EXPECT_EQ(m_control.hindrance(), QString());

    const QString pad = pathIn(u"Mine"_s, title_folder::padFile);
    ASSERT_TRUE((!QFileInfo::exists(pad) || QFile::remove(pad)) && QDir().mkdir(pad));
    QSignalSpy nothing(&m_control.fieldCopyPanel(), &FieldCopyPanel::nothingPasted);
    NotificationCenter::defaultCenter().post(notification::mwqnSClpd);
    openWindow();
    EXPECT_TRUE(m_control.hindrance().startsWith(u"Nothing can be pasted"));
    m_control.fieldCopyPanel().press(0);
    EXPECT_EQ(nothing.count(), 1);
    EXPECT_EQ(m_browser.pasted, QStringList());
}

TEST_F(SubmitControlTest, ALoadMovesTheBarEveryFifthOfASecondUntilItEnds)
{
    using namespace std::chrono_literals;
    int displays = 0;
    NotificationCenter::defaultCenter().addObserver(notification::mwqnPVjhj342sa9, &m_observer,
                                                    [&displays] { ++displays; });
    openWindow();
    QSignalSpy focus(&m_control.pageLoad(), &PageLoad::focusSitesTable);
    QSignalSpy states(&m_control.pageLoad(), &PageLoad::loadStateChanged);
    m_browser.url = u"http://a/redirected"_s;
    m_browser.progress = 0.5;
    engine().didStartProvisionalLoad();
    engine().didStartProvisionalLoad();
    EXPECT_EQ(focus.count(), 2);
    EXPECT_EQ(m_control.pageLoad().urlField(), u"http://a/redirected");
    EXPECT_TRUE(m_control.pageLoad().continueViewUpdate());

    states.clear();
    m_calls.pass(199ms);
    EXPECT_EQ(states.count(), 0);
    m_calls.pass(1ms);
    EXPECT_EQ(states.count(), 1) << "a second start does not double the pace";
    EXPECT_EQ(m_control.pageLoad().webViewLoadProgress(), 0.5);
    EXPECT_EQ(progressBarState.width, 100.F) << "half of 200.9, cut to a whole number";
    EXPECT_FALSE(progressBarState.isReset);
    m_browser.progress = 0.75;
    m_calls.pass(600ms);
    EXPECT_EQ(states.count(), 4);
    EXPECT_EQ(progressBarState.width, 150.F);
    m_control.pageLoad().windowDidResize({2, 3, 101, 22});
    EXPECT_EQ(progressBarState.width, 75.F);

    engine().didFinishLoad();
    states.clear();
    m_calls.pass(600ms);
    EXPECT_EQ(states.count(), 0);
    EXPECT_FALSE(m_control.pageLoad().continueViewUpdate());
    EXPECT_TRUE(progressBarState.isReset);
    EXPECT_EQ(progressBarState.width, 101.F);
    EXPECT_EQ(displays, 1);

    m_control.windowWillClose();
    engine().didStartProvisionalLoad();
    EXPECT_FALSE(m_control.pageLoad().continueViewUpdate()) << "a closed window shows no progress";
}

TEST_F(SubmitControlTest, AFailedLoadShowsTheReasonAsPlainText)
{
    openWindow();
    m_browser.url = u"http://a/submit"_s;
    engine().didStartProvisionalLoad();
    engine().didFailLoad(u"no <b>host</b> & \"%1\""_s);
    ASSERT_EQ(m_browser.pages.size(), 1);
    EXPECT_EQ(m_browser.pages[0].second, u"http://a/submit");
    EXPECT_EQ(m_browser.pages[0].first.toUtf8(), sample(u"load_failed.html"_s).trimmed());
    EXPECT_FALSE(m_control.pageLoad().continueViewUpdate());
    EXPECT_TRUE(progressBarState.isReset);

    engine().didFailLoad(u"the page itself"_s);
    EXPECT_EQ(m_browser.pages.size(), 1) << "the error page is not tried again and again";
    engine().didFailLoad(u"later"_s);
    engine().didFinishLoad();
    engine().didFailLoad(u"another page"_s);
    EXPECT_EQ(m_browser.pages.size(), 3);
    m_control.tableViewSelectionDidChange(1);
    engine().didFailLoad(u"another site"_s);
    EXPECT_EQ(m_browser.pages.size(), 4);
}

TEST_F(SubmitControlTest, PagesMayAlertButNotForEver)
{
    for (int call = 0; call < 30; ++call)
        engine().runJavaScriptAlertPanel(QString(5000, u'x'));
    EXPECT_EQ(m_alerts.alerts.size(), 1) << "one sheet at a time";
    EXPECT_EQ(m_alerts.windows[0], SheetWindow::Submission);
    EXPECT_EQ(m_alerts.lastMessage(), u"JavaScript Alert");
    EXPECT_EQ(m_alerts.alerts[0].informativeText.size(), 2000);
    for (int answers = 0; answers < 30; ++answers) {
        m_alerts.answer(AlertAnswer::Default);
        engine().runJavaScriptAlertPanel(u"and another"_s);
    }
    EXPECT_EQ(m_alerts.alerts.size(), 10) << "a page cannot keep the author busy for ever";
    std::optional<bool> confirmed;
    engine().runJavaScriptConfirmPanel(u"Sure?"_s, [&](bool agreed) { confirmed = agreed; });
    EXPECT_EQ(confirmed, false) << "nor by asking";
    m_control.questions().authorActed();
    m_popUp.delegate->runJavaScriptAlertPanel(u"again"_s);
    EXPECT_EQ(m_alerts.alerts.size(), 11);

    m_popUp.delegate->didStartProvisionalLoad();
    m_popUp.delegate->didFailLoad(u"no"_s);
    EXPECT_TRUE(m_browser.pages.isEmpty() && m_popUp.pages.isEmpty());
}

TEST_F(SubmitControlTest, OnlyWebAddressesLeaveTheProgram)
{
    for (const QString &address :
         {u"javascript:alert(1)"_s, u"file:///etc/passwd"_s, u"mailto:a@b"_s, u"example.com"_s, u""_s,
          u"http://"_s, u"x-app://run"_s, u"http://example.com/a b"_s, u"HTTPS://example.com/"_s,
          u"ftp://example.com/"_s}) {
        m_control.pageLoad().setUrlField(address);
        m_control.pageLoad().openInDefaultBrowserAction();
    }
    EXPECT_EQ(m_desktop.opened,
              QStringList({u"http://example.com/a b"_s, u"https://example.com/"_s, u"ftp://example.com/"_s}));
}

TEST_F(SubmitControlTest, TheTourLeadsFromSiteToSiteAndGoesOnWhereItStopped)
{
    makeTitle(u"Old"_s, u"alpha,Beta,Gamma"_s, u"1,1,1"_s, u"2"_s);
    openWindow();
    const auto told = [this] {
        TourControl tour(m_control); // As in another run.
        tour.refresh();
        EXPECT_EQ(tour.isOffered(), !tour.line().isEmpty());
        return QString(tour.line())
            .remove(u" to bring up to date"_s)
            .remove(u"; what was sent then was not kept"_s);
    };
    TourControl tour(m_control);
    EXPECT_EQ(told(), u"1 of 3: has 1");
    tour.later();
    EXPECT_EQ(m_browser.loaded.last(), u"http://b/submit");
    EXPECT_EQ(told(), u"1 of 3: has 1");
    tour.next();
    EXPECT_EQ(told(), u"2 of 3: has 1");
    m_control.tableViewSelectionDidChange(-1);
    EXPECT_EQ(told(), u"2 of 3: Gamma has 1");
    tour.next();
    m_control.markSubmitted();
    EXPECT_EQ(m_browser.loaded.last(), u"http://g/submit") << "the page that was marked stays";
    EXPECT_EQ(told(), u"2 of 3: Beta has 1");
    tour.next();
    tour.skip();
    EXPECT_EQ(m_browser.loaded.last(), u"http://a/submit");
    EXPECT_EQ(told(), u"3 of 3: has 1");
    m_control.markSubmitted();
    EXPECT_EQ(told(), QString());

    const QString file = pathIn(u"Old"_s, title_folder::summaryFile);
    writeTo(file, contentOf(file).replace(u"<OTS_VERSION>2"_s, u"<OTS_VERSION>3"_s));
    m_control.tableViewSelectionDidChange(1);
    EXPECT_EQ(told(), u"2 of 3: has 1") << "another version is another tour, which follows the author";
    tour.next();
    EXPECT_EQ(told(), u"3 of 3: has 2; nothing has changed since then");
}
