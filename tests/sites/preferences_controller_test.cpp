#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "sites/preferences_controller.h"
#include "store/site_list.h"
#include "submission/data_folder_fixture.h"
#include "support/recorders.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace {

class Preferences : public DataFolderTest
{
protected:
    void SetUp() override
    {
        DataFolderTest::SetUp();
        for (const QStringView name :
             {notification::mwqnLSLsc, notification::mwqnOCu432hjiudsh, notification::mwqnOvLSlst})
            NotificationCenter::defaultCenter().addObserver(
                name, &m_observer, [this, name] { m_posted.append(name.toString()); });
        m_control.awakeFromNib();
        m_control.openPrefsWindow();
    }

    [[nodiscard]] const AddEditPanel &panel() const { return m_control.addEditPanel(); }
    [[nodiscard]] int rowOf(const QString &site) const { return int(m_control.sitesMArray().indexOf(site)); }
    void add(const QString &name, const QString &url)
    {
        m_control.addNewSiteAction();
        m_control.addSaveButtonAction(name, url);
    }

    /// The messages of the sheets since the last call.
    QStringList takeMessages()
    {
        QStringList messages;
        for (const Alert &alert : std::exchange(m_alerts.alerts, {}))
            messages.append(alert.message);
        return messages;
    }

    QObject m_observer;
    QStringList m_posted;
    RecordingSheets m_alerts;
    ManualCalls m_calls;
    PreferencesController m_control{m_alerts, m_calls};
    QAbstractItemModelTester m_sitesTester{&m_control.sitesTable()};
    QAbstractItemModelTester m_ignoredTester{&m_control.ignoredTable()};
};

} // namespace

TEST_F(Preferences, KeepTheCatalogueForEverybody)
{
    EXPECT_EQ(m_control.sitesTable().rowCount(), 212);
    ASSERT_TRUE(site_list::write(site_list::userSites, {{u"Zeta"_s, u"u:z"_s}, {u"alpha"_s, u"u:a"_s}}));
    ASSERT_TRUE(site_list::write(site_list::ignoredSites,
                                 {{u"NewFreeDownloads"_s, mwqnDefaultSitesDict.at(u"NFD"_s)}}));
    NotificationCenter::defaultCenter().post(notification::mwqnPClSiL432ds);
    EXPECT_EQ(m_control.sitesMArray().first(2), QStringList({u"alpha"_s, u"Zeta"_s}));
    EXPECT_EQ(m_control.siteURLsMArray().first(2), QStringList({u"u:a"_s, u"u:z"_s}));
    EXPECT_EQ(m_control.ignoredMArray(), QStringList({u"NewFreeDownloads"_s, u"NFD"_s}));
    EXPECT_EQ(m_control.siteURLDict(), mwqnSCPreallSitesDict);
    EXPECT_EQ(mwqnSCPreallSitesDict.size(), 212U);
    EXPECT_EQ(m_control.ignoredTable().index(1, SiteListTable::SiteName).data(), u"NFD"_s);
    EXPECT_EQ(m_control.ignoredTable().index(1, SiteListTable::Url).data(),
              mwqnDefaultSitesDict.at(u"NFD"_s));
}

TEST_F(Preferences, AddASiteAndCloseThePanel)
{
    m_control.addNewSiteAction();
    EXPECT_TRUE(panel().isOpen);
    EXPECT_EQ(panel().addEditPanelTitle, u"Add A New Submission Site");
    EXPECT_EQ(panel().addEditSentFrom, u"add");
    m_control.addSaveButtonAction(u" My site "_s, u"my site/submit"_s);
    EXPECT_FALSE(panel().isOpen);
    EXPECT_TRUE(panel().siteNameField.isEmpty() && panel().siteURLField.isEmpty());
    EXPECT_EQ(takeMessages(), QStringList({u"Site Added Successfully"_s}));
    EXPECT_EQ(mwqnSCPreallSitesDict.at(u"My site"_s), u"http://my%20site/submit");
    EXPECT_EQ(m_posted, QStringList({u"mwqnLSLsc"_s}));

    m_control.addNewSiteAction();
    m_control.cancelAddEditAction();
    m_control.addSaveButtonAction(u"Late"_s, u"late"_s);
    EXPECT_FALSE(mwqnSCPreallSitesDict.contains(u"Late"_s)) << "a closed panel saves nothing";
}

