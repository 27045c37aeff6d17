#include "journal/journal.h"
#include "overview/overview_fixture.h"
#include "pad/pad_writer.h"
#include "support/faults.h"

class TitleCommandsTest : public OverviewTest
{
protected:
    static QByteArray pad(const QString &name, const QString &more = {})
    {
        return u"<XML_DIZ_INFO><MASTER_PAD_VERSION_INFO></MASTER_PAD_VERSION_INFO><Program_Name>%1</"
               u"Program_Name>"
               "<Program_Version>1.0</Program_Version>%2</XML_DIZ_INFO>"_s.arg(name, more)
                   .toUtf8();
    }
    /// Drops files named "1.xml", "2.xml" and so on, and lets each be read.
    void bringIn(const QByteArrayList &files)
    {
        QStringList paths;
        for (const QByteArray &file : files)
            paths.append(fileAt(u"%1.xml"_s.arg(paths.size() + 1), file));
        commands.processImportedFile(paths);
        calls.pass(std::chrono::milliseconds(0));
    }
    void closeReport()
    {
        calls.pass(resultDelay);
        sheets.answer(AlertAnswer::Default);
    }
    QString asked() { return commands.namePanel() ? commands.namePanel()->swNamePanelMessage : QString(); }

    const QString notPad =
        u"The file you selected does not appear to be a valid PAD file and cannot be imported."_s;
};

TEST_F(TitleCommandsTest, TheNamePanelRefusesAndReopens)
{
    addTitle(u"Taken"_s, summaryText({}));
    const QString unusable = u"This name cannot be used: it holds a \"/\" or is too long."_s;
    const std::pair<QString, QString> cases[] = {
        {{}, u"You Must Enter a Name for the Software Title"_s},
        {u"Taken"_s, u"This Software Name Already Exists, Please Choose a Unique Name."_s},
        {u"../out"_s, unusable},
        {u"nul"_s + QChar(0), unusable}};
    commands.newSoftwareButtonAction();
    EXPECT_EQ(asked(), u"Add A New Software Title");
    for (const auto &[name, message] : cases) {
        commands.addSWNPIAction(name);
        EXPECT_EQ(asked(), message);
        EXPECT_TRUE(commands.namePanel() && commands.namePanel()->messageIsError);
    }
    EXPECT_EQ(titles().size(), 1);
    commands.addSWNPIAction(u" Taken"_s); // A blank in front makes another name.
    EXPECT_FALSE(commands.namePanel());
    EXPECT_EQ(titles(), QStringList({u" Taken"_s, u"Taken"_s}));

    select(u"Taken"_s);
    commands.renameSWListItem();
    EXPECT_EQ(asked(), u"Please Enter The New Name For Taken");
    commands.addSWNPIAction(u"Taken"_s);
    EXPECT_TRUE(commands.namePanel()->messageIsError);
    commands.addSWNPIAction(u"Renamed"_s);
    EXPECT_GE(rowOf(u"Renamed"_s), 0);
    EXPECT_EQ(overview.selectedRow(), -1);
}

