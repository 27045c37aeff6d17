#include "shell/main_window_fixture.h"
#include "store/data_folder_lock.h"

#include <QLabel>
#include <QLocalSocket>
#include <QProcess>
#include <QRegularExpression>

#include <unistd.h>

namespace {

/// The real program, started while another holds the data folder.
class StartTest : public MainWindowTest
{
protected:
    void start() override
    {
        MainWindowTest::start();
        ASSERT_EQ(m_lock.emplace().state(), DataFolderLock::State::Held);
        program().listen();
    }

    /// Starts it in the home folder with @p arguments. What it says last; it must end with @p status.
    QString second(const QStringList &arguments, int status = 0) const
    {
        QProcess process;
        process.setWorkingDirectory(home());
        process.start(QStringLiteral(QUILLON_PROGRAM), QStringList{u"--home"_s, home()} + arguments);
        EXPECT_TRUE(eventually([&process] { return process.state() == QProcess::NotRunning; }));
        EXPECT_EQ(process.exitCode(), status);
        return QString::fromUtf8(process.readAllStandardError()).trimmed().section(u'\n', -1);
    }

    /// What is answered to @p bytes until the conversation is ended.
    static QString answerTo(QLocalSocket &socket, const QByteArray &bytes)
    {
        socket.write(bytes);
        EXPECT_TRUE(eventually([&socket] { return socket.state() == QLocalSocket::UnconnectedState; }));
        return QString::fromUtf8(socket.readAll()).trimmed();
    }

private:
    std::optional<DataFolderLock> m_lock;
};

} // namespace

TEST_F(StartTest, ASecondStartHandsItsFilesOverAndTheWindowComesToTheFront)
{
    window().hide();
    EXPECT_EQ(second({}), u"Quillon is running already; its window was brought to the front.");
    EXPECT_TRUE(window().isVisible());
    padFile(u"A"_s);
    put(home() + u"/-B.txt"_s, "Dear diary");
    EXPECT_EQ(second({u"--"_s, u"A.xml"_s, u"-B.txt"_s, home() + u"/missing.xml"_s}),
              u"Quillon is running already; its window was given the files.");
    EXPECT_EQ(answerAlert(u"OK"_s).section(u'|', 0, 0), u"1 of 3 files were imported");
    EXPECT_EQ(titles(), QStringList{u"A"_s});

    second({u"A.xml"_s}); // Which needs another name now, as always.
    ASSERT_TRUE(eventually([this] { return program().titles().namePanel().has_value(); }));
    EXPECT_EQ(program().titles().namePanel()->file, u"A.xml");
}

TEST_F(StartTest, WhatCannotBeDoneYetWaitsAndTheStatusBarSaysForWhat)
{
    const auto *waiting = window().findChild<QLabel *>(u"waitingRequest"_s);
    press(u"tryExampleButton"_s);
    command(u"Edit"_s)->trigger();
    const QString path = padFile(u"A"_s);
    second({path});
    second({path}); // Impatiently.
    EXPECT_EQ(waiting->text(), u"1 file is imported as soon as the overview is shown again (Ctrl+1).");
    EXPECT_TRUE(waiting->isVisible());
    EXPECT_EQ(titles().size(), 1);
    command(u"Overview"_s)->trigger();
    EXPECT_TRUE(answerAlert(u"OK"_s).startsWith(u"Import Successful"_s));
    EXPECT_FALSE(waiting->isVisible());

    second({u"--new"_s});
    ASSERT_TRUE(visible<QLineEdit>(u"swNamePanelInput"_s));
    EXPECT_EQ(program().titles().namePanel()->nameSheetCalledFrom, u"new");
    second({u"--new"_s, padFile(u"B"_s)});
    EXPECT_EQ(waiting->text(),
              u"The name of a new title is asked for as soon as what is open over this window is closed.");
    typeName(u"C"_s);
    ASSERT_TRUE(eventually([this] { return titles().size() == 4 && program().titles().namePanel(); }));
    EXPECT_EQ(program().titles().namePanel()->nameSheetCalledFrom, u"new");
    EXPECT_EQ(waiting->text(), QString());
}

