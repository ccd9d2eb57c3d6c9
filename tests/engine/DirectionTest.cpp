#include "engine/Direction.h"

#include "geo/Angle.h"

#include <array>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(Direction, PointsAlongTheFlatEarthCourse)
{
    struct SCase
    {
        CPosition from;
        CPosition to;
        double dExpected; ///< degrees
    };
    for (const SCase& c : std::initializer_list<SCase>{
             {MakePosition(-38, 146), MakePosition(-38, 146), 270}, // identical
             {MakePosition(-38, 146), MakePosition(-38, 146.001), 90},
             {MakePosition(-38, 146), MakePosition(-37.999, 146), 0},
             {MakePosition(-38, 146), MakePosition(-38.001, 146), 180},
             {MakePosition(60, 10), MakePosition(60.001, 10.002), 45}, // a degree east is half as long
             {MakePosition(-60, 10), MakePosition(-60.001, 10.002), 135},
             {MakePosition(-60, 10), MakePosition(-60.001, 9.998), 225},
             {MakePosition(0, 10), MakePosition(0.001, 9.999), 315},
             {MakePosition(60, 0), MakePosition(0, 120), 135}}) // by the latitude of the start
        EXPECT_NEAR(DirectionBetween(c.from, c.to), c.dExpected * DegreesToRadians, 1e-9) << c.dExpected;
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