TEST_F(TitleCommandsTest, TheReportCountsFailuresNamesAndLossesApart)
{
    sheets.filesToChoose = {
        fileAt(u"a.xml"_s, pad(u"One"_s, u"<Program_Type>Freemium</Program_Type><Keywords>a"
                                         "</Keywords><RoboSoft><X>y</X></RoboSoft>"_s))};
    commands.importPADFile();
    EXPECT_EQ(titles(), QStringList{u"One"_s});
    EXPECT_TRUE(sheets.alerts.isEmpty()) << "it is told after a delay";
    calls.pass(resultDelay);
    EXPECT_EQ(
        sheets.lastTexts(),
        u"Import Successful\n"
        "Some of what the file holds will be lost as soon as you select the title. The details list it. "
        "“Export Original…” in the menu “Title” gives each file back as it came.\n"
        "Program_Type: “Freemium” is not in the list of PAD 3.10 and will be lost.\n"
        "RoboSoft is not part of PAD 3.10; its value “y” will be lost.");

    const QByteArray original = contents(sheets.filesToChoose[0]);
    select(u"One"_s);
    put(inData(u"One.qndata/data.qnxml"_s), pad_writer::skeleton());
    sheets.filesToChoose = {home() + u"/out.xml"};
    for (const bool isMerged : {false, true}) {
        sheets.ticksOption = isMerged;
        commands.exportButtonAction();
        EXPECT_EQ(contents(sheets.filesToChoose[0]).contains("<RoboSoft>"), isMerged);
    }
    commands.exportOriginal();
    EXPECT_EQ(contents(sheets.filesToChoose[0]), original);
    EXPECT_EQ(sheets.requests.last().proposedName, u"a.xml");
    calls.pass(resultDelay);

    bringIn({"no marker"});
    calls.pass(resultDelay);
    EXPECT_EQ(sheets.lastTexts(), notPad + u'\n');

    bringIn({pad(u"Two"_s, u"<Robo>x</Robo><Site>y</Site>"_s), pad({}), "garbage",
             pad(u"Big"_s, QString(1'048'576, u' '))});
    calls.pass(resultDelay);
    EXPECT_EQ(
        sheets.lastTexts(),
        u"1 of 4 files were imported\n"
        "2 files could not be imported. 1 file needs another name, which you will be asked for. Of 1 file, "
        "something will be lost as soon as you select its title. The details list it. "
        "“Export Original…” in the menu “Title” gives each file back as it came.\n"
        "Not imported:\n3.xml: "_s +
            notPad + u"\n4.xml: " + notPad +
            u"\n\nWill be lost:\n1.xml: Robo is not part of PAD 3.10; its value “x” will be lost.\n"
            "1.xml: Site is not part of PAD 3.10; its value “y” will be lost.");

    // What cannot be kept costs only that.
    Journal::ofDataFolder().close();
    ASSERT_TRUE(QDir(mwqnAppSuppLoc).rename(u"quillon.sqlite"_s, u"away"_s) &&
                QDir(mwqnAppSuppLoc).mkdir(u"quillon.sqlite"_s));
    const auto import = title_operations::importPadFile(fileAt(u"2.xml"_s, original), u"Extra"_s);
    EXPECT_TRUE(import.stored && !import.isKept && !mwqnFailedExtras.isEmpty());
}

TEST_F(TitleCommandsTest, SeveralImportsAskForNamesAfterwards)
{
    bringIn({pad(u"One"_s), pad(u"One"_s), pad(u"  "_s), pad(u"a/b"_s), "garbage"});
    EXPECT_EQ(titles(), QStringList{u"One"_s});
    calls.pass(resultDelay);
    EXPECT_EQ(sheets.lastMessage(), u"1 of 5 files were imported");
    const QStringList questions = {
        u"A listing with the name One already exists\nPlease choose another name."_s,
        u"No name could be found for the software in this PAD file\nPlease choose a name for this import"_s,
        u"The name a/b cannot be used for a listing\nPlease choose another name."_s};
    sheets.answer(AlertAnswer::Default);
    for (qsizetype at = 0; at < questions.size(); ++at) {
        calls.pass(resultDelay);
        EXPECT_EQ(asked(), questions[at]);
        if (at == 1) {
            commands.cancelSWNPIAction(); // Gives up this file only.
            continue;
        }
        commands.addSWNPIAction(u"Name-%1"_s.arg(at));
        calls.pass(resultDelay);
        EXPECT_EQ(sheets.lastMessage(), u"Import Successful");
        sheets.answer(AlertAnswer::Default);
        if (at == 0) // Files that are dropped meanwhile do not push the waiting ones out.
            commands.processImportedFile({fileAt(u"late.xml"_s, pad(u"Late"_s))});
    }
    calls.pass(resultDelay);
    EXPECT_FALSE(commands.namePanel());
    EXPECT_EQ(titles(), words(u"Late Name-0 Name-2 One"_s));
}

