#include "editor/editor.h"
#include "journal/journal.h"
#include "overview/overview_controller.h"
#include "overview/title_commands.h"
#include "pad/pad_writer.h"
#include "platform/notifications.h"
#include "store/site_list.h"
#include "store/storage_status.h"
#include "store/title_folder.h"
#include "support/faults.h"
#include "support/full_disk.h"
#include "support/growth.h"
#include "support/recorders.h"
#include "support/temporary_home.h"

#include <QAbstractItemModelTester>
#include <QDir>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quillon;

static QByteArray summaryText(const QString &version, const QString &sites, const QString &versions,
                              const QString &date = {})
{
    return summary_file::text({.version = version,
                               .releaseDate = date,
                               .operatingSystems = u"Linux,Win98"_s,
                               .validated = u"1"_s,
                               .sites = sites,
                               .versions = versions})
        .toUtf8();
}

static QByteArray pad(const QString &name, const QString &more = {})
{
    return u"<XML_DIZ_INFO><MASTER_PAD_VERSION_INFO></MASTER_PAD_VERSION_INFO><Program_Name>%1</Program_Name>"
           "<Program_Version>1.0</Program_Version>%2</XML_DIZ_INFO>"_s.arg(name, more)
               .toUtf8();
}

class OverviewTest : public TemporaryDataFolder
{
protected:
    void SetUp() override
    {
        TemporaryDataFolder::SetUp();
        overview.awakeFromNib();
    }

