#include "simulator/DegreesPerMetre.h"

#include "geo/Angle.h"
#include "geo/Ellipsoid.h"
#include "simulator/Trigonometry.h"

#include <cmath>

namespace kestrabel {

SDegreesPerMetre DegreesPerMetre(double dLatitude)
{
    constexpr SEllipsoidRow wgs84 = EllipsoidTable[CEllipsoid::Wgs84];
    constexpr double dFlattening = 1.0 / wgs84.dInvFlattening;
    constexpr double dSquaredEccentricity = dFlattening * (2.0 - dFlattening);
    const SSineCosine latitude = SineCosine(dLatitude * DegreesToRadians);
    const double w2 = 1.0 - dSquaredEccentricity * latitude.dSine * latitude.dSine;
    const double dEastRadius = wgs84.dRadius / std::sqrt(w2); // in the prime vertical
    const double dNorthRadius = dEastRadius * (1.0 - dSquaredEccentricity) / w2;
    return {RadiansToDegrees / dNorthRadius, RadiansToDegrees / (dEastRadius * latitude.dCosine)};
}

} // namespace kestrabel
