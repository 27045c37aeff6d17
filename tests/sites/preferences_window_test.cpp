#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "shell/message_box_sheets.h"
#include "sites/preferences_controller.h"
#include "sites/preferences_window.h"
#include "store/site_list.h"
#include "store/storage_status.h"
#include "submission/data_folder_fixture.h"
#include "support/accessibility.h"
#include "support/program_test.h"
#include "support/recorders.h"

#include <QAbstractItemModelTester>
#include <QLabel>
#include <QProgressBar>
#include <QTableView>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillon {
namespace {

/// The real window and its sheets over a main window that is none; only the delays are the test's.
struct PreferencesProgram
{
    PreferencesProgram()
    {
        window = new PreferencesWindow(preferences, &mainWindow);
        sheets.setWidget(SheetWindow::Preferences, window);
        preferences.awakeFromNib();
        mainWindow.show();
        preferences.openPrefsWindow();
    }
    QWidget *shownWindow() { return window; }

    MessageBoxSheets sheets;
    ManualCalls calls;
    PreferencesController preferences{sheets, calls};
    QAbstractItemModelTester sitesTester{&preferences.sitesTable()};
    QAbstractItemModelTester ignoredTester{&preferences.ignoredTable()};
    QWidget mainWindow;
    PreferencesWindow *window;
};

class PreferencesWindowTest : public ProgramTest<PreferencesProgram, DataFolderTest>
{
protected:
    PreferencesController &preferences() { return program().preferences; }
    PreferencesWindow &window() { return *program().window; }
    void passDelay()
    {
        QApplication::processEvents(); // As would happen meanwhile.
        program().calls.pass(resultDelay);
    }
    /// What the result of a backup says, which comes after a delay.
    QString answerResult()
    {
        program().calls.pass(resultDelay - std::chrono::milliseconds(1));
        EXPECT_FALSE(openWindow<QMessageBox>());
        passDelay();
        return answerAlert(u"OK"_s);
    }
    /// A key that is a shortcut of the sites table, which a window has only while it is active.
    void pressInSites(Qt::Key key)
    {
        activate(window());
        sites()->setFocus();
        QTest::keyClick(sites(), key);
    }

    static QTableView *sites() { return visible<QTableView>(u"sitesTableView"_s); }
    static QTableView *ignored() { return visible<QTableView>(u"ignoreTableView"_s); }
    static QStringList namesIn(const QTableView *table)
    {
        QStringList names;
        for (int row = 0; row < table->model()->rowCount(); ++row)
            names.append(table->model()->index(row, SiteListTable::SiteName).data().toString());
        return names;
    }
    static QPoint placeOf(QTableView *table, const QString &site)
    {
        const QModelIndex index = table->model()->index(int(namesIn(table).indexOf(site)), 0);
        table->scrollTo(index);
        return table->visualRect(index).center();
    }
    static void click(QTableView *table, const QString &site, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(table->viewport(), Qt::LeftButton, keys, placeOf(table, site));
    }
    static bool isEnabled(const QString &button) { return visible<QPushButton>(button)->isEnabled(); }
    void save(const QString &name, const QString &url)
    {
        ASSERT_TRUE(isPanelOpen());
        activate(panel());
        type(u"siteNameField"_s, name);
        type(u"siteURLField"_s, url);
        QTest::keyClick(visible<QLineEdit>(u"siteURLField"_s), Qt::Key_Return);
    }
    QDialog &panel() { return *window().findChild<QDialog *>(u"addEditPanel"_s); }
    bool isPanelOpen() { return panel().isVisible(); }
    /// Keys go to the active window, which the desktop decides a little later than the program.
    static void activate(QWidget &window)
    {
        window.activateWindow();
        EXPECT_TRUE(eventually([&] { return QApplication::activeWindow() == &window; }));
    }
    void showBackups()
    {
        QTest::mouseClick(visible<QToolButton>(u"Backups"_s), Qt::LeftButton);
        EXPECT_EQ(preferences().currentPage(), PreferencesPage::Backups);
    }

