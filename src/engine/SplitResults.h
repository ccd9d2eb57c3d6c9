#pragma once

#include "model/Event.h"
#include "platform/Progress.h"

namespace kestrabel {

/// The whole of one track file cut into pieces of a fixed path length (division kind 5): a profile of the
/// recording rather than a best performance.
///
/// A piece ends at the first point whose path reaches the division's metres, at the first point after a gap
/// (whose time it then includes), or at the last point; the next piece starts at that same point. The flags
/// of the points do not matter. All pieces are appended to `results`, by their start time, without a rank.
///
/// Returns false when the track file has no points; one point gives no piece. The points must be derived.
/// Linear. Shows "Calculating " and the division's name.
bool CalculateSplitResults(const CEvent& event, const CPerson& person, const CSeries& series,
                           const CDivision& division, CObjectArray<CResult>& results,
                           CProgressDisplay& progress);

} // namespace kestrabel
