#pragma once

#include "geo/Ellipsoid.h"
#include "geo/Position.h"

namespace kestrabel {

/// Ellipsoidal distance and forward azimuth between two positions: the one operation on which every distance,
/// speed and direction of the system rests.
///
/// The method is the iterative inverse solution of T. Vincenty, "Direct and inverse solutions of geodesics on
/// the ellipsoid with application of nested equations", Survey Review 23 (176), 1975, with choices of its own
/// that are part of every published figure and must stay: at most five iterations, ended when the longitude
/// moves by 1e-5 radians or less; the arc cosine for the σ that drives the longitude; a quadrant rule that
/// compares the positions instead of signs.
///
/// Accuracy against exact geodesics, by distance: see README, "Measured". Where one iteration is enough, up
/// to some twenty kilometres, the distance can be off by the square of the flattening: 6 mm in 500 m. Known
/// limits, kept on purpose:
///  - below a few centimetres the arc cosine of a value a bit above 1 can give not-a-number for distance and
///    azimuth; every caller must stand it;
///  - the same for a line due east or west within decimetres of the equator, where the sine of its azimuth
///  can
///    round above 1;
///  - the azimuth of a line with less than 1e-6 radians (6.4 m) of northing says only east or west, and a
///    quadrant that is told by latitudes can turn that of a long, almost level line round;
///  - longitudes are not normalised: a pair across the 180° meridian goes the long way round;
///  - nearly antipodal pairs do not converge in five iterations.
class CDistanceCalculator
{
public:
    CDistanceCalculator() = default;
    /// `cUnit` as in `m_cUnit`; the ellipsoid is copied.
    explicit CDistanceCalculator(const CEllipsoid& ellipsoid, char cUnit = 'k');

    /// The distance from one position to another, in the unit of `m_cUnit`; leaves the forward azimuth in
    /// `m_dAzimuth`. Coincident positions: 0, with azimuth 3π/2. There is no failure result.
    /// A position that the last call already had costs nothing to prepare again, so walking along a track
    /// is cheaper than asking for unrelated pairs; the results are the same to the bit.
    double Distance(const CPosition& from, const CPosition& to);

    /// Replaces the ellipsoid.
    void SetEllipsoid(const CEllipsoid& ellipsoid);
    const CEllipsoid& Ellipsoid() const { return m_ellipsoid; }

    char m_cUnit =
        'k'; ///< 'k' kilometres, 'm' statute miles, 'n' nautical miles, in either case; others: kilometres
    /// Azimuth at the first position of the last call, radians in [0, 2π); a line that leads only metres to
    /// the north can give -π/2.
    double m_dAzimuth = 0.0;

private:
    /// A position on the auxiliary sphere.
    struct SReduced
    {
        CPosition position;
        double phi = 0.0;    ///< latitude, radians
        double lambda = 0.0; ///< longitude, radians
        double sinU = 0.0;   ///< of the reduced latitude U
        double cosU = 1.0;
    };
    struct SPair;

    void Reduce(const CPosition& position, SReduced& reduced) const;
    double Azimuth(const SPair& pair, double lambdaNext) const;

    CEllipsoid m_ellipsoid;
    SReduced m_from; ///< of the last call; the default is the equator's, true on any ellipsoid
    SReduced m_to;
};

} // namespace kestrabel
