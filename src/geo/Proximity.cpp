#include "geo/Proximity.h"

#include "geo/Angle.h"

#include <cmath>

namespace kestrabel {

namespace {

// Up to 80° of latitude and 1 km the plane is within 0.05 % of the ellipsoid: cos φ changes by tan φ · Δφ,
// of which half counts. Beyond 2 km it is within a fifth, which is enough to know that a point is outside.
constexpr double LargestRadius = 1.0;      // km
constexpr double HighestLatitude = 80.0;   // degrees
constexpr double LowestLatitude = 0.001;   // degrees; lines along the equator are a case of their own
constexpr double LargestDifference = 1.0;  // degrees
constexpr double LargestFlattening = 0.01; // as much as any ellipsoid of the Earth
constexpr double SquaredInside = 0.994;    // of the radius squared: 0.3 % of the radius
constexpr double SquaredOutside = 1.006;
constexpr double SquaredTooNear = 1e-6; // km²: a metre

} // namespace

CProximity::CProximity(const CEllipsoid& ellipsoid, double dRadius)
    : m_calculator(ellipsoid),
      m_dRadius(dRadius),
      m_bPlaneMayServe(dRadius > 0.0 && dRadius <= LargestRadius && ellipsoid.m_dFlattening >= 0.0 &&
                       ellipsoid.m_dFlattening <= LargestFlattening && ellipsoid.m_dRadius > 6e6 &&
                       ellipsoid.m_dRadius < 7e6)
{
}

void CProximity::SetCentre(const CPosition& centre)
{
    constexpr double dMetresToKilometres = 0.001;
    m_centre = centre;
    const double dLatitude = std::abs(centre.m_dLatitude);
    m_bPlaneServes = m_bPlaneMayServe && dLatitude >= LowestLatitude && dLatitude <= HighestLatitude;
    if (!m_bPlaneServes)
        return;
    // The radii of curvature in the prime vertical and in the meridian.
    const CEllipsoid& ellipsoid = m_calculator.Ellipsoid();
    const double f = ellipsoid.m_dFlattening;
    const double sqrE = f * (2.0 - f);
    const double dSine = std::sin(centre.m_dLatitude * DegreesToRadians);
    const double w = 1.0 - sqrE * dSine * dSine;
    const double N = ellipsoid.m_dRadius * dMetresToKilometres / std::sqrt(w);
    m_dEast = N * std::sqrt(1.0 - dSine * dSine) * DegreesToRadians;
    m_dNorth = N * (1.0 - sqrE) / w * DegreesToRadians;
}

bool CProximity::IsWithin(const CPosition& position)
{
    const double dLongitude = position.m_dLongitude - m_centre.m_dLongitude;
    const double dLatitude = position.m_dLatitude - m_centre.m_dLatitude;
    if (m_bPlaneServes && std::abs(dLongitude) < LargestDifference && std::abs(dLatitude) < LargestDifference)
    {
        const double x = dLongitude * m_dEast;
        const double y = dLatitude * m_dNorth;
        const double dSquare = x * x + y * y;
        const double dSquaredRadius = m_dRadius * m_dRadius;
        if (dSquare > SquaredTooNear) {
            if (dSquare > dSquaredRadius * SquaredOutside)
                return false;
            if (dSquare < dSquaredRadius * SquaredInside)
                return true;
        }
    }
    return m_calculator.Distance(position, m_centre) <= m_dRadius;
}

} // namespace kestrabel
