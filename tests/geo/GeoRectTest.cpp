#include "geo/GeoRect.h"

#include <cmath>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(GeoRect, GrowsToHoldItsPositionsAndReachesTheRadius)
{
    CGeoRect box = CGeoRect::Empty();
    box.Extend(MakePosition(-38.5, 146.0));
    EXPECT_EQ(box, (CGeoRect{.m_dWest = 146, .m_dNorth = -38.5, .m_dEast = 146, .m_dSouth = -38.5}));
    for (const CPosition& position : {MakePosition(-39, 147), MakePosition(-38, 145), MakePosition(NAN, NAN)})
        box.Extend(position);
    EXPECT_EQ(box, (CGeoRect{.m_dWest = 145, .m_dNorth = -38, .m_dEast = 147, .m_dSouth = -39}));
    // 111.12 km to the degree; at 60 degrees a degree of longitude is half as long.
    box = BoxAround(MakePosition(-60, 10), 111.12);
    EXPECT_NEAR(box.m_dWest, 8.0, 1e-12);
    EXPECT_NEAR(box.m_dEast, 12.0, 1e-12);
    EXPECT_NEAR(box.m_dNorth, -59.0, 1e-12);
    EXPECT_NEAR(box.m_dSouth, -61.0, 1e-12);
}

} // namespace
} // namespace kestrabel
