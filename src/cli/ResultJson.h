#pragma once

#include "cli/Output.h"
#include "cli/ResultLists.h"

namespace kestrabel {

/// {"competitors": [{"name", "divisions": [{"division", "results": [fastest first]}]}]}
void WriteResultsJson(const std::vector<SCompetitorResults>& competitors, COutput& output);

/// {"divisions": [{"division", "results": [rank 1 first]}]}
void WriteLeaderboardJson(const std::vector<SDivisionResults>& leaderboards, COutput& output);

} // namespace kestrabel
