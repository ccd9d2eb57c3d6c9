#include "geo/Rounding.h"

#include <cmath>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(Rounding, HalvesGoAwayFromZero)
{
    const struct
    {
        double dValue;
        int nPlaces;
        double dRounded;
    } cases[] = {
        {0.0, 3, 0.0},
        {0.5, 0, 1.0},
        {-0.5, 0, -1.0},
        {2.5, 0, 3.0},
        {-2.5, 0, -3.0},
        {0.49999, 0, 0.0},
        {0.0005, 3, 0.001},
        {-0.0005, 3, -0.001},
        {0.00049, 3, 0.0},
        {1.2344999, 3, 1.234},
        {0.125, 2, 0.13},
        {-0.125, 2, -0.13},
        {15.0, -1, 20.0},
        {-15.0, -1, -20.0},
        {1.5e9, -9, 2e9},
        {1.5e9, -10, 1.5e9}, // places out of range
        {1.25, 33, 1.25},
        {1.25, 127, 1.25},
        {-1.25, -128, -1.25},
        {1e-32, 32, 1e-32},
        {1e300, 3, 1e300},
        {86399.9994, 3, 86399.999},
        {86399.9995, 3, 86400.0},
    };
    for (const auto& test : cases)
        EXPECT_DOUBLE_EQ(RoundTo(test.dValue, static_cast<signed char>(test.nPlaces)), test.dRounded)
            << test.dValue << " to " << test.nPlaces;
    EXPECT_TRUE(std::isnan(RoundTo(std::nan(""), 3)));
    EXPECT_TRUE(std::isinf(RoundTo(HUGE_VAL, 3)));
    // What is rounded stays as it is when rounded again: millisecond steps of a day.
    for (int i = 0; i < 86'400'000; i += 997)
        ASSERT_EQ(RoundTo(RoundTo(i * 0.001, 3), 3), i / 1000.0) << i;
}

} // namespace
} // namespace kestrabel