    /// A title whose summary file is @p summary.
    void addTitle(const QString &name, const QByteArray &summary)
    {
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(name));
        put(inData(name + u".qndata/general.qnxmld"_s), summary);
        overview.loadSoftwareList();
    }
    QString fileAt(const QString &name, const QByteArray &bytes)
    {
        QString path = home() + u'/' + name;
        put(path, bytes);
        return path;
    }
    int rowOf(const QString &name) { return int(overview.softwareTable().swNameArray().indexOf(name)); }
    QString cell(int row, int column, int role = Qt::DisplayRole)
    {
        const QVariant value = overview.softwareTable().index(row, column).data(role);
        return value.typeId() == QMetaType::QStringList ? value.toStringList().join(u'|') : value.toString();
    }
    QString mark(int row, int column, int role = Qt::DisplayRole)
    {
        return overview.submittedToTable().index(row, column).data(role).toString();
    }
    void select(const QString &name) { overview.tableViewSelectionDidChange(rowOf(name)); }
    void bringIn(const QStringList &files)
    {
        commands.processImportedFile(files);
        calls.pass(std::chrono::milliseconds(0));
    }
    [[nodiscard]] QString menu()
    {
        QString enabled;
        for (const FileMenu::Item item : FileMenu::items)
            enabled += overview.fileMenu().isEnabled(item) ? u'1' : u'0';
        return enabled;
    }

    RecordingSheets sheets;
    ManualCalls calls;
    OverviewController overview{sheets};
    TitleCommands commands{overview, sheets, calls};
    QAbstractItemModelTester softwareTester{&overview.softwareTable(),
                                            QAbstractItemModelTester::FailureReportingMode::Fatal};
    QAbstractItemModelTester submittedTester{&overview.submittedToTable(),
                                             QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(OverviewTest, ListShowsWhatSummaryFilesSay)
{
    EXPECT_EQ(overview.softwareTable().rowCount(), 0);
    QDir().mkpath(inData(u".qndata"_s)); // No name, no title.
    QDir().mkpath(inData(u"Bare.qndata"_s));
    addTitle(u"beta"_s, summaryText(u"1.1"_s, u"A,B"_s, u"1.0,1.1"_s, u"2009-03-15"_s));
    addTitle(u"Alpha"_s, summaryText(u"2"_s, {}, {}, u"15/3/2009"_s));
    addTitle(u"gamma"_s, summaryText(u"2"_s, {}, {}, u"soon"_s));

    EXPECT_EQ(overview.softwareTable().swNameArray(),
              QStringList({u"Alpha"_s, u"Bare"_s, u"beta"_s, u"gamma"_s}));
    EXPECT_EQ(cell(2, SoftwareTable::Version), u"1.1"_s);
    EXPECT_EQ(cell(2, SoftwareTable::ReleaseDate),
              QLocale().toString(QDate(2009, 3, 15), QLocale::ShortFormat));
    EXPECT_EQ(cell(0, SoftwareTable::ReleaseDate), cell(2, SoftwareTable::ReleaseDate));
    EXPECT_EQ(cell(3, SoftwareTable::ReleaseDate), QString());
    EXPECT_EQ(cell(2, SoftwareTable::SupportedOS, IconsRole), u"Linux|Win98"_s);
    EXPECT_EQ(cell(2, SoftwareTable::Validated, IconsRole), u"Validated"_s);
    EXPECT_EQ(cell(2, SoftwareTable::Submissions, IconsRole), u"A|B"_s);
    EXPECT_EQ(cell(2, SoftwareTable::Submissions, Qt::AccessibleTextRole), u"A, B"_s);
    for (int column = SoftwareTable::Version; column < SoftwareTable::ColumnCount; ++column)
        EXPECT_EQ(cell(1, column) + cell(1, column, IconsRole), QString()) << column;
}

TEST_F(OverviewTest, ListGoesDownToEveryDepthButNotOverLinks)
{
    const auto titleAt = [this](const QString &folder, const QString &version) {
        ASSERT_TRUE(QDir().mkpath(folder));
        put(folder + u"/general.qnxmld"_s, summaryText(version, {}, {}));
    };
    titleAt(inData(u"Group/deep/Inner.qndata"_s), u"1"_s);
    titleAt(inData(u"Outer.qndata"_s), u"2"_s);
    titleAt(inData(u"Outer.qndata/Within.qndata"_s), u"3"_s);
    titleAt(home() + u"/elsewhere/Hidden.qndata"_s, u"4"_s);
    put(inData(u"File.qndata"_s), "a file with a title's name");
    put(home() + u"/summary"_s, summaryText(u"5"_s, {}, {}));
    ASSERT_TRUE(QDir().mkpath(inData(u"Borrowed.qndata"_s)));
    ASSERT_TRUE(QFile::link(home() + u"/summary"_s, inData(u"Borrowed.qndata/general.qnxmld"_s)));
    ASSERT_TRUE(QFile::link(home() + u"/elsewhere"_s, inData(u"Linked"_s)));
    ASSERT_TRUE(QFile::link(home() + u"/elsewhere/Hidden.qndata"_s, inData(u"Shortcut.qndata"_s)));
    ASSERT_TRUE(QFile::link(inData(u"Group"_s), inData(u"Group/deep/loop"_s)));
    overview.loadSoftwareList();

    QStringList shown;
    for (int row = 0; row < overview.softwareTable().rowCount(); ++row)
        shown.append(cell(row, SoftwareTable::SoftwareTitle) + u'=' + cell(row, SoftwareTable::Version));
    EXPECT_EQ(shown, QStringList({u"Borrowed=5"_s, u"File="_s, u"Group/deep/Inner=1"_s, u"Outer=2"_s,
                                  u"Outer.qndata/Within=3"_s, u"Shortcut=4"_s}));
}

TEST_F(OverviewTest, NamesAreThoseOfTheFolders)
{
    const QString name = QString(QChar(0xFEFF)) + u"T"; // Not a byte-order mark, in a name.
    addTitle(name, summaryText(u"1"_s, {}, {}));
    ASSERT_EQ(overview.softwareTable().swNameArray(), QStringList{name});
    select(name);
    EXPECT_TRUE(title_folder::exists(*mwqnSelSW));
}

TEST_F(OverviewTest, AFolderThatCannotBeListedIsNoEmptyOne)
{
    addTitle(u"A"_s, summaryText(u"1"_s, {}, {}));
    select(u"A"_s);
    for (const char *const rules : {"lseek=EIO", "getdents64=EIO", "getdents64@2=EIO"}) {
        const FaultPlan plan(mwqnAppSuppLoc, rules);
        overview.loadSoftwareList();
        EXPECT_TRUE(plan.met()) << rules;
        EXPECT_EQ(overview.softwareTable().swNameArray(), QStringList{u"A"_s}) << rules;
        EXPECT_EQ(mwqnSelSW, u"A"_s) << rules;
        EXPECT_TRUE(failedWritesLine().startsWith(u"Not read: "_s)) << rules;
    }
    overview.loadSoftwareList();
    EXPECT_EQ(failedWritesLine(), QString());
    const FaultPlan plan(inData(u"A.qndata"_s), "open=EACCES");
    const auto list = loadTitles();
    EXPECT_TRUE(list && list->titles.size() == 1 && list->failures.size() == 1) << "it is there, and unknown";
}

TEST_F(OverviewTest, AConversionThatWasKilledIsFinished)
{
    bool isDone = false;
    for (int call = 1; !isDone; ++call) {
        ASSERT_TRUE(QDir().mkpath(inData(u"Old"_s)));
        ASSERT_TRUE(put(inData(u"Old/Old.qnxmld"_s), summaryText(u"3"_s, {}, {})) &&
                    put(inData(u"Old/Old.qnxml"_s), "pad"));
        const pid_t child = ::fork();
        if (child == 0) {
            const QByteArray rules = "writing@" + QByteArray::number(call) + "=kill";
            const FaultPlan plan(home(), rules.constData());
            (void)loadTitles();
            ::_exit(0);
        }
        int status = -1;
        ::waitpid(child, &status, 0);
        isDone = WIFEXITED(status);
        AddDeleteImportEdit::removeUnfinished();
        const auto list = loadTitles();
        EXPECT_TRUE(list && list->failures.isEmpty() && list->titles.size() == 1) << call;
        EXPECT_EQ(contents(inData(u"Old.qndata/data.qnxml"_s)), "pad") << call;
        EXPECT_FALSE(QFile::exists(inData(u"Old/Old.qnxmld"_s))) << call;
        ASSERT_TRUE(AddDeleteImportEdit::deleteQnDataFile(u"Old"_s));
        QDir(inData(u"Old"_s)).removeRecursively();
    }
}

TEST_F(OverviewTest, OlderLayoutIsConvertedOnceAndNothingElseOfItIsLost)
{
    QDir().mkpath(inData(u"Old"_s));
    put(inData(u"Old/Old.qnxmld"_s), summaryText(u"3.0"_s, {}, {}));
    const QByteArray oldPad(5000, 'p');
    put(inData(u"Old/Old.qnxml"_s), oldPad);
    put(inData(u"Old/notes.txt"_s), "keep me");
    QDir().mkpath(inData(u"Stray"_s));
    put(inData(u"Stray/other.qnxmld"_s), "not a title of this folder's name");
    QDir().mkpath(inData(u"deep/Old"_s));
    put(inData(u"deep/Old/Old.qnxmld"_s), summaryText(u"3.0"_s, {}, {}));
    QDir().mkpath(inData(u"deep/Title.qndata"_s));
    for (const QString &name : {u"Big"_s, u"Taken"_s}) {
        QDir().mkpath(inData(name));
        put(inData(name + u'/' + name + u".qnxmld"_s), "kept");
        put(inData(name + u'/' + name + u".qnxml"_s), "kept");
    }
    ASSERT_TRUE(QFile::resize(inData(u"Big/Big.qnxml"_s), 64LL * 1024 * 1024 + 1)); // More than is read.
    QDir().mkpath(inData(u"Taken.qndata"_s));
    const QStringList before = names(mwqnAppSuppLoc);
    {
        const FullDisk full(1000); // The summary could be stored, the PAD file cannot.
        overview.loadSoftwareList();
    }
    EXPECT_EQ(names(mwqnAppSuppLoc), before) << "nothing half made stays";
    overview.loadSoftwareList();

    EXPECT_EQ(overview.softwareTable().swNameArray(), QStringList({u"deep/Title"_s, u"Old"_s, u"Taken"_s}));
    for (const QString &name : {u"Big"_s, u"Taken"_s})
        EXPECT_EQ(names(inData(name)).size(), 2) << name.toStdString();
    EXPECT_EQ(names(inData(u"Taken.qndata"_s)), QStringList());
    EXPECT_TRUE(QFile::exists(inData(u"deep/Old/Old.qnxmld"_s))) << "no title could be opened there";
    EXPECT_EQ(cell(1, SoftwareTable::Version), u"3.0"_s);
    EXPECT_EQ(contents(inData(u"Old.qndata/data.qnxml"_s)), oldPad);
    EXPECT_FALSE(QFile::exists(inData(u"Old/Old.qnxmld"_s)));
    EXPECT_TRUE(QFile::exists(inData(u"Old/notes.txt"_s)));
    EXPECT_TRUE(QFile::exists(inData(u"Stray/other.qnxmld"_s)));
}

TEST_F(OverviewTest, SelectionDrivesMenuMarksAndNotifications)
{
    const PostedNotifications posted{notification::mwqnLPDIed, notification::mwqnEdChFEr,
                                     notification::mwqnLSLsc};
    addTitle(u"T"_s, summaryText(u"1.1"_s, u"beta,Alpha"_s, u"1.0,1.1"_s));
    addTitle(u"U"_s, summaryText(u"1.1"_s, {}, {}));
    EXPECT_EQ(menu(), u"100011"_s);

    select(u"T"_s);
    EXPECT_EQ(menu(), u"111111"_s);
    EXPECT_EQ(mwqnSelSW, u"T"_s);
    EXPECT_EQ(posted.names, QStringList({u"mwqnLPDIed"_s, u"mwqnEdChFEr"_s, u"mwqnLSLsc"_s}));
    ASSERT_EQ(overview.submittedToTable().rowCount(), 2);
    EXPECT_EQ(mark(0, SubmittedToTable::Site) + mark(0, SubmittedToTable::Version), u"Alpha1.1"_s);
    EXPECT_EQ(mark(0, SubmittedToTable::Status, Qt::AccessibleTextRole), u"Current version"_s);
    EXPECT_EQ(mark(1, SubmittedToTable::Status, Qt::AccessibleTextRole), u"Older version"_s);

    select(u"U"_s);
    EXPECT_EQ(mark(0, SubmittedToTable::Site), u"No Submissions"_s);
    EXPECT_EQ(mark(0, SubmittedToTable::Version), QString());

    overview.loadSoftwareList(); // The selection is kept by name...
    EXPECT_EQ(mwqnSelSW, u"U"_s);
    ASSERT_TRUE(AddDeleteImportEdit::deleteQnDataFile(u"U"_s));
    overview.loadSoftwareList(); // ...and given up with its title.
    EXPECT_EQ(mwqnSelSW, std::nullopt);
    EXPECT_EQ(menu(), u"100011"_s);
    EXPECT_EQ(overview.submittedToTable().rowCount(), 0);
}

TEST_F(OverviewTest, MarksOfSitesThatAreGoneArePruned)
{
    addTitle(u"T"_s, summaryText(u"1.1"_s, u"Gone,Here,Lost"_s, u"1,2,3"_s));
    const QString file = inData(u"T.qndata/general.qnxmld"_s);
    const QByteArray before = contents(file);
    select(u"T"_s);
    EXPECT_EQ(contents(file), before) << "without a catalogue nothing can be told to be gone";

    mwqnSCPreallSitesDict[u"Here"_s] = u"http://here"_s;
    const QByteArray ownSites = contents(inData(u"sites.qnrc"_s));
    put(inData(u"sites.qnrc"_s), "<plist><dict><key>Lo");
    overview.updateOverviewDisplay();
    EXPECT_EQ(contents(file), before) << "nor without the author's own sites";
    put(inData(u"sites.qnrc"_s), ownSites);
    overview.updateOverviewDisplay();
    EXPECT_TRUE(contents(file).contains("<QN_SITES>Here</QN_SITES>"));
    EXPECT_TRUE(contents(file).contains("<QN_VERSION>2<QN_VERSION>"));
    ASSERT_EQ(overview.submittedToTable().rowCount(), 1);
    EXPECT_EQ(mark(0, SubmittedToTable::Version), u"2"_s);
    EXPECT_EQ(cell(0, SoftwareTable::Submissions, IconsRole), u"Here"_s);
    EXPECT_EQ(loadSummary(u"T"_s)->versions, u"2"_s) << "the unclosed list reads as it was meant";
}

TEST_F(OverviewTest, PruningGoesOnUntilNoMarkIsLeftThatNobodyKnows)
{
    mwqnSCPreallSitesDict[u"Here"_s] = u"http://here"_s; // Built while the own sites could not be read.
    ASSERT_TRUE(site_list::write(site_list::userSites, {{u"Own"_s, u"http://own"_s}}));
    addTitle(u"T"_s, summaryText({}, u"Gone"_s, u"1,0"_s)); // One mark, at the version 1,0.
    Editor editor(sheets);
    editor.awakeFromNib();
    addTitle(u"U"_s, summaryText(u"1"_s, u"Own,Gone"_s, u"1,2"_s));
    select(u"T"_s);
    EXPECT_EQ(mark(0, SubmittedToTable::Site), u"No Submissions"_s);
    EXPECT_EQ(loadSummary(u"T"_s)->sites, QString());
    select(u"U"_s);
    EXPECT_EQ(loadSummary(u"U"_s)->sites, u"Own"_s);
}

TEST_F(OverviewTest, PruningTakesTimeInProportionToTheMarks)
{
    mwqnSCPreallSitesDict[u"Here"_s] = u"http://here"_s;
    addTitle(u"T"_s, summaryText(u"1"_s, {}, {}));
    const double growth = growthOfEightfold(10'000, [](qsizetype gone) {
        put(inData(u"T.qndata/general.qnxmld"_s),
            summaryText(u"1"_s, QString(u"Here" + u",x"_s.repeated(gone)),
                        QString(u"1" + u",1"_s.repeated(gone))));
        selectTitle(u"T"_s);
        EXPECT_TRUE(title_operations::pruneMarks());
    });
    EXPECT_LT(growth, tolerableGrowth);
}

