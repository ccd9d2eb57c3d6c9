#include "engine/Direction.h"

#include "geo/Angle.h"

#include <array>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

constexpr double Degrees(double dDegrees)
{
    return dDegrees * DegreesToRadians;
}

TEST(Direction, PointsAlongTheFlatEarthCourse)
{
    struct SCase
    {
        const char* strName;
        CPosition from;
        CPosition to;
        double dExpected; ///< degrees
    };
    static constexpr std::array<SCase, 14> cases = {{
        {"identical", MakePosition(-38, 146), MakePosition(-38, 146), 270},
        {"east", MakePosition(-38, 146), MakePosition(-38, 146.001), 90},
        {"west", MakePosition(-38, 146), MakePosition(-38, 145.999), 270},
        {"north", MakePosition(-38, 146), MakePosition(-37.999, 146), 0},
        {"south", MakePosition(-38, 146), MakePosition(-38.001, 146), 180},
        {"north-east", MakePosition(0, 10), MakePosition(0.001, 10.001), 45},
        {"south-east", MakePosition(0, 10), MakePosition(-0.001, 10.001), 135},
        {"south-west", MakePosition(0, 10), MakePosition(-0.001, 9.999), 225},
        {"north-west", MakePosition(0, 10), MakePosition(0.001, 9.999), 315},
        {"a degree of longitude is half at 60° north", MakePosition(60, 10), MakePosition(60.001, 10.002),
         45},
        {"and at 60° south", MakePosition(-60, 10), MakePosition(-60.001, 9.998), 225},
        {"the start's latitude counts", MakePosition(60, 0), MakePosition(0, 120), 135},
        {"the date line is not crossed", MakePosition(0, 179.5), MakePosition(0, -179.5), 270},
        {"from the pole", MakePosition(90, 0), MakePosition(89, 90), 180},
    }};
    for (const SCase& c : cases)
        EXPECT_NEAR(DirectionBetween(c.from, c.to), Degrees(c.dExpected), 1e-9) << c.strName;
    // Exactly on an axis the literal itself comes out.
    EXPECT_EQ(DirectionBetween(cases[0].from, cases[0].to), 4.71238898038469);
    EXPECT_EQ(DirectionBetween(cases[1].from, cases[1].to), 1.5707963267948966);
    EXPECT_EQ(DirectionBetween(cases[3].from, cases[3].to), 0.0);
    EXPECT_EQ(DirectionBetween(cases[4].from, cases[4].to), 3.141592653589793);
}

TEST(Direction, HeadingChangesOnlyAboveTheThreshold)
{
    struct SCase
    {
        double dOne;
        double dOther;
        double dThreshold;
        bool bChanged;
    };
    static constexpr std::array<SCase, 12> cases = {{
        {0, 0, 0, false},
        {10, 100.1, 90, true},
        {10, 99.9, 90, false},
        {350, 10, 19.9, true}, // through north
        {350, 10, 20.1, false},
        {1, 359, 1.9, true},
        {0, 179.9, 90, true},
        {0, 180.1, 90, true},
        {0, 180.1, 179.8, true}, // 179.9° the other way round
        {0, 180.1, 179.95, false},
        {90, 269.9, 180, false}, // nothing turns more than half a circle
        {5, 5.5, 0, true},
    }};
    for (const SCase& c : cases) {
        for (const bool bSwapped : {false, true}) {
            const double dOne = Degrees(bSwapped ? c.dOther : c.dOne);
            const double dOther = Degrees(bSwapped ? c.dOne : c.dOther);
            EXPECT_EQ(HeadingChanged(dOne, dOther, Degrees(c.dThreshold)), c.bChanged)
                << c.dOne << " to " << c.dOther << " over " << c.dThreshold << (bSwapped ? " swapped" : "");
        }
    }
    EXPECT_FALSE(HeadingChanged(1.5, 0.5, 1.0)) << "equal to the threshold";
    EXPECT_FALSE(HeadingChanged(0.0, Pi, 1.0)) << "exactly a half circle";
}

TEST(Direction, WindAngleIsTheSmallerOne)
{
    struct SCase
    {
        double dDirection;
        double dWind;
        double dExpected;
    };
    static constexpr std::array<SCase, 9> cases = {{
        {10, 350, 20},
        {350, 10, 20},
        {0, 0, 0},
        {123, 123, 0},
        {180, 0, 180},
        {0, 180, 180},
        {200, 10, 170},
        {100, 300, 160},
        {359, 180, 179},
    }};
    for (const SCase& c : cases) {
        EXPECT_NEAR(WindAngle(Degrees(c.dDirection), c.dWind), Degrees(c.dExpected), 1e-12)
            << c.dDirection << " in wind from " << c.dWind;
    }
}

} // namespace
} // namespace kestrabel
