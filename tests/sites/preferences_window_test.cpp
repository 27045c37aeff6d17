#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "shell/message_box_sheets.h"
#include "sites/preferences_controller.h"
#include "sites/preferences_window.h"
#include "store/site_list.h"
#include "store/storage_status.h"
#include "submission/data_folder_fixture.h"
#include "submission/default_sites.h"
#include "support/accessibility.h"
#include "support/program_test.h"
#include "support/recorders.h"
#include "support/tables.h"

#include <QAbstractItemModelTester>
#include <QLabel>
#include <QProgressBar>
#include <QTableView>
#include <QToolButton>

namespace {

const qsizetype siteCount(defaultSites.size());

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
    /// Presses @p button and chooses @p path.
    void choose(const QString &button, const QString &path)
    {
        press(button);
        chooseFile(path);
    }

    static QTableView *sites() { return visible<QTableView>(u"sitesTableView"_s); }
    static QTableView *ignored() { return visible<QTableView>(u"ignoreTableView"_s); }
    static QLineEdit *name() { return visible<QLineEdit>(u"siteNameField"_s); }
    static QLineEdit *url() { return visible<QLineEdit>(u"siteURLField"_s); }
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
    /// Which of the buttons for the edited, the removed and the restored sites can be pressed.
    static QString enabled()
    {
        QStringList buttons;
        for (const QString &button : {u"edit"_s, u"remove"_s, u"restore"_s}) {
            if (visible<QPushButton>(button + u"SiteButton")->isEnabled())
                buttons.append(button);
        }
        return buttons.join(u' ');
    }
    void save(const QString &newName, const QString &newUrl)
    {
        ASSERT_TRUE(panel().isVisible());
        activate(panel());
        type(u"siteNameField"_s, newName);
        type(u"siteURLField"_s, newUrl);
        QTest::keyClick(url(), Qt::Key_Return);
    }
    QDialog &panel() { return *window().findChild<QDialog *>(u"addEditPanel"_s); }
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
    void reload() { NotificationCenter::defaultCenter().post(notification::mwqnPClSiL432ds); }

    PostedNotifications posted{notification::mwqnLSLsc, notification::mwqnOCu432hjiudsh,
                               notification::mwqnOvLSlst};
};

} // namespace

TEST_F(PreferencesWindowTest, KeepsTheCatalogueForEverybody)
{
    EXPECT_EQ(namesIn(sites()).size(), siteCount);
    ASSERT_TRUE(site_list::write(site_list::userSites, siteList(u"Zeta=u:z,alpha=u:a")));
    ASSERT_TRUE(site_list::write(site_list::ignoredSites, siteList(u"NewFreeDownloads=NFD")));
    reload();
    EXPECT_EQ(namesIn(sites()).first(2), words(u"alpha Zeta"_s));
    EXPECT_EQ(preferences().siteURLsMArray().first(2), words(u"u:a u:z"_s));
    EXPECT_EQ(namesIn(ignored()), words(u"NewFreeDownloads NFD"_s));
    EXPECT_EQ(ignored()->model()->index(1, SiteListTable::Url).data(), mwqnDefaultSitesDict.at(u"NFD"_s));
    EXPECT_EQ(preferences().siteURLDict(), mwqnSCPreallSitesDict);
    EXPECT_EQ(mwqnSCPreallSitesDict.size(), defaultSites.size());
}

TEST_F(PreferencesWindowTest, ASiteIsAddedAfterEveryRefusal)
{
    ASSERT_TRUE(site_list::write(site_list::userSites, siteList(u"<b>Mine=http://mine/")));
    reload();
    for (const QStringList &row : table(u"site_refusals"_s)) {
        const QString &typedName = row[1];
        const QString &typedUrl = row[2];
        const bool isNew = row[0] == u"new";
        const auto focused = [&] { return row[4] == u"name" ? name() : url(); };
        SCOPED_TRACE(row.join(u'|').toStdString());
        isNew ? press(u"addSiteButton"_s) : preferences().doubleClick(0);
        save(typedName, typedUrl);
        program().calls.pass(std::chrono::seconds(5));
        EXPECT_FALSE(panel().isVisible()) << "the sheet is still there";
        EXPECT_EQ(answerAlert(u"OK"_s), row[3]);
        program().calls.pass(resultDelay - std::chrono::milliseconds(1));
        EXPECT_FALSE(panel().isVisible());
        passDelay();
        ASSERT_TRUE(panel().isVisible());
        EXPECT_EQ(visible<QLabel>(u"addEditPanelTitle"_s)->text(),
                  isNew ? u"Add A New Submission Site"_s : u"Editing Submission Site"_s);
        EXPECT_EQ(name()->text(), typedName);
        EXPECT_EQ(url()->text(), u"http://"_s + QString(typedUrl).replace(u' ', u"%20"_s));
        EXPECT_TRUE(eventually([&] { return focused()->hasFocus(); }));
        EXPECT_EQ(focused()->selectedText(), row[5]);
        preferences().addEditPanel().cancelAddEditAction();
        activate(window());
    }
    preferences().addEditPanel().addSaveButtonAction(u"Late"_s, u"late"_s);
    EXPECT_EQ(namesIn(sites()).size(), siteCount + 1) << "a closed panel saves nothing";

    posted.names.clear();
    press(u"addSiteButton"_s);
    save(u"Another"_s, u"another/"_s);
    EXPECT_EQ(answerAlert(u"OK"_s), u"Site Added Successfully");
    EXPECT_EQ(namesIn(sites()).first(2), words(u"<b>Mine Another"_s));
    EXPECT_EQ(posted.names, QStringList{u"mwqnLSLsc"_s});
    press(u"addSiteButton"_s);
    EXPECT_EQ(name()->text(), QString());
    QTest::keyClick(name(), Qt::Key_Escape);
    EXPECT_TRUE(!panel().isVisible() && window().isVisible());

    press(u"addSiteButton"_s);
    save({}, {});
    preferences().closePrefs();
    clickAlert(u"OK"_s);
    passDelay();
    EXPECT_FALSE(panel().isVisible()) << "not over a window that was closed meanwhile";
}