TEST_F(OverviewTest, NamePanelRefusesAndReopens)
{
    addTitle(u"Taken"_s, summaryText({}, {}, {}));
    const QString unusable = u"This name cannot be used: it holds a \"/\" or is too long."_s;
    const std::pair<QString, QString> cases[] = {
        {{}, u"You Must Enter a Name for the Software Title"_s},
        {u"Taken"_s, u"This Software Name Already Exists, Please Choose a Unique Name."_s},
        {u"../out"_s, unusable},
        {u"nul"_s + QChar(0), unusable},
    };
    commands.newSoftwareButtonAction();
    EXPECT_EQ(commands.namePanel()->swNamePanelMessage, u"Add A New Software Title"_s);
    for (const auto &[name, message] : cases) {
        commands.addSWNPIAction(name);
        ASSERT_TRUE(commands.namePanel());
        EXPECT_EQ(commands.namePanel()->swNamePanelMessage, message);
        EXPECT_TRUE(commands.namePanel()->messageIsError);
    }
    EXPECT_EQ(overview.softwareTable().rowCount(), 1);
    commands.addSWNPIAction(u" Taken"_s); // A blank in front makes another name.
    EXPECT_FALSE(commands.namePanel());
    EXPECT_EQ(overview.softwareTable().swNameArray(), QStringList({u" Taken"_s, u"Taken"_s}));

    select(u"Taken"_s);
    commands.renameSWListItem();
    EXPECT_EQ(commands.namePanel()->swNamePanelMessage, u"Please Enter The New Name For Taken"_s);
    commands.addSWNPIAction(u"Taken"_s);
    EXPECT_TRUE(commands.namePanel()->messageIsError);
    commands.addSWNPIAction(u"Renamed"_s);
    EXPECT_GE(rowOf(u"Renamed"_s), 0);
    EXPECT_EQ(overview.selectedRow(), -1);
}

