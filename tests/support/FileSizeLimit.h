#pragma once

#include <csignal>
#include <sys/resource.h>

namespace kestrabel::test {

/// Lets files grow to so many bytes only, as a full disk does.
class CFileSizeLimit
{
public:
    explicit CFileSizeLimit(rlim_t nBytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        m_pHandler = ::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = m_before;
        limit.rlim_cur = nBytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~CFileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        ::signal(SIGXFSZ, m_pHandler);
    }
    CFileSizeLimit(const CFileSizeLimit&) = delete;
    CFileSizeLimit& operator=(const CFileSizeLimit&) = delete;

private:
    rlimit m_before = {};
    void (*m_pHandler)(int) = nullptr;
};

} // namespace kestrabel::test