TEST_F(TitleCommandsTest, WorkGoesOnWhileFilesComeIn)
{
    addTitle(u"Mine"_s, summaryText({}));
    select(u"Mine"_s);
    commands.processImportedFile({fileAt(u"1.xml"_s, pad(u"One"_s)), fileAt(u"2.xml"_s, pad({}))});
    overview.fileMenu().disableAll(); // As when the author goes on to the editor.
    calls.pass(std::chrono::milliseconds(0));
    EXPECT_EQ(mwqnSelSW, u"Mine"_s);
    EXPECT_EQ(rowOf(u"One"_s), overview.selectedRow() + 1);

    overview.fileMenu().enableAll();
    closeReport();
    commands.renameSWListItem(); // Before the nameless file asks for a name.
    calls.pass(resultDelay);
    EXPECT_EQ(commands.namePanel()->nameSheetCalledFrom, u"rename");
    overview.deselectAll();
    commands.addSWNPIAction(u"Ours"_s);
    EXPECT_GE(rowOf(u"Ours"_s), 0) << "the title that was asked about";
    calls.pass(resultDelay);
    ASSERT_TRUE(commands.namePanel());
    EXPECT_EQ(commands.namePanel()->nameSheetCalledFrom + commands.namePanel()->file, u"import2.xml");

    bringIn({pad({}), pad({})});
    commands.cancelSWNPIAction();
    calls.pass(resultDelay);
    ASSERT_TRUE(commands.namePanel() && commands.namePanel()->hasMore);
    commands.skipImports();
    calls.pass(resultDelay);
    EXPECT_FALSE(commands.namePanel());
}

TEST_F(TitleCommandsTest, ExportEscapesOnlyTheFreeStandingAmpersand)
{
    addTitle(u" T "_s, summaryText({}));
    select(u" T "_s);
    put(inData(u" T .qndata/data.qnxml"_s), "Tom & Jerry, Tom&Jerry, a &amp; b");
    const QByteArray exported = "Tom &amp; Jerry, Tom&Jerry, a &amp; b";
    const QString target = fileAt(u"out.xml"_s, "old");
    sheets.filesToChoose = {home() + u"/link.xml"};
    ASSERT_TRUE(QFile::link(target, sheets.filesToChoose[0]));
    commands.exportButtonAction();
    EXPECT_EQ(sheets.requests.last().proposedName, u"T");
    EXPECT_EQ(contents(target), exported);
    EXPECT_TRUE(QFileInfo(sheets.filesToChoose[0]).isSymLink());
    calls.pass(resultDelay);
    EXPECT_EQ(sheets.lastMessage(), u"PAD file export successful");

    const QString dangling = home() + u"/dangling.xml";
    ASSERT_TRUE(QFile::link(u"nowhere"_s, dangling) && put(inData(u" T .qndata/data.qnxml"_s), "new"));
    const auto before = tree(home());
    const auto expectFailure = [&](const QString &to, const char *rule) {
        sheets.filesToChoose = {to};
        {
            const FaultPlan plan(home(), rule);
            commands.exportButtonAction();
        }
        calls.pass(resultDelay);
        EXPECT_EQ(sheets.lastMessage(), u"The PAD file export failed with an unknown error") << to << rule;
        EXPECT_EQ(tree(home()), before) << "a failed export leaves the old file: " << to << rule;
    };
    for (const char *const rule : {"create=EACCES", "write=ENOSPC", "rename=EIO", "open+=EIO"})
        expectFailure(target, rule);
    for (const QString &to : QStringList{dangling, home(), home() + u"/none/out.xml"})
        expectFailure(to, "mkdir=EIO");
    ASSERT_TRUE(QFile::remove(inData(u" T .qndata/data.qnxml"_s)));
    commands.exportButtonAction();
    calls.pass(resultDelay);
    EXPECT_EQ(sheets.lastMessage(), u"The PAD file export failed with an unknown error");
    EXPECT_EQ(contents(target), exported);
    EXPECT_TRUE(mwqnFailedWrites.isEmpty()) << "what is exported is none of the stored files";
}