TEST_F(Preferences, ARefusalIsToldAndThePanelComesBackWithItsText)
{
    using Field = AddEditPanel::Field;
    add(u"Mine"_s, u"http://mine/"_s);
    m_alerts.answer(AlertAnswer::Default);
    struct Case
    {
        QString name;
        QString url;
        QString message;
        Field focus;
        bool isEdit;
        bool selectsWholeText;
    };
    const QString empty = u"You must enter a name and URL to add an entry to the sites list"_s;
    const Case cases[] = {
        {u"  "_s, u"a"_s, empty, Field::Name, false, true},
        {u""_s, u""_s, empty, Field::Name, false, true},
        {u"A"_s, u""_s, empty, Field::Url, false, true},
        {u"Mine"_s, u"a"_s, u"The site name already exists\nPlease enter a unique name for this site"_s,
         Field::Name, false, false},
        {u"A"_s, u"mine/"_s,
         u"The entered URL is already associated with the site 'Mine'\nPlease enter a unique URL for this site"_s,
         Field::Url, false, false},
        {u"Mine"_s, u"mine/"_s,
         u"The site name and URL you entered both exist\nPlease enter a unique name and URL"_s, Field::Name,
         false, false},
        {u" "_s, u"a"_s, u"The name and URL fields cannot be empty"_s, Field::Name, true, true},
        {u"A"_s, u""_s, u"The name and URL fields cannot be empty"_s, Field::Url, true, true},
    };
    for (const Case &each : cases) {
        takeMessages();
        if (each.isEdit)
            m_control.doubleClick(rowOf(u"Mine"_s));
        else
            m_control.addNewSiteAction();
        m_control.addSaveButtonAction(each.name, each.url);
        EXPECT_FALSE(panel().isOpen);
        EXPECT_EQ(m_alerts.windows.last(), SheetWindow::Preferences);
        EXPECT_EQ(takeMessages(), QStringList({each.message}));

        m_calls.pass(std::chrono::seconds(5));
        EXPECT_FALSE(panel().isOpen) << "the sheet is still there";
        m_alerts.answer(AlertAnswer::Default);
        m_calls.pass(resultDelay - std::chrono::milliseconds(1));
        EXPECT_FALSE(panel().isOpen);
        m_calls.pass(std::chrono::milliseconds(1));
        EXPECT_TRUE(panel().isOpen);
        EXPECT_EQ(panel().siteNameField, each.name);
        EXPECT_EQ(panel().siteURLField, QString(u"http://"_s + each.url));
        EXPECT_EQ(panel().focus, each.focus) << each.message.toStdString();
        EXPECT_EQ(panel().selectsWholeText, each.selectsWholeText);
        EXPECT_EQ(panel().addEditSentFrom, each.isEdit ? u"edit"_s : u"add"_s);
    }
    EXPECT_EQ(m_control.sitesMArray().size(), 213);

    m_control.addSaveButtonAction(u""_s, u""_s);
    m_control.closePrefs();
    m_alerts.answer(AlertAnswer::Default);
    m_calls.pass(resultDelay);
    EXPECT_FALSE(panel().isOpen) << "not over a window that was closed meanwhile";
}