TEST_F(StartTest, WhatIsNoRequestIsAnsweredAndNothingIsDone)
{
    window().hide();
    const auto request = [](const QByteArray &files, const QByteArray &others) -> QByteArray {
        return "{\"files\":[" + files + "],\"asksForTitle\":false," + others + "}\n";
    };
    const QByteArray token = "\"activationToken\":\"\"";
    const QByteArray path = "\"" + padFile(u"A"_s).toUtf8() + "\"";
    const QByteArray hostile[] = {
        "\n",
        "{}\n",
        "[]\n",
        "{\"files\":\n",
        QByteArray(100'000, '[') + '\n',
        QByteArray("\xff\x00\n", 3),
        request(path, "\"activationToken\":1"),
        request(path, token + ",\"run\":\"sh\""),
        request("1", token),
        request("null," + path, token),
        request("\"A.xml\"", token),
        request("\":/icons/quillon.svg\"", token),
        request("\"file:///A.xml\"", token),
        request("\"/A\\u0000.xml\"", token),
        request("\"/" + QByteArray(StartRequest::longestText, 'A') + "\"", token),
        request(QByteArray(path + ',').repeated(StartRequest::mostFiles) + path, token),
        request(path, token + QByteArray(StartRequest::mostBytes, ' ')),
        QByteArray(StartRequest::mostBytes + 1, 'A'),
    };
    for (const QByteArray &bytes : hostile) {
        QLocalSocket socket;
        socket.connectToServer(SingleInstance::address());
        const QString answer = answerTo(socket, bytes);
        EXPECT_TRUE(answer.endsWith(u'.')) << bytes.first(std::min<qsizetype>(bytes.size(), 80)) << answer;
    }
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(titles(), QStringList());

    second(QStringList(StartRequest::mostFiles + 1, u"A"_s), 1);
    EXPECT_FALSE(window().isVisible()) << "it does not even ask";
    second({padFile(u"B"_s)});
    EXPECT_TRUE(window().isVisible());
}

TEST_F(StartTest, OtherUsersAreRefusedWhateverTheRightsAre)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can be another user";
    window().hide();
    const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", home().toUtf8());
    SingleInstance open;
    open.listen();
    int requests = 0;
    QObject::connect(&open, &SingleInstance::requested, [&requests] { ++requests; });
    const QString address = SingleInstance::address();
    for (const QString &path : {home(), address})
        QFile::setPermissions(path, QFile::Permissions::fromInt(0x7777));
    static constexpr uid_t nobody = 65534;
    for (const uid_t user : {nobody, uid_t(0)}) {
        QLocalSocket socket;
        ASSERT_EQ(seteuid(user), 0);
        socket.connectToServer(address);
        ASSERT_EQ(seteuid(0), 0);
        const QString answer = answerTo(socket, StartRequest{}.message() + '\n');
        EXPECT_EQ(answer == u"accepted", user == 0) << user << answer;
    }
    EXPECT_EQ(requests, 1);
    before.isEmpty() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", before);
}

using StartedAfterAKill = TemporaryHome;

TEST_F(StartedAfterAKill, ClearsAwayWhatThatLeftAndLeavesNothingItself)
{
    const QString left = u".quillon-0123456789abcdef.tmp"_s;
    const QStringList places = {inData(left), inData(u"T.qndata/"_s + left),
                                inData(u"Site Images/"_s + left)};
    for (const QString &place : places)
        ASSERT_TRUE(QDir().mkpath(QFileInfo(place).path()) && put(place, "half"));
    const QString temporary = home() + u"/temporary";
    ASSERT_TRUE(QDir().mkdir(temporary));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"TMPDIR"_s, temporary);
    environment.insert(u"XDG_RUNTIME_DIR"_s, home()); // Else one is made in the temporary folder.
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(QUILLON_PROGRAM), {u"--home"_s, home()});
    for (const QString &place : places)
        EXPECT_TRUE(eventually([&place] { return !QFile::exists(place); })) << place;
    process.terminate();
    EXPECT_TRUE(eventually([&process] { return process.state() == QProcess::NotRunning; }));
    EXPECT_EQ(process.exitStatus(), QProcess::CrashExit) << "it was ended by the signal";
    EXPECT_EQ(names(temporary), QStringList());
}

TEST_F(StartTest, ShellsCompleteEachOptionThatTheHelpTellsOf)
{
    QProcess process;
    process.start(QStringLiteral(QUILLON_PROGRAM), {u"--help"_s});
    ASSERT_TRUE(process.waitForFinished());
    const QString help = QString::fromUtf8(process.readAllStandardOutput());
    static const QRegularExpression longOption(u"--([a-z-]+)"_s);
    for (const auto &option : longOption.globalMatch(help)) {
        for (const QString &script : {u"quillon.bash"_s, u"_quillon"_s, u"quillon.fish"_s}) {
            const QString text =
                QString::fromUtf8(contents(QStringLiteral(QUILLON_COMPLETIONS "/") + script));
            EXPECT_TRUE(text.contains(QRegularExpression(u"-(-|l )%1\\b(?!-)"_s.arg(option.captured(1)))))
                << script << option.captured();
        }
    }
    EXPECT_TRUE(help.contains(u"[FILE...]"_s) && help.contains(u"--new"_s)) << help;
}
