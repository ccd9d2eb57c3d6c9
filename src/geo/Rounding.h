#pragma once

#include <array>
#include <cmath>
#include <cstddef>

namespace kestrabel {

namespace RoundingTable {
inline constexpr int LowestPlaces = -9;
inline constexpr int HighestPlaces = 32;
inline constexpr std::array<double, HighestPlaces - LowestPlaces + 1> PowersOfTen = {
    1e-9, 1e-8, 1e-7, 1e-6, 1e-5, 1e-4, 1e-3, 1e-2, 1e-1, 1e0,  1e1,  1e2,  1e3,  1e4,
    1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18,
    1e19, 1e20, 1e21, 1e22, 1e23, 1e24, 1e25, 1e26, 1e27, 1e28, 1e29, 1e30, 1e31, 1e32,
};
} // namespace RoundingTable

/// Rounds half away from zero at a number of decimal places, -9 to 32; outside that range, and for exactly 0,
/// the value is returned unchanged. Not-a-number stays so. Time differences in seconds are rounded with 3,
/// millions of times per calculation, which is why it stands here in full.
///
/// The scaling is done in double precision: a value that the multiplication by 10^places lifts to the next
/// half rounds up, and beyond 2^53 / 10^places the result is the value up to a few units in the last place.
inline double RoundTo(double dValue, signed char nPlaces)
{
    using namespace RoundingTable;
    if (dValue == 0.0 || nPlaces < LowestPlaces || nPlaces > HighestPlaces)
        return dValue;
    const double dPower = PowersOfTen[static_cast<std::size_t>(nPlaces - LowestPlaces)];
    return dValue > 0.0 ? std::floor(dValue * dPower + 0.5) / dPower
                        : std::ceil(dValue * dPower - 0.5) / dPower;
}

} // namespace kestrabel
