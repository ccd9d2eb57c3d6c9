#pragma once

#include "model/TrackPoint.h"

#include <span>
#include <vector>

namespace kestrabel {

/// The order in which points come when each is inserted, one after the other, into a list kept ascending by
/// time: a binary search for its place halves the list, and a point of equal time that it meets gets the new
/// one directly behind it. Which of several equals is met decides their order, so it is not that of a stable
/// sort. Returns indices into `points`. n log n for points mostly in order; about n·√n otherwise.
std::vector<int> TimeOrder(std::span<CTrackPoint* const> points);

} // namespace kestrabel
