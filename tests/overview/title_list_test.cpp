#include "overview/example_title.h"
#include "overview/overview_fixture.h"
#include "platform/notifications.h"
#include "store/storage_status.h"
#include "support/full_disk.h"
#include "support/kills.h"

TEST_F(OverviewTest, ListShowsWhatSummaryFilesSay)
{
    EXPECT_EQ(titles(), QStringList());
    for (const QString &folder : {u".qndata"_s, u"Bare.qndata"_s}) // No name, no title.
        ASSERT_TRUE(QDir().mkpath(inData(folder)));
    addTitle(u"beta"_s, summaryText(u"1.1"_s, u"A,B"_s, u"1.0,1.1"_s, u"2009-03-15"_s));
    addTitle(u"Alpha"_s, summaryText(u"2"_s, {}, {}, u"15/3/2009"_s));
    addTitle(u"gamma"_s, summaryText(u"2"_s, {}, {}, u"soon"_s));

    EXPECT_EQ(titles(), words(u"Alpha Bare beta gamma"_s));
    const QString date = QLocale().toString(QDate(2009, 3, 15), QLocale::ShortFormat);
    const std::tuple<int, int, int, QString> cells[] = {
        {2, SoftwareTable::Version, Qt::DisplayRole, u"1.1"_s},
        {0, SoftwareTable::ReleaseDate, Qt::DisplayRole, date},
        {2, SoftwareTable::ReleaseDate, Qt::DisplayRole, date},
        {3, SoftwareTable::ReleaseDate, Qt::DisplayRole, {}},
        {2, SoftwareTable::SupportedOS, IconsRole, u"Linux|Win98"_s},
        {2, SoftwareTable::Validated, IconsRole, u"Validated"_s},
        {2, SoftwareTable::Submissions, IconsRole, u"A|B"_s},
        {2, SoftwareTable::Submissions, Qt::AccessibleTextRole, u"A, B"_s}};
    for (const auto &[row, column, role, text] : cells)
        EXPECT_EQ(cell(row, column, role), text) << row << ' ' << column;
    for (int column = SoftwareTable::Version; column < SoftwareTable::ColumnCount; ++column)
        EXPECT_EQ(cell(1, column) + cell(1, column, IconsRole), QString()) << column;
}

TEST_F(OverviewTest, ListGoesDownToEveryDepthButNotOverLinks)
{
    const QString elsewhere = home() + u"/elsewhere/";
    int version = 0;
    for (const QString &folder : {inData(u"Group/deep/Inner.qndata"_s), inData(u"Outer.qndata"_s),
                                  inData(u"Outer.qndata/Within.qndata"_s),
                                  QString(elsewhere + u"Hidden.qndata"), inData(u"\uFEFFT.qndata"_s)})
        ASSERT_TRUE(QDir().mkpath(folder) &&
                    put(folder + u"/general.qnxmld", summaryText(QString::number(++version))));
    ASSERT_TRUE(put(inData(u"File.qndata"_s), "a file with a title's name") &&
                put(elsewhere + u"summary", summaryText(u"6"_s)) &&
                QDir().mkpath(inData(u"Borrowed.qndata"_s)));
    const std::pair<QString, QString> links[] = {
        {elsewhere + u"summary", u"Borrowed.qndata/general.qnxmld"_s},
        {elsewhere, u"Linked"_s},
        {elsewhere + u"Hidden.qndata", u"Shortcut.qndata"_s},
        {inData(u"Group"_s), u"Group/deep/loop"_s}};
    for (const auto &[target, link] : links)
        ASSERT_TRUE(QFile::link(target, inData(link)));
    overview.loadSoftwareList();

    QStringList shown;
    for (int row = 0; row < overview.softwareTable().rowCount(); ++row)
        shown.append(cell(row, SoftwareTable::SoftwareTitle) + u'=' + cell(row, SoftwareTable::Version));
    EXPECT_EQ(
        shown,
        words(u"Borrowed=6 File= Group/deep/Inner=1 Outer=2 Outer.qndata/Within=3 Shortcut=4 \uFEFFT=5"_s));
    select(u"\uFEFFT"_s);
    EXPECT_TRUE(title_folder::exists(*mwqnSelSW));
}

