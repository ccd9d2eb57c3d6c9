#pragma once

#include "support/TemporaryFolder.h"

#include <chrono>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace kestrabel::test {

/// The content of a file; the time at which a GPX file says that it was written is taken out.
inline std::string ContentOf(const std::string& strPath)
{
    constexpr std::size_t nHead = 600;
    std::string strText = CTemporaryFolder::Read(strPath);
    const std::size_t nTime = strText.find("<time>");
    if (nTime < nHead)
        strText.erase(nTime, strText.find("</time>") - nTime);
    return strText;
}

/// Kills children that save to the path without end, `save(0)` and `save(1)` in turn. What stands there after
/// each of the `nKills` kills must be the whole file of one or of the other.
inline void KillWhileSaving(const std::string& strPath, int nKills,
                            const std::function<void(int nContent)>& save)
{
    save(1);
    const std::string strSecond = ContentOf(strPath);
    // The kills fall into the first few saves, however fast the machine is.
    using CClock = std::chrono::steady_clock;
    const CClock::time_point before = CClock::now();
    save(0);
    const auto longest = 5 * std::chrono::duration_cast<std::chrono::microseconds>(CClock::now() - before);
    const std::string strFirst = ContentOf(strPath);
    ASSERT_TRUE(strFirst != strSecond);

    std::mt19937 random(7);
    bool bSecondSeen = false;
    for (int i = 0; i < nKills || (!bSecondSeen && i < 2000); ++i) { // a busy machine starts children late
        const pid_t nChild = ::fork();
        if (nChild == 0) {
            for (int nSave = 1;; ++nSave)
                save(nSave % 2);
        }
        std::this_thread::sleep_for(longest * (static_cast<double>(random() % 1000) / 1000.0));
        ::kill(nChild, SIGKILL);
        ::waitpid(nChild, nullptr, 0);
        const std::string bytes = ContentOf(strPath);
        ASSERT_TRUE(bytes == strFirst || bytes == strSecond) << "neither, after kill " << i;
        bSecondSeen |= bytes == strSecond;
    }
    EXPECT_TRUE(bSecondSeen) << "no child came to save";
}

} // namespace kestrabel::test
