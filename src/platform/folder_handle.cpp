#include "platform/folder_handle.h"

#include "platform/text_decoding.h"
#include "platform/translated_text.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

/// What came of a system call that gives 0 when all is well.
Result<> result(int status, const QString &path, QStringView step)
{
    return status == 0 ? Result<>() : systemError(Error::Kind::NotDone, path, step);
}

} // namespace

bool isEntryName(QStringView name)
{
    return !name.isEmpty() && !name.contains(u'/') && !name.contains(QChar(u'\0')) &&
           name.toUtf8().size() <= NAME_MAX;
}

Result<FolderHandle> FolderHandle::adopted(int descriptor, const QString &path)
{
    if (descriptor < 0) {
        const bool isNoFolder = errno == ENOTDIR; // Something is there.
        Error error = systemError(Error::Kind::Unreadable, path,
                                  QUILLON_TR_NOOP("Files", "the folder cannot be opened"));
        if (isNoFolder)
            error.kind = Error::Kind::Unreadable;
        return error;
    }
    return FolderHandle(Descriptor(descriptor), path);
}

Result<FolderHandle> FolderHandle::open(const QString &path)
{
    return adopted(::open(QFile::encodeName(path).constData(), folderFlags), path);
}

QString FolderHandle::pathOf(const QByteArray &name) const
{
    return (m_path.endsWith(u'/') ? m_path : m_path + u'/') + exactText(name);
}

Result<QList<FolderHandle::Entry>> FolderHandle::entries() const
{
    QList<Entry> found;
    alignas(dirent64) std::array<char, 32UL * 1024> records;
    ssize_t size = ::lseek(m_descriptor.get(), 0, SEEK_SET);
    while (size >= 0 && (size = ::getdents64(m_descriptor.get(), records.data(), records.size())) > 0) {
        for (ssize_t at = 0; at < size;) {
            const auto *const record = reinterpret_cast<const dirent64 *>(records.data() + at);
            const QByteArrayView name(record->d_name);
            if (name != "." && name != "..")
                found.append({name.toByteArray(), kindOf(*record)});
            at += record->d_reclen;
        }
    }
    if (size < 0)
        return systemError(Error::Kind::Unreadable, m_path,
                           QUILLON_TR_NOOP("Files", "the folder cannot be listed"));
    std::ranges::sort(found, {}, &Entry::name);
    return found;
}

