#pragma once

#include "model/Event.h"
#include "platform/Progress.h"

namespace kestrabel {

/// The best runs over a fixed distance or duration of one track file (division kinds 1 and 2).
///
/// From every point that can start one, a window is extended point by point until it reaches the target; no
/// interpolation is made at either end. The windows found are gone through from the fastest down, skipping
/// those that overlap a chosen one in time and, with "One result per run", those of a run that already gave
/// one, until "Show top n Rows" and the number of averaged runs are both met. The chosen ones are appended to
/// `results`, an owning list in result order, with rank 1 for the fastest.
///
/// Returns false when the track file has no points. The points must be derived. Linear in the points for the
/// accumulators that resume, else in points times window length. Shows "Calculating " and the division's
/// name.
bool CalculateWindowResults(const CEvent& event, const CPerson& person, const CSeries& series,
                            const CDivision& division, CObjectArray<CResult>& results,
                            CProgressDisplay& progress);

} // namespace kestrabel
