#include "geo/Proximity.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace kestrabel {
namespace {

/// Positions around the edge, far from it, within millimetres of the centre and on it.
CPosition PositionNear(std::mt19937& random, const CPosition& centre, double dRadius)
{
    std::uniform_real_distribution<double> share(0.0, 1.0);
    const std::array<double, 6> distances = {dRadius * 2.0 * share(random),
                                             dRadius * (0.99 + 0.02 * share(random)),
                                             dRadius * (1.0 + 1e-9 * share(random)),
                                             1e-5 * share(random),
                                             300.0 * share(random),
                                             0.0};
    const double dDistance = distances[random() % distances.size()];
    const double dCourse = 6.283185307179586 * share(random);
    const double dDegree = 111.12;
    return MakePosition(centre.m_dLatitude + dDistance * std::cos(dCourse) / dDegree,
                        centre.m_dLongitude +
                            dDistance * std::sin(dCourse) / dDegree /
                                std::max(0.001, std::cos(centre.m_dLatitude * 0.017453292519943295)));
}

TEST(Proximity, SaysWhatTheDistanceSays)
{
    std::mt19937 random(5);
    const std::array<double, 12> latitudes = {0.0,   0.0005, 0.01, -23.0, 45.0, 52.8,
                                              -60.0, 79.99,  80.1, -85.0, 89.9, 90.0};
    std::array<CEllipsoid, 4> ellipsoids; // the first two are WGS84
    ellipsoids[1].SetEllipsoid(5, 0.0, 0.0);
    ellipsoids[2].SetEllipsoid(CEllipsoid::User, 6378000.0, 120.0);
    ellipsoids[3].SetEllipsoid(CEllipsoid::User, 1000.0, -5.0); // nonsense, as a user may enter it
    int nWithin = 0;
    int nBeyond = 0;
    for (const CEllipsoid& ellipsoid : ellipsoids) {
        CDistanceCalculator calculator(ellipsoid);
        for (const double dRadius : {0.05, 0.0005, 0.9, 1.0, 5.0, 0.0, -1.0}) {
            CProximity proximity(ellipsoid, dRadius);
            for (const double dLatitude : latitudes) {
                for (const double dLongitude : {5.27, -179.9999, 180.0}) {
                    const CPosition centre = MakePosition(dLatitude, dLongitude);
                    proximity.SetCentre(centre);
                    for (int i = 0; i < 60; ++i) {
                        const CPosition position = PositionNear(random, centre, dRadius);
                        const bool bExpected = calculator.Distance(position, centre) <= dRadius;
                        ASSERT_EQ(proximity.IsWithin(position), bExpected)
                            << position.m_dLatitude << ' ' << position.m_dLongitude << " within " << dRadius
                            << " of " << dLatitude << ' ' << dLongitude;
                        ++(bExpected ? nWithin : nBeyond);
                    }
                }
            }
        }
    }
    EXPECT_GT(nWithin, 5000);
    EXPECT_GT(nBeyond, 5000);
}

TEST(Proximity, AcrossTheDateLineAndWithoutANumber)
{
    CDistanceCalculator calculator;
    CProximity proximity({}, 0.05);
    const CPosition centre = MakePosition(45.0, 179.99999);
    proximity.SetCentre(centre);
    for (const CPosition& position :
         {MakePosition(45.0, -179.99999), MakePosition(45.0, 180.00001), MakePosition(-45.0, 179.99999),
          MakePosition(std::numeric_limits<double>::quiet_NaN(), 179.99999)})
        EXPECT_EQ(proximity.IsWithin(position), calculator.Distance(position, centre) <= 0.05);
}

} // namespace
} // namespace kestrabel
