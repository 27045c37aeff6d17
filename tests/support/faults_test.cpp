#include "support/command_line.h"

#include <array>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <functional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quillon {
namespace {

class FaultsTest : public CommandLineTest
{
protected:
    [[nodiscard]] QByteArray at(const QString &name) const { return QFile::encodeName(home() + u'/' + name); }
};

TEST_F(FaultsTest, EachCallFailsWhenItsTurnComes)
{
    ASSERT_TRUE(put(home() + u"/f"_s, "1234567890"));
    const int folder = ::open(home().toUtf8().constData(), O_RDONLY | O_DIRECTORY);
    const int file = ::open(at(u"f"_s).constData(), O_RDWR);
    ASSERT_TRUE(folder >= 0 && file >= 0);
    std::array<char, 1024> bytes{};
    struct stat status = {};
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    const struct
    {
        const char *call;
        std::function<long()> make;
    } cases[] = {
        {"open", [&] { return ::open(at(u"f"_s).constData(), O_RDONLY); }},
        {"open", [&] { return ::openat(folder, "f", O_RDONLY); }},
        {"create", [&] { return ::openat(folder, "g", O_WRONLY | O_CREAT, 0600); }},
        {"read", [&] { return ::read(file, bytes.data(), 1); }},
        {"lseek", [&] { return ::lseek(file, 0, SEEK_SET); }},
        {"getdents64", [&] { return ::getdents64(folder, bytes.data(), bytes.size()); }},
        {"stat", [&] { return ::fstatat(folder, "f", &status, 0); }},
        {"stat", [&] { return QFileInfo(home() + u"/f"_s).exists() ? 0 : -1; }},
        {"write", [&] { return ::write(file, "abc", 3); }},
        {"fsync", [&] { return ::fdatasync(file); }},
        {"fsync", [&] { return ::syncfs(folder); }},
        {"rename", [&] { return ::rename(at(u"f"_s).constData(), at(u"h"_s).constData()); }},
        {"rename", [&] { return ::renameat2(folder, "f", folder, "h", RENAME_NOREPLACE); }},
        {"mkdir", [&] { return ::mkdirat(folder, "d", 0700); }},
        {"unlink", [&] { return ::unlink(at(u"f"_s).constData()); }},
        {"fchmod", [&] { return ::fchmod(file, 0600); }},
        {"ftruncate", [&] { return ::ftruncate(file, 1); }},
        {"flock", [&] { return ::flock(file, LOCK_EX); }},
        {"flock", [&] { return ::fcntl(file, F_OFD_SETLK, &lock); }},
    };
    for (const auto &[call, make] : cases) {
        const FaultPlan plan(home(), QByteArray(call) + "=EDQUOT");
        errno = 0;
        EXPECT_EQ(make(), -1) << call;
        EXPECT_EQ(errno, EDQUOT) << call;
        EXPECT_TRUE(plan.met()) << call;
    }
    EXPECT_EQ(names(home()), QStringList{u"f"_s});
    EXPECT_EQ(contents(home() + u"/f"_s), "1234567890");
    ::close(file);
    ::close(folder);
}

TEST_F(FaultsTest, CountsTheirTurnsAndLeavesOtherFoldersAlone)
{
    ASSERT_TRUE(QDir(home()).mkpath(u"a"_s) && QDir(home()).mkpath(u"ab"_s));
    const struct
    {
        const char *rules;
        std::array<bool, 4> succeeds;
    } cases[] = {{"create@2=EIO", {true, false, true, true}},
                 {"open,create@3+=EMFILE", {true, true, false, false}},
                 {"rename=EIO create=EIO create@4=EIO", {false, true, true, false}}};
    for (const auto &[rules, succeeds] : cases) {
        const FaultPlan plan(home() + u"/a"_s, rules);
        for (const bool success : succeeds) {
            EXPECT_TRUE(put(home() + u"/ab/f"_s, "other")) << rules;
            EXPECT_EQ(put(home() + u"/a/f"_s, "bytes"), success) << rules;
        }
        EXPECT_TRUE(plan.met()) << rules;
    }
    EXPECT_TRUE(put(home() + u"/a/f"_s, "the plan is over"));
}

TEST_F(FaultsTest, WritesAreCutOffAndTorn)
{
    const int file = ::open(at(u"f"_s).constData(), O_WRONLY | O_CREAT, 0600);
    {
        const FaultPlan plan(home(), "write@3=short write=full:10");
        EXPECT_EQ(::write(file, "1234", 4), 4);
        EXPECT_EQ(::write(file, "5678", 4), 4);
        EXPECT_FALSE(plan.met());
        EXPECT_EQ(::write(file, "90ab", 4), 2);
        EXPECT_EQ(::write(file, "cdef", 4), -1);
        EXPECT_EQ(errno, ENOSPC);
    }
    EXPECT_EXIT(
        {
            const FaultPlan plan(home(), "write=torn");
            ::write(file, "abcd", 4);
        },
        testing::KilledBySignal(SIGKILL), "");
    EXPECT_EQ(contents(home() + u"/f"_s), "1234567890ab");
    ::close(file);
}

TEST_F(FaultsTest, ChildrenAreToldByTheirEnvironment)
{
    EXPECT_EQ(cli({u"new"_s, u"A"_s}).status, 0);
    EXPECT_EQ(cli({u"new"_s, u"B"_s}, u"write+=ENOSPC"_s).status, 4);
    EXPECT_EQ(cli({u"new"_s, u"C"_s}, u"rename=kill"_s).status, -1);
    EXPECT_EQ(cli({u"delete"_s, u"A"_s}).status, 0) << "the lock went with the process that held it";
    EXPECT_NE(cli({u"new"_s, u"C"_s}, u"writing=ENONSENSE"_s).messages.indexOf("is not understood"), -1);
    EXPECT_EQ(cli({u"list"_s}).output, "");
}

} // namespace
} // namespace quillon
