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

TEST(GeoRect, EdgesBelongToTheBox)
{
    const CGeoRect box{.m_dWest = 5.0, .m_dNorth = 53.0, .m_dEast = 6.0, .m_dSouth = 52.0};
    const struct
    {
        CGeoRect other;
        bool bMeets;
    } cases[] = {
        {{5.5, 52.6, 5.6, 52.5}, true}, // within
        {{4.0, 60.0, 7.0, 50.0}, true}, // around
        {{6.0, 52.0, 7.0, 51.0}, true}, // a corner
        {{6.01, 53.0, 7.0, 52.0}, false}, {{5.0, 51.9, 6.0, 51.0}, false}, {CGeoRect::Empty(), false},
    };
    for (const auto& [other, bMeets] : cases) {
        EXPECT_EQ(box.Intersects(other), bMeets) << other.m_dWest;
        EXPECT_EQ(other.Intersects(box), bMeets) << other.m_dWest;
    }
    EXPECT_TRUE(box.Contains(MakePosition(53.0, 6.0)));
    EXPECT_FALSE(box.Contains(MakePosition(53.0000001, 6.0)));
    EXPECT_FALSE(box.Contains(MakePosition(52.5, std::nan(""))));

    CGeoRect all = CGeoRect::Empty();
    all.Extend(box);
    all.Extend(CGeoRect::Empty());
    EXPECT_EQ(all, box);
    all.Extend(CGeoRect{.m_dWest = 3.0, .m_dNorth = 52.5, .m_dEast = 5.5, .m_dSouth = 51.0});
    EXPECT_EQ(all, (CGeoRect{.m_dWest = 3.0, .m_dNorth = 53.0, .m_dEast = 6.0, .m_dSouth = 51.0}));
    all.Scale(2.0);
    EXPECT_EQ(all, (CGeoRect{.m_dWest = 1.5, .m_dNorth = 54.0, .m_dEast = 7.5, .m_dSouth = 50.0}));
}

} // namespace
} // namespace kestrabel
