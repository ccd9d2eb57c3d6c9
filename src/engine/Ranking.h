#pragma once

#include "engine/ResultList.h"
#include "model/Event.h"
#include "platform/Progress.h"

namespace kestrabel {

// Four views of the results of an event. A competitor takes part in a division when its name, case included,
// is in the competitor's list; for one who does not, or has no track file of the given index, every view is
// empty. Lists are in result order, the fastest last, and ranks count from the fastest. The results belong to
// the track files' records, whose rank and names the view that was asked last has written.

/// The results of one competitor in a division, of one track file (`nSeries`) or all (-1), without those that
/// overlap a faster one in time: two loggers on one board give one result. Stops at the larger of "Show top n
/// Rows" and the division's averaged runs, but for laps, splits and checkpoints, which all stay.
/// True when at least one was taken.
bool CompetitorDivisionResults(const CEvent& event, const CPerson& person, int nSeries,
                               const CDivision& division, CResultList& results, CProgressDisplay& progress);

/// `CompetitorDivisionResults` of one competitor (`nPerson`) or all (-1) with a track file, in every
/// division: block after block, competitors and divisions from the last to the first.
void AllResults(const CEvent& event, int nPerson, int nSeries, CResultList& results,
                CProgressDisplay& progress);

/// The best result of each of the competitors who takes part, ranked; one without a result stands at the slow
/// end with speed 0.
void DivisionLeaderboard(const CEvent& event, const CObjectArray<CPerson>& persons, const CDivision& division,
                         CResultList& results, CProgressDisplay& progress);

/// The fastest result of one track file of a competitor, with rank 1, or an empty one. False when the
/// competitor does not take part or `nSeries` is -1.
bool CompetitorBestResult(const CEvent& event, const CPerson& person, const CDivision& division, int nSeries,
                          CResultList& results, CProgressDisplay& progress);

} // namespace kestrabel
