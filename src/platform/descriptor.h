#pragma once

#include <QByteArray>

#include <cerrno>
#include <unistd.h>
#include <utility>

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
    bool close()
    {
        const int closing = std::exchange(m_descriptor, -1);
        return closing < 0 || ::close(closing) == 0;
    }

    /// Writes all of @p bytes; false, with the reason in errno, when not all could be written.
    [[nodiscard]] bool writeAll(const QByteArray &bytes) const
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

private:
    int m_descriptor;
};

} // namespace quillon
