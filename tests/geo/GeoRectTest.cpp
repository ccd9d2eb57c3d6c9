#include "geo/GeoRect.h"

#include <cmath>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(GeoRect, GrowsToHoldItsPositions)
{
    CGeoRect box = CGeoRect::Empty();
    EXPECT_GT(box.m_dWest, box.m_dEast);
    EXPECT_GT(box.m_dSouth, box.m_dNorth);
    const struct
    {
        double dLatitude, dLongitude;
        CGeoRect box;
    } steps[] = {
        {-38.5, 146.0, {.m_dWest = 146.0, .m_dNorth = -38.5, .m_dEast = 146.0, .m_dSouth = -38.5}},
        {-38.6, 145.0, {.m_dWest = 145.0, .m_dNorth = -38.5, .m_dEast = 146.0, .m_dSouth = -38.6}},
        {-38.4, 147.0, {.m_dWest = 145.0, .m_dNorth = -38.4, .m_dEast = 147.0, .m_dSouth = -38.6}},
        {-38.5, 146.5, {.m_dWest = 145.0, .m_dNorth = -38.4, .m_dEast = 147.0, .m_dSouth = -38.6}},
        {std::nan(""),
         std::nan(""),
         {.m_dWest = 145.0, .m_dNorth = -38.4, .m_dEast = 147.0, .m_dSouth = -38.6}},
    };
    for (const auto& step : steps) {
        box.Extend(MakePosition(step.dLatitude, step.dLongitude));
        EXPECT_EQ(box, step.box) << step.dLatitude;
    }
}

TEST(GeoRect, ABoxReachesTheRadiusInEachDirection)
{
    // 111.12 km to the degree; at 60 degrees a degree of longitude is half as long.
    const CGeoRect equator = BoxAround(MakePosition(0, 10), 111.12);
    EXPECT_NEAR(equator.m_dWest, 9.0, 1e-12);
    EXPECT_NEAR(equator.m_dEast, 11.0, 1e-12);
    EXPECT_NEAR(equator.m_dNorth, 1.0, 1e-12);
    EXPECT_NEAR(equator.m_dSouth, -1.0, 1e-12);
    const CGeoRect south = BoxAround(MakePosition(-60, 10), 111.12);
    EXPECT_NEAR(south.m_dWest, 8.0, 1e-12);
    EXPECT_NEAR(south.m_dEast, 12.0, 1e-12);
    EXPECT_NEAR(south.m_dNorth, -59.0, 1e-12);
    const CGeoRect point = BoxAround(MakePosition(-38, 146), 0.0);
    EXPECT_EQ(point, (CGeoRect{.m_dWest = 146, .m_dNorth = -38, .m_dEast = 146, .m_dSouth = -38}));
    EXPECT_GT(BoxAround(MakePosition(90, 0), 0.005).m_dEast, 1e9) << "every longitude at the pole";
}

} // namespace
} // namespace kestrabel
