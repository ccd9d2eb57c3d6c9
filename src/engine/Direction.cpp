#include "engine/Direction.h"

#include "geo/Angle.h"

#include <cmath>
#include <utility>

namespace kestrabel {

double DirectionBetween(const CPosition& from, const CPosition& to)
{
    if (from.m_dLatitude == to.m_dLatitude)
        return to.m_dLongitude <= from.m_dLongitude ? ThreeHalvesPi : HalfPi;
    if (from.m_dLongitude == to.m_dLongitude)
        return to.m_dLatitude < from.m_dLatitude ? Pi : 0.0;
    const double t = std::atan(std::cos(from.m_dLatitude * DegreesToRadians) *
                               (from.m_dLongitude - to.m_dLongitude) / (from.m_dLatitude - to.m_dLatitude));
    if (to.m_dLatitude < from.m_dLatitude)
        return t + Pi;
    return to.m_dLongitude < from.m_dLongitude ? t + TwoPi : t;
}

bool HeadingChanged(double dOne, double dOther, double dThreshold)
{
    if (dOne < dOther)
        std::swap(dOne, dOther);
    const double dDirect = dOne - dOther;
    const double dThroughNorth = dOther + TwoPi - dOne;
    return (dDirect < Pi && dDirect > dThreshold) || (dThroughNorth < Pi && dThroughNorth > dThreshold);
}

double WindAngle(double dDirection, double dWindDegrees)
{
    const double dWind = dWindDegrees * DegreesToRadians;
    if (dDirection > dWind)
        return dDirection <= dWind + Pi ? dDirection - dWind : dWind + TwoPi - dDirection;
    return dWind <= dDirection + Pi ? dWind - dDirection : dDirection + TwoPi - dWind;
}

} // namespace kestrabel