TEST_F(OverviewTest, OneImportTellsItsFindingsAfterADelay)
{
    sheets.filesToChoose = {
        fileAt(u"a.xml"_s, pad(u"One"_s, u"<Program_Type>Freemium</Program_Type><Keywords>a"
                                         "</Keywords><RoboSoft><X>y</X></RoboSoft>"_s))};
    commands.importPADFile();
    EXPECT_EQ(overview.softwareTable().swNameArray(), QStringList{u"One"_s});
    EXPECT_TRUE(sheets.alerts.isEmpty());
    calls.pass(resultDelay);
    EXPECT_EQ(sheets.lastMessage(), u"Import Successful"_s);
    EXPECT_EQ(
        sheets.alerts.last().informativeText,
        u"Some of what the file holds will be lost as soon as you select the title. The details list it. "
        "“Export Original…” in the menu “Title” gives each file back as it came."_s);
    ASSERT_EQ(sheets.alerts.last().details.size(), 2);
    EXPECT_TRUE(sheets.alerts.last().details[0].contains(u"Program_Type: “Freemium”"_s));
    EXPECT_TRUE(sheets.alerts.last().details[1].contains(u"RoboSoft"_s));

    const QByteArray original = contents(sheets.filesToChoose.first());
    select(u"One"_s);
    put(inData(u"One.qndata/data.qnxml"_s), pad_writer::skeleton());
    sheets.filesToChoose = {home() + u"/out.xml"_s};
    for (const bool isMerged : {false, true}) {
        sheets.ticksOption = isMerged;
        commands.exportButtonAction();
        EXPECT_EQ(contents(sheets.filesToChoose.first()).contains("<RoboSoft>"), isMerged);
    }
    commands.exportOriginal();
    EXPECT_EQ(contents(sheets.filesToChoose.first()), original);
    EXPECT_EQ(sheets.requests.last().proposedName, u"a.xml"_s);
    calls.pass(resultDelay);
    // What cannot be kept costs only that.
    Journal::ofDataFolder().close();
    ASSERT_TRUE(QDir(mwqnAppSuppLoc).rename(u"quillon.sqlite"_s, u"away"_s));
    ASSERT_TRUE(QDir(mwqnAppSuppLoc).mkdir(u"quillon.sqlite"_s));
    const auto import = title_operations::importPadFile(fileAt(u"2.xml"_s, original), u"Two"_s);
    EXPECT_TRUE(import.stored && !import.isKept && !mwqnFailedExtras.isEmpty());

    commands.processImportedFile({fileAt(u"b.xml"_s, "no marker")});
    calls.pass(resultDelay);
    EXPECT_EQ(sheets.lastMessage(),
              u"The file you selected does not appear to be a valid PAD file and cannot be imported."_s);
}

