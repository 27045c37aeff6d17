#include "journal/journal.h"
#include "platform/property_list.h"
#include "store/data_folder_lock.h"
#include "submission/default_sites.h"
#include "support/command_line.h"
#include "support/terminal.h"

#include <QRegularExpression>

class Cli : public CommandLineTest
{
protected:
    [[nodiscard]] QJsonArray titles() const { return run(u"list --json"_s).json().array(); }
};

class CliWithTitle : public Cli
{
protected:
    void SetUp() override
    {
        CommandLineTest::SetUp();
        ASSERT_EQ(statusOf(u"new T"_s), 0);
    }
};

/// Somebody else's text may hold what a terminal obeys: it gets to see it, and files and pipes get it as it
/// is.
TEST_F(CliWithTitle, NoControlCharacterReachesAReaderOfTheOutput)
{
    const QString company = u"\uFEFFa\x1b]0;b\x07\u009b-c"_s;
    const QByteArray exact = company.toUtf8();
    const QByteArray shown = "\xef\xbb\xbf"
                             "a␛]0;b␇\xef\xbf\xbd-c";
    put(inData(u"T.qndata/data.qnxml"_s),
        "<Company_Name>" + exact + "</Company_Name><MASTER_PAD_VERSION_INFO></MASTER_PAD_VERSION_INFO>");
    put(inData(u"sites.qnrc"_s), property_list::write({{u"A\tB\x1b"_s, u"http://a\nb"_s}}));

    EXPECT_EQ(run(u"copy T companyName"_s).output, exact);
    EXPECT_TRUE(
        run(u"show T companyName"_s).output.startsWith(QByteArray("  Company_Name: " + exact + "\n")));
    EXPECT_TRUE(run(u"export T -"_s).output.contains(exact));
    EXPECT_EQ(run(u"show T companyName --json"_s).json()[u"fields"_s][0][u"value"_s], company);
    EXPECT_TRUE(run(u"sites"_s).output.startsWith("A B␛\thttp://a b\tuser\n"));
    EXPECT_EQ(run(u"sites --json"_s).json()[u"sites"_s][0][u"name"_s], u"A\tB\x1b"_s);
    EXPECT_TRUE(run(u"show \x1b[31m"_s).messages.contains("no title named ␛[31m"));
    EXPECT_TRUE(run(u"nonsense\x1b"_s).messages.contains("nonsense␛"));

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
TEST_F(CliWithTitle, DatesAreInTheUsersStyleInAnyCharacterSet)
{
    run(u"set T releaseDateDay=5 releaseDateMonth=3 releaseDateYear=2009"_s);
    for (const auto &[variables, date] :
         {std::pair(u"LC_TIME=de_DE.UTF-8"_s, "05.03.09"), std::pair(u"LANG=de_DE"_s, "05.03.09"),
          std::pair(u"LANG=de_DE LC_ALL=en_US.ISO-8859-1"_s, "3/5/09"),
          std::pair(u"LANG=C.UTF-8 LC_TIME=de_DE"_s, "05.03.09")}) {
        QProcessEnvironment environment;
        for (const QString &variable : variables.split(u' '))
            environment.insert(variable.section(u'=', 0, 0), variable.section(u'=', 1));
        const CliResult copied =
            runCli(home(), {u"copy"_s, u"T"_s, u"programReleaseDate"_s}, {}, {}, environment);
        EXPECT_EQ(copied.output, date) << variables;
        EXPECT_EQ(copied.messages, "") << "nor does Qt complain";
    }
}

TEST_F(CliWithTitle, WhatCannotBeReadIsNotMadeUp)
{
    for (const char *const command : {"sites add Mine mine", "set T programVersion=1", "mark T Mine",
                                      "ledger T Mine listed --note Read", "set T programVersion=2"})
        ASSERT_EQ(statusOf(QString::fromLatin1(command)), 0) << command;
    const QString commands = u"sites --for T|next T|matrix|ledger T|ledger T Mine sent --dry-run|"
                             "ledger T Softpedia sent --dry-run"_s;
    for (const QString &command : words(commands, u'|')) {
        const auto told = [&](const QString &faults) {
            const CliResult result = run(command, faults);
            static const QRegularExpression time(u"\\d+-\\d+-\\d+T[\\d:]+Z"_s);
            return std::pair(result.status, QString::fromUtf8(result.output).remove(time));
        };
        const auto calm = told({});
        EXPECT_EQ(calm.first, 0) << command;
        for (const QString &call : {u"open@%1=EMFILE"_s, u"read@%1=EIO"_s}) {
            for (int turn = 1; turn <= 16; ++turn) {
                const auto result = told(call.arg(turn));
                EXPECT_TRUE(result.first == 4 || result == calm) << command << call << turn << result.second;
            }
        }
    }
}

/// With a command that reads a title.
class CliReading : public CliWithTitle, public testing::WithParamInterface<const char *>
{
};

TEST_P(CliReading, WhatFailsForAMomentLosesNothing)
{
    const QString commands = u"set T companyName=Acme|sites add Mine mine|mark T Mine"_s;
    for (const QString &command : words(commands, u'|'))
        ASSERT_EQ(statusOf(command), 0) << command;
    const auto before = files();
    const QStringList titleFiles = before.keys().filter(u"T.qndata/"_s);
    const auto came = [&](const QString &file, const QString &rules) {
        for (const QString &each : titleFiles)
            EXPECT_TRUE(put(inData(each), before[each]));
        const auto faults = faultEnvironment(inData(file), rules);
        const CliResult result = runCli(home(), words(QString::fromLatin1(GetParam())), {}, {}, faults);
        return std::pair(result.status, files());
    };
    const auto calm = came(titleFiles[0], u"open@99=EIO"_s);
    const auto isKept = [&calm](const auto &files, const QString &file, const QByteArray &text) {
        return files[file].contains(text) || !calm.second[file].contains(text);
    };
    int told = 0;
    for (const QString &file : titleFiles) {
        for (const QString &rule : words(u"open@%1=EMFILE read@%1=EIO"_s)) {
            for (int turn = 1; turn <= 3; ++turn) {
                const auto [status, files] = came(file, rule.arg(turn));
                EXPECT_TRUE(isKept(files, u"T.qndata/data.qnxml"_s, "Acme")) << file << rule << turn;
                EXPECT_TRUE(isKept(files, u"T.qndata/general.qnxmld"_s, "Mine")) << file << rule << turn;
                EXPECT_TRUE(status == 4 || std::pair(status, files) == calm) << file << rule << turn;
                told += status == 4 ? 1 : 0;
            }
        }
    }
    EXPECT_GE(told, 4) << "the faults were met";
}

INSTANTIATE_TEST_SUITE_P(Commands, CliReading,
                         testing::Values("check T", "set T programVersion=2", "mark T Simtel",
                                         "unmark T Mine"),
                         [](const auto &command) {
                             return std::string(command.param, std::strchr(command.param, ' '));
                         });

/// A failed sync behind a finished change is told by each command, and the change is there.
TEST_F(CliWithTitle, WhatIsDoneButNotYetSafeIsSaidSo)
{
    const QString commands = u"new N|rename N M|sites add Mine mine|sites edit Softs S s|sites remove Mine|"
                             "undelete Mine|sites restore Softs|mark T Simtel|unmark T Simtel"_s;
    ASSERT_LE(statusOf(u"check T"_s), 1);
    for (const QString &command : words(commands, u'|')) {
        bool isTold = false;
        for (int sync = 1; sync < 24 && !isTold; ++sync) {
            const QTemporaryDir copy;
            QProcess::execute(u"cp"_s, {u"-a"_s, home() + u"/Library"_s, copy.path()});
            const CliResult result = runCli(copy.path(), words(command), {}, u"fsync@%1=EIO"_s.arg(sync));
            isTold = result.status == 4 && result.messages.contains("quillon-cli: Done, but not yet safe");
        }
        EXPECT_TRUE(isTold) << command;
        EXPECT_EQ(statusOf(command), 0) << command;
    }
}

TEST_F(CliWithTitle, WhatAKillLeftBehindGoesWithTheNextChangeAndNothingElse)
{
    ASSERT_EQ(statusOf(u"new .quillon-mine"_s), 0);
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
    EXPECT_EQ(statusOf(u"list"_s), 0);
    EXPECT_EQ(files(), left) << "what only reads changes nothing";
    EXPECT_EQ(statusOf(u"new N"_s) + statusOf(u"delete N"_s), 0);
    EXPECT_EQ(files(), before);
}

/// The whole circle: real titles with marks and changed sites are backed up, lost, and brought back byte for
/// byte.
TEST_F(CliWithTitle, BackupsBringEverythingBack)
{
    QDirIterator pads(QStringLiteral(QUILLON_REAL_PADS), {u"*.xml"_s}, QDir::Files);
    while (pads.hasNext())
        cli({u"import"_s, pads.next()});
    run(u"sites add Mine https://mine/"_s);
    run(u"sites remove Simtel"_s);
    run(u"mark T Mine"_s);
    const auto before = files();
    const QByteArray titles = run(u"list --json"_s).output;
    const QByteArray sites = run(u"sites --json"_s).output;

    EXPECT_EQ(statusOf(u"backup titles b.swback"_s), 0);
    EXPECT_EQ(statusOf(u"backup titles b.swback"_s), 3) << "there is one already";
    EXPECT_EQ(statusOf(u"backup sites b.qnback"_s), 0);
    ASSERT_TRUE(QDir().rename(mwqnAppSuppLoc, home() + u"/away"_s));
    EXPECT_EQ(statusOf(u"backup titles empty.swback"_s), 3);
    EXPECT_FALSE(QFile::exists(home() + u"/empty.swback"_s));
    EXPECT_EQ(statusOf(u"restore titles b.swback"_s), 0);
    EXPECT_EQ(statusOf(u"restore sites b.qnback"_s), 0);
    EXPECT_EQ(files(), before);
    EXPECT_EQ(run(u"list --json"_s).output, titles);
    EXPECT_EQ(run(u"sites --json"_s).output, sites);
    EXPECT_TRUE(run(u"restore titles b.swback"_s).messages.contains("No software titles were imported."));
}

TEST_F(CliWithTitle, OneBackupBringsBackWhatIsMissingAndReplacesNothing)
{
    const QString backup = home() + u"/b.qnall"_s;
    ASSERT_TRUE(put(home() + u"/old.xml"_s, sample(u"old_tool.xml"_s)));
    const auto extras = [this]() -> QByteArray {
        return run(u"deleted --json"_s).output + run(u"history Old --json"_s).output +
               run(u"original Old -"_s).output;
    };
    const QString commands =
        u"import old.xml --as Old|set Old programVersion=4|new Gone|delete Gone|sites add Mine mine|"
        "sites add Yours yours|sites remove Mine|backup all b.qnall"_s;
    for (const QString &command : words(commands, u'|'))
        ASSERT_EQ(statusOf(command), 0) << command;
    EXPECT_EQ(statusOf(u"backup all b.qnall"_s), 3) << "there is one already";
    EXPECT_EQ(names(backup), words(u"quillon.sqlite sites.qnback titles.swback"_s));
    const auto before = files();
    const QByteArray extrasBefore = extras();

    ASSERT_TRUE(QDir().rename(mwqnAppSuppLoc, home() + u"/away"_s));
    ASSERT_EQ(statusOf(u"new T"_s) + statusOf(u"set T companyName=Here"_s), 0);
    const QString kept = inData(u"T.qndata/data.qnxml"_s);
    const QByteArray present = contents(kept);
    for (int turn = 0; turn < 2; ++turn) {
        EXPECT_EQ(statusOf(u"restore all b.qnall"_s), 0);
        EXPECT_EQ(extras(), extrasBefore);
        EXPECT_EQ(contents(kept), present);
        QMap<QString, QByteArray> after = files();
        for (const QString &each : names(inData(u"T.qndata"_s)))
            after[u"T.qndata/"_s + each] = before[u"T.qndata/"_s + each];
        EXPECT_EQ(after, before);
    }
    // A database that nobody can use costs only what it holds.
    ASSERT_TRUE(put(backup + u"/quillon.sqlite"_s, contents(backup + u"/quillon.sqlite"_s).first(9000)));
    ASSERT_EQ(statusOf(u"delete Old"_s), 0);
    EXPECT_EQ(statusOf(u"restore all b.qnall"_s), 4);
    EXPECT_EQ(contents(inData(u"Old.qndata/data.qnxml"_s)), before[u"Old.qndata/data.qnxml"_s]);
    EXPECT_EQ(statusOf(u"restore all ."_s), 4) << "that is no backup";
    ASSERT_TRUE(QFile::link(backup + u"/sites.qnback"_s, home() + u"/sites.qnback"_s));
    EXPECT_TRUE(run(u"restore all ."_s).messages.contains("sites.qnback was passed over: it is no folder"));
}

TEST_F(Cli, WhatTheDatabaseIsGoodForLeavesNoTraceInTheFiles)
{
    ASSERT_TRUE(put(home() + u"/old.xml"_s, sample(u"old_tool.xml"_s)));
    const auto filesAfter = [this](const QString &commands) {
        for (const QString &command : words(commands, u'|'))
            EXPECT_EQ(statusOf(command), 0) << command;
        return files();
    };
    const auto used = filesAfter(
        u"import old.xml --as A|set A programName=One|set A programName=Two|restore-text A programName --to "
        u"1|"
        "set A eula=Free|restore-title A --to 1|original A o.xml|export --merged A m.xml|rename A B|"
        "mark B Simtel|delete B|undelete B|new C|delete C|forget C|sites add Mine mine|sites remove Mine|"
        "undelete Mine|backup all b|restore all b|set B eula=Last"_s);
    for (const QString &file : QDir(mwqnAppSuppLoc).entryList({u"quillon.sqlite*"_s}))
        EXPECT_TRUE(QFile::remove(inData(file)));
    EXPECT_EQ(filesAfter(u"list|show B"_s), used);
    ASSERT_TRUE(QDir().rename(mwqnAppSuppLoc, home() + u"/used"_s));
    ASSERT_TRUE(QDir().mkpath(inData(u"quillon.sqlite"_s))); // Nothing can be kept.
    EXPECT_EQ(filesAfter(u"import old.xml --as A|set A programName=One|set A programName=Two|"
                         "set A programName=One|set A eula=Free|set A eula=|rename A B|mark B Simtel|"
                         "sites add Mine mine|set B eula=Last"_s),
              used);
}

TEST_F(Cli, AListThatIsNotWholeIsAnError)
{
    // A folder of the older layout that is seen, and gone when its turn comes, as while another moves it.
    ASSERT_EQ(statusOf(u"new A"_s) + statusOf(u"new B"_s), 0);
    ASSERT_TRUE(QDir().mkpath(inData(u"Old"_s)) && put(inData(u"Old/Old.qnxmld"_s), "<a/>"));
    for (int turn = 2; turn < 5; ++turn) {
        const QTemporaryDir copy;
        QProcess::execute(u"cp"_s, {u"-a"_s, home() + u"/Library"_s, copy.path()});
        const CliResult result = runCli(copy.path(), {u"list"_s}, {}, u"lseek@%1=ENOENT"_s.arg(turn));
        EXPECT_TRUE(result.status == 0 && result.output.contains("Old\t")) << result.messages;
    }
    const CliResult unlocked = run(u"list"_s, u"create=EIO"_s);
    EXPECT_EQ(unlocked.status, 4);
    EXPECT_TRUE(unlocked.output.startsWith("A\t") && unlocked.messages.contains("quillon.lock"))
        << unlocked.messages;
    const CliResult stopped = run(u"list"_s, u"rename=EIO"_s);
    EXPECT_TRUE(stopped.status == 4 && stopped.messages.contains("Not stored: ")) << stopped.messages;
    EXPECT_EQ(run(u"list"_s).messages, "") << "it could be moved now";
    for (const QString &printing : {u"list"_s, u"--help"_s, u"--version"_s}) {
        const CliResult full = runCli(home(), {printing}, u"/dev/full"_s);
        EXPECT_EQ(full.status, 4) << printing;
        EXPECT_TRUE(full.messages.contains("could not be written")) << full.messages;
    }
}

/// Whatever is there cannot be told from a file that is none of PAD's until it is read.
TEST_F(Cli, AFileThatFailsAtReadingIsNotToldToBeNone)
{
    ASSERT_TRUE(put(home() + u"/a.xml", sample(u"valid.xml"_s)));
    for (const QString &command : {u"check a.xml"_s, u"import a.xml"_s}) {
        const CliResult result = run(command, u"read+=EIO"_s);
        EXPECT_EQ(result.status, 4) << command;
        EXPECT_TRUE(result.messages.contains("Input/output error")) << command << ": " << result.messages;
    }
    ASSERT_TRUE(put(home() + u"/b.xml", QByteArray(1024 * 1024 + 1, ' ')));
    for (const QString &command : {u"check b.xml"_s, u"import b.xml"_s})
        EXPECT_EQ(statusOf(command), 3) << command << "what is too large is no PAD file";
}

/// One of the two lists may be stored and the other not, and a kill may come between anything.
TEST_F(Cli, AnOwnSiteIsInTheListOrKeptWhateverFails)
{
    ASSERT_EQ(statusOf(u"sites add Mine mine"_s), 0);
    for (const QString &fault :
         words(u"rename@1=EIO rename@2=EIO rename@2=kill fsync@4=kill fsync@6=kill"_s)) {
        const QTemporaryDir copy;
        QProcess::execute(u"cp"_s, {u"-a"_s, home() + u"/Library"_s, copy.path()});
        EXPECT_NE(runCli(copy.path(), words(u"sites remove Mine Softs"_s), {}, fault).status, 0) << fault;
        const bool isListed = runCli(copy.path(), {u"sites"_s}).output.startsWith("Mine\t");
        const bool isKept = runCli(copy.path(), {u"deleted"_s}).output.startsWith("Mine\t");
        EXPECT_TRUE(fault.endsWith(u"kill") ? isListed || isKept : isListed != isKept) << fault << isListed;
    }
}

TEST_F(CliWithTitle, ADamagedDatabaseConcernsOnlyTheExtras)
{
    ASSERT_TRUE(put(inData(u"quillon.sqlite"_s), QByteArray(4096, '\0')));
    const CliResult damaged = run(u"history T"_s);
    EXPECT_EQ(damaged.status, 4);
    EXPECT_EQ(damaged.messages.count('\n'), 1) << damaged.messages;
    EXPECT_EQ(statusOf(u"set T programName=Two"_s), 0);
}

TEST_F(CliWithTitle, WhatIsToldToNobodyIsWrittenIntoNoFile)
{
    const auto run = [this](const QString &command) {
        QProcess shell;
        shell.setWorkingDirectory(home());
        shell.start(u"/bin/sh"_s,
                    {u"-c"_s, u"exec \"$0\" --home . "_s + command, QStringLiteral(QUILLON_CLI)});
        shell.waitForFinished(-1);
        return shell.exitCode();
    };
    const auto before = files();
    EXPECT_EQ(run(u"backup all copy >&- 2>&-"_s), 0);
    EXPECT_EQ(contents(inData(u"quillon.lock"_s)), QByteArray());
    EXPECT_EQ(run(u"list >&-"_s), 4) << "what was asked for could not be told";
    EXPECT_EQ(files(), before);
}

/// Each failure is told by one line, whichever command it concerns.
TEST_F(CliWithTitle, WhatFailsIsToldOnce)
{
    ASSERT_EQ(statusOf(u"sites add Mine mine"_s) + statusOf(u"sites remove Mine"_s), 0);
    ASSERT_TRUE(QFile::rename(inData(u"sites.qnrc"_s), inData(u"sites.aside"_s)) &&
                QDir().mkdir(inData(u"sites.qnrc"_s)));
    for (const QString &command : {u"undelete Mine"_s, u"sites add Mine mine"_s, u"sites"_s, u"next T"_s}) {
        const CliResult result = run(command);
        EXPECT_EQ(result.status, 4) << command;
        EXPECT_EQ(result.messages.count("sites.qnrc"), 1) << command << ": " << result.messages;
    }
    ASSERT_TRUE(QDir().rmdir(inData(u"sites.qnrc"_s)) && QFile::remove(inData(u"quillon.sqlite"_s)) &&
                QDir().mkdir(inData(u"quillon.sqlite"_s)));
    const std::pair<int, QString> table[] = {
        {4, u"history T;restore-text T companyName --to 1;restore-title T --to 1 --dry-run;changesets;undo;"
            "undo 1 --dry-run;deleted;undelete Mine;forget Mine;formmap Softs;formmap Softs --forget;"
            "sites --health;sites note Softs --note a;ledger T;ledger T Softs listed;matrix;next T;"
            "complete undelete M;original T -;export T - --merged;"
            "change --where programVersion= programVersion=1 T"_s},
        {0, u"set T programName=One;mark T Softs;unmark T Softs;new U;rename U V;delete V"_s}};
    for (const auto &[status, commands] : table) {
        for (const QString &command : words(commands, u';')) {
            const CliResult result = run(command);
            EXPECT_EQ(result.status, status) << command;
            EXPECT_EQ(result.messages.count("quillon.sqlite"), 1) << command << ": " << result.messages;
        }
    }
}

TEST_F(CliWithTitle, WritersWaitForTheOneThatHoldsTheFolder)
{
    const DataFolderLock lock;
    const CliResult refused = run(u"delete T"_s);
    EXPECT_EQ(refused.status, 3);
    EXPECT_TRUE(refused.messages.contains("Quillon is running"));
    QDir().mkpath(inData(u"Old"_s));
    put(inData(u"Old/Old.qnxmld"_s), "");
    EXPECT_EQ(titles().size(), 1) << "reading needs no lock, and changes nothing without";
}

TEST_F(Cli, ReadingMakesNoFolderAndAFileInItsPlaceIsToldAndLeftAlone)
{
    EXPECT_EQ(statusOf(u"list"_s), 0);
    EXPECT_EQ(run(u"sites"_s).output.count('\n'), qsizetype(defaultSites.size()));
    const QString trial = u"sites note FileCluster --gone yes --dry-run"_s;
    EXPECT_EQ(statusOf(trial), 0);
    const CliResult completion = run(u"complete sites remove FileClus"_s);
    EXPECT_EQ(completion.output + completion.messages, QByteArray("FileCluster\0", 12));
    EXPECT_EQ(names(home()), QStringList());
    const CliResult nowhere = runCli({}, {u"list"_s});
    EXPECT_EQ(nowhere.status, 2);
    EXPECT_TRUE(nowhere.messages.contains("--home needs the name of a folder."));

    const QString folder = home() + u"/Library/Application Support/Marrowick";
    ASSERT_TRUE(QDir().mkpath(folder + u"/Quillon"));
    EXPECT_EQ(statusOf(trial), 0);
    ASSERT_TRUE(QDir().rmdir(folder + u"/Quillon")) << "something is in it";
    ASSERT_TRUE(put(folder + u"/Quillon", "precious"));
    EXPECT_EQ(statusOf(u"new A"_s) + statusOf(u"list"_s), 4 + 4);
    EXPECT_EQ(contents(folder + u"/Quillon"), "precious");
}

TEST_F(Cli, WhatIsBackButStillKeptAsDeletedIsTold)
{
    ASSERT_EQ(statusOf(u"new A"_s) + statusOf(u"delete A"_s), 0);
    int kept = 0;
    for (int turn = 1; turn < 8; ++turn) {
        const QTemporaryDir copy;
        QProcess::execute(u"cp"_s, {u"-a"_s, home() + u"/Library"_s, copy.path()});
        const QString fault = u"fsync@%1+=EIO"_s.arg(turn);
        const CliResult back = runCli(copy.path(), {u"undelete"_s, u"A"_s}, {}, fault);
        const bool isKept = !runCli(copy.path(), {u"deleted"_s}).output.isEmpty();
        EXPECT_EQ(back.status, isKept || turn < 3 ? 4 : 0) << turn << back.messages;
        kept += isKept && runCli(copy.path(), {u"show"_s, u"A"_s}).status == 0;
    }
    EXPECT_GT(kept, 0);
}

TEST_F(Cli, WhatWasDeletedComesBackForNinetyDays)
{
    const auto deleted = [this] { return run(u"deleted --json"_s).json().array(); };
    ASSERT_TRUE(put(home() + u"/a.xml"_s, sample(u"old_tool.xml"_s)));
    ASSERT_EQ(statusOf(u"import a.xml --as First"_s) + statusOf(u"rename First A"_s), 0);
    ASSERT_TRUE(put(inData(u"A.qndata/notes \xff.txt"_s), "precious"));
    const auto before = tree(inData(u"A.qndata"_s));
    EXPECT_EQ(statusOf(u"delete A"_s), 0);
    EXPECT_EQ(deleted()[0][u"name"_s], u"A"_s);
    EXPECT_EQ(statusOf(u"undelete A --dry-run"_s), 0);
    EXPECT_TRUE(titles().isEmpty());
    EXPECT_EQ(statusOf(u"new A"_s), 0);
    EXPECT_EQ(statusOf(u"undelete A"_s), 3);
    EXPECT_EQ(statusOf(u"undelete A --as B"_s), 0);
    EXPECT_EQ(tree(inData(u"B.qndata"_s)), before);
    EXPECT_EQ(run(u"original B -"_s).output, sample(u"old_tool.xml"_s));
    EXPECT_TRUE(deleted().isEmpty());

    const auto holdsIt = [] { return contents(inData(u"quillon.sqlite"_s)).contains("precious"); };
    ASSERT_EQ(statusOf(u"delete B"_s), 0);
    EXPECT_TRUE(holdsIt());
    EXPECT_EQ(statusOf(u"forget B --dry-run"_s), 0);
    EXPECT_EQ(deleted().size(), 1);
    EXPECT_EQ(statusOf(u"forget B"_s), 0);
    EXPECT_EQ(statusOf(u"undelete B"_s), 3);
    EXPECT_FALSE(holdsIt());

    ASSERT_EQ(statusOf(u"sites add Mine https://mine/"_s), 0);
    const auto sites = contents(inData(u"sites.qnrc"_s));
    ASSERT_EQ(statusOf(u"sites remove Mine"_s), 0);
    EXPECT_EQ(statusOf(u"undelete Mine"_s), 0);
    EXPECT_EQ(contents(inData(u"sites.qnrc"_s)), sites);

    ASSERT_EQ(statusOf(u"delete A"_s), 0);
    ASSERT_TRUE(Journal::ofDataFolder().change([](Database &database) {
        return database.run("UPDATE deleted_titles SET time = ?",
                            QDateTime::currentMSecsSinceEpoch() - 91LL * 86'400'000);
    }));
    Journal::ofDataFolder().close();
    const QByteArray old = contents(inData(u"quillon.sqlite"_s));
    EXPECT_EQ(run(u"complete undelete A"_s).output, "");
    EXPECT_EQ(contents(inData(u"quillon.sqlite"_s)), old);
    EXPECT_TRUE(deleted().isEmpty());
    EXPECT_NE(contents(inData(u"quillon.sqlite"_s)), old);
    // Where nothing can be kept, a title is deleted all the same, and that is told.
    for (const QString &call : {u"getdents64"_s, u"open"_s}) {
        for (int turn = 1; turn <= 10; ++turn) {
            ASSERT_EQ(statusOf(u"new C"_s), 0);
            const CliResult result = run(u"delete C"_s, u"%1@%2=EIO"_s.arg(call).arg(turn));
            EXPECT_TRUE(QFile::exists(inData(u"C.qndata"_s)) || !deleted().isEmpty() ||
                        !result.messages.isEmpty())
                << call << turn;
            statusOf(u"delete C"_s);
            statusOf(u"forget C"_s);
        }
    }
    QFile::remove(inData(u"quillon.sqlite"_s));
    ASSERT_TRUE(QDir().mkdir(inData(u"quillon.sqlite"_s)));
    ASSERT_EQ(statusOf(u"new A"_s), 0);
    const CliResult unkept = run(u"delete A"_s);
    EXPECT_EQ(unkept.status, 0);
    EXPECT_TRUE(unkept.messages.contains("quillon.sqlite")) << unkept.messages;
    EXPECT_TRUE(titles().isEmpty());
}

/// Every real PAD file comes in under a name of its own, shows what its summary elements say, and comes out
/// so that a second home shows the same.
TEST_F(Cli, RealFilesComeInAndGoOutAgain)
{
    const QDir folder(QStringLiteral(QUILLON_REAL_PADS));
    if (!folder.exists())
        GTEST_SKIP() << "the real PAD files are not beside the checkout: " << folder.path();
    const QString second = home() + u"/second"_s;
    ASSERT_TRUE(QDir().mkdir(second));
    int imported = 0;
    QSet<int> judgements;
    for (const QFileInfo &file : folder.entryInfoList({u"*.xml"_s}, QDir::Files)) {
        const CliResult first = cli({u"import"_s, file.filePath(), u"--as"_s, file.fileName()});
        const bool isPad = contents(file.filePath()).toLower().contains("<master_pad_version_info>");
        ASSERT_EQ(first.status, isPad ? 0 : 3) << file.fileName() << first.messages.constData();
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
