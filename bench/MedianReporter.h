#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

namespace kestrabel {

/// Keeps the times of all repetitions beside printing them.
class CMedianReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration)
                m_times[run.run_name.function_name].push_back(run.GetAdjustedCPUTime());
        }
    }

    /// 0 for a benchmark that did not run.
    double Median(const std::string& strName)
    {
        std::vector<double>& times = m_times[strName];
        if (times.empty())
            return 0.0;
        std::sort(times.begin(), times.end());
        return times[times.size() / 2];
    }

private:
    std::map<std::string, std::vector<double>> m_times;
};

} // namespace kestrabel