    PostedNotifications posted{notification::mwqnLSLsc, notification::mwqnOCu432hjiudsh,
                               notification::mwqnOvLSlst};
};

TEST_F(PreferencesWindowTest, KeepsTheCatalogueForEverybody)
{
    EXPECT_EQ(namesIn(sites()).size(), 212);
    ASSERT_TRUE(site_list::write(site_list::userSites, {{u"Zeta"_s, u"u:z"_s}, {u"alpha"_s, u"u:a"_s}}));
    ASSERT_TRUE(site_list::write(site_list::ignoredSites,
                                 {{u"NewFreeDownloads"_s, mwqnDefaultSitesDict.at(u"NFD"_s)}}));
    NotificationCenter::defaultCenter().post(notification::mwqnPClSiL432ds);
    EXPECT_EQ(namesIn(sites()).first(2), QStringList({u"alpha"_s, u"Zeta"_s}));
    EXPECT_EQ(preferences().siteURLsMArray().first(2), QStringList({u"u:a"_s, u"u:z"_s}));
    EXPECT_EQ(namesIn(ignored()), QStringList({u"NewFreeDownloads"_s, u"NFD"_s}));
    EXPECT_EQ(ignored()->model()->index(1, SiteListTable::Url).data(), mwqnDefaultSitesDict.at(u"NFD"_s));
    EXPECT_EQ(preferences().siteURLDict(), mwqnSCPreallSitesDict);
    EXPECT_EQ(mwqnSCPreallSitesDict.size(), 212U);
}

TEST_F(PreferencesWindowTest, ASiteIsAddedAfterEveryRefusal)
{
    ASSERT_TRUE(site_list::write(site_list::userSites, {{u"<b>Mine"_s, u"http://mine/"_s}}));
    preferences().loadSitesIntoList();
    const QString name = u"siteNameField"_s, url = u"siteURLField"_s;
    const QString adding = u"Add A New Submission Site"_s, editing = u"Editing Submission Site"_s;
    const QString emptyNew = u"You must enter a name and URL to add an entry to the sites list"_s;
    const QString empty = u"The name and URL fields cannot be empty"_s;
    const QString nameExists = u"The site name already exists\nPlease enter a unique name for this site"_s;
    const QString urlExists = u"The entered URL is already associated with the site '<b>Mine'\n"
                              "Please enter a unique URL for this site"_s;
    const QString bothExist =
        u"The site name and URL you entered both exist\nPlease enter a unique name and URL"_s;
    const struct
    {
        QString title;
        QStringList typed; ///< Name and address.
        QString message, focus, selected;
    } refusals[] = {{adding, {u" "_s, u"a b"_s}, emptyNew, name, u" "_s},
                    {adding, {{}, {}}, emptyNew, name, {}},
                    {adding, {u"A"_s, {}}, emptyNew, url, u"http://"_s},
                    {adding, {u"<b>Mine"_s, u"a"_s}, nameExists, name, {}},
                    {adding, {u"A"_s, u"mine/"_s}, urlExists, url, {}},
                    {adding, {u"<b>Mine"_s, u"mine/"_s}, bothExist, name, {}},
                    {editing, {u" "_s, u"a"_s}, empty, name, u" "_s},
                    {editing, {u"A"_s, {}}, empty, url, u"http://"_s}};
    for (const auto &each : refusals) {
        SCOPED_TRACE(each.message.toStdString() + " for " + each.typed.join(u'|').toStdString());
        if (each.title == adding)
            press(u"addSiteButton"_s);
        else
            preferences().doubleClick(0);
        save(each.typed[0], each.typed[1]);
        program().calls.pass(std::chrono::seconds(5));
        EXPECT_FALSE(isPanelOpen()) << "the sheet is still there";
        EXPECT_EQ(answerAlert(u"OK"_s), each.message);
        program().calls.pass(resultDelay - std::chrono::milliseconds(1));
        EXPECT_FALSE(isPanelOpen());
        passDelay();
        ASSERT_TRUE(isPanelOpen());
        EXPECT_EQ(visible<QLabel>(u"addEditPanelTitle"_s)->text(), each.title);
        EXPECT_EQ(visible<QLineEdit>(name)->text(), each.typed[0]);
        EXPECT_EQ(visible<QLineEdit>(url)->text(),
                  u"http://"_s + QString(each.typed[1]).replace(u' ', u"%20"_s));
        EXPECT_TRUE(eventually([&] { return visible<QLineEdit>(each.focus)->hasFocus(); }));
        EXPECT_EQ(visible<QLineEdit>(each.focus)->selectedText(), each.selected);
        preferences().addEditPanel().cancelAddEditAction();
        activate(window());
    }
    preferences().addEditPanel().addSaveButtonAction(u"Late"_s, u"late"_s);
    EXPECT_EQ(namesIn(sites()).size(), 213) << "a closed panel saves nothing";

    posted.names.clear();
    press(u"addSiteButton"_s);
    save(u"Another"_s, u"another/"_s);
    EXPECT_EQ(answerAlert(u"OK"_s), u"Site Added Successfully"_s);
    EXPECT_EQ(namesIn(sites()).first(2), QStringList({u"<b>Mine"_s, u"Another"_s}));
    EXPECT_EQ(posted.names, QStringList{u"mwqnLSLsc"_s});

    press(u"addSiteButton"_s);
    EXPECT_EQ(visible<QLineEdit>(name)->text(), QString());
    QTest::keyClick(visible<QLineEdit>(name), Qt::Key_Escape);
    EXPECT_FALSE(isPanelOpen());
    EXPECT_TRUE(window().isVisible());

    press(u"addSiteButton"_s);
    save({}, {});
    preferences().closePrefs();
    clickAlert(u"OK"_s);
    passDelay();
    EXPECT_FALSE(isPanelOpen()) << "not over a window that was closed meanwhile";
}

TEST_F(PreferencesWindowTest, SitesAreEditedRemovedAndRestored)
{
    EXPECT_FALSE(isEnabled(u"editSiteButton"_s) || isEnabled(u"removeSiteButton"_s) ||
                 isEnabled(u"restoreSiteButton"_s));
    click(sites(), u"Softs"_s);
    QTest::mouseDClick(sites()->viewport(), Qt::LeftButton, {}, placeOf(sites(), u"Softs"_s));
    EXPECT_EQ(visible<QLineEdit>(u"siteNameField"_s)->text(), u"Softs"_s);
    EXPECT_EQ(visible<QLineEdit>(u"siteURLField"_s)->text(), mwqnDefaultSitesDict.at(u"Softs"_s));
    EXPECT_TRUE(eventually([] { return visible<QLineEdit>(u"siteNameField"_s)->hasFocus(); }));
    EXPECT_EQ(visible<QLineEdit>(u"siteNameField"_s)->selectedText(), QString());
    save(u"Softies"_s, u"softies/"_s);
    EXPECT_EQ(answerAlert(u"OK"_s), u"Site edited successfully"_s);
    EXPECT_EQ(namesIn(sites()).first(), u"Softies"_s);
    EXPECT_EQ(namesIn(ignored()), QStringList{u"Softs"_s});

    click(sites(), u"Softies"_s);
    EXPECT_TRUE(isEnabled(u"editSiteButton"_s));
    pressInSites(Qt::Key_Return);
    EXPECT_EQ(visible<QLineEdit>(u"siteURLField"_s)->text(), u"http://softies/"_s);
    QTest::keyClick(visible<QLineEdit>(u"siteNameField"_s), Qt::Key_Escape);

    click(sites(), u"Softies"_s);
    click(sites(), u"5Awards"_s, Qt::ControlModifier);
    EXPECT_FALSE(isEnabled(u"editSiteButton"_s)) << "only one at a time";
    const QString removal = u"Are you sure you want to remove the selected sites?|"
                            "Only removed default sites can be restored"_s;
    press(u"removeSiteButton"_s);
    EXPECT_EQ(answerAlert(u"Cancel"_s), removal);
    EXPECT_EQ(namesIn(sites()).size(), 212);
    posted.names.clear();
    pressInSites(Qt::Key_Delete);
    answerAlert(u"Delete"_s);
    EXPECT_EQ(posted.names, QStringList({u"mwqnLSLsc"_s, u"mwqnOCu432hjiudsh"_s}));
    EXPECT_EQ(namesIn(sites()).size(), 210);
    EXPECT_FALSE(isEnabled(u"removeSiteButton"_s));
    pressInSites(Qt::Key_Delete);
    EXPECT_FALSE(openWindow<QMessageBox>()) << "nothing is selected";

    EXPECT_EQ(namesIn(ignored()), QStringList({u"5Awards"_s, u"Softs"_s}));
    click(ignored(), u"Softs"_s);
    press(u"restoreSiteButton"_s);
    EXPECT_TRUE(namesIn(sites()).contains(u"Softs"_s));
    EXPECT_EQ(namesIn(ignored()), QStringList{u"5Awards"_s});
    EXPECT_FALSE(isEnabled(u"restoreSiteButton"_s));
}

TEST_F(PreferencesWindowTest, WhatTheFilterHidesIsNotSelected)
{
    click(sites(), u"Softs"_s);
    click(sites(), u"NFD"_s, Qt::ControlModifier);
    type(u"siteFilterField"_s, u" nfd "_s);
    EXPECT_EQ(namesIn(sites()), QStringList{u"NFD"_s});
    EXPECT_TRUE(isEnabled(u"removeSiteButton"_s));
    press(u"editSiteButton"_s);
    EXPECT_EQ(visible<QLineEdit>(u"siteNameField"_s)->text(), u"NFD"_s) << "the row behind the filter";
    preferences().addEditPanel().cancelAddEditAction();
    type(u"siteFilterField"_s, u"(no such"_s);
    EXPECT_TRUE(namesIn(sites()).isEmpty());
    EXPECT_FALSE(isEnabled(u"removeSiteButton"_s));
    press(u"closeButton"_s);
    preferences().openPrefsWindow();
    EXPECT_EQ(namesIn(sites()), preferences().sitesMArray()) << "the window opens with the whole list";
}

TEST_F(PreferencesWindowTest, BackupsAreFoldersThatAreChosenAsOneItem)
{
    makeTitle(u"Mine"_s);
    showBackups();
    const QString backup = home() + u"/My list 1.0.swback"_s;
    press(u"backupSoftwareButton"_s);
    EXPECT_EQ(visible<QLineEdit>(u"fileNameEdit"_s)->text(), u"Quillon Software List Backup.swback"_s);
    chooseFile(home() + u"/My list 1.0"_s);
    EXPECT_TRUE(QFileInfo::exists(backup + u"/Mine.qndata/general.qnxmld"_s));
    EXPECT_EQ(answerResult(), u"The backup was successful"_s);

    ASSERT_TRUE(put(backup + u"/older"_s, "x"));
    press(u"backupSoftwareButton"_s);
    enterPath(backup);
    EXPECT_EQ(
        answerAlert(u"Cancel"_s),
        u"“My list 1.0.swback” already exists. Do you want to replace it?|What it holds now will be lost."_s);
    EXPECT_TRUE(QFileInfo::exists(backup + u"/older"_s));
    enterPath(backup);
    answerAlert(u"Replace"_s);
    EXPECT_TRUE(eventually([] { return openWindow<QFileDialog>() == nullptr; }));
    EXPECT_FALSE(QFileInfo::exists(backup + u"/older"_s));
    EXPECT_EQ(answerResult(), u"The backup was successful"_s);

    ASSERT_TRUE(AddDeleteImportEdit::deleteQnDataFile(u"Mine"_s));
    ASSERT_TRUE(QDir(home()).mkdir(u"plain"_s));
    press(u"importSoftwareListButton"_s);
    EXPECT_EQ(openWindow<QFileDialog>()->labelText(QFileDialog::Accept), u"Choose Backup"_s);
    enterPath(home() + u"/plain"_s);
    ASSERT_TRUE(openWindow<QFileDialog>()) << "any other folder is opened, not chosen";
    EXPECT_EQ(openWindow<QFileDialog>()->directory().dirName(), u"plain"_s);
    enterPath(home() + u"/missing.swback"_s);
    EXPECT_EQ(answerAlert(u"OK"_s), u"Please choose a backup, a folder whose name ends in “.swback”."_s);
    chooseFile(backup);
    EXPECT_TRUE(title_folder::exists(u"Mine"));
    EXPECT_EQ(posted.names, QStringList{u"mwqnOvLSlst"_s});
    EXPECT_EQ(answerResult(), u"1 software titles were imported."_s);
}

TEST_F(PreferencesWindowTest, ABackupOfSitesComesBackIntoTheList)
{
    preferences().openPrefsBackupWindow();
    press(u"backupSitesListButton"_s);
    EXPECT_EQ(visible<QLineEdit>(u"fileNameEdit"_s)->text(), u"Quillon Site List Backup.qnback"_s);
    chooseFile(home() + u"/sites"_s);
    EXPECT_EQ(answerResult(), u"There is nothing to backup"_s);

    ASSERT_TRUE(site_list::write(site_list::userSites, {{u"Mine"_s, u"http://mine/"_s}}));
    press(u"backupSitesListButton"_s);
    chooseFile(home() + u"/sites"_s);
    EXPECT_EQ(answerResult(), u"The backup was successful"_s);
    ASSERT_TRUE(site_list::write(site_list::userSites, {}));
    press(u"importSitesButton"_s);
    chooseFile(home() + u"/sites.qnback"_s);
    EXPECT_EQ(namesIn(sites()).first(), u"Mine"_s) << "the list's page is showing";
    EXPECT_TRUE(visible<QToolButton>(u"Sites List"_s)->isChecked());
    passDelay();
    EXPECT_FALSE(openWindow<QMessageBox>());
}

TEST_F(PreferencesWindowTest, ARunningBackupIsSeenAndCancelled)
{
    for (int title = 0; title < 600; ++title) { // More than one turn can copy.
        const QString folder = inData(u"Title %1.qndata"_s.arg(title));
        ASSERT_TRUE(QDir().mkdir(folder));
        for (const QString &file : {u"data.qnxml"_s, u"general.qnxmld"_s, u"error.log"_s})
            ASSERT_TRUE(put(folder + u'/' + file, "text"));
    }
    showBackups();
    press(u"backupSoftwareButton"_s);
    chooseFile(home() + u"/list.swback"_s);
    const auto *progress = visible<QProgressBar>(u"transferProgress"_s);
    ASSERT_TRUE(progress);
    EXPECT_EQ(progress->maximum(), 600);
    EXPECT_LT(progress->value(), 600);
    EXPECT_FALSE(isEnabled(u"backupSoftwareButton"_s) || isEnabled(u"importSoftwareListButton"_s));
    press(u"cancelTransferButton"_s);
    EXPECT_FALSE(progress->isVisible());
    EXPECT_TRUE(isEnabled(u"backupSoftwareButton"_s));
    EXPECT_FALSE(QFileInfo::exists(home() + u"/list.swback"_s));
    passDelay();
    EXPECT_FALSE(openWindow<QMessageBox>());
}

TEST_F(PreferencesWindowTest, EveryStopOfTheTabKeyHasAName)
{
    expectNamedTabStops(window(), 7);
    EXPECT_EQ(accessibilityFaults(window()), QStringList());
    showBackups();
    EXPECT_EQ(accessibilityFaults(window()), QStringList());
    visible<QToolButton>(u"Backups"_s)->setFocus();
    expectNamedTabStops(window(), 6);
    preferences().addEditPanel().addNewSiteAction();
    activate(panel());
    expectNamedTabStops(panel(), 4);
    EXPECT_EQ(accessibilityFaults(panel()), QStringList());
}

TEST_F(PreferencesWindowTest, SizesOutliveARunAndEscapeCloses)
{
    window().resize(777, 555);
    sites()->setColumnWidth(SiteListTable::SiteName, 123);
    QTest::keyClick(&window(), Qt::Key_Escape);
    EXPECT_FALSE(window().isVisible());
    start();
    EXPECT_EQ(window().size(), QSize(777, 555));
    EXPECT_EQ(sites()->columnWidth(SiteListTable::SiteName), 123);
    press(u"closeButton"_s);
    EXPECT_FALSE(window().isVisible());
}

TEST_F(PreferencesWindowTest, AListThatCannotBeStoredIsToldOnThePanel)
{
    QFile::remove(inData(u"sites.qnrc"_s));
    ASSERT_TRUE(QDir().mkdir(inData(u"sites.qnrc"_s)));
    press(u"addSiteButton"_s);
    save(u"A"_s, u"http://a/"_s);
    EXPECT_TRUE(isPanelOpen());
    EXPECT_EQ(visible<QLabel>(u"panelFailedWrites"_s)->text(), failedWritesLine());
    EXPECT_TRUE(failedWritesLine().contains(u"sites.qnrc"_s));
}

} // namespace
} // namespace quillon
