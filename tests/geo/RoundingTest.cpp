#include "geo/Rounding.h"

#include <cmath>
#include <gtest/gtest.h>
#include <tuple>

namespace kestrabel {
namespace {

TEST(Rounding, HalvesGoAwayFromZero)
{
    // Value, places, rounded; places out of range change nothing.
    const std::tuple<double, int, double> cases[] = {
        {2.5, 0, 3.0},         {-2.5, 0, -3.0},      {0.49999, 0, 0.0},  {-0.0005, 3, -0.001},
        {1.2344999, 3, 1.234}, {15.0, -1, 20.0},     {1.5e9, -9, 2e9},   {1.5e9, -10, 1.5e9},
        {1.25, 33, 1.25},      {-1.25, -128, -1.25}, {1e-32, 32, 1e-32}, {86399.9995, 3, 86400.0}};
    for (const auto& [dValue, nPlaces, dRounded] : cases)
        EXPECT_DOUBLE_EQ(RoundTo(dValue, static_cast<signed char>(nPlaces)), dRounded) << dValue;
    // What is rounded stays as it is when rounded again: millisecond steps of a day.
    for (int i = 0; i < 86'400'000; i += 997)
        ASSERT_EQ(RoundTo(RoundTo(i * 0.001, 3), 3), i / 1000.0) << i;
}

} // namespace
} // namespace kestrabel