TEST_F(OverviewTest, AFolderThatCannotBeListedIsNoEmptyOne)
{
    addTitle(u"A"_s, summaryText(u"1"_s));
    select(u"A"_s);
    for (const char *const rules : {"lseek=EIO", "getdents64=EIO", "getdents64@2=EIO"}) {
        const FaultPlan plan(mwqnAppSuppLoc, rules);
        overview.loadSoftwareList();
        EXPECT_TRUE(plan.met()) << rules;
        EXPECT_EQ(titles(), QStringList{u"A"_s}) << rules;
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
    killedAtEachCall(
        home(),
        [] {
            ASSERT_TRUE(QDir().mkpath(inData(u"Old"_s)) &&
                        put(inData(u"Old/Old.qnxmld"_s), summaryText(u"3"_s)) &&
                        put(inData(u"Old/Old.qnxml"_s), "pad"));
        },
        [] { (void)loadTitles(); },
        [] {
            AddDeleteImportEdit::removeUnfinished();
            const auto list = loadTitles();
            EXPECT_TRUE(list && list->failures.isEmpty() && list->titles.size() == 1);
            EXPECT_EQ(contents(inData(u"Old.qndata/data.qnxml"_s)), "pad");
            EXPECT_FALSE(QFile::exists(inData(u"Old/Old.qnxmld"_s)) ||
                         QFile::exists(inData(u"Old/Old.qnxml"_s)));
            ASSERT_TRUE(AddDeleteImportEdit::deleteQnDataFile(u"Old"_s));
            QDir(inData(u"Old"_s)).removeRecursively();
        });
}

TEST_F(OverviewTest, AConversionWhoseLastSyncFailsIsNotYetSafe)
{
    std::optional<TitleList> last;
    for (int sync = 1;; ++sync) {
        ASSERT_TRUE(QDir().mkpath(inData(u"Old"_s)) && put(inData(u"Old/Old.qnxmld"_s), summaryText(u"3"_s)));
        const FaultPlan plan(home(), failing("fsync", sync));
        auto list = loadTitles();
        if (!plan.met())
            break;
        ASSERT_TRUE(list);
        last = *std::move(list);
        (void)AddDeleteImportEdit::deleteQnDataFile(u"Old"_s); // Where it failed earlier there is none.
    }
    ASSERT_TRUE(last && last->failures.size() == 1);
    EXPECT_EQ(last->failures[0].kind, Error::Kind::NotYetSafe);
    EXPECT_EQ(last->failures[0].path, inData(u"Old"_s));
}

TEST_F(OverviewTest, TheExampleIsThereWholeOrNotAtAll)
{
    ASSERT_TRUE(example_title::make());
    const auto whole = tree(mwqnAppSuppLoc);
    const auto isThere = [] { return title_folder::exists(example_title::name); };
    const auto remove = [] { ASSERT_TRUE(AddDeleteImportEdit::deleteQnDataFile(example_title::name)); };
    EXPECT_EQ(loadSummary(example_title::name)->validated, u"1");
    remove();
    {
        const FullDisk full(1000);
        EXPECT_FALSE(example_title::make());
        EXPECT_FALSE(isThere());
    }
    killedAtEachCall(
        home(), [] {}, [] { (void)example_title::make(); },
        [&] {
            AddDeleteImportEdit::removeUnfinished();
            if (!isThere())
                return;
            EXPECT_EQ(tree(mwqnAppSuppLoc), whole);
            remove();
        });
}

TEST_F(OverviewTest, OlderLayoutIsConvertedOnceAndNothingElseOfItIsLost)
{
    const QByteArray summary = summaryText(u"3.0"_s);
    const QByteArray pad(5000, 'p');
    const std::pair<QString, QByteArray> files[] = {
        {u"Old/Old.qnxmld"_s, summary},      {u"Old/Old.qnxml"_s, pad},
        {u"Old/notes.txt"_s, "keep me"},     {u"Stray/other.qnxmld"_s, "of another name"},
        {u"deep/Old/Old.qnxmld"_s, summary}, {u"Big/Big.qnxmld"_s, "kept"},
        {u"Big/Big.qnxml"_s, "kept"},        {u"Taken/Taken.qnxmld"_s, "kept"},
        {u"Taken/Taken.qnxml"_s, "kept"}};
    for (const auto &[path, bytes] : files)
        ASSERT_TRUE(QDir().mkpath(QFileInfo(inData(path)).path()) && put(inData(path), bytes));
    ASSERT_TRUE(QFile::resize(inData(u"Big/Big.qnxml"_s), 64LL * 1024 * 1024 + 1)); // More than is read.
    ASSERT_TRUE(QDir().mkpath(inData(u"Taken.qndata"_s)) && QDir().mkpath(inData(u"deep/Title.qndata"_s)));
    QStringList expected = tree(mwqnAppSuppLoc).keys();
    {
        const FullDisk full(1000); // The summary could be stored, the PAD file cannot.
        overview.loadSoftwareList();
    }
    EXPECT_EQ(tree(mwqnAppSuppLoc).keys(), expected) << "nothing half made stays";
    overview.loadSoftwareList();

    EXPECT_EQ(titles(), words(u"deep/Title Old Taken"_s));
    EXPECT_EQ(cell(1, SoftwareTable::Version), u"3.0");
    EXPECT_EQ(contents(inData(u"Old.qndata/data.qnxml"_s)), pad);
    for (const QString &moved : {u"Old/Old.qnxmld"_s, u"Old/Old.qnxml"_s})
        expected.removeOne(moved);
    expected += words(u"Old.qndata Old.qndata/data.qnxml Old.qndata/error.log Old.qndata/general.qnxmld"_s);
    expected.sort();
    EXPECT_EQ(tree(mwqnAppSuppLoc).keys(), expected);
}

TEST_F(OverviewTest, SelectionDrivesMenuMarksAndNotifications)
{
    const auto menu = [this] {
        QString enabled;
        for (const FileMenu::Item item : FileMenu::items)
            enabled += overview.fileMenu().isEnabled(item) ? u'1' : u'0';
        return enabled;
    };
    const PostedNotifications posted{notification::mwqnLPDIed, notification::mwqnEdChFEr,
                                     notification::mwqnLSLsc};
    addTitle(u"T"_s, summaryText(u"1.1"_s, u"beta,Alpha"_s, u"1.0,1.1"_s));
    addTitle(u"U"_s, summaryText(u"1.1"_s));
    EXPECT_EQ(menu(), u"100011");
    select(u"T"_s);
    EXPECT_EQ(menu(), u"111111");
    EXPECT_EQ(mwqnSelSW, u"T"_s);
    EXPECT_EQ(posted.names, words(u"mwqnLPDIed mwqnEdChFEr mwqnLSLsc"_s));
    EXPECT_EQ(marks(), u"Alpha 1.1, Current version; beta 1.0, Older version");
    select(u"U"_s);
    EXPECT_EQ(marks(), u"No Submissions , ");
    mwqnWOSi78tgsda = false; // As while the submission window is open.
    EXPECT_TRUE(overview.tableViewShouldSelectRow(rowOf(u"U"_s)) && sheets.alerts.isEmpty());
    EXPECT_FALSE(overview.tableViewShouldSelectRow(rowOf(u"T"_s)) || overview.tableViewShouldSelectRow(-1));
    EXPECT_EQ(sheets.alerts.size(), 1);
    mwqnWOSi78tgsda = true;

    overview.loadSoftwareList(); // The selection is kept by name...
    EXPECT_EQ(mwqnSelSW, u"U"_s);
    ASSERT_TRUE(AddDeleteImportEdit::deleteQnDataFile(u"U"_s));
    overview.loadSoftwareList(); // ...and given up with its title.
    EXPECT_EQ(mwqnSelSW, std::nullopt);
    EXPECT_EQ(menu() + marks(), u"100011");
}
