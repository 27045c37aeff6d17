#include "store/data_folder_lock.h"
#include "support/temporary_home.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quillon;
using namespace std::chrono_literals;

using State = DataFolderLock::State;

using DataFolderLockTest = TemporaryDataFolder;

static State tried()
{
    return DataFolderLock(0ms).state();
}

/// Starts a process that holds the lock until it is ended; its number, or -1 when it does not get the lock.
static pid_t startHolder()
{
    int ends[2];
    if (::pipe(ends) != 0)
        return -1;
    const pid_t process = ::fork();
    if (process == 0) {
        const DataFolderLock lock(0ms);
        const char state = char(lock.state());
        while (::write(ends[1], &state, 1) == 1)
            ::pause();
        ::_exit(1);
    }
    char state = -1;
    const bool isHeld = ::read(ends[0], &state, 1) == 1 && State(state) == State::Held;
    ::close(ends[0]);
    ::close(ends[1]);
    return isHeld ? process : -1;
}

TEST_F(DataFolderLockTest, IsHeldByOneProcessAndOutlivesNone)
{
    const pid_t holder = startHolder();
    ASSERT_GT(holder, 0);
    EXPECT_EQ(tried(), State::HeldByAnother);
    ::kill(holder, SIGKILL);
    ::waitpid(holder, nullptr, 0);
    EXPECT_EQ(tried(), State::Held);
    EXPECT_EQ(tried(), State::Held) << "not released";
}

TEST_F(DataFolderLockTest, ALockFileWithoutAnOwnerIsTakenOver)
{
    QByteArray ours;
    {
        const DataFolderLock lock;
        ours = contents(inData(u"quillon.lock"_s));
    }
    ASSERT_TRUE(ours.startsWith(QByteArray::number(::getpid())));
    // What a power cut leaves of a lock file that was just made, and what a crash leaves of one whose process
    // number belongs to a living process by now, or of one from another machine.
    for (const QByteArray &rest : {QByteArray(), QByteArray("12"), QByteArray("garbage\n\n"), ours,
                                   QByteArray("1\ninit\nelsewhere\na\nb\n")}) {
        ASSERT_TRUE(put(inData(u"quillon.lock"_s), rest));
        EXPECT_EQ(tried(), State::Held) << rest.toStdString();
    }
    ASSERT_TRUE(QDir(mwqnAppSuppLoc).removeRecursively());
    EXPECT_EQ(tried(), State::Unavailable);
}
