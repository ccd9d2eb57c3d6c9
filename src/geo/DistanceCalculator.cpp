#include "geo/DistanceCalculator.h"

#include "geo/Angle.h"

#include <algorithm>
#include <cmath>
#include <utility>

// Notation as in the paper: φ latitude, λ longitude difference on the auxiliary sphere, L the one on the
// ellipsoid, U reduced latitude, σ angular distance, σm the angle from the equator to the middle of the line,
// α azimuth of the geodesic at the equator, a and b the semi-axes, f the flattening.

namespace kestrabel {

namespace {

constexpr int MaxIterations = 5;
constexpr double LongitudeTolerance = 1e-5; // radians
constexpr double AzimuthTolerance = 1e-6;   // below it the line counts as due east or west

constexpr double MetresToKilometres = 0.001;
constexpr double KilometresToStatuteMiles = 0.621371192;
constexpr double KilometresToNauticalMiles = 0.5399568034557235;

double InUnit(double dKilometres, char cUnit)
{
    switch (cUnit) {
    case 'm':
    case 'M': return dKilometres * KilometresToStatuteMiles;
    case 'n':
    case 'N': return dKilometres * KilometresToNauticalMiles;
    default: return dKilometres;
    }
}

} // namespace

/// Two reduced positions and what stays the same while the longitude is iterated.
struct CDistanceCalculator::SPair
{
    const SReduced& from;
    const SReduced& to;
    double L = to.lambda - from.lambda;
    double sinU1sinU2 = from.sinU * to.sinU;
    double cosU1cosU2 = from.cosU * to.cosU;
    double twoSinU1sinU2 = 2.0 * sinU1sinU2;
    double sinU2cosU1 = to.sinU * from.cosU;
    double sinU1cosU2 = from.sinU * to.cosU;

    /// Where the line is for one λ.
    struct SState
    {
        double sinLambda;
        double sqrSinSigma;
        double cosSigma;
    };

