#include "platform/property_list.h"
#include "support/command_line.h"
#include "support/terminal.h"

#include <QDirIterator>

using namespace Qt::StringLiterals;

namespace quillon {
namespace {

class EditingCli : public CommandLineTest
{
protected:
    void SetUp() override
    {
        CommandLineTest::SetUp();
        ASSERT_EQ(cli({u"new"_s, u"T"_s}).status, 0);
    }
    [[nodiscard]] QJsonObject field(const QString &name) const
    {
        return cli({u"show"_s, u"T"_s, name, u"--json"_s}).json()[u"fields"_s][0].toObject();
    }
    /// The data folder's files with their bytes, but for the lock.
    [[nodiscard]] static QMap<QString, QByteArray> files()
    {
        QMap<QString, QByteArray> all = tree(mwqnAppSuppLoc);
        all.remove(u"quillon.lock"_s);
        return all;
    }
};

TEST_F(EditingCli, SettingIsTypingAndLeaving)
{
    EXPECT_EQ(cli({u"set"_s, u"T"_s, u"companyName=Äcme & Söhne"_s, u"Program_Release_Day=7"_s,
                   u"osTable=Unix,Linux"_s, u"expireCheckBox=Y"_s, u"Program_Type=Freeware"_s})
                  .status,
              0);
    EXPECT_EQ(field(u"Company_Name"_s)[u"value"_s], u"Äcme & Söhne"_s);
    EXPECT_EQ(field(u"Company_Name"_s)[u"hint"_s], u"Text string 2-40 characters        12 / 40"_s);
    EXPECT_EQ(field(u"releaseDateDay"_s)[u"value"_s], u"07"_s);
    EXPECT_EQ(field(u"osTable"_s)[u"value"_s], u"Linux,Unix"_s);
    EXPECT_EQ(field(u"expireCheckBox"_s)[u"value"_s], u"Y"_s);
    EXPECT_EQ(field(u"expireCheckBox"_s)[u"labelColour"_s], u"red"_s);

    const CliResult typing =
        cli({u"set"_s, u"T"_s, u"companyName="_s + QString(42, u'x'), u"--typing"_s, u"--json"_s});
    const QJsonArray colours = typing.json()[u"fields"_s][6][u"textColours"_s].toArray();
    ASSERT_EQ(colours.size(), 2);
    EXPECT_EQ(colours[1].toObject(),
              QJsonObject({{u"start"_s, 40}, {u"length"_s, 2}, {u"colour"_s, u"red"_s}}));
    const CliResult year = cli({u"set"_s, u"T"_s, u"expireDateYear=2012"_s, u"--json"_s});
    EXPECT_EQ(year.json()[u"alerts"_s].toArray(),
              QJsonArray{u"The Expiry Year must be between 1900 and 2199!"_s});
    EXPECT_EQ(field(u"expireDateYear"_s)[u"value"_s], u"2010"_s);
}

TEST_F(EditingCli, WhatMakesNoSenseChangesNothing)
{
    const auto before = files();
    for (const QString &argument : {u"nothing"_s, u"noField=1"_s, u"Program_Type=Openware"_s,
                                    u"osTable=Linux, Unix"_s, u"expireCheckBox=yes"_s, u"File_Size_K=1"_s})
        EXPECT_EQ(cli({u"set"_s, u"T"_s, u"companyName=Changed"_s, argument}).status, 2)
            << argument.toStdString();
    EXPECT_EQ(files(), before);
    EXPECT_EQ(cli({u"set"_s, u"None"_s, u"companyName=x"_s}).status, 3);
}

TEST_F(EditingCli, CheckIsALinterForFilesAndTitles)
{
    const CliResult title = cli({u"check"_s, u"T"_s, u"--json"_s});
    EXPECT_EQ(title.status, 1);
    const QJsonArray errors = title.json()[u"errors"_s].toArray();
    EXPECT_EQ(errors[0].toObject(), QJsonObject({{u"field"_s, u"authorFirstName"_s},
                                                 {u"element"_s, u"Author_First_Name"_s},
                                                 {u"message"_s, u"The author first name is too short."_s}}));
    ASSERT_EQ(cli({u"export"_s, u"T"_s, home() + u"/t.xml"_s}).status, 0);
    const auto before = files();
    const CliResult file = cli({u"check"_s, home() + u"/t.xml"_s, u"--json"_s});
    EXPECT_EQ(file.status, 1);
    EXPECT_EQ(file.json()[u"errors"_s].toArray(), errors);
    EXPECT_EQ(file.json()[u"valid"_s], false);
    EXPECT_EQ(cli({u"check"_s, home() + u"/t.xml"_s}).output.count('\n'), errors.size());
    EXPECT_EQ(files(), before) << "a file is judged without touching the data folder";
    EXPECT_EQ(cli({u"check"_s, home() + u"/none.xml"_s}).status, 4);
    put(home() + u"/no.xml"_s, "nothing");
    EXPECT_EQ(cli({u"check"_s, home() + u"/no.xml"_s}).status, 3);
}

TEST_F(EditingCli, SitesMarksAndCopies)
{
    const auto state = [this](const QString &site) {
        for (const QJsonValue each : cli({u"sites"_s, u"--for"_s, u"T"_s, u"--json"_s}).json().array()) {
            if (each[u"name"_s] == site)
                return each[u"state"_s].toString();
        }
        return QString();
    };
    EXPECT_EQ(cli({u"sites"_s, u"--json"_s}).json()[u"sites"_s].toArray().size(), 212);
    EXPECT_EQ(cli({u"sites"_s, u"add"_s, u"My, site"_s, u"my site/x"_s}).status, 0);
    EXPECT_EQ(cli({u"sites"_s, u"add"_s, u"My, site"_s, u"other"_s}).status, 3);
    EXPECT_EQ(cli({u"mark"_s, u"T"_s, u"My, site"_s}).status, 3) << "it would read as two";
    EXPECT_EQ(cli({u"sites"_s, u"add"_s, u"[a,b]"_s, u"ab"_s}).status, 0);
    EXPECT_EQ(cli({u"sites"_s, u"remove"_s, u"[a,b]"_s}).status, 0);
    EXPECT_EQ(cli({u"sites"_s, u"edit"_s, u"My, site"_s, u"Mine"_s, u"https://mine/"_s}).status, 0);
    const QJsonObject first = cli({u"sites"_s, u"--json"_s}).json()[u"sites"_s][0].toObject();
    EXPECT_EQ(first, QJsonObject(
                         {{u"name"_s, u"Mine"_s}, {u"url"_s, u"https://mine/"_s}, {u"source"_s, u"user"_s}}));

    cli({u"set"_s, u"T"_s, u"programVersion=1.0"_s});
    EXPECT_EQ(cli({u"mark"_s, u"T"_s, u"No such site"_s}).status, 3);
    EXPECT_EQ(cli({u"mark"_s, u"T"_s, u"Mine"_s}).status, 0);
    EXPECT_EQ(state(u"Mine"_s), u"Validated"_s);
    cli({u"set"_s, u"T"_s, u"programVersion=1.1"_s});
    EXPECT_EQ(state(u"Mine"_s), u"OldVers"_s);
    EXPECT_EQ(cli({u"unmark"_s, u"T"_s, u"Mine"_s}).status, 0);
    EXPECT_EQ(state(u"Mine"_s), u"NotValidated"_s);

    EXPECT_EQ(cli({u"sites"_s, u"remove"_s, u"NewFreeDownloads"_s}).status, 0);
    EXPECT_EQ(cli({u"sites"_s, u"--json"_s}).json()[u"ignored"_s].toArray().size(), 2);
    EXPECT_TRUE(
        cli({u"sites"_s, u"restore"_s, u"NFD"_s}).messages.contains("NFD is hidden by NewFreeDownloads"));
    EXPECT_EQ(cli({u"sites"_s, u"restore"_s, u"NewFreeDownloads"_s}).status, 0);
    EXPECT_EQ(cli({u"sites"_s, u"restore"_s, u"NewFreeDownloads"_s}).status, 3);
    EXPECT_EQ(cli({u"sites"_s, u"remove"_s, u"NFD"_s, u"NewFreeDownloads"_s}).status, 0);
    EXPECT_EQ(cli({u"sites"_s, u"restore"_s, u"NFD"_s}).status, 0);
    EXPECT_EQ(cli({u"sites"_s, u"restore"_s, u"NewFreeDownloads"_s}).status, 0);
    EXPECT_TRUE(cli({u"sites"_s, u"--json"_s}).json()[u"ignored"_s].toArray().isEmpty());

    EXPECT_EQ(cli({u"copy"_s, u"T"_s, u"programVersion"_s}).output, "1.1");
    EXPECT_EQ(cli({u"copy"_s, u"T"_s, u"companyName"_s}).status, 1);
    EXPECT_EQ(cli({u"copy"_s, u"T"_s, u"noButton"_s}).status, 2);
}

/// Somebody else's text may hold what a terminal obeys: it gets to see it, and files and pipes get it as it
/// is.
TEST_F(EditingCli, NoControlCharacterReachesAReaderOfTheOutput)
{
    const QString company = u"a\x1b]0;b\x07\u009b-c"_s;
    const QByteArray exact = company.toUtf8();
    const QByteArray shown = "a␛]0;b␇\xef\xbf\xbd-c";
    put(inData(u"T.qndata/data.qnxml"_s),
        "<Company_Name>" + exact + "</Company_Name><MASTER_PAD_VERSION_INFO></MASTER_PAD_VERSION_INFO>");
    put(inData(u"sites.qnrc"_s), property_list::write({{u"A\tB\x1b"_s, u"http://a\nb"_s}}));

    EXPECT_EQ(cli({u"copy"_s, u"T"_s, u"companyName"_s}).output, exact);
    EXPECT_TRUE(cli({u"show"_s, u"T"_s, u"companyName"_s})
                    .output.startsWith(QByteArray("  Company_Name: " + exact + "\n")));
    EXPECT_TRUE(cli({u"export"_s, u"T"_s, u"-"_s}).output.contains(exact));
    EXPECT_EQ(field(u"companyName"_s)[u"value"_s], company);
    EXPECT_TRUE(cli({u"sites"_s}).output.startsWith("A B␛\thttp://a b\tuser\n"));
    EXPECT_EQ(cli({u"sites"_s, u"--json"_s}).json()[u"sites"_s][0][u"name"_s], u"A\tB\x1b"_s);
    EXPECT_TRUE(cli({u"show"_s, u"\x1b[31m"_s}).messages.contains("no title named ␛[31m"));
    EXPECT_TRUE(cli({u"nonsense\x1b"_s}).messages.contains("nonsense␛"));

    Terminal terminal;
    const auto atTerminal = [&](const QStringList &arguments) {
        runCli(home(), arguments, terminal.path());
        return terminal.read();
    };
    EXPECT_EQ(atTerminal({u"copy"_s, u"T"_s, u"companyName"_s}), shown);
    EXPECT_TRUE(
        atTerminal({u"show"_s, u"T"_s, u"companyName"_s}).startsWith(QByteArray("  Company_Name: " + shown)));
    EXPECT_TRUE(atTerminal({u"export"_s, u"T"_s, u"-"_s}).contains(shown));
    const QByteArray json = atTerminal({u"show"_s, u"T"_s, u"companyName"_s, u"--json"_s});
    EXPECT_FALSE(json.contains("\xc2\x9b"));
    EXPECT_EQ(QJsonDocument::fromJson(json)[u"fields"_s][0][u"value"_s], company);
}

/// Dates are the user's, whatever the character set of the environment is.
TEST_F(EditingCli, DatesAreInTheUsersStyleInAnyCharacterSet)
{
    cli({u"set"_s, u"T"_s, u"releaseDateDay=5"_s, u"releaseDateMonth=3"_s, u"releaseDateYear=2009"_s});
    for (const auto &[variables, date] :
         {std::pair(u"LC_TIME=de_DE.UTF-8"_s, "05.03.09"), std::pair(u"LANG=de_DE"_s, "05.03.09"),
          std::pair(u"LANG=de_DE LC_ALL=en_US.ISO-8859-1"_s, "3/5/09"),
          std::pair(u"LANG=C.UTF-8 LC_TIME=de_DE"_s, "05.03.09")}) {
        QProcessEnvironment environment;
        for (const QString &variable : variables.split(u' '))
            environment.insert(variable.section(u'=', 0, 0), variable.section(u'=', 1));
        const CliResult copied =
            runCli(home(), {u"copy"_s, u"T"_s, u"programReleaseDate"_s}, {}, {}, environment);
        EXPECT_EQ(copied.output, date) << variables.toStdString();
        EXPECT_EQ(copied.messages, "") << "nor does Qt complain";
    }
}

TEST_F(EditingCli, WhatCannotBeReadIsToldAndEndsWithFour)
{
    ASSERT_EQ(cli({u"sites"_s, u"add"_s, u"Mine"_s, u"mine"_s}).status, 0);

    const auto refuses = [this](const QStringList &arguments, const QByteArray &message) {
        const CliResult result = cli(arguments);
        EXPECT_EQ(result.status, 4) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(result.messages.contains(QByteArray("quillon-cli: " + message)))
            << result.messages.constData();
    };
    const auto block = [](const QString &file) {
        ASSERT_TRUE(QFile::remove(inData(file)) && QDir().mkdir(inData(file)));
    };
    const QStringList states{u"sites"_s, u"--for"_s, u"T"_s};
    ASSERT_EQ(cli({u"mark"_s, u"T"_s, u"Mine"_s}).status, 0);
    const QByteArray calm = cli(states).output;
    for (int turn = 1; turn <= 12; ++turn) {
        const CliResult result = cli(states, u"open@%1=EMFILE"_s.arg(turn));
        EXPECT_TRUE(result.status == 4 || (result.status == 0 && result.output == calm)) << turn;
    }
    block(u"T.qndata/general.qnxmld"_s);
    for (const QString &command : {u"mark"_s, u"unmark"_s})
        refuses({command, u"T"_s, u"Mine"_s}, "Not read: ");
    refuses({u"sites"_s, u"edit"_s, u"Mine"_s, u"Yours"_s, u"yours"_s}, "Not read: ");

    block(u"sites.qnrc"_s);
    for (const QStringList &changes : QList<QStringList>{{},
                                                         {u"--json"_s},
                                                         {u"add"_s, u"A"_s, u"a"_s},
                                                         {u"edit"_s, u"Yours"_s, u"B"_s, u"b"_s},
                                                         {u"remove"_s, u"Softs"_s},
                                                         {u"restore"_s, u"Softs"_s}})
        refuses(QStringList{u"sites"_s} + changes, "Not read: ");
    EXPECT_EQ(cli({u"backup"_s, u"titles"_s, home() + u"/b.swback"_s}).status, 4);
    EXPECT_EQ(names(home() + u"/b.swback/T.qndata"_s), QStringList({u"data.qnxml"_s, u"error.log"_s}));
    EXPECT_EQ(cli({u"restore"_s, u"titles"_s, home() + u"/b.swback"_s}).status, 0) << "T is there already";
    refuses({u"backup"_s, u"sites"_s, home() + u"/b.qnback"_s},
            "sites.qnrc cannot be read: it is no regular file");
}

TEST_F(EditingCli, WhatNobodyUnderstandsIsCopiedButNotMerged)
{
    ASSERT_TRUE(put(inData(u"File.qndata"_s), "no folder") && put(inData(u"sites.qnrc"_s), "garbled"));
    EXPECT_EQ(cli({u"backup"_s, u"titles"_s, home() + u"/a.swback"_s}).status, 0) << "a file is no title";
    EXPECT_EQ(cli({u"backup"_s, u"sites"_s, home() + u"/a.qnback"_s}).status, 0);
    EXPECT_EQ(contents(home() + u"/a.qnback/sites.qnrc"_s), "garbled");
    EXPECT_EQ(cli({u"restore"_s, u"sites"_s, home() + u"/a.qnback"_s}).status, 4);
}

/// A failed sync behind a finished change is told by each command, and the change is there.
TEST_F(EditingCli, WhatIsDoneButNotYetSafeIsSaidSo)
{
    const QList<QStringList> commands = {{u"new"_s, u"N"_s},
                                         {u"rename"_s, u"N"_s, u"M"_s},
                                         {u"sites"_s, u"add"_s, u"Mine"_s, u"mine"_s},
                                         {u"sites"_s, u"edit"_s, u"Softs"_s, u"S"_s, u"s"_s},
                                         {u"sites"_s, u"remove"_s, u"Mine"_s},
                                         {u"sites"_s, u"restore"_s, u"Softs"_s},
                                         {u"mark"_s, u"T"_s, u"Simtel"_s},
                                         {u"unmark"_s, u"T"_s, u"Simtel"_s}};
    ASSERT_LE(cli({u"check"_s, u"T"_s}).status, 1);
    for (const QStringList &command : commands) {
        bool isTold = false;
        for (int sync = 1; sync < 9 && !isTold; ++sync) {
            const QTemporaryDir copy;
            QProcess::execute(u"cp"_s, {u"-a"_s, home() + u"/Library"_s, copy.path()});
            const CliResult result = runCli(copy.path(), command, {}, u"fsync@%1=EIO"_s.arg(sync));
            isTold = result.status == 4 && result.messages.contains("quillon-cli: Done, but not yet safe");
        }
        EXPECT_TRUE(isTold) << command.join(u' ').toStdString();
        EXPECT_EQ(cli(command).status, 0) << command.join(u' ').toStdString();
    }
}

TEST_F(EditingCli, WhatAKillLeftBehindGoesWithTheNextChangeAndNothingElse)
{
    ASSERT_EQ(cli({u"new"_s, u".quillon-mine"_s}).status, 0);
    const QString mine = u".quillon-1.tmp .quillon-0123456789ABCDEF.tmp x.quillon-0123456789abcdef.tmp "
                         ".quillon-0123456789abcdef.tmpx .quillon-0123456789abcdef"_s;
    for (const QString &name : mine.split(u' '))
        ASSERT_TRUE(put(inData(name), "mine"));
    ASSERT_TRUE(QDir().mkdir(inData(u"Site Images"_s)) && QDir().mkdir(inData(u".quillon-mine.new"_s)));
    const auto before = files();
    for (const QString &folder : {u""_s, u"T.qndata/"_s, u"Site Images/"_s}) {
        const QString left = inData(folder + u".quillon-0123456789abcdef.");
        ASSERT_TRUE(put(left + u"tmp", "half") && put(left + u"new", "half"));
        ASSERT_TRUE(QDir().mkpath(left + u"old/0") && put(left + u"old/0/data.qnxml", "half"));
    }
    ASSERT_TRUE(QDir().mkpath(inData(u".quillon-0123456789abcde0.new/0"_s)));
    const auto left = files();
    EXPECT_EQ(cli({u"list"_s}).status, 0);
    EXPECT_EQ(files(), left) << "what only reads changes nothing";
    EXPECT_EQ(cli({u"new"_s, u"N"_s}).status + cli({u"delete"_s, u"N"_s}).status, 0);
    EXPECT_EQ(files(), before);
}

/// The whole circle: real titles with marks and changed sites are backed up, lost, and brought back byte for
/// byte.
TEST_F(EditingCli, BackupsBringEverythingBack)
{
    QDirIterator pads(QStringLiteral(QUILLON_REAL_PADS), {u"*.xml"_s}, QDir::Files);
    while (pads.hasNext())
        cli({u"import"_s, pads.next()});
    cli({u"sites"_s, u"add"_s, u"Mine"_s, u"https://mine/"_s});
    cli({u"sites"_s, u"remove"_s, u"Simtel"_s});
    cli({u"mark"_s, u"T"_s, u"Mine"_s});
    const auto before = files();
    const QByteArray titles = cli({u"list"_s, u"--json"_s}).output;
    const QByteArray sites = cli({u"sites"_s, u"--json"_s}).output;

    EXPECT_EQ(cli({u"backup"_s, u"titles"_s, home() + u"/b.swback"_s}).status, 0);
    EXPECT_EQ(cli({u"backup"_s, u"titles"_s, home() + u"/b.swback"_s}).status, 3) << "there is one already";
    EXPECT_EQ(cli({u"backup"_s, u"sites"_s, home() + u"/b.qnback"_s}).status, 0);
    ASSERT_TRUE(QDir().rename(mwqnAppSuppLoc, home() + u"/away"_s));
    EXPECT_EQ(cli({u"backup"_s, u"titles"_s, home() + u"/empty.swback"_s}).status, 3);
    EXPECT_FALSE(QFile::exists(home() + u"/empty.swback"_s));
    EXPECT_EQ(cli({u"restore"_s, u"titles"_s, home() + u"/b.swback"_s}).status, 0);
    EXPECT_EQ(cli({u"restore"_s, u"sites"_s, home() + u"/b.qnback"_s}).status, 0);
    EXPECT_EQ(files(), before);
    EXPECT_EQ(cli({u"list"_s, u"--json"_s}).output, titles);
    EXPECT_EQ(cli({u"sites"_s, u"--json"_s}).output, sites);
    EXPECT_TRUE(cli({u"restore"_s, u"titles"_s, home() + u"/b.swback"_s})
                    .messages.contains("No software titles were imported."));
}

TEST_F(EditingCli, EarlierTextsAreListedAndRestored)
{
    EXPECT_EQ(cli({u"history"_s, u"None"_s}).status, 3);
    ASSERT_EQ(cli({u"new"_s, u"Past"_s}).status, 0);
    EXPECT_EQ(cli({u"history"_s, u"Past"_s}).output, QByteArray());
    ASSERT_EQ(cli({u"set"_s, u"Past"_s, u"programName=One"_s, u"eula=Free"_s}).status, 0);
    ASSERT_EQ(cli({u"set"_s, u"Past"_s, u"Program_Name="_s}).status, 0);
    const QJsonArray rows = cli({u"history"_s, u"Past"_s, u"Program_Name"_s, u"--json"_s}).json().array();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0][u"before"], u"One"_s);
    EXPECT_EQ(rows[0][u"row"], 3);
    EXPECT_EQ(rows[0][u"origin"], u"typed"_s);

