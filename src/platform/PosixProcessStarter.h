#pragma once

#include "platform/ProcessStarter.h"

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace kestrabel {

/// Starts programs where the system can spawn them directly. A started program runs on when this ends.
class CPosixProcessStarter : public CProcessStarter
{
public:
    /// Returns when `hasEnded` does or the user wants to go on; false when the user cancels. A window shows a
    /// box meanwhile and asks `hasEnded` now and then.
    using CWait = std::function<bool(const std::string& strProgram, const std::function<bool()>& hasEnded)>;

    /// Without `wait` the waiting only ends with the program.
    explicit CPosixProcessStarter(CWait wait = {}) : m_wait(std::move(wait)) {}
    ~CPosixProcessStarter() override { ForgetEnded(); }
    CPosixProcessStarter(const CPosixProcessStarter&) = delete;
    CPosixProcessStarter& operator=(const CPosixProcessStarter&) = delete;

    EStart Start(std::span<const std::string> arguments) override;
    bool WaitUntilReady() override;

private:
    struct SProgram
    {
        pid_t nId;
        std::string strName;
    };

    void ForgetEnded();

    CWait m_wait;
    std::vector<SProgram> m_running; ///< whose end was not seen yet, the one started last behind
};

} // namespace kestrabel
