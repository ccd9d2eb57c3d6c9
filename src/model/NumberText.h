#pragma once

#include <cstdint>
#include <string>

namespace kestrabel {

/// Formatters write no more decimals than this.
inline constexpr std::int32_t MaxDecimals = 32;

/// A number as text, the one form for grids, dialogs, exports and reports: fixed point, rounded to the given
/// number of decimals by the exact value (halves, which only binary fractions can be, to even).
///
///  - Exactly 0, not-a-number and a value that rounds to 0 give "0".
///  - A value below 1 in magnitude has no digit before the point: ".5". Below 0.1 it is always trimmed.
///  - `bTrim` removes trailing zeros, and a point left at the end.
///  - The text is cut at 30 characters. Decimals are limited to 0 to 32. Infinity gives "inf" or "-inf".
std::string FormatNumber(double dValue, std::int32_t nDecimals, bool bTrim);

/// The same form under the name that file writers know it by.
inline std::string FormatFixed(double dValue, std::int32_t nDecimals, bool bTrim)
{
    return FormatNumber(dValue, nDecimals, bTrim);
}

/// A sign character ("+" for what is 0 when rounded, and above) and the magnitude by `FormatFixed` without
/// trimming: a latitude or longitude in a track file.
std::string FormatSigned(double dValue, std::int32_t nDecimals);

/// Fixed point with the given number of decimals (0 to 32) and leading zeros up to a width: a duration in a
/// grid cell. Not-a-number and infinity give "0".
std::string FormatPadded(double dValue, std::int32_t nWidth, std::int32_t nDecimals);

} // namespace kestrabel
