#include "store/error_tracking.h"
#include "submission/field_copy.h"
#include "submission/load_progress.h"
#include "submission/submission_sites_table.h"
#include "submission/submit_window_fixture.h"
#include "submission/tour_control.h"
#include "support/accessibility.h"
#include "support/listener.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>
#include <QToolTip>

TEST_F(SubmitWindowTest, ThePanelFillsFieldsOfEveryKind)
{
    const std::tuple<QString, QString, QString> cases[] = {
        {u"text"_s, u"companyNameButton"_s, u"Tom &amp; Sons"_s},
        {u"area"_s, u"pb80CharDescriptionButton"_s, u"First line\r\nsecond line"_s},
        {u"short"_s, u"companyNameButton"_s, u"Tom &"_s},
        {u"number"_s, u"sizeInBytesButton"_s, u"12345"_s},
        {u"digits"_s, u"companyCityTownButton"_s, {}},
        {u"date"_s, u"programReleaseDateButton"_s, {}}, // Takes dates of its own form only.
        {u"resists"_s, u"companyCityTownButton"_s, {}},
    };
    for (const auto &[field, button, received] : cases) {
        click(field);
        press(button);
        EXPECT_TRUE(visible<QPushButton>(button)->isChecked());
        EXPECT_NE(QApplication::focusWidget(), visible<QWidget>(button));
    }
    EXPECT_TRUE(eventually([] { return QApplication::clipboard()->text() == u"Leeds"; }))
        << "what a field refuses can be pasted elsewhere";
    click(u"send"_s);
    for (const auto &[field, button, received] : cases)
        EXPECT_EQ(posted(field), received) << field;
}

TEST_F(SubmitWindowTest, ButtonsFollowThePadFileAndStayOnOncePressed)
{
    const QStringList withValue = {u"companyName"_s,        u"companyCityTown"_s, u"programVersion"_s,
                                   u"programReleaseDate"_s, u"sizeInBytes"_s,     u"pb80CharDescription"_s,
                                   u"expireDate"_s};
    for (const FieldCopyButton &button : fieldCopyButtons) {
        const QString name = button.action.toString();
        EXPECT_EQ(window().findChild<QPushButton *>(name + u"Button")->isEnabled(), withValue.contains(name))
            << name;
    }
    const auto *company = visible<QPushButton>(u"companyNameButton"_s);
    const auto *town = visible<QPushButton>(u"companyCityTownButton"_s);
    EXPECT_EQ(town->accessibleDescription(), u"Leeds"_s);
    press(u"companyNameButton"_s);
    EXPECT_TRUE(eventually([] { return QApplication::clipboard()->text() == u"Tom &amp; Sons"; }));

    writeTo(pathIn(u"Mine"_s, title_folder::padFile), u"<City_Town>York</City_Town>"_s);
    press(u"companyNameButton"_s);
    press(u"companyCityTownButton"_s);
    EXPECT_TRUE(eventually([] { return QApplication::clipboard()->text() != u"Tom &amp; Sons"; }));
    EXPECT_EQ(QApplication::clipboard()->text(), u"York"_s) << "the file counts, as it is at the press";
    NotificationCenter::defaultCenter().post(notification::mwqnSClpd);
    EXPECT_EQ(town->accessibleDescription(), u"York"_s);
    EXPECT_FALSE(company->isEnabled());
    EXPECT_TRUE(company->isChecked());

    const QString file = pathIn(u"Mine"_s, title_folder::padFile);
    ASSERT_TRUE(QFile::remove(file) && QDir().mkpath(file));
    NotificationCenter::defaultCenter().post(notification::mwqnSClpd);
    EXPECT_TRUE(town->accessibleDescription().startsWith(u"Not read: " + file))
        << "what cannot be read is not called empty";
}

TEST_F(SubmitWindowTest, QuickPressesPasteEachItsOwnValue)
{
    ASSERT_TRUE(open(u"/form.html?busy"_s));
    click(u"text"_s);
    press(u"companyNameButton"_s);
    press(u"companyCityTownButton"_s);
    press(u"sizeInBytesButton"_s);
    const QString value = u"document.getElementById('text').value"_s;
    EXPECT_TRUE(eventually([&] { return ask(value).toString().endsWith(u"12345"); }));
    EXPECT_EQ(ask(value).toString(), u"Tom &amp; SonsLeeds12345"_s);
}

