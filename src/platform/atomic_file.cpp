#include "platform/atomic_file.h"

#include "platform/descriptor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quillon::atomic_file {

namespace {

std::optional<WriteError> failure(const QString &path, const QString &step)
{
    return WriteError{path, u"%1: %2"_s.arg(step, QString::fromLocal8Bit(std::strerror(errno)))};
}

/// Syncs the folder that @p path lies in, so that its entry there outlives a crash.
std::optional<WriteError> syncParent(const QString &path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    const Descriptor descriptor(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // Some file systems cannot sync a folder and say EINVAL; there is nothing more to be done there.
    if (!descriptor.isOpen() || (::fsync(descriptor.get()) != 0 && errno != EINVAL))
        return failure(path, u"syncing the folder failed"_s);
    return std::nullopt;
}

/// Steps up to and with the sync of the temporary file.
std::optional<WriteError> fill(const QString &path, const QByteArray &temporary, const QByteArray &bytes)
{
    struct stat old = {};
    const bool replaces = ::lstat(QFile::encodeName(path).constData(), &old) == 0 && S_ISREG(old.st_mode);
    Descriptor file(::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file.isOpen())
        return failure(path, u"the folder takes no new file"_s);
    if (replaces && ::fchmod(file.get(), old.st_mode & 07777) != 0)
        return failure(path, u"the file's mode could not be kept"_s);
    if (!file.writeAll(bytes))
        return failure(path, u"writing failed"_s);
    if (::fsync(file.get()) != 0)
        return failure(path, u"syncing failed"_s);
    if (!file.close())
        return failure(path, u"closing failed"_s);
    return std::nullopt;
}

} // namespace

std::optional<WriteError> write(const QString &path, const QByteArray &bytes)
{
    const std::optional<QByteArray> old = read(path);
    if (old == bytes)
        return std::nullopt;
    if (!old && QFileInfo(path).isFile())
        return WriteError{path, u"the file there cannot be read, so it is left as it is"_s};

    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    // The name leaves room for the longest that a file system takes, whatever the length of the file's own.
    // It is nobody else's: in containers and on shared disks several processes have the same number.
    const QByteArray number = QByteArray::number(QRandomGenerator::system()->generate64(), 36);
    const QByteArray temporary = folder + '/' + unfinishedPrefix.toUtf8() + number + ".tmp";

    std::optional<WriteError> error = fill(path, temporary, bytes);
    if (!error && ::rename(temporary.constData(), QFile::encodeName(path).constData()) != 0)
        error = failure(path, u"the old file could not be replaced"_s);
    if (error) {
        ::unlink(temporary.constData());
        return error;
    }
    return syncParent(path);
}

std::optional<QByteArray> read(const QString &path, qint64 maxSize)
{
    // Not a pipe nor a device: opening one could wait for ever.
    const Descriptor descriptor(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {};
    if (!descriptor.isOpen() || ::fstat(descriptor.get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_size > maxSize)
        return std::nullopt;
    // What grows meanwhile is taken as it was; what shrinks is what is left of it.
    QByteArray bytes(status.st_size, Qt::Uninitialized);
    qsizetype length = 0;
    while (length < bytes.size()) {
        const ssize_t count = ::read(descriptor.get(), bytes.data() + length, size_t(bytes.size() - length));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break;
        length += count;
    }
    bytes.truncate(length);
    return bytes;
}

bool removeAll(const QString &path)
{
    const QFileInfo info(path);
    return info.isDir() && !info.isSymLink() ? QDir(path).removeRecursively() : QFile::remove(path);
}

std::optional<WriteError> moveFolder(const QString &from, const QString &to)
{
    struct stat existing = {};
    if (::lstat(QFile::encodeName(to).constData(), &existing) == 0)
        return WriteError{to, u"something has that name already"_s};
    if (::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        return failure(from, u"the folder could not be renamed"_s);
    return syncParent(to);
}

} // namespace quillon::atomic_file