TEST_F(PreferencesWindowTest, SitesAreEditedRemovedAndRestored)
{
    EXPECT_EQ(enabled(), QString());
    click(sites(), u"Softs"_s);
    QTest::mouseDClick(sites()->viewport(), Qt::LeftButton, {}, placeOf(sites(), u"Softs"_s));
    EXPECT_EQ(name()->text() + u'=' + url()->text(), u"Softs="_s + mwqnDefaultSitesDict.at(u"Softs"_s));
    EXPECT_TRUE(eventually([] { return name()->hasFocus(); }) && !name()->hasSelectedText());
    save(u"Softies"_s, u"softies/"_s);
    EXPECT_EQ(answerAlert(u"OK"_s), u"Site edited successfully");
    EXPECT_EQ(namesIn(sites()).first(), u"Softies");
    EXPECT_EQ(namesIn(ignored()), QStringList{u"Softs"_s});

    click(sites(), u"Softies"_s);
    EXPECT_EQ(enabled(), u"edit remove");
    pressInSites(Qt::Key_Return);
    EXPECT_EQ(url()->text(), u"http://softies/");
    QTest::keyClick(name(), Qt::Key_Escape);

    click(sites(), u"Softies"_s);
    click(sites(), u"5Awards"_s, Qt::ControlModifier);
    EXPECT_EQ(enabled(), u"remove") << "one is edited at a time";
    press(u"removeSiteButton"_s);
    EXPECT_EQ(answerAlert(u"Cancel"_s), u"Are you sure you want to remove the selected sites?|"
                                        "Only removed default sites can be restored");
    EXPECT_EQ(namesIn(sites()).size(), siteCount);
    posted.names.clear();
    pressInSites(Qt::Key_Delete);
    answerAlert(u"Delete"_s);
    EXPECT_EQ(posted.names, words(u"mwqnLSLsc mwqnOCu432hjiudsh"_s));
    EXPECT_EQ(namesIn(sites()).size(), siteCount - 2);
    pressInSites(Qt::Key_Delete);
    EXPECT_FALSE(openWindow<QMessageBox>()) << "nothing is selected";

    EXPECT_EQ(namesIn(ignored()), words(u"5Awards Softs"_s));
    click(ignored(), u"Softs"_s);
    EXPECT_EQ(enabled(), u"restore");
    press(u"restoreSiteButton"_s);
    EXPECT_TRUE(namesIn(sites()).contains(u"Softs"_s));
    EXPECT_EQ(namesIn(ignored()), QStringList{u"5Awards"_s});
    EXPECT_EQ(enabled(), QString());
}

