#pragma once

#include <csignal>
#include <sys/resource.h>

namespace quillon {

/// For as long as this lives, no file of the process grows beyond a few bytes: a full disk, as a write meets
/// it.
class FullDisk
{
public:
    explicit FullDisk(rlim_t largestFile)
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{largestFile, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before{};
    void (*m_handler)(int) = SIG_DFL;
};

} // namespace quillon