TEST_F(SubmitWindowTest, FramesAndPagesThatRedrawThemselvesAreFilled)
{
    ASSERT_TRUE(open(u"/frames.html"_s)) << "a frame that fails is no failed page";
    click(u"first"_s, u"frame"_s);
    press(u"companyNameButton"_s);
    const QString second = u"document.getElementById('frame').contentDocument.getElementById('%1').value"_s;
    EXPECT_TRUE(eventually([&] { return !ask(second.arg(u"first"_s)).toString().isEmpty(); }));
    click(u"second"_s, u"frame"_s);
    press(u"companyCityTownButton"_s);
    EXPECT_TRUE(eventually([&] { return !ask(second.arg(u"second"_s)).toString().isEmpty(); }));
    click(u"save"_s, u"frame"_s);
    EXPECT_EQ(posted(u"first"_s), u"Tom &amp; Sons"_s);
    EXPECT_EQ(posted(u"second"_s), u"Leeds"_s);

    click(u"page"_s, u"editor"_s);
    for (const QString &button : {u"companyNameButton"_s, u"companyCityTownButton"_s, u"sizeInBytesButton"_s})
        press(button);
    const QString edited = u"document.getElementById('editor').contentDocument.body.innerText"_s;
    EXPECT_TRUE(eventually([&] { return ask(edited).toString().contains(u"12345"); }));
    EXPECT_EQ(ask(edited).toString().trimmed(), u"Tom &amp; SonsLeeds12345"_s);
    EXPECT_TRUE(visible<QLabel>(u"notice"_s)->text().isEmpty());
}

TEST_F(SubmitWindowTest, APressWithoutAFieldSaysWhatToDo)
{
    auto *notice = visible<QLabel>(u"notice"_s);
    const auto pressAfterClick = [&](const QString &id) {
        click(id);
        press(u"companyNameButton"_s);
    };
    const auto tells = [&] { return notice->text().contains(u"click a field"); };
    press(u"companyNameButton"_s);
    EXPECT_TRUE(eventually(tells)) << "nothing has the focus";
    pressAfterClick(u"text"_s);
    EXPECT_TRUE(eventually([&] { return notice->text().isEmpty(); }));
    pressAfterClick(u"heading"_s);
    EXPECT_TRUE(eventually(tells)) << "there is a place in a text, but none to write";
}

TEST_F(SubmitWindowTest, FilesGoIntoTheFormWhenTheyAreChosen)
{
    ASSERT_TRUE(put(home() + u"/shot.png"_s, "picture"));
    const auto dialog = [] { return openWindow<QFileDialog>(); };
    // The engine waits for the answer, and with it this test: so the answers come from the event loop.
    QTimer answers;
    int asked = 0;
    QObject::connect(&answers, &QTimer::timeout, &answers, [&] {
        if (!dialog())
            return;
        EXPECT_EQ(dialog()->fileMode(), QFileDialog::ExistingFile) << "only one at a time";
        if (++asked == 1) {
            dialog()->reject();
            return;
        }
        auto *name = dialog()->findChild<QLineEdit *>(u"fileNameEdit"_s);
        name->setText(home() + u"/shot.png"_s);
        QTest::keyClick(name, Qt::Key_Return);
    });
    answers.start(10);
    click(u"file"_s);
    EXPECT_TRUE(eventually([&] { return asked == 1 && !dialog(); }));
    EXPECT_EQ(ask(u"document.getElementById('file').files.length"_s), 0);
    click(u"file"_s);
    EXPECT_TRUE(eventually([&] { return asked == 2 && !dialog(); }));
    click(u"send"_s);
    EXPECT_EQ(posted(u"file"_s), u"picture"_s);
}