TEST_F(PreferencesWindowTest, WhatTheFilterHidesIsNotSelected)
{
    click(sites(), u"Softs"_s);
    click(sites(), u"NFD"_s, Qt::ControlModifier);
    type(u"siteFilterField"_s, u" nfd "_s);
    EXPECT_EQ(namesIn(sites()), QStringList{u"NFD"_s});
    EXPECT_EQ(enabled(), u"edit remove");
    press(u"editSiteButton"_s);
    EXPECT_EQ(name()->text(), u"NFD") << "the row behind the filter";
    preferences().addEditPanel().cancelAddEditAction();
    type(u"siteFilterField"_s, u"(no such"_s);
    EXPECT_TRUE(namesIn(sites()).isEmpty() && enabled().isEmpty());
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
    EXPECT_EQ(visible<QLineEdit>(u"fileNameEdit"_s)->text(), u"Quillon Software List Backup.swback");
    chooseFile(home() + u"/My list 1.0"_s);
    EXPECT_TRUE(QFileInfo::exists(backup + u"/Mine.qndata/general.qnxmld"_s));
    EXPECT_EQ(answerResult(), u"The backup was successful");

    ASSERT_TRUE(put(backup + u"/older"_s, "x"));
    press(u"backupSoftwareButton"_s);
    for (const bool stays : {true, false}) {
        enterPath(backup);
        EXPECT_EQ(answerAlert(stays ? u"Cancel"_s : u"Replace"_s),
                  u"“My list 1.0.swback” already exists. Do you want to replace it?|"
                  "What it holds now will be lost.");
        EXPECT_TRUE(eventually([&] { return (openWindow<QFileDialog>() != nullptr) == stays; }));
        EXPECT_EQ(QFileInfo::exists(backup + u"/older"_s), stays);
    }
    EXPECT_EQ(answerResult(), u"The backup was successful");

    ASSERT_TRUE(AddDeleteImportEdit::deleteQnDataFile(u"Mine"_s) && QDir(home()).mkdir(u"plain"_s));
    press(u"importSoftwareListButton"_s);
    EXPECT_EQ(openWindow<QFileDialog>()->labelText(QFileDialog::Accept), u"Choose Backup");
    enterPath(home() + u"/plain"_s);
    ASSERT_TRUE(openWindow<QFileDialog>()) << "any other folder is opened, not chosen";
    EXPECT_EQ(openWindow<QFileDialog>()->directory().dirName(), u"plain");
    enterPath(home() + u"/missing.swback"_s);
    EXPECT_EQ(answerAlert(u"OK"_s), u"Please choose a backup, a folder whose name ends in “.swback”.");
    chooseFile(backup);
    EXPECT_TRUE(title_folder::exists(u"Mine"));
    EXPECT_EQ(posted.names, QStringList{u"mwqnOvLSlst"_s});
    EXPECT_EQ(answerResult(), u"1 software titles were imported.");
}

TEST_F(PreferencesWindowTest, ABackupOfSitesComesBackIntoTheList)
{
    preferences().openPrefsBackupWindow();
    const QString backup = home() + u"/sites.qnback"_s;
    press(u"backupSitesListButton"_s);
    EXPECT_EQ(visible<QLineEdit>(u"fileNameEdit"_s)->text(), u"Quillon Site List Backup.qnback");
    chooseFile(home() + u"/sites"_s);
    EXPECT_EQ(answerResult(), u"There is nothing to backup");
    ASSERT_TRUE(site_list::write(site_list::userSites, siteList(u"Mine=http://mine/")));
    choose(u"backupSitesListButton"_s, backup);
    EXPECT_EQ(answerResult(), u"The backup was successful");
    ASSERT_TRUE(site_list::write(site_list::userSites, {}));
    choose(u"importSitesButton"_s, backup);
    EXPECT_EQ(namesIn(sites()).first(), u"Mine") << "the list's page is showing";
    EXPECT_TRUE(visible<QToolButton>(u"Sites List"_s)->isChecked());
    passDelay();
    EXPECT_FALSE(openWindow<QMessageBox>());
}

TEST_F(PreferencesWindowTest, ARunningBackupIsSeenAndCancelled)
{
    for (int title = 0; title < 600; ++title) // More than one turn can copy.
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(u"Title %1"_s.arg(title)));
    showBackups();
    choose(u"backupSoftwareButton"_s, home() + u"/list.swback"_s);
    const auto *progress = visible<QProgressBar>(u"transferProgress"_s);
    ASSERT_TRUE(progress && progress->value() < 600);
    EXPECT_EQ(progress->maximum(), 600);
    const auto canStart = [](const QString &button) { return visible<QPushButton>(button)->isEnabled(); };
    EXPECT_FALSE(canStart(u"backupSoftwareButton"_s) || canStart(u"importSoftwareListButton"_s));
    press(u"cancelTransferButton"_s);
    EXPECT_TRUE(!progress->isVisible() && canStart(u"backupSoftwareButton"_s));
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
}

TEST_F(PreferencesWindowTest, AListThatCannotBeStoredIsToldOnThePanel)
{
    const QString list = inData(u"sites.qnrc"_s);
    ASSERT_TRUE(QFile::remove(list) && QDir().mkdir(list));
    press(u"addSiteButton"_s);
    save(u"A"_s, u"http://a/"_s);
    EXPECT_TRUE(panel().isVisible() && failedWritesLine().contains(u"sites.qnrc"_s));
    EXPECT_EQ(visible<QLabel>(u"panelFailedWrites"_s)->text(), failedWritesLine());
}
