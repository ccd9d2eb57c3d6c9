#include "geo/GeoRect.h"

#include "geo/Angle.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kestrabel {

CGeoRect CGeoRect::Empty()
{
    constexpr double dLargest = std::numeric_limits<double>::max();
    return {.m_dWest = dLargest, .m_dNorth = -dLargest, .m_dEast = -dLargest, .m_dSouth = dLargest};
}

void CGeoRect::Extend(const CPosition& position)
{
    m_dWest = std::min(m_dWest, position.m_dLongitude);
    m_dEast = std::max(m_dEast, position.m_dLongitude);
    m_dNorth = std::max(m_dNorth, position.m_dLatitude);
    m_dSouth = std::min(m_dSouth, position.m_dLatitude);
}

void CGeoRect::Extend(const CGeoRect& other)
{
    m_dWest = std::min(m_dWest, other.m_dWest);
    m_dEast = std::max(m_dEast, other.m_dEast);
    m_dNorth = std::max(m_dNorth, other.m_dNorth);
    m_dSouth = std::min(m_dSouth, other.m_dSouth);
}

void CGeoRect::Scale(double dFactor)
{
    const CPosition centre = Centre();
    const double dHalfWidth = Width() / 2.0 * dFactor;
    const double dHalfHeight = Height() / 2.0 * dFactor;
    *this = {.m_dWest = centre.m_dLongitude - dHalfWidth,
             .m_dNorth = centre.m_dLatitude + dHalfHeight,
             .m_dEast = centre.m_dLongitude + dHalfWidth,
             .m_dSouth = centre.m_dLatitude - dHalfHeight};
}

CGeoRect BoxAround(const CPosition& centre, double dRadius)
{
    const double dLatitude = dRadius * DegreesPerKilometre;
    const double dLongitude = dLatitude / std::cos(centre.m_dLatitude * DegreesToRadians);
    return {.m_dWest = centre.m_dLongitude - dLongitude,
            .m_dNorth = centre.m_dLatitude + dLatitude,
            .m_dEast = centre.m_dLongitude + dLongitude,
            .m_dSouth = centre.m_dLatitude - dLatitude};
}

} // namespace kestrabel
