#pragma once

#include "geo/DistanceCalculator.h"

namespace kestrabel {

/// Tells whether positions lie within a radius of a centre, as the ellipsoidal distance says it.
///
/// Millions of fixes are asked about, and nearly all are clearly inside or outside. The plane that touches
/// the ellipsoid at the centre settles those; near the edge, below a metre (where a distance can be
/// not-a-number) and wherever the plane is no good, the distance itself decides. The answers are those of
/// `CDistanceCalculator::Distance(position, centre) <= radius`, always.
class CProximity
{
public:
    /// `dRadius` in km.
    CProximity(const CEllipsoid& ellipsoid, double dRadius);

    void SetCentre(const CPosition& centre);
    bool IsWithin(const CPosition& position);

private:
    CDistanceCalculator m_calculator;
    double m_dRadius; ///< km
    CPosition m_centre;
    bool m_bPlaneMayServe;       ///< for this radius and ellipsoid
    bool m_bPlaneServes = false; ///< for this centre too
    double m_dEast = 0.0;        ///< km per degree of longitude at the centre
    double m_dNorth = 0.0;       ///< km per degree of latitude at the centre
};

} // namespace kestrabel
