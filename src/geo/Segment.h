#pragma once

#include "geo/GeoRect.h"
#include "geo/Position.h"

#include <optional>

namespace kestrabel {

/// True when a box and the box that two positions span overlap, bounds included.
bool SegmentBoxesOverlap(const CGeoRect& box, const CPosition& from, const CPosition& to);

/// The distance in degrees from a position to the line between two others, on the plane of longitude and
/// latitude: a degree of longitude counts as much as one of latitude. Nothing when the foot of the
/// perpendicular lies outside the line, or when its ends coincide.
std::optional<double> DistanceToSegment(const CPosition& position, const CPosition& from,
                                        const CPosition& to);

} // namespace kestrabel
