#include "engine/IndexList.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(IndexList, TheNextOneInAnyOrderOfAsking)
{
    CIndexList list;
    EXPECT_EQ(list.FirstAfter(0, 99), 99);
    list.Add(0);
    EXPECT_EQ(list.FirstAfter(0, 99), 99) << "behind, not at";
    list.Add(4);
    EXPECT_EQ(list.FirstAfter(0, 99), 4) << "what was added since counts";
    list.Add(5);
    list.Add(20);
    const auto Expected = [](int n) { return n < 4 ? 4 : n < 5 ? 5 : n < 20 ? 20 : 99; };
    for (int nStep : {1, 7, 13}) {
        for (int i = 0; i < 25; ++i) {
            const int n = i * nStep % 25;
            EXPECT_EQ(list.FirstAfter(n, 99), Expected(n)) << n;
        }
    }
    EXPECT_EQ(list.FirstAfter(20, 50), 50);
    EXPECT_EQ(list.FirstAfter(22, 51), 51) << "the answer for none is the caller's";
}

} // namespace
} // namespace kestrabel
