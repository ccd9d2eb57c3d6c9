#include "geo/DistanceCalculator.h"

#include "geo/Angle.h"
#include "geo/PlainDistance.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <tuple>
#include <vector>

namespace kestrabel {
namespace {

CEllipsoid EllipsoidOf(int nIndex)
{
    CEllipsoid ellipsoid;
    // The user's own is flat enough for the last term of every series to count.
    ellipsoid.SetEllipsoid(nIndex, 6'377'000.0, 30.5);
    return ellipsoid;
}

struct SRandom
{
    double Between(double a, double b) { return std::uniform_real_distribution<>(a, b)(engine); }
    int Below(int nLimit) { return static_cast<int>(engine() % static_cast<unsigned>(nLimit)); }

    std::mt19937 engine{20240601};
};

TEST(DistanceCalculator, KnownLines)
{
    // A geodesic of the Australian geodetic manual's size, and degrees along the equator and a meridian of
    // WGS84. Each is known to the digits given: half a unit of the last one is the tolerance.
    const CPosition flindersPeak = MakePosition(-37.9510334166667, 144.424867888889);
    const CPosition buninyong = MakePosition(-37.6528211388889, 143.926495527778);
    const std::tuple<CPosition, CPosition, std::string_view, double, double> cases[] = {
        {buninyong, flindersPeak, "kKx", 54.97227, 127.1736},
        {buninyong, flindersPeak, "nN", 29.68265, 127.1736},
        {buninyong, flindersPeak, "mM", 34.15819, 127.1736},
        {MakePosition(0, 0), MakePosition(0, 1), "k", 111.31949, 90.0},
        {MakePosition(0, 0), MakePosition(1, 0), "k", 110.57439, 0.0},
    };
    for (const auto& [from, to, strUnits, dDistance, dDegrees] : cases) {
        for (const char cUnit : strUnits) {
            CDistanceCalculator calculator({}, cUnit);
            EXPECT_NEAR(calculator.Distance(from, to), dDistance, 5e-6) << cUnit;
            EXPECT_NEAR(calculator.m_dAzimuth * RadiansToDegrees, dDegrees, 5e-5) << cUnit;
        }
    }
    CDistanceCalculator calculator;
    EXPECT_EQ(calculator.Distance(buninyong, buninyong), 0.0);
    EXPECT_EQ(calculator.m_dAzimuth, 4.71238898038469) << "no direction is west";
    // Once around the compass in steps of a degree, a kilometre away: never more than the box's error of
    // 1 - cos(1 km / earth radius) and of the flattening, 0.25 degrees in all, beside the true direction.
    for (int nDegrees = 0; nDegrees < 360; ++nDegrees) {
        const double dAngle = nDegrees * DegreesToRadians;
        const double dEast = 0.009 * std::sin(dAngle) / std::cos(50.8 * DegreesToRadians);
        calculator.Distance(MakePosition(50.8, -1.1),
                            MakePosition(50.8 + 0.009 * std::cos(dAngle), -1.1 + dEast));
        EXPECT_NEAR(std::remainder(calculator.m_dAzimuth - dAngle, TwoPi) * RadiansToDegrees, 0.0, 0.25);
    }
}

TEST(DistanceCalculator, FarPairsStayFinite)
{
    SRandom random;
    for (int i = 0; i < 140'000; ++i) {
        CDistanceCalculator calculator(EllipsoidOf(i % 7));
        // The first ones from the equator and the pole; in every other pair the exact antipode.
        const CPosition from = i < 21 ? MakePosition(i / 7 * 45.0, 0)
                                      : MakePosition(random.Between(-90, 90), random.Between(-180, 0));
        const double dOff = i % 2 == 0 ? 0.0 : std::pow(10.0, random.Between(-13, 0));
        const CPosition to = MakePosition(-from.m_dLatitude + dOff, from.m_dLongitude + 180.0 - dOff);
        ASSERT_TRUE(std::isfinite(calculator.Distance(from, to)) && std::isfinite(calculator.m_dAzimuth))
            << i;
    }
}

TEST(DistanceCalculator, TheSameAsTheMethodWrittenDownPlainly)
{
    constexpr double dEarthRadius = 6.4e6; // metres
    constexpr double dEpsilon = 2.3e-16;   // a unit in the last place of 1
    SRandom random;
    int nCompared = 0;
    double dPlainAzimuth = 0.0;
    for (int i = 0; i < 100'000; ++i) {
        const CEllipsoid ellipsoid = EllipsoidOf(i % 7);
        CDistanceCalculator calculator(ellipsoid);
        const CPosition from = MakePosition(random.Between(-89, 89), random.Between(-180, 180));
        const double dReach = std::pow(10.0, random.Between(0.0, 7.2)) / 111'000.0;
        // Every other one due north, east, south or west, or between: there the quadrants meet.
        const double dAngle = i % 2 == 0 ? random.Below(8) * Pi / 4.0 : random.Between(0, TwoPi);
        const double dEast = dReach * std::sin(dAngle) / std::cos(from.m_dLatitude * DegreesToRadians);
        const CPosition to =
            MakePosition(std::clamp(from.m_dLatitude + dReach * std::cos(dAngle), -89.0, 89.0),
                         from.m_dLongitude + std::clamp(dEast, -170.0, 170.0));
        const double dPlain = test::PlainDistance(ellipsoid, from, to, dPlainAzimuth);
        if (!std::isfinite(dPlain) || dPlain < 0.001) // below a metre the arc cosine decides by its last bit
            continue;
        ++nCompared;
        // Where a product is associated otherwise, the last place of cos σ moves; the arc cosine makes of it
        // 1/σ times as much in σ, of which the flattening takes its share into the longitude. Beyond that the
        // two are the same formulas: 1e-12.
        const double dSigma = std::min(dPlain * 1000.0 / dEarthRadius, 1.0);
        const double dRadians = 4.0 * dEpsilon / dSigma * ellipsoid.m_dFlattening + 4.0 * dEpsilon;
        ASSERT_NEAR(calculator.Distance(from, to), dPlain, 1e-12 * dPlain + dRadians * dEarthRadius * 0.001)
            << i;
        ASSERT_NEAR(calculator.m_dAzimuth, dPlainAzimuth, 1e-11 + 4.0 * dRadians / dSigma) << i;
    }
    EXPECT_GT(nCompared, 95'000);
}

TEST(DistanceCalculator, WhatItRemembersNeverChangesAResult)
{
    SRandom random;
    std::vector<CPosition> places = {{}}; // no fix
    for (int i = 0; i < 7; ++i)
        places.push_back(MakePosition(50.0 + random.Between(0, 1e-4), 1.0 + random.Between(0, 1e-4)));
    const auto Somewhere = [&] { return places[static_cast<std::size_t>(random.Below(8))]; };
    CDistanceCalculator walking;
    CEllipsoid ellipsoid;
    CPosition last;
    for (int i = 0; i < 20'000; ++i) {
        if (i % 20 == 0)
            walking.SetEllipsoid(ellipsoid = EllipsoidOf(random.Below(7)));
        // On along the track, and now and then from or back to some place again.
        const CPosition from = random.Below(4) == 0 ? Somewhere() : last;
        const CPosition to = last = Somewhere();
        CDistanceCalculator fresh(ellipsoid);
        ASSERT_EQ(walking.Distance(from, to), fresh.Distance(from, to)) << i;
        ASSERT_EQ(walking.m_dAzimuth, fresh.m_dAzimuth) << i;
    }
}

} // namespace
} // namespace kestrabel
