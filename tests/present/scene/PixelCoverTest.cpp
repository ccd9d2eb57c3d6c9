#include "present/scene/PixelCover.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kestrabel::test {
namespace {

TEST(PixelCover, LinesAreCutToTheBox)
{
    const double dFar = 1e9;
    const struct
    {
        SScenePoint from;
        SScenePoint to;
        bool bSeen;
        SScenePoint cutFrom = {};
        SScenePoint cutTo = {};
    } cases[] = {
        {{10, 10}, {90, 40}, true, {10, 10}, {90, 40}},
        {{-50, 25}, {150, 25}, true, {0, 25}, {100, 25}},
        {{150, 75}, {50, 25}, true, {100, 50}, {50, 25}},
        {{-10, 40}, {20, 60}, true, {0, 140.0 / 3.0}, {5, 50}},
        {{-10, 30}, {-5, 20}, false},
        {{-10, 45}, {10, 60}, false}, // past a corner
        {{100, 50}, {120, 70}, true, {100, 50}, {100, 50}},
        {{30, -5}, {30, 55}, true, {30, 0}, {30, 50}},
        {{-5, 10}, {-5, 20}, false},
        {{20, 20}, {20, 20}, true, {20, 20}, {20, 20}},
        {{-dFar, 25}, {dFar, 25}, true, {0, 25}, {100, 25}},
        {{std::nan(""), 10}, {20, 20}, false},
        {{10, 10}, {HUGE_VAL, 10}, false},
    };
    for (const auto& [from, to, bSeen, cutFrom, cutTo] : cases) {
        for (const bool bTurned : {false, true}) {
            SScenePoint one = bTurned ? to : from;
            SScenePoint other = bTurned ? from : to;
            ASSERT_EQ(ClipLine(0, 0, 100, 50, one, other), bSeen) << from.dX << "," << from.dY;
            if (!bSeen)
                continue;
            const SScenePoint& first = bTurned ? other : one;
            const SScenePoint& last = bTurned ? one : other;
            EXPECT_NEAR(first.dX, cutFrom.dX, 1e-6);
            EXPECT_NEAR(first.dY, cutFrom.dY, 1e-9);
            EXPECT_NEAR(last.dX, cutTo.dX, 1e-6);
            EXPECT_NEAR(last.dY, cutTo.dY, 1e-9);
        }
    }
    // What a damaged file gives still ends within.
    SScenePoint from = {-1e300, -1e300};
    SScenePoint to = {1e300, 1.5e300};
    if (ClipLine(0, 0, 100, 50, from, to)) {
        for (const SScenePoint& end : {from, to})
            EXPECT_TRUE(end.dX >= 0 && end.dX <= 100 && end.dY >= 0 && end.dY <= 50);
    }
}

TEST(PixelCover, ALineClaimsEveryPixelOnce)
{
    CPixelCover cover({0, 0, 20, 10});
    EXPECT_TRUE(cover.Claim(2, 3, 12, 7));
    EXPECT_FALSE(cover.Claim(2, 3, 12, 7));
    EXPECT_FALSE(cover.Claim(7, 5, 7, 5)) << "in the middle of it";
    EXPECT_TRUE(cover.Claim(7, 5, 7, 6)) << "one of two is new";
    EXPECT_TRUE(cover.Claim(cover.Left(), cover.Top(), cover.Right(), cover.Bottom()));
    EXPECT_FALSE(cover.Claim(cover.Right(), cover.Bottom(), cover.Right(), cover.Bottom()));
    EXPECT_TRUE(cover.Claim(cover.Left(), cover.Bottom(), cover.Left(), cover.Bottom()));
    EXPECT_TRUE(cover.Claim(cover.Right(), cover.Top(), cover.Right(), cover.Top()));
    cover.Clear();
    EXPECT_TRUE(cover.Claim(7, 5, 7, 5));
}

} // namespace
} // namespace kestrabel::test
