#include "platform/descriptor.h"

#include "platform/translated_text.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quillon {

bool Descriptor::close()
{
    const int closing = std::exchange(m_descriptor, -1);
    return closing < 0 || ::close(closing) == 0;
}

bool Descriptor::writeAll(const QByteArray &bytes) const
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count =
            ::write(m_descriptor, bytes.constData() + written, size_t(bytes.size() - written));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        written += count;
    }
    return true;
}

std::optional<QByteArray> Descriptor::readUpTo(qint64 size) const
{
    QByteArray bytes(size, Qt::Uninitialized);
    qsizetype length = 0;
    while (length < bytes.size()) {
        const ssize_t count = ::read(m_descriptor, bytes.data() + length, size_t(bytes.size() - length));
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

Result<QByteArray> Descriptor::readFile(int folder, const QByteArray &name, int flags, qint64 maxSize,
                                        const QString &path)
{
    const auto unreadable = [&path](const QString &reason) {
        return Error{.kind = Error::Kind::Unreadable, .path = path, .reason = reason};
    };
    // Not a pipe nor a device: opening one could wait for ever.
    const Descriptor file(::openat(folder, name.constData(), flags | O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0) {
        const Error error =
            systemError(Error::Kind::Unreadable, path, QUILLON_TR_NOOP("Files", "it cannot be opened"));
        const bool isLink =
            ::fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(status.st_mode);
        return isLink && error.kind == Error::Kind::Missing
                   ? unreadable(QCoreApplication::translate("Files", "it is a link that leads nowhere"))
                   : error;
    }
    if (!S_ISREG(status.st_mode))
        return unreadable(QCoreApplication::translate("Files", "it is no regular file"));
    if (status.st_size > maxSize)
        return unreadable(QCoreApplication::translate("Files", "it is larger than %1 bytes").arg(maxSize));
    // What grows meanwhile is taken as it was; what shrinks is what is left of it.
    std::optional<QByteArray> bytes = file.readUpTo(status.st_size);
    if (!bytes)
        return systemError(Error::Kind::Unreadable, path, QUILLON_TR_NOOP("Files", "it cannot be read"));
    return *std::move(bytes);
}

void reserveStandardDescriptors()
{
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(number, F_GETFD) < 0) // What is opened next gets the lowest number that is free.
            ::open("/dev/null", number == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

Error systemError(Error::Kind kind, const QString &path, QStringView step)
{
    const int number = errno;
    const bool isMissing = kind == Error::Kind::Unreadable && (number == ENOENT || number == ENOTDIR);
    return {.kind = isMissing ? Error::Kind::Missing : kind,
            .path = path,
            .reason =
                u"%1: %2"_s.arg(translated("Files", step), QString::fromLocal8Bit(std::strerror(number)))};
}

} // namespace quillon