TEST_F(Preferences, EditTheSiteThatWasDoubleClicked)
{
    makeTitle(u"Any"_s, u"Softs,B"_s, u"1,2"_s);
    m_control.doubleClick(rowOf(u"Softs"_s));
    EXPECT_EQ(panel().addEditPanelTitle, u"Editing Submission Site");
    EXPECT_EQ(panel().siteNameField, u"Softs");
    EXPECT_EQ(panel().siteURLField, mwqnDefaultSitesDict.at(u"Softs"_s));
    m_control.addSaveButtonAction(u"Softies"_s, u"http://softies/"_s);
    EXPECT_EQ(takeMessages(), QStringList({u"Site edited successfully"_s}));
    EXPECT_EQ(rowOf(u"Softies"_s), 0);
    EXPECT_EQ(rowOf(u"Softs"_s), -1);
    EXPECT_EQ(m_control.ignoredMArray(), QStringList({u"Softs"_s}));
    EXPECT_TRUE(contentOf(pathIn(u"Any"_s, title_folder::summaryFile)).contains(u">Softies,B<"));
    EXPECT_EQ(m_posted, QStringList({u"mwqnLSLsc"_s}));

    m_control.doubleClick(-1);
    m_control.doubleClick(212);
    EXPECT_FALSE(panel().isOpen);
}

TEST_F(Preferences, KeepThePanelWhenTheListCannotBeStored)
{
    QFile::remove(mwqnAppSuppLoc + u"sites.qnrc");
    ASSERT_TRUE(QDir().mkdir(mwqnAppSuppLoc + u"sites.qnrc"));
    add(u"A"_s, u"http://a"_s);
    EXPECT_TRUE(panel().isOpen);
    EXPECT_EQ(panel().siteNameField, u"A");
    EXPECT_TRUE(m_alerts.alerts.isEmpty());
}

TEST_F(Preferences, RemoveAndRestoreWhatIsSelected)
{
    add(u"Mine"_s, u"http://mine/"_s);
    m_alerts.answer(AlertAnswer::Default);
    takeMessages();
    m_posted.clear();
    m_control.removeSiteAction();
    EXPECT_TRUE(m_alerts.alerts.isEmpty()) << "nothing is selected";

    const QList<int> both = {rowOf(u"Mine"_s), rowOf(u"Softs"_s), 999, -1};
    m_control.setSelectedSites(both);
    EXPECT_TRUE(m_control.canRemove() && !m_control.canRestore());
    m_control.removeSiteAction();
    const Alert alert = m_alerts.alerts.first();
    EXPECT_EQ(alert.message, u"Are you sure you want to remove the selected sites?");
    EXPECT_EQ(alert.informativeText, u"Only removed default sites can be restored");
    EXPECT_EQ(alert.defaultButton + alert.alternateButton, u"DeleteCancel");
    m_alerts.answer(AlertAnswer::Alternate);
    EXPECT_EQ(m_control.sitesMArray().size(), 213);

    m_control.removeSiteAction();
    QSignalSpy deselected(&m_control, &PreferencesController::deselectTables);
    m_alerts.answer(AlertAnswer::Default);
    EXPECT_EQ(m_control.sitesMArray().size(), 211);
    EXPECT_EQ(m_control.ignoredMArray(), QStringList({u"Softs"_s}));
    EXPECT_EQ(m_posted, QStringList({u"mwqnLSLsc"_s, u"mwqnOCu432hjiudsh"_s}));
    EXPECT_EQ(deselected.count(), 1);
    EXPECT_FALSE(m_control.canRemove());

    m_control.setSelectedIgnoredSites({0});
    EXPECT_TRUE(m_control.canRestore());
    m_control.restoreSiteAction();
    EXPECT_EQ(m_control.sitesMArray().size(), 212);
    EXPECT_TRUE(m_control.ignoredMArray().isEmpty());
    EXPECT_FALSE(m_control.canRestore());
}