TEST_F(OverviewTest, SeveralImportsAskForNamesAfterwards)
{
    const QStringList files = {fileAt(u"1.xml"_s, pad(u"One"_s)), fileAt(u"2.xml"_s, pad(u"One"_s)),
                               fileAt(u"3.xml"_s, pad(u"  "_s)),  fileAt(u"4.xml"_s, pad(u"a/b"_s)),
                               fileAt(u"5.xml"_s, "garbage"),     home() + u"/missing.xml"_s};
    bringIn(files);
    EXPECT_EQ(overview.softwareTable().swNameArray(), QStringList{u"One"_s});
    calls.pass(resultDelay);
    EXPECT_EQ(sheets.lastMessage(), u"1 of 6 files were imported"_s);
    EXPECT_EQ(sheets.alerts.last().details.size(), 2);
    const QStringList questions = {
        u"A listing with the name One already exists\nPlease choose another name."_s,
        u"No name could be found for the software in this PAD file\nPlease choose a name for this import"_s,
        u"The name a/b cannot be used for a listing\nPlease choose another name."_s};
    sheets.answer(AlertAnswer::Default);
    for (qsizetype at = 0; at < questions.size(); ++at) {
        calls.pass(resultDelay);
        ASSERT_TRUE(commands.namePanel()) << at;
        EXPECT_EQ(commands.namePanel()->swNamePanelMessage, questions[at]);
        if (at == 1) {
            commands.cancelSWNPIAction(); // Gives up this file only.
        } else {
            commands.addSWNPIAction(u"Name %1"_s.arg(at));
            calls.pass(resultDelay);
            EXPECT_EQ(sheets.lastMessage(), u"Import Successful"_s);
            sheets.answer(AlertAnswer::Default);
        }
        if (at == 0) // Files that are dropped meanwhile do not push the waiting ones out.
            commands.processImportedFile({fileAt(u"late.xml"_s, pad(u"Late"_s))});
    }
    calls.pass(resultDelay);
    EXPECT_FALSE(commands.namePanel());
    EXPECT_EQ(overview.softwareTable().swNameArray(),
              QStringList({u"Late"_s, u"Name 0"_s, u"Name 2"_s, u"One"_s}));
}

