#pragma once

#include <QByteArray>
#include <QString>

#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace quillon {

/// A terminal on which a test is the one who reads.
class Terminal
{
public:
    Terminal() : m_master(::posix_openpt(O_RDWR | O_NOCTTY)), m_slave(openSlave())
    {
        termios modes = {};
        ::tcgetattr(m_slave, &modes);
        ::cfmakeraw(&modes); // Otherwise line ends would become two characters.
        ::tcsetattr(m_slave, TCSANOW, &modes);
    }
    Terminal(const Terminal &) = delete;
    Terminal &operator=(const Terminal &) = delete;
    ~Terminal()
    {
        ::close(m_slave);
        ::close(m_master);
    }

    [[nodiscard]] QString path() const { return QString::fromLatin1(::ptsname(m_master)); }

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
    [[nodiscard]] int openSlave() const
    {
        ::grantpt(m_master);
        ::unlockpt(m_master);
        return ::open(::ptsname(m_master), O_RDWR | O_NOCTTY);
    }

    int m_master;
    int m_slave;
};

} // namespace quillon