TEST_F(Preferences, BackUpAndRestoreFromTheWindow)
{
    const QString place = home() + u"/list.swback"_s;
    QSignalSpy progress(&m_control, &PreferencesController::transferProgress);
    m_control.backupSoftwareAction();
    EXPECT_EQ(progress.count(), 0) << "nothing was chosen";
    EXPECT_EQ(m_alerts.requests.last().proposedName, u"Quillon Software List Backup.swback");
    EXPECT_TRUE(m_alerts.requests.last().isFolder);

    m_alerts.filesToChoose = QStringList{place};
    m_control.backupSoftwareAction();
    m_calls.pass(resultDelay);
    EXPECT_EQ(takeMessages(), QStringList({u"There is nothing to backup"_s}));
    EXPECT_FALSE(QFileInfo::exists(place));

    makeTitle(u"Mine"_s);
    m_control.backupSoftwareAction();
    m_control.backupSoftwareAction();
    m_calls.pass(resultDelay - std::chrono::milliseconds(1));
    EXPECT_TRUE(m_alerts.alerts.isEmpty());
    m_calls.pass(std::chrono::milliseconds(1));
    EXPECT_EQ(takeMessages(), QStringList({u"The backup was successful"_s, u"The backup was successful"_s}))
        << "the chooser asks before it gives a place that is taken";
    EXPECT_EQ(progress.last(), QVariantList({1, 1}));

    AddDeleteImportEdit::deleteQnDataFile(u"Mine"_s);
    m_control.importSoftwareListAction();
    EXPECT_EQ(m_alerts.requests.last().prompt, u"Choose Backup");
    EXPECT_EQ(m_posted.last(), u"mwqnOvLSlst");
    EXPECT_TRUE(title_folder::exists(u"Mine"));
    m_calls.pass(resultDelay);
    EXPECT_EQ(takeMessages(), QStringList({u"1 software titles were imported."_s}));
}

TEST_F(Preferences, ABackupOfManyTitlesCanBeCancelled)
{
    for (int title = 0; title < 500; ++title) {
        const QString folder = inData(u"Title %1.qndata"_s.arg(title));
        ASSERT_TRUE(QDir().mkdir(folder) && put(folder + u"/data.qnxml"_s, "pad"));
    }
    m_alerts.filesToChoose = QStringList{home() + u"/list.swback"_s};
    // However fast this machine is: the first report of progress comes before the last title.
    int reports = 0;
    QObject::connect(&m_control, &PreferencesController::transferProgress, &m_observer,
                     [&](int done, int total) {
                         EXPECT_EQ(total, 500);
                         if (++reports == 1 && done < total)
                             m_control.cancelTransfer();
                     });
    m_control.backupSoftwareAction();
    m_calls.pass(resultDelay);
    const bool wasCancelled = m_alerts.alerts.isEmpty();
    EXPECT_NE(QFileInfo::exists(m_alerts.filesToChoose.first()), wasCancelled);
    EXPECT_EQ(QDir(home()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(),
              wasCancelled ? 1 : 2)
        << "only the data folder's own, and the backup when it is complete";
}

TEST_F(Preferences, SiteBackupsComeBackOnTheListsPage)
{
    m_control.openPrefsBackupWindow();
    EXPECT_EQ(m_control.currentPage(), PreferencesPage::Backups);
    m_alerts.filesToChoose = QStringList{home() + u"/sites.qnback"_s};
    m_control.backupSitesListAction();
    m_calls.pass(resultDelay);
    EXPECT_EQ(takeMessages(), QStringList({u"There is nothing to backup"_s}));
    EXPECT_EQ(m_alerts.requests.last().proposedName, u"Quillon Site List Backup.qnback");

    ASSERT_TRUE(site_list::write(site_list::userSites, {{u"Mine"_s, u"u"_s}}));
    m_control.backupSitesListAction();
    m_calls.pass(resultDelay);
    EXPECT_EQ(takeMessages(), QStringList({u"The backup was successful"_s}));
    ASSERT_TRUE(site_list::write(site_list::userSites, {}));
    m_control.importSitesAction();
    m_calls.pass(resultDelay);
    EXPECT_TRUE(m_alerts.alerts.isEmpty());
    EXPECT_EQ(m_control.currentPage(), PreferencesPage::SitesList);
    EXPECT_EQ(rowOf(u"Mine"_s), 0);
}
