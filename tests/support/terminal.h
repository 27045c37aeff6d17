#pragma once

#include <QByteArray>
#include <QString>

#include <poll.h>
#include <pty.h>
#include <unistd.h>

namespace quillon {

/// A terminal on which a test is the one who reads.
class Terminal
{
public:
    Terminal()
    {
        termios modes = {};
        ::cfmakeraw(&modes); // Otherwise line ends would become two characters.
        ::openpty(&m_master, &m_slave, nullptr, &modes, nullptr);
    }
    Terminal(const Terminal &) = delete;
    Terminal &operator=(const Terminal &) = delete;
    ~Terminal()
    {
        ::close(m_slave);
        ::close(m_master);
    }

    [[nodiscard]] QString path() const { return QString::fromLatin1(::ptsname(m_master)); }

    /// Types @p keys.
    void write(const QByteArray &keys) const
    {
        (void)!::write(m_master, keys.constData(), size_t(keys.size()));
    }

    /// What has been written there since last time.
    [[nodiscard]] QByteArray read() const
    {
        QByteArray all;
        char part[4096];
        for (pollfd ready{m_master, POLLIN, 0}; ::poll(&ready, 1, 100) == 1;)
            all.append(part, ::read(m_master, part, sizeof part));
        return all;
    }

private:
    int m_master = -1;
    int m_slave = -1;
};

} // namespace quillon
