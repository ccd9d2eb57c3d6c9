#pragma once

#include "engine/ResultsExport.h"

#include <string>
#include <string_view>

namespace kestrabel {

// The results export as files of CR LF lines, written in place. Each returns what to tell the user: nothing
// when the file was written; the cause text when it could not be opened; the texts below when writing it
// failed. What was written until then stays. -1 as an index means all.

inline constexpr std::string_view CompetitorExportFailure = "Failed to write file";
inline constexpr std::string_view DivisionExportFailure = "Failed to write to result file";

/// The results of a competitor's track file in every division, see `WriteCompetitorResults`.
std::string ExportCompetitorResults(const CEvent& event, int nPerson, int nSeries, std::string_view strPath,
                                    CProgressDisplay& progress);

/// The leaderboard of a division, see `WriteDivisionResults`.
std::string ExportDivisionResults(const CEvent& event, int nDivision, std::string_view strPath,
                                  CProgressDisplay& progress);

/// The best of every division, see `WriteAllDivisions`.
std::string ExportAllDivisions(const CEvent& event, int nPerson, int nSeries, std::string_view strPath,
                               CProgressDisplay& progress);

} // namespace kestrabel
