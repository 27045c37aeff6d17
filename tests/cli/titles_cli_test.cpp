#include "journal/journal.h"
#include "store/data_folder_lock.h"
#include "support/command_line.h"

#include <QDateTime>
#include <QDir>

using namespace Qt::StringLiterals;

namespace quillon {
namespace {

class TitlesCli : public CommandLineTest
{
protected:
    [[nodiscard]] QJsonArray titles() const { return cli({u"list"_s, u"--json"_s}).json().array(); }
};

TEST_F(TitlesCli, EachOutcomeHasItsStatusAndItsSentence)
{
    struct Case
    {
        QStringList arguments;
        int status;
        QByteArray message;
    };
    put(home() + u"/bad.xml"_s, "nothing");
    const QByteArray notPad =
        "The file you selected does not appear to be a valid PAD file and cannot be imported.";
    const QList<Case> cases = {
        {{}, 2, "A command is needed."},
        {{u"nonsense"_s}, 2, "nonsense"},
        {{u"new"_s}, 2, "NAME"},
        {{u"--help"_s}, 0, {}},
        {{u"new"_s, u"A"_s}, 0, {}},
        {{u"new"_s, u"A"_s}, 3, "This Software Name Already Exists, Please Choose a Unique Name."},
        {{u"new"_s, {}}, 3, "You Must Enter a Name for the Software Title"},
        {{u"new"_s, u"a/b"_s}, 3, "This name cannot be used"},
        {{u"new"_s, QString(300, u'x')}, 3, "This name cannot be used"},
        {{u"rename"_s, u"A"_s, u"A"_s}, 3, "Already Exists"},
        {{u"rename"_s, u"missing"_s, u"B"_s}, 3, "There is no title named missing."},
        {{u"rename"_s, u"A"_s, u"Ä Ö"_s}, 0, {}},
        {{u"import"_s, home() + u"/bad.xml"_s}, 3, notPad},
        {{u"import"_s, home() + u"/none.xml"_s}, 4, notPad},
        {{u"import"_s, home()}, 4, notPad},
        {{u"export"_s, u"missing"_s, u"-"_s}, 3, "There is no title named missing."},
        {{u"export"_s, u"Ä Ö"_s, home() + u"/no/such/folder.xml"_s}, 4, "The PAD file export failed"},
        {{u"export"_s, u"Ä Ö"_s, home()}, 4, "what has that name is no file"},
        {{u"show"_s, u"Ä Ö"_s, u"noSuchField"_s}, 2, "There is no field named noSuchField."},
        {{u"show"_s, u"missing"_s}, 3, "There is no title named missing."},
        {{u"sites"_s, u"--for"_s, {}}, 3, "There is no title named ."},
        {{u"delete"_s, u"../Quillon"_s}, 3, "There is no title named"},
        {{u"delete"_s, u"Ä Ö"_s}, 0, {}},
    };
    for (const Case &each : cases) {
        const CliResult result = cli(each.arguments);
        const std::string call = each.arguments.join(u' ').toStdString();
        EXPECT_EQ(result.status, each.status) << call << ": " << result.messages.constData();
        EXPECT_TRUE(result.messages.contains(each.message)) << call << ": " << result.messages.constData();
        EXPECT_EQ(result.messages.isEmpty(), each.message.isEmpty()) << call;
    }
    EXPECT_TRUE(titles().isEmpty());
}

TEST_F(TitlesCli, ListsWhatAnImportFound)
{
    put(home() + u"/a.xml"_s,
        "<XML_DIZ_INFO><master_pad_version_info/><Program_Name>Tom &amp; Jerry</Program_Name>"
        "<Program_Version>1.2</Program_Version><Program_Release_Day>5</Program_Release_Day>"
        "<Program_Release_Month>3</Program_Release_Month><Program_Release_Year>2009</Program_Release_Year>"
        "<Program_OS_Support>Linux,Win 11</Program_OS_Support><Keywords>a\nb</Keywords></XML_DIZ_INFO>");
    EXPECT_EQ(cli({u"import"_s, home() + u"/a.xml"_s}).status, 3)
        << "the marker has no closing bracket there";
    put(home() + u"/a.xml"_s,
        contents(home() + u"/a.xml"_s)
            .replace("<master_pad_version_info/>", "<master_pad_version_info></master_pad_version_info>"));
    const CliResult import = cli({u"import"_s, home() + u"/a.xml"_s, u"--as"_s, u"Other"_s});
    EXPECT_EQ(import.status, 0);
    EXPECT_TRUE(import.messages.contains("Program_OS_Support: “Win 11” is not in the list"))
        << import.messages.constData();
    EXPECT_EQ(import.messages.count('\n'), 2);
    EXPECT_EQ(cli({u"original"_s, u"Other"_s, u"-"_s}).output, contents(home() + u"/a.xml"_s));
    cli({u"new"_s, u"Made"_s});
    for (const QStringList &command : {QStringList{u"original"_s}, {u"export"_s, u"--merged"_s}}) {
        const CliResult none = cli(command + QStringList{u"Made"_s, home() + u"/none.xml"_s});
        EXPECT_EQ(none.status, 3);
        EXPECT_EQ(none.messages, "quillon-cli: No original was kept of Made.\n");
    }
    cli({u"delete"_s, u"Made"_s});

    const QJsonObject title = titles().at(0).toObject();
    const QJsonObject expected{
        {u"name"_s, u"Other"_s},           {u"version"_s, u"1.2"_s},
        {u"releaseDate"_s, u"5/3/2009"_s}, {u"operatingSystems"_s, QJsonArray{u"Linux"_s, u"Win 11"_s}},
        {u"validated"_s, false},           {u"submissions"_s, QJsonArray()}};
    EXPECT_EQ(QJsonDocument(title).toJson().toStdString(), QJsonDocument(expected).toJson().toStdString());

    put(inData(u"Other.qndata/general.qnxmld"_s),
        "<QN_SITES>A,B,</QN_SITES><QN_VERSION>1.0,1.2,</QN_VERSION><OTS_VERSION>1.2</OTS_VERSION>");
    const QJsonArray marks = titles().at(0)[u"submissions"_s].toArray();
    ASSERT_EQ(marks.size(), 2);
    EXPECT_EQ(marks[0][u"current"_s], false);
    EXPECT_EQ(marks[1][u"current"_s], true);
    EXPECT_TRUE(titles().at(0)[u"validated"_s].isNull());
    EXPECT_EQ(
        cli({u"show"_s, u"Other"_s, u"Program_Name"_s, u"keywordsView"_s}).output,
        "  Program_Name: Tom & Jerry\n      Text string 1-40 characters - NO Version Numbers        11 / 40\n"
        "  Keywords: a\nb\n      Text string 0-250 characters, comma delimited        3 / 250\n");
}

TEST_F(TitlesCli, ListsNamesAsTheyAreAndSaysWhenItCannot)
{
    for (const QString &name : {u"  a  b "_s, u"c\td"_s})
        ASSERT_EQ(cli({u"new"_s, name}).status, 0);
    const QByteArrayList lines = cli({u"list"_s}).output.split('\n');
    EXPECT_TRUE(lines[0].startsWith("  a  b \t")) << lines[0].constData();
    EXPECT_TRUE(lines[1].startsWith("c d\t")) << lines[1].constData();
    // A folder of the older layout that is seen, and gone when its turn comes, as while another moves it.
    ASSERT_TRUE(QDir().mkpath(inData(u"Old"_s)) && put(inData(u"Old/Old.qnxmld"_s), "<a/>"));
    for (int turn = 2; turn < 5; ++turn) {
        const QTemporaryDir copy;
        QProcess::execute(u"cp"_s, {u"-a"_s, home() + u"/Library"_s, copy.path()});
        const CliResult result = runCli(copy.path(), {u"list"_s}, {}, u"lseek@%1=ENOENT"_s.arg(turn));
        EXPECT_TRUE(result.status == 0 && result.output.contains("Old\t")) << result.messages.constData();
    }
    const CliResult full = runCli(home(), {u"list"_s}, u"/dev/full"_s);
    EXPECT_EQ(full.status, 4);
    EXPECT_TRUE(full.messages.contains("could not be written")) << full.messages.constData();
}

TEST_F(TitlesCli, WritersWaitForTheOneThatHoldsTheFolder)
{
    ASSERT_EQ(cli({u"new"_s, u"A"_s}).status, 0);
    const DataFolderLock lock;
    const CliResult refused = cli({u"delete"_s, u"A"_s});
    EXPECT_EQ(refused.status, 3);
    EXPECT_TRUE(refused.messages.contains("Quillon is running"));
    QDir().mkpath(inData(u"Old"_s));
    put(inData(u"Old/Old.qnxmld"_s), "");
    EXPECT_EQ(titles().size(), 1) << "reading needs no lock, and changes nothing without";
}

TEST_F(TitlesCli, ReadingMakesNoFolderAndNoneIsNoName)
{
    EXPECT_EQ(cli({u"list"_s}).status, 0);
    EXPECT_EQ(cli({u"sites"_s}).output.count('\n'), 212);
    EXPECT_EQ(names(home()), QStringList());
    const CliResult nowhere = runCli({}, {u"list"_s});
    EXPECT_EQ(nowhere.status, 2);
    EXPECT_TRUE(nowhere.messages.contains("--home needs the name of a folder."));
}

TEST_F(TitlesCli, ADataFolderThatIsAFileIsToldAndLeftAlone)
{
    QDir().mkpath(home() + u"/Library/Application Support/Marrowick"_s);
    put(home() + u"/Library/Application Support/Marrowick/Quillon"_s, "precious");
    EXPECT_EQ(cli({u"new"_s, u"A"_s}).status, 4);
    EXPECT_EQ(cli({u"list"_s}).status, 4);
    EXPECT_EQ(contents(home() + u"/Library/Application Support/Marrowick/Quillon"_s), "precious");
}

TEST_F(TitlesCli, WhatWasDeletedComesBackForNinetyDays)
{
    const auto status = [this](const QStringList &arguments) { return cli(arguments).status; };
    const auto deleted = [this] { return cli({u"deleted"_s, u"--json"_s}).json().array(); };
    const QString file = QStringLiteral(QUILLON_SAMPLES "/old_tool.xml");
    ASSERT_EQ(status({u"import"_s, file, u"--as"_s, u"First"_s}), 0);
    ASSERT_EQ(status({u"rename"_s, u"First"_s, u"A"_s}), 0);
    ASSERT_TRUE(put(inData(u"A.qndata/notes \xff.txt"_s), "precious"));
    const auto before = tree(inData(u"A.qndata"_s));
    EXPECT_EQ(status({u"delete"_s, u"A"_s}), 0);
    EXPECT_EQ(deleted()[0][u"name"_s], u"A"_s);
    EXPECT_EQ(status({u"undelete"_s, u"A"_s, u"--dry-run"_s}), 0);
    EXPECT_TRUE(titles().isEmpty());
    EXPECT_EQ(status({u"new"_s, u"A"_s}), 0);
    EXPECT_EQ(status({u"undelete"_s, u"A"_s}), 3);
    EXPECT_EQ(status({u"undelete"_s, u"A"_s, u"--as"_s, u"B"_s}), 0);
    EXPECT_EQ(tree(inData(u"B.qndata"_s)), before);
    EXPECT_EQ(cli({u"original"_s, u"B"_s, u"-"_s}).output, contents(file));
    EXPECT_TRUE(deleted().isEmpty());

    ASSERT_EQ(status({u"delete"_s, u"B"_s}), 0);
    EXPECT_TRUE(contents(inData(u"quillon.sqlite"_s)).contains("precious"));
    EXPECT_EQ(status({u"forget"_s, u"B"_s, u"--dry-run"_s}), 0);
    EXPECT_EQ(deleted().size(), 1);
    EXPECT_EQ(status({u"forget"_s, u"B"_s}), 0);
    EXPECT_EQ(status({u"undelete"_s, u"B"_s}), 3);
    EXPECT_FALSE(contents(inData(u"quillon.sqlite"_s)).contains("precious"));

    ASSERT_EQ(status({u"sites"_s, u"add"_s, u"Mine"_s, u"https://mine/"_s}), 0);
    const auto sites = contents(inData(u"sites.qnrc"_s));
    ASSERT_EQ(status({u"sites"_s, u"remove"_s, u"Mine"_s}), 0);
    EXPECT_EQ(status({u"undelete"_s, u"Mine"_s}), 0);
    EXPECT_EQ(contents(inData(u"sites.qnrc"_s)), sites);

    ASSERT_EQ(status({u"delete"_s, u"A"_s}), 0);
    ASSERT_TRUE(Journal::ofDataFolder().change([](Database &database) {
        return database.run("UPDATE deleted_titles SET time = ?",
                            QDateTime::currentMSecsSinceEpoch() - 91LL * 86'400'000);
    }));
    Journal::ofDataFolder().close();
    EXPECT_TRUE(deleted().isEmpty());
    // Where nothing can be kept, a title is deleted all the same.
    QFile::remove(inData(u"quillon.sqlite"_s));
    ASSERT_TRUE(QDir().mkdir(inData(u"quillon.sqlite"_s)));
    ASSERT_EQ(status({u"new"_s, u"A"_s}), 0);
    const CliResult unkept = cli({u"delete"_s, u"A"_s});
    EXPECT_EQ(unkept.status, 0);
    EXPECT_TRUE(unkept.messages.contains("quillon.sqlite")) << unkept.messages.constData();
    EXPECT_TRUE(titles().isEmpty());
}

/// Every real PAD file comes in under a name of its own, shows what its summary elements say, and comes out
/// so that a second home shows the same.
TEST_F(TitlesCli, RealFilesComeInAndGoOutAgain)
{
    const QDir folder(QStringLiteral(QUILLON_REAL_PADS));
    if (!folder.exists())
        GTEST_SKIP() << "the real PAD files are not beside the checkout: " << folder.path().toStdString();
    const QString second = home() + u"/second"_s;
    int imported = 0;
    QSet<int> judgements;
    for (const QFileInfo &file : folder.entryInfoList({u"*.xml"_s}, QDir::Files)) {
        const CliResult first = cli({u"import"_s, file.filePath(), u"--as"_s, file.fileName()});
        const bool isPad = contents(file.filePath()).toLower().contains("<master_pad_version_info>");
        ASSERT_EQ(first.status, isPad ? 0 : 3) << file.fileName().toStdString() << first.messages.constData();
        if (!isPad)
            continue;
        ++imported;
        judgements.insert(cli({u"check"_s, file.filePath()}).status);
        const QString copy = home() + u"/copy.xml"_s;
        ASSERT_EQ(cli({u"export"_s, file.fileName(), copy}).status, 0);
        for (const QStringList &command : {QStringList{u"original"_s}, {u"export"_s, u"--merged"_s}})
            EXPECT_EQ(cli(command + QStringList{file.fileName(), u"-"_s}).output, contents(file.filePath()));
        ASSERT_EQ(runCli(second, {u"import"_s, copy, u"--as"_s, file.fileName()}).status, 0);
        EXPECT_EQ(cli({u"show"_s, file.fileName(), u"--json"_s}).output,
                  runCli(second, {u"show"_s, file.fileName(), u"--json"_s}).output);
    }
    EXPECT_EQ(judgements, QSet<int>({0, 1})) << "some have errors, and some have none";
    EXPECT_EQ(titles().size(), imported);
    EXPECT_EQ(titles(), runCli(second, {u"list"_s, u"--json"_s}).json().array());
}

} // namespace
} // namespace quillon
