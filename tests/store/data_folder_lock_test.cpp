#include "store/data_folder_lock.h"
#include "support/faults.h"
#include "support/temporary_home.h"

#include <csignal>
#include <fcntl.h>
#include <functional>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace std::chrono_literals;

using State = DataFolderLock::State;

using DataFolderLockTest = TemporaryDataFolder;

static State tried()
{
    return DataFolderLock(0ms).state();
}

TEST_F(DataFolderLockTest, WhatTheFileHoldsIsNotAsked)
{
    // What an earlier version, a power cut or another machine left of a lock file.
    for (const QByteArray &rest : {QByteArray(), QByteArray("12"), QByteArray("garbage\n\n"),
                                   QByteArray(QByteArray::number(::getpid()) + "\nquillon\nhere\n"),
                                   QByteArray("1\ninit\nelsewhere\na\nb\n")}) {
        ASSERT_TRUE(put(inData(u"quillon.lock"_s), rest));
        ASSERT_EQ(::chmod(QFile::encodeName(inData(u"quillon.lock"_s)).constData(), 0644), 0);
        EXPECT_EQ(tried(), State::Held) << rest;
        EXPECT_EQ(QFileInfo(inData(u"quillon.lock"_s)).permissions() & 0x77, 0) << "others could lock it";
    }
    ASSERT_TRUE(QFile::remove(inData(u"quillon.lock"_s)));
    {
        const FaultPlan plan(home(), "fchmod=EPERM");
        EXPECT_EQ(tried(), State::Held) << "others could have opened the new file for a moment";
    }
    ASSERT_TRUE(QDir(mwqnAppSuppLoc).removeRecursively());
    EXPECT_EQ(tried(), State::Unavailable);
}

TEST_F(DataFolderLockTest, TheFileStaysSoThatTwoNeverLockTwoFiles)
{
    const QByteArray path = QFile::encodeName(inData(u"quillon.lock"_s));
    EXPECT_EQ(tried(), State::Held);
    const ino_t number = fileNumber(inData(u"quillon.lock"_s));
    ASSERT_NE(number, 0U) << "it went when the lock was released";
    // One that has opened the file before the lock was released, and locks it after another took it.
    int late = -1;
    {
        const DataFolderLock first;
        late = ::open(path.constData(), O_RDWR | O_CLOEXEC);
    }
    const DataFolderLock second;
    EXPECT_EQ(second.state(), State::Held);
    EXPECT_NE(::flock(late, LOCK_EX | LOCK_NB), 0) << "two hold a lock now";
    EXPECT_EQ(tried(), State::HeldByAnother);
    EXPECT_EQ(fileNumber(inData(u"quillon.lock"_s)), number);
    ::close(late);
}

TEST_F(DataFolderLockTest, AFileThatSomebodyRemovedIsNoLock)
{
    const pid_t late = ::fork();
    if (late == 0) {
        const FaultPlan plan(home(), "flock=stop");
        ::_exit(tried() == State::Held ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(late, &status, WUNTRACED), late);
    ASSERT_TRUE(WIFSTOPPED(status));
    ASSERT_TRUE(QFile::remove(inData(u"quillon.lock"_s)));
    const DataFolderLock lock;
    EXPECT_EQ(lock.state(), State::Held);
    ASSERT_EQ(::kill(late, SIGCONT), 0);
    ASSERT_EQ(::waitpid(late, &status, 0), late);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "two hold a lock now";
}

TEST_F(DataFolderLockTest, WhatIsNoFileInItsPlaceHangsNobodyAndIsTold)
{
    const QString path = inData(u"quillon.lock"_s);
    const std::function<bool()> obstructions[] = {
        [&] { return ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0; },
        [&] { return QDir().mkdir(path); },
        [&] { return put(home() + u"/elsewhere", "") && QFile::link(home() + u"/elsewhere", path); }};
    for (const auto &obstruct : obstructions) {
        ASSERT_TRUE(obstruct());
        const pid_t first = ::fork();
        if (first == 0) {
            ::alarm(20); // Ends what waits for somebody at the other end of a pipe.
            ::_exit(tried() == State::Obstructed ? 0 : 1);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(first, &status, 0), first);
        ASSERT_TRUE(WIFEXITED(status)) << "it hangs";
        const DataFolderLock lock(0ms);
        EXPECT_EQ(lock.state(), State::Obstructed);
        EXPECT_FALSE(lock.obstruction().reason.isEmpty());
        ASSERT_TRUE(QFile::remove(path) || QDir().rmdir(path));
    }
    const FaultPlan plan(home(), "flock=ENOLCK");
    EXPECT_EQ(tried(), State::Obstructed);
}