TEST_F(SubmitWindowTest, SitesAreFoundSelectedAndMarked)
{
    auto *table = visible<QTableView>(u"sitesTableView"_s);
    const auto names = [&] {
        QStringList all;
        for (int row = 0; row < table->model()->rowCount(); ++row)
            all.append(table->model()->index(row, 0).data().toString());
        return all;
    };
    EXPECT_EQ(names(), QStringList({u"Alpha"_s, u"Beta"_s, u"gamma"_s}));
    EXPECT_EQ(window().windowTitle(), u"Submitting Mine"_s);
    auto *mark = visible<QPushButton>(u"markSubmittedButton"_s);
    auto *remove = visible<QPushButton>(u"removeMarkButton"_s);
    EXPECT_FALSE(remove->isEnabled());

    auto *filter = visible<QLineEdit>(u"sitesFilter"_s);
    QTest::keyClick(&window(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(filter, u"BET"_s);
    EXPECT_EQ(names(), QStringList{u"Beta"_s});
    EXPECT_EQ(visible<QLabel>(u"submittingToField"_s)->text(), u"Submitting To Alpha"_s)
        << "a site that is only hidden stays selected";
    QTest::keyClick(filter, Qt::Key_Return);
    ASSERT_TRUE(waitForPage(u"Windows"));
    EXPECT_EQ(visible<QLabel>(u"submittingToField"_s)->text(), u"Submitting To Beta"_s);
    EXPECT_EQ(mark->text(), u"Mark Re-Submitted"_s);
    filter->clear();
    EXPECT_EQ(table->currentIndex().data(), u"Beta"_s);

    const qsizetype loads = server.count(u"/windows.html"_s);
    const Listener listener;
    QTest::mouseClick(remove, Qt::LeftButton);
    EXPECT_EQ(mark->text(), u"Mark As Submitted"_s);
    EXPECT_FALSE(contentOf(pathIn(u"Mine"_s, title_folder::summaryFile)).contains(u"Beta"));
    QTest::keyClick(&window(), Qt::Key_M, Qt::ControlModifier);
    EXPECT_TRUE(
        contentOf(pathIn(u"Mine"_s, title_folder::summaryFile)).contains(u"<QN_SITES>Beta</QN_SITES>"));
    EXPECT_EQ(table->model()->index(1, SubmissionSitesTable::Status).data(Qt::AccessibleTextRole),
              u"Submitted at the current version"_s);
    EXPECT_EQ(server.count(u"/windows.html"_s), loads) << "the page stays";
    QStringList said = listener.said;
    said.removeAll(u"Loading has ended."_s); // Of the page before.
    EXPECT_EQ(said, QStringList({u"The mark is removed."_s, u"Marked as submitted."_s}));
}

TEST_F(SubmitWindowTest, ADoubleClickLeavesOneSiteOutOfTheTour)
{
    Summary summary;
    summary.version = u"2"_s;
    summary.sites = u"Alpha,Beta,gamma"_s;
    summary.versions = u"1,1,1"_s;
    writeTo(pathIn(u"Mine"_s, title_folder::summaryFile), summary_file::text(summary));
    NotificationCenter::defaultCenter().post(notification::mwqnLSLsc);
    ASSERT_TRUE(eventually([this] { return window().tour().line().startsWith(u"1 of 3"); }));
    auto *skip = visible<QPushButton>(u"tourSkipButton"_s);
    const QPointF middle = skip->rect().center();
    QTest::mouseClick(skip, Qt::LeftButton);
    QMouseEvent second(QEvent::MouseButtonDblClick, middle, skip->mapToGlobal(middle), Qt::LeftButton,
                       Qt::LeftButton, {});
    QApplication::sendEvent(skip, &second);
    QTest::mouseRelease(skip, Qt::LeftButton);
    EXPECT_TRUE(window().tour().line().startsWith(u"2 of 3")) << window().tour().line();
    QTest::mouseClick(skip, Qt::LeftButton);
    EXPECT_TRUE(window().tour().line().startsWith(u"3 of 3")) << window().tour().line();
}

TEST_F(SubmitWindowTest, ClosingStopsAndReopeningBringsItBack)
{
    server.serve(u"/slow"_s, {"late", "text/html", "200 OK", {}, WebServer::Extent::Held});
    visit(server.url(u"/slow"_s));
    EXPECT_TRUE(eventually([this] { return server.count(u"/slow"_s) == 1; }));
    window().resize(1111, 666);
    visible<QToolButton>(u"drawerButton"_s)->click();
    window().close();
    EXPECT_TRUE(eventually([this] { return !control().pageLoad().continueViewUpdate(); }));

    start();
    ask(u"setInterval(() => fetch('/tick'), 10)"_s);
    EXPECT_TRUE(eventually([this] { return server.count(u"/tick"_s) > 0; }));
    window().close();
    EXPECT_TRUE(eventually([] {
        const auto views = QApplication::allWidgets();
        return std::any_of(views.begin(), views.end(), [](QWidget *each) {
            auto *view = qobject_cast<QWebEngineView *>(each);
            return view && view->page()->lifecycleState() == QWebEnginePage::LifecycleState::Frozen;
        });
    }));
    submit();
    EXPECT_EQ(page().lifecycleState(), QWebEnginePage::LifecycleState::Active);
    EXPECT_EQ(window().size(), QSize(1111, 666));
    EXPECT_TRUE(visible<QWidget>(u"sitesDrawer"_s)) << "opening the window opens the drawer";

    ErrorTracking::setHasError(u"companyName"_s, u"message"_s);
    window().close();
    submit();
    answerAlert(u"Submit"_s);
    EXPECT_TRUE(visible<QLabel>(u"notLoadedHint"_s))
        << "with errors left no page is loaded, and the author is told";
}

TEST_F(SubmitWindowTest, ATitleThatIsRenamedLeavesNothingToMarkOrPaste)
{
    ASSERT_TRUE(AddDeleteImportEdit::renameExistingQnDataFile(u"Mine"_s, u"Other"_s));
    program().overview.deselectAll();
    program().overview.loadSoftwareList();
    EXPECT_EQ(window().windowTitle(), u"Submitting"_s);
    for (const QString &button : {u"markSubmittedButton"_s, u"removeMarkButton"_s, u"companyNameButton"_s,
                                  u"companyCityTownButton"_s})
        EXPECT_FALSE(visible<QPushButton>(button)->isEnabled()) << button;
    EXPECT_EQ(visible<QLabel>(u"sitesCount"_s)->text(), u"3 sites"_s);
    EXPECT_TRUE(visible<QWidget>(u"qnWebView"_s)) << "what is filled in there may still be wanted";
    const auto *hindrance = window().findChild<QLabel *>(u"hindrance"_s);
    ASSERT_TRUE(hindrance && hindrance->isVisible());
    EXPECT_TRUE(hindrance->text().contains(u"close this window"));

    window().close();
    program().overview.tableViewSelectionDidChange(0);
    submit();
    EXPECT_EQ(window().windowTitle(), u"Submitting Other"_s);
    EXPECT_FALSE(hindrance->isVisible());
    EXPECT_TRUE(visible<QPushButton>(u"markSubmittedButton"_s)->isEnabled());
    EXPECT_TRUE(visible<QPushButton>(u"companyCityTownButton"_s)->isEnabled());
}

TEST_F(SubmitWindowTest, AnotherTitleSelectedAfterErrorsBringsItsOwnValues)
{
    makeTitle(u"Second"_s, {}, {}, u"2"_s);
    writeTo(pathIn(u"Second"_s, title_folder::padFile), u"<City_Town>York</City_Town>"_s);
    selectTitle(u"Mine"_s);
    ErrorTracking::setHasError(u"companyName"_s, u"message"_s);
    window().close();
    submit();
    answerAlert(u"Submit"_s);
    const auto *hint = visible<QLabel>(u"notLoadedHint"_s);
    EXPECT_TRUE(hint->text().contains(u"errors are left"));
    const auto *company = visible<QPushButton>(u"companyNameButton"_s);
    const auto *town = visible<QPushButton>(u"companyCityTownButton"_s);
    EXPECT_TRUE(company->isEnabled());

    program().overview.loadSoftwareList();
    const auto row = program().overview.softwareTable().swNameArray().indexOf(u"Second"_s);
    program().overview.tableViewSelectionDidChange(int(row));
    EXPECT_EQ(window().windowTitle(), u"Submitting Second"_s);
    EXPECT_FALSE(company->isEnabled());
    EXPECT_EQ(town->accessibleDescription(), u"York"_s);
    EXPECT_FALSE(hint->text().contains(u"errors are left"));
    EXPECT_TRUE(hint->text().contains(u"press Submit"));
}

TEST_F(SubmitWindowTest, SitesWithoutAMarkAreQuietAndLongNamesEndInDots)
{
    auto *table = visible<QTableView>(u"sitesTableView"_s);
    const auto ink = [&](int row) {
        const QModelIndex status = table->model()->index(row, SubmissionSitesTable::Status);
        const QImage cell = table->viewport()->grab(table->visualRect(status)).toImage();
        int pixels = 0;
        for (int at = 0; at < cell.width() * cell.height(); ++at)
            pixels += cell.pixel(at % cell.width(), at / cell.width()) != cell.pixel(1, 1);
        return pixels;
    };
    EXPECT_GT(ink(2), 0);
    EXPECT_GT(ink(1), 4 * ink(2)) << "of hundreds of sites the marked ones are to be seen";

    auto *label = visible<QLabel>(u"submittingToField"_s);
    const auto tip = [&] {
        QHelpEvent help(QEvent::ToolTip, {5, 5}, label->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(label, &help);
        return QToolTip::text();
    };
    EXPECT_EQ(tip(), QString());
    const QString longName = u"Submitting To <b>"_s + QString(900, u'x');
    label->setText(longName);
    EXPECT_TRUE(tip().contains(longName.toHtmlEscaped()));
    EXPECT_LE(window().minimumSizeHint().width(), 1280);
}

TEST_F(SubmitWindowTest, KeysReachEverythingAndEveryStopHasAName)
{
    EXPECT_TRUE(QRect(0, 0, 1280, 720).contains(QRect({0, 0}, window().minimumSizeHint())));
    EXPECT_EQ(accessibilityFaults(window()), QStringList());
    QSet<QAction *> inMenus;
    for (const QMenu *menu : window().menuBar()->findChildren<QMenu *>()) {
        for (QAction *action : menu->actions())
            inMenus.insert(action);
    }
    for (QAction *action : window().actions())
        EXPECT_TRUE(inMenus.contains(action)) << action->objectName() << " cannot be found";
    const auto role = [](QObject *widget) { return QAccessible::queryAccessibleInterface(widget)->role(); };
    EXPECT_EQ(role(window().findChild<QWidget *>(u"webViewLoadProgress"_s)), QAccessible::Animation);
    for (QWidget *each : QApplication::topLevelWidgets()) {
        const bool isPopUp = each->objectName() == u"popUpBrowserWindow";
        EXPECT_TRUE(!isPopUp || role(each) == QAccessible::Window);
    }
    auto *bar = visible<QWidget>(u"progressBarView"_s);
    QAccessibleInterface *told = QAccessible::queryAccessibleInterface(bar);
    EXPECT_EQ(told->role(), QAccessible::ProgressBar);
    ASSERT_TRUE(told->valueInterface());
    load_progress::updateRectProgress(0, 0, bar->width() / 2, load_progress::frameHeight);
    EXPECT_NEAR(told->valueInterface()->currentValue().toInt(), 50, 1);
    click(u"text"_s);
    ask(u"keys = 0; addEventListener('keydown', () => ++keys)"_s);
    QSet<QWidget *> stops;
    for (QWidget *stop = QApplication::focusWidget(); !stops.contains(stop);
         stop = QApplication::focusWidget()) {
        stops.insert(stop);
        QTest::keyClick(stop, Qt::Key_Tab);
        // The page has its own stops, and gives the key back after the last of them.
        const bool isPage = visible<QWidget>(u"qnWebView"_s)->isAncestorOf(stop);
        for (int keys = 1; isPage && QApplication::focusWidget() == stop; ++keys) {
            ASSERT_TRUE(eventually([&] { return ask(u"keys"_s) == keys; }));
            if (QApplication::focusWidget() == stop)
                QTest::keyClick(stop, Qt::Key_Tab);
        }
    }
    EXPECT_GE(stops.size(), 8);

    ASSERT_TRUE(open(u"/form.html"_s));
    click(u"text"_s);
    QTest::keyClick(&window(), Qt::Key_J, Qt::ControlModifier);
    QTest::keyClicks(visible<QLineEdit>(u"fieldFilter"_s), u"town"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(visible<QLineEdit>(u"fieldFilter"_s)->text(), QString()) << "the next field may be any";
    EXPECT_TRUE(eventually([] { return ask(u"document.getElementById('text').value"_s) == u"Leeds"_s; }));
    EXPECT_TRUE(visible<QWidget>(u"qnWebView"_s)->isAncestorOf(QApplication::focusWidget()));

    QTest::keyClick(&window(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_NEAR(page().zoomFactor(), 1.1, 0.01);
    QTest::keyClick(&window(), Qt::Key_0, Qt::ControlModifier);
    EXPECT_NEAR(page().zoomFactor(), 1.0, 0.01);
    const qsizetype loads = server.count(u"/form.html"_s);
    QTest::keyClick(&window(), Qt::Key_F5);
    EXPECT_TRUE(eventually([&] { return server.count(u"/form.html"_s) == loads + 1; }));
    ASSERT_TRUE(open(u"/windows.html"_s));
    QTest::keyClick(&window(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(waitForPage(u"Submit"));
    QTest::keyClick(&window(), Qt::Key_Right, Qt::AltModifier);
    EXPECT_TRUE(waitForPage(u"Windows"));
}
