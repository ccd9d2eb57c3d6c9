// Runs two commands in turn, A B A B …, and prints the median of the ratios of their processor times, pair by
// pair, so that a machine that gets slower or faster in between does not matter. With one command only: its
// median processor time and its peak memory.
//
//     compare-processes RUNS "LABEL" "COMMAND A" ["COMMAND B"]
//
// Commands are split at blanks; their output is thrown away. Prints one line:
//     LABEL | A seconds | B seconds | ratio | A peak memory in kB

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <iomanip>
#include <iostream>
#include <spawn.h>
#include <sstream>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

struct SRun
{
    double dSeconds = 0.0;
    long nPeakKilobytes = 0;
};

std::vector<std::string> SplitAtBlanks(const std::string& strCommand)
{
    std::istringstream words(strCommand);
    std::vector<std::string> arguments;
    for (std::string strWord; words >> strWord;)
        arguments.push_back(strWord);
    return arguments;
}

double Seconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

SRun RunOnce(const std::string& strCommand)
{
    std::vector<std::string> arguments = SplitAtBlanks(strCommand);
    std::vector<char*> pointers;
    for (std::string& strArgument : arguments)
        pointers.push_back(strArgument.data());
    pointers.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t nProcess = 0;
    if (const int nError = posix_spawnp(&nProcess, pointers[0], &actions, nullptr, pointers.data(), environ))
    {
        std::cerr << pointers[0] << ": " << std::strerror(nError) << '\n';
        std::exit(1);
    }
    posix_spawn_file_actions_destroy(&actions);
    int nStatus = 0;
    rusage usage = {};
    wait4(nProcess, &nStatus, 0, &usage);
    if (!WIFEXITED(nStatus) || WEXITSTATUS(nStatus) != 0) {
        std::cerr << "failed: " << strCommand << '\n';
        std::exit(1);
    }
    return {Seconds(usage.ru_utime) + Seconds(usage.ru_stime), usage.ru_maxrss};
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t nMiddle = values.size() / 2;
    return values.size() % 2 == 1 ? values[nMiddle] : (values[nMiddle - 1] + values[nMiddle]) / 2.0;
}

} // namespace

int main(int nArguments, char** pArguments)
{
    if (nArguments < 4 || nArguments > 5) {
        std::cerr << "usage: compare-processes RUNS LABEL COMMAND [OTHER COMMAND]\n";
        return 2;
    }
    const int nRuns = std::max(1, std::atoi(pArguments[1]));
    const std::string strOne = pArguments[3];
    const std::string strOther = nArguments == 5 ? pArguments[4] : "";
    std::vector<double> one;
    std::vector<double> other;
    std::vector<double> ratios;
    std::vector<double> memory;
    for (int nRun = -1; nRun < nRuns; ++nRun) {
        const SRun a = RunOnce(strOne);
        const SRun b = strOther.empty() ? SRun() : RunOnce(strOther);
        if (nRun < 0)
            continue; // fills the file cache
        one.push_back(a.dSeconds);
        other.push_back(b.dSeconds);
        ratios.push_back(a.dSeconds / b.dSeconds);
        memory.push_back(static_cast<double>(a.nPeakKilobytes));
    }
    std::cout << std::fixed << std::setprecision(3) << pArguments[2] << " | " << Median(one) << " s | ";
    if (strOther.empty())
        std::cout << "- | - | ";
    else
        std::cout << Median(other) << " s | " << Median(ratios) << " | ";
    std::cout << std::setprecision(0) << Median(memory) << " kB\n";
    return 0;
}
