#include "platform/atomic_file.h"
#include "platform/folder_handle.h"
#include "support/faults.h"
#include "support/full_disk.h"
#include "support/testing.h"

#include <QTemporaryDir>

#include <unistd.h>

class AtomicFileTest : public testing::Test
{
protected:
    [[nodiscard]] QString at(const QString &name) const { return folder.filePath(name); }

    QTemporaryDir folder;
};

TEST_F(AtomicFileTest, ReplacesWhatIsDifferentAndLeavesTheSameAlone)
{
    const QString longest(255, u'n');
    for (const QByteArray &bytes : {QByteArray("one"), QByteArray(), QByteArray(300'000, '\0')}) {
        EXPECT_TRUE(atomic_file::write(at(longest), bytes));
        EXPECT_EQ(contents(at(longest)), bytes);
        EXPECT_EQ(atomic_file::read(at(longest)), bytes);
        const ino_t number = fileNumber(at(longest));
        EXPECT_TRUE(atomic_file::write(at(longest), bytes));
        EXPECT_EQ(fileNumber(at(longest)), number);
        EXPECT_TRUE(atomic_file::write(at(longest), bytes + '!'));
        EXPECT_NE(fileNumber(at(longest)), number);
    }
    EXPECT_EQ(names(folder.path()), QStringList{longest});
}

TEST_F(AtomicFileTest, KeepsTheModeAndMindsTheUsersMask)
{
    ASSERT_TRUE(put(at(u"f"_s), "old") && ::chmod(QFile::encodeName(at(u"f"_s)).constData(), 0640) == 0);
    const mode_t mask = ::umask(077);
    EXPECT_TRUE(atomic_file::write(at(u"f"_s), "new") && atomic_file::write(at(u"g"_s), "new"));
    ::umask(mask);
    for (const auto &[name, mode] : {std::pair(u"f"_s, 0x640), std::pair(u"g"_s, 0x600)})
        EXPECT_EQ(QFileInfo(at(name)).permissions() & 0x777, mode) << name;
}

TEST_F(AtomicFileTest, AFailedWriteKeepsTheOldFileAndLeavesNothingBehind)
{
    ASSERT_TRUE(put(at(u"f"_s), "old") && QDir(folder.path()).mkpath(u"d/inside"_s));
    // In a container another process that writes here may have this one's number.
    const QString others = u".quillon-%1.tmp"_s.arg(::getpid());
    ASSERT_TRUE(put(at(others), "other"));
    {
        const FullDisk full(100);
        const Result<> written = atomic_file::write(at(u"f"_s), QByteArray(5000, 'n'));
        ASSERT_TRUE(written.isError(Error::Kind::NotDone));
        EXPECT_EQ(written.error().path, at(u"f"_s));
        EXPECT_TRUE(written.error().reason.startsWith(u"writing failed: "_s));
    }
    for (const QString &path : {u"d"_s, u"missing/f"_s, u"f/below"_s, QString(256, u'n')})
        EXPECT_FALSE(atomic_file::write(at(path), "new").isDone()) << path;
    EXPECT_EQ(contents(at(u"f"_s)), "old");
    EXPECT_EQ(contents(at(others)), "other");
    EXPECT_EQ(names(folder.path()), (QStringList{others, u"d"_s, u"f"_s}));
}

TEST_F(AtomicFileTest, ReadsRegularFilesWithinTheBound)
{
    ASSERT_TRUE(put(at(u"f"_s), "12345"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(at(u"pipe"_s)).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(u"nowhere"_s, at(u"astray"_s)));
    EXPECT_EQ(atomic_file::read(at(u"f"_s), 5), "12345");
    EXPECT_TRUE(atomic_file::read(at(u"f"_s), 4).isError(Error::Kind::Unreadable));
    using enum Error::Kind;
    for (const auto &[name, kind] :
         {std::pair(u"missing"_s, Missing), std::pair(u"f/below"_s, Missing), std::pair(u"."_s, Unreadable),
          std::pair(u"pipe"_s, Unreadable), std::pair(u"astray"_s, Unreadable)})
        EXPECT_TRUE(atomic_file::read(at(name)).isError(kind)) << name;
    const FaultPlan plan(folder.path(), "open=EACCES");
    EXPECT_TRUE(atomic_file::read(at(u"f"_s)).isError(Unreadable));
}

TEST_F(AtomicFileTest, ReplacesOnlyWhatWasRead)
{
    ASSERT_TRUE(put(at(u"f"_s), "old"));
    const Result<QByteArray> unread = Error{Error::Kind::Unreadable, at(u"f"_s), u"for a moment"_s};
    EXPECT_TRUE(atomic_file::replace(at(u"f"_s), "new", unread).isError(Error::Kind::Unreadable));
    EXPECT_EQ(contents(at(u"f"_s)), "old");
    EXPECT_TRUE(atomic_file::replace(at(u"f"_s), "new", atomic_file::read(at(u"f"_s))));
    EXPECT_EQ(contents(at(u"f"_s)), "new");
}

TEST_F(AtomicFileTest, MovesFoldersOntoNothingOnly)
{
    const auto parent = FolderHandle::open(folder.path());
    ASSERT_TRUE(parent);
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"a"_s) && put(at(u"a/f"_s), "kept") &&
                QDir(folder.path()).mkdir(u"empty"_s));
    ASSERT_TRUE(QFile::link(u"nowhere"_s, at(u"link"_s)));
    EXPECT_TRUE(parent->move("a", *parent, "b"));
    for (const QByteArray taken : {"empty", "link", "b"})
        EXPECT_FALSE(parent->move("b", *parent, taken)) << taken;
    EXPECT_FALSE(parent->move("a", *parent, "c"));
    const FaultPlan plan(folder.path(), "open=EIO");
    EXPECT_FALSE(parent->makeFolder("made") || parent->exists("made"));
    EXPECT_EQ(contents(at(u"b/f"_s)), "kept");
}
