#include "geo/Segment.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace kestrabel {
namespace {

TEST(Segment, BoxesOverlapWithTheirBounds)
{
    const CGeoRect box{.m_dWest = 5.0, .m_dNorth = 53.0, .m_dEast = 6.0, .m_dSouth = 52.0};
    const struct
    {
        const char* pWhat;
        CPosition from;
        CPosition to;
        bool bOverlap;
    } cases[] = {
        {"inside", MakePosition(52.2, 5.2), MakePosition(52.4, 5.4), true},
        {"around", MakePosition(50.0, 4.0), MakePosition(54.0, 7.0), true},
        {"across", MakePosition(52.5, 4.0), MakePosition(52.4, 7.0), true},
        {"touches the corner", MakePosition(53.0, 6.0), MakePosition(54.0, 7.0), true},
        {"touches the south", MakePosition(52.0, 5.5), MakePosition(51.0, 5.5), true},
        {"north", MakePosition(53.1, 5.5), MakePosition(54.0, 5.5), false},
        {"south", MakePosition(51.9, 5.5), MakePosition(50.0, 5.5), false},
        {"east", MakePosition(52.5, 6.1), MakePosition(52.5, 7.0), false},
        {"west", MakePosition(52.5, 4.9), MakePosition(52.5, 4.0), false},
        {"only the boxes overlap", MakePosition(53.5, 5.9), MakePosition(52.9, 6.5), true},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(SegmentBoxesOverlap(box, test.from, test.to), test.bOverlap) << test.pWhat;
        EXPECT_EQ(SegmentBoxesOverlap(box, test.to, test.from), test.bOverlap) << test.pWhat;
    }
}

TEST(Segment, TheDistanceIsThatOfTheFootOfThePerpendicular)
{
    const CPosition from = MakePosition(50.0, 10.0);
    const CPosition to = MakePosition(50.0, 14.0);
    const double dNone = -1.0;
    const struct
    {
        CPosition position;
        double dDistance;
    } cases[] = {
        {MakePosition(50.0, 12.0), 0.0},
        {MakePosition(53.0, 12.0), 3.0},
        {MakePosition(47.0, 10.0), 3.0},
        {MakePosition(51.0, 14.0), 1.0},
        {MakePosition(51.0, 9.999), dNone},
        {MakePosition(50.0, 14.001), dNone},
        {MakePosition(51.0, std::numeric_limits<double>::quiet_NaN()), dNone},
    };
    for (const auto& test : cases)
        EXPECT_NEAR(DistanceToSegment(test.position, from, to).value_or(dNone), test.dDistance, 1e-12);
    // A slanted one: degrees of longitude count like those of latitude.
    EXPECT_NEAR(
        DistanceToSegment(MakePosition(1.0, 0.0), MakePosition(0.0, 0.0), MakePosition(2.0, 2.0)).value(),
        std::sqrt(0.5), 1e-12);
    EXPECT_FALSE(DistanceToSegment(from, from, from).has_value()) << "coincident ends";
}

} // namespace
} // namespace kestrabel
