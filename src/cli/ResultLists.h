#pragma once

#include "engine/ResultList.h"
#include "model/Event.h"
#include "platform/Progress.h"

#include <span>
#include <vector>

namespace kestrabel {

/// The divisions that a command reports, in the event's order.
using CDivisionSpan = std::span<const CDivision* const>;

/// The results of one division; the fastest is the last.
struct SDivisionResults
{
    const CDivision* pDivision;
    CResultList results;
};

struct SCompetitorResults
{
    const CPerson* pPerson;
    std::vector<SDivisionResults> divisions;
};

/// Each competitor's results in each of the divisions, without those that overlap a faster one. The event's
/// records own the results: they stand as long as the event's track files do.
std::vector<SCompetitorResults> CollectResults(const CEvent& event, CDivisionSpan divisions,
                                               CProgressDisplay& progress);

/// Each division's ranking over all competitors; one without a result has an empty one at the slow end.
std::vector<SDivisionResults> CollectLeaderboards(const CEvent& event, CDivisionSpan divisions,
                                                  CProgressDisplay& progress);

} // namespace kestrabel