TEST_F(OverviewTest, TheReportCountsFailuresNamesAndLossesApart)
{
    bringIn({fileAt(u"1.xml"_s, pad(u"One"_s, u"<Robo>x</Robo><Site>y</Site>"_s)),
             fileAt(u"2.xml"_s, pad({})), fileAt(u"3.xml"_s, "garbage"),
             fileAt(u"4.xml"_s, pad(u"Big"_s, QString(1'048'576, u' ')))});
    calls.pass(resultDelay);
    EXPECT_EQ(sheets.lastMessage(), u"1 of 4 files were imported"_s);
    EXPECT_EQ(
        sheets.alerts.last().informativeText,
        u"2 files could not be imported. 1 file needs another name, which you will be asked for. Of 1 file, "
        "something will be lost as soon as you select its title. The details list it. "
        "“Export Original…” in the menu “Title” gives each file back as it came."_s);
    const QString notPad =
        u"The file you selected does not appear to be a valid PAD file and cannot be imported."_s;
    EXPECT_EQ(sheets.alerts.last().details,
              QStringList({u"Not imported:"_s,
                           u"3.xml: "_s + notPad,
                           u"4.xml: "_s + notPad,
                           {},
                           u"Will be lost:"_s,
                           u"1.xml: Robo is not part of PAD 3.10; its value “x” will be lost."_s,
                           u"1.xml: Site is not part of PAD 3.10; its value “y” will be lost."_s}));
}