    SState At(double lambda) const
    {
        const double cosLambda = std::cos(lambda);
        const double sinLambda = std::sin(lambda);
        const double y = sinU2cosU1 - sinU1cosU2 * cosLambda;
        return {.sinLambda = sinLambda,
                .sqrSinSigma = y * y + sinLambda * sinLambda * to.cosU * to.cosU,
                .cosSigma = sinU1sinU2 + cosU1cosU2 * cosLambda};
    }
};

namespace {

/// cos(asin(x)) to within a unit in the last place and in a fifth of the time. The cosine of the double next
/// to π/2 is kept for ±1: a line along the equator divides by its square. Beyond ±1 it is not a number, as
/// there.
double CosOfArcSine(double x)
{
    constexpr double dCosOfHalfPi = 6.123233995736766e-17;
    return std::abs(x) == 1.0 ? dCosOfHalfPi : std::sqrt((1.0 - x) * (1.0 + x));
}

double CFactor(double f, double cosAlpha, double sqrCosAlpha)
{
    return ((4.0 - 3.0 * sqrCosAlpha) * f + 4.0) * cosAlpha * cosAlpha * f * 0.0625;
}

} // namespace

CDistanceCalculator::CDistanceCalculator(const CEllipsoid& ellipsoid, char cUnit)
    : m_cUnit(cUnit), m_ellipsoid(ellipsoid)
{
}

void CDistanceCalculator::SetEllipsoid(const CEllipsoid& ellipsoid)
{
    m_ellipsoid = ellipsoid;
    m_from = {};
    m_to = {};
}

void CDistanceCalculator::Reduce(const CPosition& position, SReduced& reduced) const
{
    if (reduced.position == position)
        return;
    reduced.position = position;
    reduced.phi = position.m_dLatitude * DegreesToRadians;
    reduced.lambda = position.m_dLongitude * DegreesToRadians;
    const double u = std::atan((1.0 - m_ellipsoid.m_dFlattening) * std::tan(reduced.phi));
    reduced.sinU = std::sin(u);
    reduced.cosU = std::cos(u);
}

double CDistanceCalculator::Distance(const CPosition& from, const CPosition& to)
{
    if (from == m_to.position)
        std::swap(m_from, m_to); // the next step of a walk
    Reduce(from, m_from);
    Reduce(to, m_to);
    const bool bCoincide = m_from.phi == m_to.phi && m_from.lambda == m_to.lambda;

    const double f = m_ellipsoid.m_dFlattening;
    const double a = m_ellipsoid.m_dRadius;
    const double b = (1.0 - f) * a;
    const SPair pair{.from = m_from, .to = m_to};

    double lambdaPrevious = pair.L;
    SPair::SState state = pair.At(lambdaPrevious);
    double lambdaNext = lambdaPrevious;
    double s = 0.0;
    for (int nIteration = 1;; ++nIteration) {
        // λ from the state so far
        double sinSigma = std::sqrt(state.sqrSinSigma);
        double sinAlpha = state.sqrSinSigma == 0.0 ? 0.0 : state.sinLambda * pair.cosU1cosU2 / sinSigma;
        double cosAlpha = CosOfArcSine(sinAlpha);
        double sqrCosAlpha = cosAlpha * cosAlpha;
        double cos2SigmaM = sqrCosAlpha == 0.0 ? 0.0 : state.cosSigma - pair.twoSinU1sinU2 / sqrCosAlpha;
        double C = CFactor(f, cosAlpha, sqrCosAlpha);
        // An antipode's cosine can round to a bit below -1; the result need not be right there, but finite.
        const auto Longitude = [&](const SPair::SState& at) {
            return pair.L + (1.0 - C) * f * sinAlpha *
                                (std::acos(std::max(at.cosSigma, -1.0)) +
                                 C * sinSigma *
                                     (cos2SigmaM + C * at.cosSigma * (2.0 * cos2SigmaM * cos2SigmaM - 1.0)));
        };
        const double lambda = Longitude(state);

        // the state at that λ
        state = pair.At(lambda);
        sinSigma = std::sqrt(state.sqrSinSigma);
        double sigma = std::atan(sinSigma / state.cosSigma);
        if (sigma < 0.0)
            sigma += Pi;
        sinAlpha = state.sqrSinSigma == 0.0 ? 0.0 : state.sinLambda * pair.cosU1cosU2 / sinSigma;
        cosAlpha = CosOfArcSine(sinAlpha);
        sqrCosAlpha = cosAlpha * cosAlpha;
        cos2SigmaM = state.cosSigma - pair.twoSinU1sinU2 / sqrCosAlpha;
        C = CFactor(f, cosAlpha, sqrCosAlpha);

        // Not-a-number ends the loop too: nothing can become of it any more.
        const bool bMoves = std::abs(lambdaPrevious - lambda) > LongitudeTolerance;
        if (bMoves && nIteration < MaxIterations) {
            lambdaPrevious = lambda;
            continue;
        }

        // The distance and the azimuth's λ are wanted of the last iteration only.
        lambdaNext = Longitude(state);
        const double sqrU = sqrCosAlpha * (a * a - b * b) / (b * b);
        const double A =
            1.0 + sqrU * 6.103515625e-05 * (4096.0 + sqrU * (-768.0 + sqrU * (320.0 - 175.0 * sqrU)));
        const double B = sqrU * 0.0009765625 * (256.0 + sqrU * (-128.0 + sqrU * (74.0 - 47.0 * sqrU)));
        const double sqrCos2SigmaM = cos2SigmaM * cos2SigmaM;
        const double deltaSigma = B * sinSigma *
                                  (cos2SigmaM + B / 4.0 *
                                                    (state.cosSigma * (2.0 * sqrCos2SigmaM - 1.0) -
                                                     B / 6.0 * cos2SigmaM * (4.0 * state.sqrSinSigma - 3.0) *
                                                         (4.0 * sqrCos2SigmaM - 3.0)));
        s = bCoincide ? 0.0 : b * A * (sigma - deltaSigma);
        break;
    }
    m_dAzimuth = Azimuth(pair, lambdaNext);
    return InUnit(s * MetresToKilometres, m_cUnit);
}

double CDistanceCalculator::Azimuth(const SPair& pair, double lambdaNext) const
{
    const SReduced& from = pair.from;
    const SReduced& to = pair.to;
    if (from.phi == to.phi)
        return from.lambda < to.lambda ? HalfPi : ThreeHalvesPi;

    const double sinLambda = std::sin(lambdaNext);
    const double y = pair.sinU2cosU1 - pair.sinU1cosU2 * std::cos(lambdaNext);
    double alpha = 0.0;
    if (std::abs(y) <= AzimuthTolerance) {
        const double dSign = y < 0.0 ? -1.0 : 1.0;
        alpha = dSign * sinLambda * to.cosU > 0.0 ? HalfPi : -HalfPi; // the arc tangent of the largest double
    } else {
        alpha = std::atan(sinLambda * to.cosU / y);
    }
    if (from.phi > to.phi)
        return alpha + Pi;
    return from.lambda > to.lambda ? alpha + TwoPi : alpha;
}

} // namespace kestrabel