    const auto before = tree(home());
    const QJsonDocument tried =
        cli({u"restore-title"_s, u"Past"_s, u"--to"_s, u"0"_s, u"--dry-run"_s, u"--json"_s}).json();
    EXPECT_EQ(tried[u"changes"].toArray().size(), 1) << "the name is empty as it was";
    EXPECT_EQ(tried[u"appearing"].toArray().size(), 0);
    EXPECT_EQ(tree(home()), before) << "nothing is written";
    EXPECT_EQ(cli({u"restore-text"_s, u"Past"_s, u"programName"_s, u"--to"_s, u"9"_s}).status, 3);
    EXPECT_EQ(cli({u"restore-text"_s, u"Past"_s, u"nothing"_s, u"--to"_s, u"1"_s}).status, 2);
    EXPECT_EQ(cli({u"restore-text"_s, u"Past"_s, u"programName"_s, u"--to"_s, u"1"_s}).status, 0);
    EXPECT_TRUE(cli({u"show"_s, u"Past"_s, u"programName"_s}).output.contains("Program_Name: One"));

    ASSERT_TRUE(put(inData(u"quillon.sqlite"_s), QByteArray(4096, '\0')));
    const CliResult damaged = cli({u"history"_s, u"Past"_s});
    EXPECT_EQ(damaged.status, 4);
    EXPECT_EQ(damaged.messages.count('\n'), 1) << damaged.messages.toStdString();
    EXPECT_EQ(cli({u"set"_s, u"Past"_s, u"programName=Two"_s}).status, 0) << "only the extras are concerned";
}

