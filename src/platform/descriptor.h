#pragma once

#include "platform/result.h"

#include <QByteArray>

#include <optional>

namespace quillon {

/// A file descriptor that closes itself; close() tells of late write errors.
class Descriptor
{
public:
    explicit Descriptor(int descriptor = -1) : m_descriptor(descriptor) {}
    Descriptor(Descriptor &&other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~Descriptor() { close(); }

    [[nodiscard]] int get() const { return m_descriptor; }
    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }
    bool close();

    /// Writes all of @p bytes; false, with the reason in errno, when not all could be written.
    [[nodiscard]] bool writeAll(const QByteArray &bytes) const;

    /// Reads up to @p size bytes, to the end of the file if there are fewer; none, with the reason in errno,
    /// on an error.
    [[nodiscard]] std::optional<QByteArray> readUpTo(qint64 size) const;

    /// The whole of the regular file at @p name in the open folder @p folder (or AT_FDCWD), opened with
    /// @p flags besides; told of as @p path. A file of more than @p maxSize bytes, and anything that is no
    /// regular file, is unreadable.
    static Result<QByteArray> readFile(int folder, const QByteArray &name, int flags, qint64 maxSize,
                                       const QString &path);

private:
    int m_descriptor;
};

/// Takes the numbers of standard input, output and error where the program was started without them, so that
/// no file gets one: what is told would be written into it. Reading from and writing to those fails as
/// before. To be called before any file is opened.
void reserveStandardDescriptors();

/// The error of the system call that has just failed: @p step and the system's reason, from errno. Where
/// nothing is there its kind is Missing instead of @p kind, if that is Unreadable.
Error systemError(Error::Kind kind, const QString &path, QStringView step);

} // namespace quillon
