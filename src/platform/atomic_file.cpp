#include "platform/atomic_file.h"

#include "platform/folder_handle.h"
#include "platform/translated_text.h"
#include "platform/unfinished_name.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quillon::atomic_file {

namespace {

Error failure(const QString &path, QStringView step)
{
    return systemError(Error::Kind::NotDone, path, step);
}

/// Steps up to and with the sync of the temporary file.
Result<> fill(const QString &path, const QByteArray &temporary, const QByteArray &bytes)
{
    struct stat old = {};
    const bool replaces = ::lstat(QFile::encodeName(path).constData(), &old) == 0 && S_ISREG(old.st_mode);
    Descriptor file(::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file.isOpen())
        return failure(path, QUILLON_TR_NOOP("Files", "the folder takes no new file"));
    if (replaces && ::fchmod(file.get(), old.st_mode & 07777) != 0)
        return failure(path, QUILLON_TR_NOOP("Files", "the file's mode could not be kept"));
    if (!file.writeAll(bytes))
        return failure(path, QUILLON_TR_NOOP("Files", "writing failed"));
    if (::fsync(file.get()) != 0)
        return failure(path, QUILLON_TR_NOOP("Files", "syncing failed"));
    if (!file.close())
        return failure(path, QUILLON_TR_NOOP("Files", "closing failed"));
    return {};
}

/// Fills a temporary file and renames it over the one at @p path.
Result<> fillAndRename(const QString &path, const QByteArray &bytes)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    const QByteArray temporary = folder + '/' + unfinished_name::make(unfinished_name::file);
    Result<> done = fill(path, temporary, bytes);
    if (done && ::rename(temporary.constData(), QFile::encodeName(path).constData()) != 0)
        done = failure(path, QUILLON_TR_NOOP("Files", "the old file could not be replaced"));
    if (!done)
        ::unlink(temporary.constData());
    return done;
}

/// Syncs @p folder after a change of the entry at @p path.
Result<> synced(const FolderHandle &folder, const QString &path)
{
    Result<> done = folder.sync();
    return done ? done : Error{done.error().kind, path, done.error().reason};
}

} // namespace

Result<QByteArray> read(const QString &path, qint64 maxSize)
{
    return Descriptor::readFile(AT_FDCWD, QFile::encodeName(path), 0, maxSize, path);
}

Result<> replace(const QString &path, const QByteArray &bytes, const Result<QByteArray> &old)
{
    if (old == bytes)
        return {};
    if (!old && !old.isError(Error::Kind::Missing))
        return Error{old.error().kind, path,
                     QCoreApplication::translate("Files", "%1; it is left as it is").arg(old.error().reason)};
    // Opened first: a folder that cannot be opened could not be synced in the end.
    const auto folder = FolderHandle::open(QFileInfo(path).path());
    if (!folder)
        return Error{.path = path, .reason = folder.error().reason};
    const Result<> renamed = fillAndRename(path, bytes);
    return renamed ? synced(*folder, path) : renamed;
}

Result<> write(const QString &path, const QByteArray &bytes)
{
    return replace(path, bytes, read(path));
}

Result<> syncEntry(const QString &path)
{
    const auto folder = FolderHandle::open(QFileInfo(path).path());
    return folder ? synced(*folder, path) : Error{Error::Kind::NotYetSafe, path, folder.error().reason};
}

Result<> removeAll(const QString &path)
{
    const QFileInfo info(path);
    if (info.isDir() && !info.isSymLink() ? QDir(path).removeRecursively() : QFile::remove(path))
        return {};
    return Error{.path = path,
                 .reason = QCoreApplication::translate("Files", "something of it could not be removed")};
}

} // namespace quillon::atomic_file
