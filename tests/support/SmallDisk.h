#pragma once

#include <csignal>
#include <sys/resource.h>

namespace kestrabel::test {

/// As long as it lives no file may grow past the limit, as on a disk with that much room left.
class CSmallDisk
{
public:
    explicit CSmallDisk(rlim_t nBytes) : m_pOldHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_old);
        const rlimit limit{.rlim_cur = nBytes, .rlim_max = m_old.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~CSmallDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_pOldHandler);
    }
    CSmallDisk(const CSmallDisk&) = delete;
    CSmallDisk& operator=(const CSmallDisk&) = delete;

private:
    rlimit m_old = {};
    void (*m_pOldHandler)(int);
};

} // namespace kestrabel::test