TEST_F(OverviewTest, WorkGoesOnWhileFilesComeIn)
{
    addTitle(u"Mine"_s, summaryText({}, {}, {}));
    select(u"Mine"_s);
    commands.processImportedFile({fileAt(u"1.xml"_s, pad(u"One"_s)), fileAt(u"2.xml"_s, pad({}))});
    overview.fileMenu().disableAll(); // As when the author goes on to the editor.
    calls.pass(std::chrono::milliseconds(0));
    EXPECT_EQ(mwqnSelSW, u"Mine"_s);
    EXPECT_EQ(rowOf(u"One"_s), overview.selectedRow() + 1);

    overview.fileMenu().enableAll();
    calls.pass(resultDelay);
    sheets.answer(AlertAnswer::Default);
    commands.renameSWListItem(); // Before the nameless file asks for a name.
    calls.pass(resultDelay);
    EXPECT_EQ(commands.namePanel()->nameSheetCalledFrom, u"rename"_s);
    overview.deselectAll();
    commands.addSWNPIAction(u"Ours"_s);
    EXPECT_GE(rowOf(u"Ours"_s), 0) << "the title that was asked about";
    calls.pass(resultDelay);
    ASSERT_TRUE(commands.namePanel());
    EXPECT_EQ(commands.namePanel()->nameSheetCalledFrom, u"import"_s);
    EXPECT_EQ(commands.namePanel()->file, u"2.xml"_s);

    bringIn({fileAt(u"3.xml"_s, pad({})), fileAt(u"4.xml"_s, pad({}))});
    commands.cancelSWNPIAction();
    calls.pass(resultDelay);
    ASSERT_TRUE(commands.namePanel() && commands.namePanel()->hasMore);
    commands.skipImports();
    calls.pass(resultDelay);
    EXPECT_FALSE(commands.namePanel());
}

TEST_F(OverviewTest, ExportEscapesOnlyTheFreeStandingAmpersand)
{
    addTitle(u" T "_s, summaryText({}, {}, {}));
    select(u" T "_s);
    put(inData(u" T .qndata/data.qnxml"_s), "Tom & Jerry, Tom&Jerry, a &amp; b");
    const QString target = home() + u"/out.xml"_s;
    const QString link = home() + u"/link.xml"_s;
    ASSERT_TRUE(put(target, "old") && QFile::link(target, link));
    sheets.filesToChoose = {link};
    commands.exportButtonAction();
    EXPECT_EQ(sheets.requests.last().proposedName, u"T"_s);
    EXPECT_EQ(contents(target), "Tom &amp; Jerry, Tom&Jerry, a &amp; b");
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    calls.pass(resultDelay);
    EXPECT_EQ(sheets.lastMessage(), u"PAD file export successful"_s);

    QFile::remove(inData(u" T .qndata/data.qnxml"_s));
    commands.exportButtonAction();
    calls.pass(resultDelay);
    EXPECT_EQ(sheets.lastMessage(), u"The PAD file export failed with an unknown error"_s);
    EXPECT_EQ(contents(target), "Tom &amp; Jerry, Tom&Jerry, a &amp; b")
        << "a failed export leaves the old file";
    EXPECT_TRUE(mwqnFailedWrites.isEmpty()) << "what is exported is none of the stored files";
}