TEST_F(EditingCli, OneBackupBringsBackWhatIsMissingAndReplacesNothing)
{
    const QString backup = home() + u"/b.qnall"_s;
    const QString file = QStringLiteral(QUILLON_SAMPLES "/old_tool.xml");
    const auto extras = [this]() -> QByteArray {
        return cli({u"deleted"_s, u"--json"_s}).output + cli({u"history"_s, u"Old"_s, u"--json"_s}).output +
               cli({u"original"_s, u"Old"_s, u"-"_s}).output;
    };
    for (const QStringList &command : {QStringList{u"import"_s, file, u"--as"_s, u"Old"_s},
                                       {u"set"_s, u"Old"_s, u"programVersion=4"_s},
                                       {u"new"_s, u"Gone"_s},
                                       {u"delete"_s, u"Gone"_s},
                                       {u"sites"_s, u"add"_s, u"Mine"_s, u"mine"_s},
                                       {u"sites"_s, u"add"_s, u"Yours"_s, u"yours"_s},
                                       {u"sites"_s, u"remove"_s, u"Mine"_s},
                                       {u"backup"_s, u"all"_s, backup}})
        ASSERT_EQ(cli(command).status, 0) << command.join(u' ').toStdString();
    EXPECT_EQ(cli({u"backup"_s, u"all"_s, backup}).status, 3) << "there is one already";
    EXPECT_EQ(names(backup), QStringList({u"quillon.sqlite"_s, u"sites.qnback"_s, u"titles.swback"_s}));
    const auto before = files();
    const QByteArray extrasBefore = extras();

    ASSERT_TRUE(QDir().rename(mwqnAppSuppLoc, home() + u"/away"_s));
    ASSERT_EQ(cli({u"new"_s, u"T"_s}).status + cli({u"set"_s, u"T"_s, u"companyName=Here"_s}).status, 0);
    const QString kept = inData(u"T.qndata/data.qnxml"_s);
    const QByteArray present = contents(kept);
    for (int turn = 0; turn < 2; ++turn) {
        EXPECT_EQ(cli({u"restore"_s, u"all"_s, backup}).status, 0);
        EXPECT_EQ(extras(), extrasBefore);
        EXPECT_EQ(contents(kept), present);
        QMap<QString, QByteArray> after = files();
        for (const QString &each : names(inData(u"T.qndata"_s)))
            after[u"T.qndata/"_s + each] = before[u"T.qndata/"_s + each];
        EXPECT_EQ(after, before);
    }
    // A database that nobody can use costs only what it holds.
    ASSERT_TRUE(put(backup + u"/quillon.sqlite"_s, contents(backup + u"/quillon.sqlite"_s).first(9000)));
    ASSERT_EQ(cli({u"delete"_s, u"Old"_s}).status, 0);
    EXPECT_EQ(cli({u"restore"_s, u"all"_s, backup}).status, 4);
    EXPECT_EQ(contents(inData(u"Old.qndata/data.qnxml"_s)), before[u"Old.qndata/data.qnxml"_s]);
    EXPECT_EQ(cli({u"restore"_s, u"all"_s, home()}).status, 4) << "that is no backup";
}

} // namespace
} // namespace quillon
