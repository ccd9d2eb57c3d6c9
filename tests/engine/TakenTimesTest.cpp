#include "engine/TakenTimes.h"

#include "engine/RandomTrack.h"

#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace kestrabel {
namespace {

using Stretches = std::vector<std::pair<double, double>>;

bool NaiveOverlaps(const Stretches& taken, double dStart, double dEnd)
{
    bool bOverlaps = false;
    for (const auto& [dTakenStart, dTakenEnd] : taken)
        bOverlaps = bOverlaps || (dTakenEnd > dStart && dTakenStart < dEnd);
    return bOverlaps;
}

TEST(TakenTimes, TouchingStretchesDoNotOverlap)
{
    CTakenTimes taken;
    EXPECT_FALSE(taken.Overlaps(DATE(1), DATE(2)));
    taken.Take(DATE(10), DATE(20));
    struct SCase
    {
        double dStart;
        double dEnd;
        bool bOverlaps;
    };
    for (const SCase& c : std::initializer_list<SCase>{{0, 10, false},
                                                       {20, 30, false},
                                                       {0, 10.5, true},
                                                       {19.5, 30, true},
                                                       {12, 13, true},
                                                       {0, 30, true},
                                                       {10, 20, true},
                                                       {15, 15, true},  // no length, within
                                                       {10, 10, false}, // no length, at an end
                                                       {20, 20, false},
                                                       {18, 12, true},  // backward, within
                                                       {22, 8, false}}) // backward, around
        EXPECT_EQ(taken.Overlaps(DATE(c.dStart), DATE(c.dEnd)), c.bOverlaps) << c.dStart << " to " << c.dEnd;
}

TEST(TakenTimes, AgreesWithAListOfAll)
{
    test::CRandom random(7);
    int nRefused = 0;
    int nTaken = 0;
    for (int nRound = 0; nRound < 2000; ++nRound) {
        CTakenTimes taken;
        Stretches naive;
        const int nSpan = random.OneOf({6, 30, 400});
        for (int i = 0; i < 40; ++i) {
            const double dStart = random.Below(nSpan);
            double dEnd = dStart + random.Below(random.OneOf({2, 5, 30}));
            if (random.Chance(0.15))
                dEnd = dStart - random.Below(5);
            const bool bOverlaps = NaiveOverlaps(naive, dStart, dEnd);
            ASSERT_EQ(taken.Overlaps(DATE(dStart), DATE(dEnd)), bOverlaps)
                << "round " << nRound << ": " << dStart << " to " << dEnd;
            ++(bOverlaps ? nRefused : nTaken);
            if (bOverlaps)
                continue;
            taken.Take(DATE(dStart), DATE(dEnd));
            naive.emplace_back(dStart, dEnd);
        }
    }
    EXPECT_GT(nRefused, 10000);
    EXPECT_GT(nTaken, 10000);
}

} // namespace
} // namespace kestrabel
