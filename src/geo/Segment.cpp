#include "geo/Segment.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

bool SegmentBoxesOverlap(const CGeoRect& box, const CPosition& from, const CPosition& to)
{
    return std::max(from.m_dLatitude, to.m_dLatitude) >= box.m_dSouth &&
           std::min(from.m_dLatitude, to.m_dLatitude) <= box.m_dNorth &&
           std::max(from.m_dLongitude, to.m_dLongitude) >= box.m_dWest &&
           std::min(from.m_dLongitude, to.m_dLongitude) <= box.m_dEast;
}

std::optional<double> DistanceToSegment(const CPosition& position, const CPosition& from, const CPosition& to)
{
    const double x = to.m_dLongitude - from.m_dLongitude;
    const double y = to.m_dLatitude - from.m_dLatitude;
    const double t =
        ((position.m_dLongitude - from.m_dLongitude) * x + (position.m_dLatitude - from.m_dLatitude) * y) /
        (x * x + y * y);
    if (!(t >= 0.0 && t <= 1.0)) // coincident ends give not-a-number
        return std::nullopt;
    const double dx = position.m_dLongitude - (from.m_dLongitude + t * x);
    const double dy = position.m_dLatitude - (from.m_dLatitude + t * y);
    return std::sqrt(dx * dx + dy * dy);
}

} // namespace kestrabel