FolderHandle::Kind FolderHandle::kindOf(const dirent64 &record) const
{
    auto mode = mode_t(DTTOIF(record.d_type));
    struct stat status = {};
    // Some file systems leave the kind out of a folder's list.
    if (record.d_type == DT_UNKNOWN &&
        ::fstatat(m_descriptor.get(), record.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0)
        mode = status.st_mode;
    if (S_ISDIR(mode))
        return Kind::Folder;
    return S_ISREG(mode) ? Kind::File : Kind::Other;
}

Result<bool> FolderHandle::isThere(const QByteArray &name) const
{
    struct stat status = {};
    if (::fstatat(m_descriptor.get(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0)
        return true;
    Error error = systemError(Error::Kind::Unreadable, pathOf(name),
                              QUILLON_TR_NOOP("Files", "it cannot be looked at"));
    return error.kind == Error::Kind::Missing ? Result<bool>(false) : Result<bool>(std::move(error));
}

bool FolderHandle::exists(const QByteArray &name) const
{
    return isThere(name).valueOr(true);
}

Result<FolderHandle> FolderHandle::openFolder(const QByteArray &name) const
{
    return adopted(::openat(m_descriptor.get(), name.constData(), folderFlags | O_NOFOLLOW), pathOf(name));
}

Result<FolderHandle> FolderHandle::makeFolder(const QByteArray &name) const
{
    if (::mkdirat(m_descriptor.get(), name.constData(), 0777) != 0)
        return systemError(Error::Kind::NotDone, pathOf(name),
                           QUILLON_TR_NOOP("Files", "the folder could not be made"));
    Result<FolderHandle> folder = openFolder(name);
    if (!folder)
        ::unlinkat(m_descriptor.get(), name.constData(), AT_REMOVEDIR);
    return folder;
}

Result<QByteArray> FolderHandle::read(const QByteArray &name) const
{
    return Descriptor::readFile(m_descriptor.get(), name, O_NOFOLLOW, maxFileSize, pathOf(name));
}

Result<> FolderHandle::write(const QByteArray &name, const QByteArray &bytes) const
{
    const auto failed = [this, &name](QStringView step) {
        return systemError(Error::Kind::NotDone, pathOf(name), step);
    };
    Descriptor file(::openat(m_descriptor.get(), name.constData(),
                             O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
    if (!file.isOpen())
        return failed(QUILLON_TR_NOOP("Files", "the file could not be made"));
    if (!file.writeAll(bytes))
        return failed(QUILLON_TR_NOOP("Files", "writing failed"));
    // One byte more than there should be, so that a longer file differs as well.
    const auto there = ::lseek(file.get(), 0, SEEK_SET) == 0 ? file.readUpTo(bytes.size() + 1) : std::nullopt;
    if (!there)
        return failed(QUILLON_TR_NOOP("Files", "reading it back failed"));
    if (there != bytes)
        return Error{.path = pathOf(name),
                     .reason = QCoreApplication::translate("Files", "what was written reads otherwise")};
    return file.close() ? Result<>() : failed(QUILLON_TR_NOOP("Files", "closing failed"));
}

Result<> FolderHandle::move(const QByteArray &name, const FolderHandle &to, const QByteArray &newName) const
{
    const int from = m_descriptor.get();
    const int target = to.m_descriptor.get();
    const QStringView step = QUILLON_TR_NOOP("Files", "moving failed");
    const int status = ::renameat2(from, name.constData(), target, newName.constData(), RENAME_NOREPLACE);
    if (status == 0 || (errno != EINVAL && errno != ENOSYS))
        return result(status, pathOf(name), step);
    // This file system cannot promise not to replace, so that is looked at first.
    if (to.exists(newName))
        return Error{
            .path = pathOf(name),
            .reason = QCoreApplication::translate("Files", "moving failed: something has that name already")};
    return result(::renameat(from, name.constData(), target, newName.constData()), pathOf(name), step);
}

Result<> FolderHandle::swap(const QByteArray &name, const QByteArray &other) const
{
    const int folder = m_descriptor.get();
    return result(::renameat2(folder, name.constData(), folder, other.constData(), RENAME_EXCHANGE),
                  pathOf(name), QUILLON_TR_NOOP("Files", "swapping failed"));
}

Result<> FolderHandle::sync() const
{
    // Some file systems cannot sync a folder and say EINVAL; there is nothing more to be done there.
    if (::fsync(m_descriptor.get()) == 0 || errno == EINVAL)
        return {};
    return systemError(Error::Kind::NotYetSafe, m_path,
                       QUILLON_TR_NOOP("Files", "syncing the folder failed"));
}

Result<> FolderHandle::syncFiles() const
{
    const auto found = entries();
    if (!found)
        return found.error();
    for (const Entry &entry : *found) {
        if (entry.kind != Kind::File)
            continue;
        const Descriptor file(
            ::openat(m_descriptor.get(), entry.name.constData(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
        if (!file.isOpen() || ::fsync(file.get()) != 0)
            return systemError(Error::Kind::NotDone, pathOf(entry.name),
                               QUILLON_TR_NOOP("Files", "syncing failed"));
    }
    return sync();
}

Result<> FolderHandle::syncFileSystem() const
{
    return result(::syncfs(m_descriptor.get()), m_path, QUILLON_TR_NOOP("Files", "syncing failed"));
}

} // namespace quillon
