#pragma once

#include "cli/Arguments.h"
#include "cli/Output.h"
#include "cli/ResultLists.h"

namespace kestrabel {

/// `results`: each competitor's runs. The event holds the competitors with their track files.
void PrintResults(const CEvent& event, CDivisionSpan divisions, EFormat format, COutput& output,
                  CProgressDisplay& progress);

/// `leaderboard`: each division's ranking.
void PrintLeaderboard(const CEvent& event, CDivisionSpan divisions, EFormat format, COutput& output,
                      CProgressDisplay& progress);

} // namespace kestrabel
