#pragma once

#include "support/TemporaryFolder.h"

#include <fcntl.h>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <sys/wait.h>
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
                 std::vector<std::string> environment = {}) const
    {
        const std::string strOut = strStandardOutput.empty() ? m_streams.Path("out") : strStandardOutput;
        const std::string strErr = m_streams.Path("err");
        std::vector<std::string> command = {KESTRABEL_CLI};
        command.insert(command.end(), arguments.begin(), arguments.end());
        environment.emplace_back("PATH=/usr/bin:/bin");
        const pid_t nProcess = ::fork();
        if (nProcess == 0) {
            constexpr int nFlags = O_WRONLY | O_CREAT | O_TRUNC;
            ::dup2(::open("/dev/null", O_RDONLY), STDIN_FILENO);
            ::dup2(::open(strOut.c_str(), nFlags, 0600), STDOUT_FILENO);
            ::dup2(::open(strErr.c_str(), nFlags, 0600), STDERR_FILENO);
            std::filesystem::current_path(m_folder.Path(""));
            ::execve(KESTRABEL_CLI, Pointers(command).data(), Pointers(environment).data());
            ::_exit(127);
        }
        int nState = 0;
        ::waitpid(nProcess, &nState, 0);
        return {WIFEXITED(nState) ? WEXITSTATUS(nState) : 128 + WTERMSIG(nState),
                strStandardOutput.empty() ? CTemporaryFolder::Read(strOut) : "",
                CTemporaryFolder::Read(strErr)};
    }

    CTemporaryFolder m_folder; ///< the tool's working folder

private:
    static std::vector<char*> Pointers(std::vector<std::string>& texts)
    {
        std::vector<char*> pointers;
        for (std::string& strText : texts)
            pointers.push_back(strText.data());
        pointers.push_back(nullptr);
        return pointers;
    }

    CTemporaryFolder m_streams;
};

/// The lines of a text, without line feeds; a last line without one counts too.
inline std::vector<std::string> Lines(const std::string& strText)
{
    std::vector<std::string> lines;
    std::istringstream text(strText);
    for (std::string strLine; std::getline(text, strLine);)
        lines.push_back(strLine);
    return lines;
}

/// The words of a command line; those with blanks stand between apostrophes.
inline std::vector<std::string> Words(const std::string& strCommandLine)
{
    std::vector<std::string> words;
    std::istringstream text(strCommandLine);
    for (std::string strWord; text >> std::quoted(strWord, '\'');)
        words.push_back(strWord);
    return words;
}

inline std::set<std::string> KeysOf(const nlohmann::json& object)
{
    std::set<std::string> keys;
    for (const auto& item : object.items())
        keys.insert(item.key());
    return keys;
}

} // namespace kestrabel::test
