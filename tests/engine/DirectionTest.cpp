#include "engine/Direction.h"

#include "geo/Angle.h"

#include <array>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(Direction, PointsAlongTheFlatEarthCourse)
{
    for (const auto& [dStart, dNorth, dEast, dExpected] :
         std::initializer_list<std::array<double, 4>>{{-38, 0, 0, 270}, // identical
                                                      {-38, 0, 1, 90},
                                                      {-38, -1, 0, 180},
                                                      {60, 1, 2, 45}, // a degree east is half as long
                                                      {-60, -1, -2, 225},
                                                      {60, -60, 120, 135}}) // by the latitude of the start
        EXPECT_NEAR(DirectionBetween(MakePosition(dStart, 0), MakePosition(dStart + dNorth, dEast)),
                    dExpected * DegreesToRadians, 1e-9)
            << dExpected;
}

TEST(Direction, OfTwoAnglesTheSmallerCounts)
{
    for (const auto& [dOne, dOther, dBetween] : std::initializer_list<std::array<double, 3>>{
             {10, 350, 20}, {350, 10, 20}, {180.1, 0, 179.9}, {10, 200, 170}, {300, 100, 160}, {0, 180, 180}})
    {
        const double dAngle = dOne * DegreesToRadians;
        const double dOtherAngle = dOther * DegreesToRadians;
        const double dExpected = dBetween * DegreesToRadians;
        EXPECT_NEAR(WindAngle(dAngle, dOther), dExpected, 1e-12) << dOne;
        EXPECT_FALSE(HeadingChanged(dAngle, dOtherAngle, dExpected + 0.001)) << dOne;
        EXPECT_EQ(HeadingChanged(dAngle, dOtherAngle, dExpected - 0.001), dBetween < 180.0) << dOne;
    }
    EXPECT_FALSE(HeadingChanged(1.5, 0.5, 1.0)) << "equal to the threshold";
}

} // namespace
} // namespace kestrabel
