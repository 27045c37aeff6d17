#include "platform/folder_handle.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

FolderHandle::Failure failure(const QString &step)
{
    return u"%1: %2"_s.arg(step, QString::fromLocal8Bit(std::strerror(errno)));
}

/// Reads up to @p size bytes, to the end of the file if there are fewer; none on an error.
std::optional<QByteArray> readAll(const Descriptor &file, qint64 size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    qsizetype count = 0;
    while (count < bytes.size()) {
        const ssize_t read = ::read(file.get(), bytes.data() + count, size_t(bytes.size() - count));
        if (read < 0 && errno == EINTR)
            continue;
        if (read < 0)
            return std::nullopt;
        if (read == 0)
            break;
        count += read;
    }
    bytes.truncate(count);
    return bytes;
}

} // namespace

std::optional<FolderHandle> FolderHandle::adopted(int descriptor)
{
    return descriptor < 0 ? std::nullopt : std::optional(FolderHandle(Descriptor(descriptor)));
}

std::optional<FolderHandle> FolderHandle::open(const QString &path)
{
    return adopted(::open(QFile::encodeName(path).constData(), folderFlags));
}

QList<FolderHandle::Entry> FolderHandle::entries() const
{
    QList<Entry> found;
    alignas(dirent64) std::array<char, 32UL * 1024> records;
    ::lseek(m_descriptor.get(), 0, SEEK_SET);
    ssize_t size = 0;
    while ((size = ::getdents64(m_descriptor.get(), records.data(), records.size())) > 0) {
        for (ssize_t at = 0; at < size;) {
            const auto *const record = reinterpret_cast<const dirent64 *>(records.data() + at);
            const QByteArrayView name(record->d_name);
            if (name != "." && name != "..")
                found.append({name.toByteArray(), kindOf(*record)});
            at += record->d_reclen;
        }
    }
    std::ranges::sort(found, {}, &Entry::name);
    return found;
}

FolderHandle::Kind FolderHandle::kindOf(const dirent64 &record) const
{
    mode_t mode = DTTOIF(record.d_type);
    struct stat status = {};
    // Some file systems leave the kind out of a folder's list.
    if (record.d_type == DT_UNKNOWN &&
        ::fstatat(m_descriptor.get(), record.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0)
        mode = status.st_mode;
    if (S_ISDIR(mode))
        return Kind::Folder;
    return S_ISREG(mode) ? Kind::File : Kind::Other;
}

bool FolderHandle::exists(const QByteArray &name) const
{
    struct stat status = {};
    return ::fstatat(m_descriptor.get(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

std::optional<FolderHandle> FolderHandle::openFolder(const QByteArray &name) const
{
    return adopted(::openat(m_descriptor.get(), name.constData(), folderFlags | O_NOFOLLOW));
}

std::optional<FolderHandle> FolderHandle::makeFolder(const QByteArray &name) const
{
    return ::mkdirat(m_descriptor.get(), name.constData(), 0777) == 0 ? openFolder(name) : std::nullopt;
}

std::optional<QByteArray> FolderHandle::read(const QByteArray &name) const
{
    // Not a pipe nor a device: opening one could wait for ever.
    const Descriptor file(
        ::openat(m_descriptor.get(), name.constData(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_size > maxFileSize)
        return std::nullopt;
    return readAll(file, status.st_size);
}

FolderHandle::Failure FolderHandle::write(const QByteArray &name, const QByteArray &bytes) const
{
    Descriptor file(::openat(m_descriptor.get(), name.constData(),
                             O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
    if (!file.isOpen())
        return failure(u"the file could not be made"_s);
    if (!file.writeAll(bytes))
        return failure(u"writing failed"_s);
    // One byte more than there should be, so that a longer file differs as well.
    if (::lseek(file.get(), 0, SEEK_SET) != 0 || readAll(file, bytes.size() + 1) != bytes)
        return u"what was written reads otherwise"_s;
    return file.close() ? std::nullopt : failure(u"closing failed"_s);
}

FolderHandle::Failure FolderHandle::move(const QByteArray &name, const FolderHandle &to,
                                         const QByteArray &newName) const
{
    const int from = m_descriptor.get();
    if (::renameat2(from, name.constData(), to.m_descriptor.get(), newName.constData(), RENAME_NOREPLACE) ==
        0)
        return std::nullopt;
    if (errno != EINVAL && errno != ENOSYS)
        return failure(u"moving failed"_s);
    // This file system cannot promise not to replace, so that is looked at first.
    if (to.exists(newName))
        return u"moving failed: something has that name already"_s;
    return ::renameat(from, name.constData(), to.m_descriptor.get(), newName.constData()) == 0
               ? std::nullopt
               : failure(u"moving failed"_s);
}

FolderHandle::Failure FolderHandle::swap(const QByteArray &name, const QByteArray &other) const
{
    const int folder = m_descriptor.get();
    return ::renameat2(folder, name.constData(), folder, other.constData(), RENAME_EXCHANGE) == 0
               ? std::nullopt
               : failure(u"swapping failed"_s);
}

FolderHandle::Failure FolderHandle::sync() const
{
    // Some file systems cannot sync a folder and say EINVAL; there is nothing more to be done there.
    return ::fsync(m_descriptor.get()) == 0 || errno == EINVAL ? std::nullopt : failure(u"syncing failed"_s);
}

FolderHandle::Failure FolderHandle::syncFiles() const
{
    for (const Entry &entry : entries()) {
        if (entry.kind != Kind::File)
            continue;
        const Descriptor file(
            ::openat(m_descriptor.get(), entry.name.constData(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
        if (!file.isOpen() || ::fsync(file.get()) != 0)
            return failure(u"syncing failed"_s);
    }
    return sync();
}

FolderHandle::Failure FolderHandle::syncFileSystem() const
{
    return ::syncfs(m_descriptor.get()) == 0 ? std::nullopt : failure(u"syncing failed"_s);
}

} // namespace quillon
