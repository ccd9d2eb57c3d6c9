#include "platform/PosixProcessStarter.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ; // not declared by every system's headers

namespace kestrabel {

namespace {

/// A program begins with every signal as the system has it, whatever the application blocks or ignores, and
/// with no open files but the standard streams.
class CSpawnSetup
{
public:
    CSpawnSetup()
    {
        sigset_t signals;
        ::sigemptyset(&signals);
        ::posix_spawnattr_init(&m_attributes);
        ::posix_spawnattr_setsigmask(&m_attributes, &signals);
        ::sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&m_attributes, &signals);
        ::posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        ::posix_spawn_file_actions_init(&m_fileActions);
        ::posix_spawn_file_actions_addclosefrom_np(&m_fileActions, STDERR_FILENO + 1);
    }
    ~CSpawnSetup()
    {
        ::posix_spawn_file_actions_destroy(&m_fileActions);
        ::posix_spawnattr_destroy(&m_attributes);
    }
    CSpawnSetup(const CSpawnSetup&) = delete;
    CSpawnSetup& operator=(const CSpawnSetup&) = delete;

    posix_spawnattr_t m_attributes;
    posix_spawn_file_actions_t m_fileActions;
};

bool HasEnded(pid_t nId, int nOptions)
{
    int nStatus = 0;
    pid_t nEnded = 0;
    do {
        nEnded = ::waitpid(nId, &nStatus, nOptions);
    } while (nEnded == -1 && errno == EINTR);
    return nEnded != 0; // its end, or that there is no such program any more
}

/// An argument ends at a NUL: a name that has one would come to the program as another name.
bool HasNul(const std::string& strText)
{
    return strText.find('\0') != std::string::npos;
}

} // namespace

EStart CPosixProcessStarter::Start(std::span<const std::string> arguments)
{
    ForgetEnded();
    if (arguments.empty() || arguments[0].empty() || std::ranges::any_of(arguments, HasNul))
        return EStart::Failed;
    std::vector<std::string> texts(arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& strText : texts)
        pointers.push_back(strText.data());
    pointers.push_back(nullptr);

    const CSpawnSetup setup;
    pid_t nId = 0;
    const int nError = ::posix_spawnp(&nId, pointers[0], &setup.m_fileActions, &setup.m_attributes,
                                      pointers.data(), environ);
    if (nError == ENOSYS)
        return EStart::Impossible;
    if (nError != 0)
        return EStart::Failed;
    m_running.push_back({nId, arguments[0]});
    return EStart::Started;
}

bool CPosixProcessStarter::WaitUntilReady()
{
    if (m_running.empty())
        return true;
    const SProgram program = m_running.back();
    bool bEnded = false;
    // Once its end was seen its number may soon be another program's.
    const auto hasEnded = [&] { return bEnded = bEnded || HasEnded(program.nId, WNOHANG); };
    bool bGoOn = true;
    if (m_wait)
        bGoOn = m_wait(program.strName, hasEnded);
    else
        bEnded = HasEnded(program.nId, 0);
    if (bEnded)
        std::erase_if(m_running, [&](const SProgram& running) { return running.nId == program.nId; });
    return bGoOn;
}

void CPosixProcessStarter::ForgetEnded()
{
    std::erase_if(m_running, [](const SProgram& running) { return HasEnded(running.nId, WNOHANG); });
}

} // namespace kestrabel
