#pragma once

#include "support/TemporaryFolder.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <nlohmann/json.hpp>
#include <set>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace kestrabel::test {

/// What a run of the shipped tool left behind.
struct SToolRun
{
    int nStatus = -1; ///< exit status; 128 and more: killed by a signal
    std::string strOut;
    std::string strErr;

    nlohmann::json Json() const { return nlohmann::json::parse(strOut); }
};

/// Runs the shipped tool as an organiser does, in a folder of its own where the test puts its files.
class CToolTest
{
public:
    /// `strStandardOutput` redirects it to another file than the one that is read back.
    SToolRun Run(const std::vector<std::string>& arguments, const std::string& strStandardOutput = {},
                 const std::vector<std::string>& environment = {}) const
    {
        const std::string strOutFile = m_streams.Path("out");
        const std::string strErrFile = m_streams.Path("err");
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        constexpr int nFlags = O_WRONLY | O_CREAT | O_TRUNC;
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO,
                                         (strStandardOutput.empty() ? strOutFile : strStandardOutput).c_str(),
                                         nFlags, 0600);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, strErrFile.c_str(), nFlags, 0600);
        posix_spawn_file_actions_addchdir_np(&actions, m_folder.Path("").c_str());

        const std::vector<std::string> command = WithProgram(arguments);
        std::vector<std::string> variables = environment;
        variables.emplace_back("PATH=/usr/bin:/bin");
        pid_t nProcess = 0;
        const int nError = posix_spawn(&nProcess, KESTRABEL_CLI, &actions, nullptr, Pointers(command).data(),
                                       Pointers(variables).data());
        posix_spawn_file_actions_destroy(&actions);
        if (nError != 0)
            throw std::system_error(nError, std::generic_category(), KESTRABEL_CLI);

        int nState = 0;
        while (::waitpid(nProcess, &nState, 0) < 0 && errno == EINTR) {
        }
        SToolRun run;
        run.nStatus = WIFEXITED(nState) ? WEXITSTATUS(nState) : 128 + WTERMSIG(nState);
        if (strStandardOutput.empty())
            run.strOut = CTemporaryFolder::Read(strOutFile);
        run.strErr = CTemporaryFolder::Read(strErrFile);
        return run;
    }

    CTemporaryFolder m_folder; ///< the tool's working folder

private:
    static std::vector<std::string> WithProgram(const std::vector<std::string>& arguments)
    {
        std::vector<std::string> command = {KESTRABEL_CLI};
        command.insert(command.end(), arguments.begin(), arguments.end());
        return command;
    }

    static std::vector<char*> Pointers(const std::vector<std::string>& texts)
    {
        std::vector<char*> pointers;
        for (const std::string& strText : texts)
            pointers.push_back(const_cast<char*>(strText.c_str()));
        pointers.push_back(nullptr);
        return pointers;
    }

    CTemporaryFolder m_streams;
};

/// The lines of a text, without line feeds; a last line without one counts too.
inline std::vector<std::string> Lines(const std::string& strText)
{
    std::vector<std::string> lines;
    for (std::size_t nStart = 0; nStart < strText.size();) {
        const std::size_t nEnd = std::min(strText.find('\n', nStart), strText.size());
        lines.push_back(strText.substr(nStart, nEnd - nStart));
        nStart = nEnd + 1;
    }
    return lines;
}

inline std::set<std::string> KeysOf(const nlohmann::json& object)
{
    std::set<std::string> keys;
    for (const auto& item : object.items())
        keys.insert(item.key());
    return keys;
}

} // namespace kestrabel::test
