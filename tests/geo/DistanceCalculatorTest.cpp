#include "geo/DistanceCalculator.h"

#include "geo/Angle.h"
#include "geo/PlainDistance.h"

#include <algorithm>
#include <bit>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace kestrabel {
namespace {

constexpr double EarthRadius = 6.4e6; // metres, for tolerances
constexpr double Epsilon = 2.3e-16;   // a unit in the last place of 1

CEllipsoid EllipsoidOf(int nIndex)
{
    CEllipsoid ellipsoid;
    // The user's own is flat enough for the last term of every series to count.
    ellipsoid.SetEllipsoid(nIndex, 6'377'000.0, 30.5);
    return ellipsoid;
}

/// Equal to the bit, signs of zero and not-a-number included.
bool SameBits(double dOne, double dOther)
{
    return std::bit_cast<std::uint64_t>(dOne) == std::bit_cast<std::uint64_t>(dOther) ||
           (std::isnan(dOne) && std::isnan(dOther));
}

class CRandom
{
public:
    double Between(double dLow, double dHigh)
    {
        return std::uniform_real_distribution<double>(dLow, dHigh)(m_engine);
    }
    int Below(int nLimit) { return static_cast<int>(m_engine() % static_cast<unsigned>(nLimit)); }

private:
    std::mt19937 m_engine{20240601};
};

TEST(DistanceCalculator, KnownLines)
{
    // A geodesic of the Australian geodetic manual's size, and degrees along the equator and a meridian of
    // WGS84. Each is known to the digits given: half a unit of the last one is the tolerance.
    const CPosition flindersPeak = MakePosition(-37.9510334166667, 144.424867888889);
    const CPosition buninyong = MakePosition(-37.6528211388889, 143.926495527778);
    const struct
    {
        CPosition from, to;
        char cUnit;
        double dDistance, dTolerance;
        double dDegrees, dDegreesTolerance;
    } cases[] = {
        {buninyong, flindersPeak, 'k', 54.97227, 5e-6, 127.1736, 5e-5},
        {buninyong, flindersPeak, 'K', 54.97227, 5e-6, 127.1736, 5e-5},
        {buninyong, flindersPeak, 'n', 29.68265, 5e-6, 127.1736, 5e-5},
        {buninyong, flindersPeak, 'N', 29.68265, 5e-6, 127.1736, 5e-5},
        {buninyong, flindersPeak, 'm', 34.15819, 5e-6, 127.1736, 5e-5},
        {buninyong, flindersPeak, 'M', 34.15819, 5e-6, 127.1736, 5e-5},
        {buninyong, flindersPeak, 'x', 54.97227, 5e-6, 127.1736, 5e-5},
        {buninyong, flindersPeak, '\0', 54.97227, 5e-6, 127.1736, 5e-5},
        {flindersPeak, buninyong, 'k', 54.97227, 5e-6, 306.8682, 5e-5},
        {MakePosition(0, 0), MakePosition(0, 1), 'k', 111.3195, 5e-5, 90.0, 0.0},
        {MakePosition(0, 0), MakePosition(1, 0), 'k', 110.5744, 5e-5, 0.0, 0.0},
    };
    for (const auto& test : cases) {
        CDistanceCalculator calculator({}, test.cUnit);
        EXPECT_NEAR(calculator.Distance(test.from, test.to), test.dDistance, test.dTolerance) << test.cUnit;
        EXPECT_NEAR(calculator.m_dAzimuth * 0.3183098861837907 * 180.0, test.dDegrees,
                    test.dDegreesTolerance);
    }
    CDistanceCalculator calculator;
    EXPECT_EQ(calculator.m_cUnit, 'k');
    EXPECT_EQ(calculator.Ellipsoid(), CEllipsoid());
}

TEST(DistanceCalculator, TheQuadrantComesFromComparingPositions)
{
    const CPosition home = MakePosition(50.8, -1.1);
    const struct
    {
        const char* pWhat;
        CPosition from, to;
        double dAzimuth;
    } exact[] = {
        {"coincident", home, home, 4.71238898038469},
        {"coincident at the origin", {}, {}, 4.71238898038469},
        {"due east", home, MakePosition(50.8, -1.0), 1.5707963267948966},
        {"due west", home, MakePosition(50.8, -1.2), 4.71238898038469},
        {"due north", home, MakePosition(50.9, -1.1), 0.0},
        {"due south", home, MakePosition(50.7, -1.1), 3.141592653589793},
        {"the pole from the equator", MakePosition(0, 10), MakePosition(90, 10), 0.0},
        // Less than 6 m to the north counts as due east or west; with no east in it as west, unwrapped.
        {"a few metres north-east", home, MakePosition(50.80001, -1.09999), 1.5707963267948966},
        {"a few metres north-west", home, MakePosition(50.80001, -1.10001), 4.71238898038469},
        {"a few metres north", home, MakePosition(50.80001, -1.1), -1.5707963267948966},
        {"a few metres south", home, MakePosition(50.79999, -1.1), 1.5707963267948966},
        {"a few metres south-west", home, MakePosition(50.79999, -1.10001), 4.71238898038469},
        {"a few metres south-east", home, MakePosition(50.79999, -1.09999), 1.5707963267948966},
    };
    CDistanceCalculator calculator;
    for (const auto& test : exact) {
        const double dDistance = calculator.Distance(test.from, test.to);
        EXPECT_EQ(dDistance == 0.0, test.from == test.to) << test.pWhat;
        EXPECT_DOUBLE_EQ(calculator.m_dAzimuth, test.dAzimuth) << test.pWhat;
    }
    // Once around the compass in steps of a degree, a kilometre away: never more than the box's error of
    // 1 - cos(1 km / earth radius) and of the flattening, 0.25 degrees in all, beside the true direction.
    for (int nDegrees = 0; nDegrees < 360; ++nDegrees) {
        const double dAngle = nDegrees * DegreesToRadians;
        const double dNorth = 0.009 * std::cos(dAngle);
        const double dEast = 0.009 * std::sin(dAngle) / std::cos(50.8 * DegreesToRadians);
        calculator.Distance(home, MakePosition(50.8 + dNorth, -1.1 + dEast));
        const double dOff = std::remainder(calculator.m_dAzimuth - dAngle, TwoPi) * RadiansToDegrees;
        EXPECT_LT(std::abs(dOff), 0.25) << nDegrees;
        EXPECT_GE(calculator.m_dAzimuth, 0.0);
        EXPECT_LE(calculator.m_dAzimuth, TwoPi);
    }
}

TEST(DistanceCalculator, TheSphereIsASphere)
{
    CDistanceCalculator calculator(EllipsoidOf(5));
    CRandom random;
    for (int i = 0; i < 20'000; ++i) {
        const CPosition from = MakePosition(random.Between(-85, 85), random.Between(-90, 90));
        const double dReach = std::pow(10.0, random.Between(-3, 1));
        const CPosition to =
            MakePosition(std::clamp(from.m_dLatitude + random.Between(-1, 1) * dReach, -85.0, 85.0),
                         from.m_dLongitude + random.Between(-1, 1) * dReach);
        const double phi1 = from.m_dLatitude * DegreesToRadians, phi2 = to.m_dLatitude * DegreesToRadians;
        const double dHalfPhi = std::sin((phi2 - phi1) / 2.0);
        const double dHalfLambda = std::sin((to.m_dLongitude - from.m_dLongitude) * DegreesToRadians / 2.0);
        const double dHaversine = 2.0 * 6371.0 *
                                  std::asin(std::sqrt(dHalfPhi * dHalfPhi + std::cos(phi1) * std::cos(phi2) *
                                                                                dHalfLambda * dHalfLambda));
        // Both take differences of sines near 1: a few units in the last place of the earth's radius.
        EXPECT_NEAR(calculator.Distance(from, to), dHaversine, 20.0 * Epsilon * 6371.0 + 1e-14 * dHaversine);
    }
}

TEST(DistanceCalculator, UserEllipsoidWithTheValuesOfAnotherIsThatOther)
{
    CEllipsoid user;
    user.SetEllipsoid(CEllipsoid::User, 6378160.0, 298.25);
    CDistanceCalculator one(user), other(EllipsoidOf(2));
    CRandom random;
    for (int i = 0; i < 1000; ++i) {
        const CPosition from = MakePosition(random.Between(-80, 80), random.Between(-90, 0));
        const CPosition to = MakePosition(random.Between(-80, 80), random.Between(0, 80));
        EXPECT_EQ(one.Distance(from, to), other.Distance(from, to));
        EXPECT_EQ(one.m_dAzimuth, other.m_dAzimuth);
    }
}

TEST(DistanceCalculator, FarPairsStayFinite)
{
    CRandom random;
    for (int nEllipsoid = 0; nEllipsoid < 7; ++nEllipsoid) {
        CDistanceCalculator calculator(EllipsoidOf(nEllipsoid));
        const auto ExpectFinite = [&](const CPosition& from, const CPosition& to) {
            EXPECT_TRUE(std::isfinite(calculator.Distance(from, to)) && std::isfinite(calculator.m_dAzimuth))
                << from.m_dLatitude << "," << from.m_dLongitude << " to " << to.m_dLatitude << ","
                << to.m_dLongitude;
        };
        ExpectFinite(MakePosition(0, 0), MakePosition(0, 180));
        ExpectFinite(MakePosition(90, 0), MakePosition(-90, 0));
        ExpectFinite(MakePosition(90, 0), MakePosition(90, 120));
        ExpectFinite(MakePosition(-17, 179.999), MakePosition(-17.001, -179.999));
        ExpectFinite(MakePosition(-3.6492371632942735, -96.956273817798817),
                     MakePosition(3.6492371632942735, 83.043726182201183)); // cosine below -1
        for (int i = 0; i < 20'000; ++i) {
            const CPosition from = MakePosition(random.Between(-90, 90), random.Between(-180, 0));
            const double dOff = i % 2 == 0 ? 0.0 : std::pow(10.0, random.Between(-13, 0));
            ExpectFinite(from, MakePosition(-from.m_dLatitude + dOff, from.m_dLongitude + 180.0 - dOff));
        }
    }
}

TEST(DistanceCalculator, TheSameAsTheMethodWrittenDownPlainly)
{
    CRandom random;
    int nCompared = 0;
    for (int i = 0; i < 100'000; ++i) {
        const CEllipsoid ellipsoid = EllipsoidOf(i % 7);
        CDistanceCalculator calculator(ellipsoid);
        const CPosition from = MakePosition(random.Between(-89, 89), random.Between(-180, 180));
        const double dMetres = std::pow(10.0, random.Between(0.0, 7.2));
        const double dReach = dMetres / 111'000.0, dAngle = random.Between(0, TwoPi);
        const CPosition to =
            MakePosition(std::clamp(from.m_dLatitude + dReach * std::cos(dAngle), -89.0, 89.0),
                         from.m_dLongitude + std::clamp(dReach * std::sin(dAngle) /
                                                            std::cos(from.m_dLatitude * DegreesToRadians),
                                                        -170.0, 170.0));
        double dPlainAzimuth = 0.0;
        const double dPlain = test::PlainDistance(ellipsoid, from, to, dPlainAzimuth);
        const double dDistance = calculator.Distance(from, to);
        if (!std::isfinite(dPlain) || dPlain < 0.001) // below a metre the arc cosine decides by its last bit
            continue;
        ++nCompared;
        // Where a product is associated otherwise, the last place of cos σ moves; the arc cosine makes of it
        // 1/σ times as much in σ, of which the flattening takes its share into the longitude. Beyond that the
        // two are the same formulas: 1e-12.
        const double dSigma = std::min(dPlain * 1000.0 / EarthRadius, 1.0);
        const double dRadians = 4.0 * Epsilon / dSigma * ellipsoid.m_dFlattening + 4.0 * Epsilon;
        const double dTolerance = 1e-12 * dPlain + dRadians * EarthRadius * 0.001;
        ASSERT_NEAR(dDistance, dPlain, dTolerance)
            << i << ": " << from.m_dLatitude << "," << from.m_dLongitude << " " << to.m_dLatitude << ","
            << to.m_dLongitude;
        const double dTurned = std::remainder(calculator.m_dAzimuth - dPlainAzimuth, TwoPi);
        ASSERT_LE(std::abs(dTurned), 1e-11 + 4.0 * dRadians / dSigma) << i;
    }
    EXPECT_GT(nCompared, 95'000);

    // Where it does not converge the number of iterations decides; each may add a few places to the error.
    for (const double dLongitude : {178.0, 179.0, 179.5, 179.7}) {
        double dPlainAzimuth = 0.0;
        const CPosition from = MakePosition(10.0, 0.0), to = MakePosition(-9.8, dLongitude);
        const double dPlain = test::PlainDistance({}, from, to, dPlainAzimuth);
        CDistanceCalculator calculator;
        EXPECT_NEAR(calculator.Distance(from, to), dPlain, 1e-9 * dPlain) << dLongitude;
    }
}

TEST(DistanceCalculator, WhatItRemembersNeverChangesAResult)
{
    CRandom random;
    CDistanceCalculator walking;
    std::vector<CPosition> track{{}};
    int nEllipsoid = 1;
    for (int i = 0; i < 20'000; ++i) {
        if (random.Below(200) == 0) {
            nEllipsoid = random.Below(7);
            walking.SetEllipsoid(EllipsoidOf(nEllipsoid));
        }
        CPosition next = track.back();
        switch (random.Below(8)) {
        case 0: break; // stands still
        case 1: next = track[static_cast<std::size_t>(random.Below(static_cast<int>(track.size())))]; break;
        case 2: next = {}; break; // no fix
        case 3: next.m_dLatitude = std::nan(""); break;
        case 4: next = MakePosition(random.Between(-89, 89), random.Between(-180, 180)); break;
        default:
            next.m_dLatitude += random.Between(-1e-4, 1e-4);
            next.m_dLongitude += random.Between(-1e-4, 1e-4);
        }
        if (std::isnan(track.back().m_dLatitude) && std::isnan(next.m_dLatitude))
            next = MakePosition(50, 1);
        track.push_back(next);
        // On along the track, and now and then back or to some place again.
        CPosition from = track[track.size() - 2];
        CPosition to = next;
        if (random.Below(4) == 0)
            std::swap(from, to);
        if (random.Below(10) == 0)
            from = track[static_cast<std::size_t>(random.Below(static_cast<int>(track.size())))];
        CDistanceCalculator fresh(EllipsoidOf(nEllipsoid));
        ASSERT_TRUE(SameBits(walking.Distance(from, to), fresh.Distance(from, to))) << i;
        ASSERT_TRUE(SameBits(walking.m_dAzimuth, fresh.m_dAzimuth)) << i;
    }
}

} // namespace
} // namespace kestrabel
