#pragma once

#include "cli/Output.h"
#include "cli/ResultLists.h"

namespace kestrabel {

/// Each competitor's results as a table, a group for every division: "NAME: DIVISION", or the division alone
/// for a competitor without a name. Competitors without a track file are left out.
void WriteResultsTable(const CEvent& event, const std::vector<SCompetitorResults>& competitors,
                       COutput& output);

/// The rankings as a table, a group for every division. Whoever has no result stands at its end with "-".
void WriteLeaderboardTable(const CEvent& event, const std::vector<SDivisionResults>& leaderboards,
                           COutput& output);

} // namespace kestrabel
