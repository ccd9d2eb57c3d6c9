#pragma once

#include "model/Event.h"
#include "platform/Progress.h"

namespace kestrabel {

/// The best alphas of one track file (division kind 3): out past a point, around, and back past the same
/// point, by the average speed along the track.
///
/// An alpha goes from a start to a point of the next run that comes within the division's proximity of it, or
/// whose step to or from it does, on a path between twice the proximity and the division's metres. A point
/// outside of the event's constraints ends the search in its part of the track. From the fastest down, those
/// that overlap a chosen one in time are skipped, until "Show top n Rows" and the number of averaged runs are
/// both met; with rank 1 for the fastest the chosen ones are appended to `results`, an owning list in result
/// order.
///
/// Returns false when the track file has no points or its bounding box is smaller than the proximity in both
/// directions. Distances are measured on the event's ellipsoid. The points must be derived. Costs points
/// times the points of the next run within the metres; keeps a few numbers per start. Shows "Calculating "
/// and the division's name.
bool CalculateAlphaResults(const CEvent& event, const CPerson& person, const CSeries& series,
                           const CDivision& division, CObjectArray<CResult>& results,
                           CProgressDisplay& progress);

} // namespace kestrabel
