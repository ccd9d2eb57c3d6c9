#pragma once

#include <cstdint>
#include <string_view>

namespace kestrabel {

/// A display unit of speed; the model itself always holds km/h.
struct SSpeedUnit
{
    std::string_view strText;   ///< in the list of units: "nm", "kmh", "ms", "mph"
    std::string_view strSuffix; ///< behind "Speed" in an export: "(knots)", …
    double dDisplayFactor;      ///< from km/h
    double dEntryFactor;        ///< to km/h
};

namespace SpeedUnit {
inline constexpr std::int32_t Knots = 0;
inline constexpr std::int32_t KilometresPerHour = 1;
inline constexpr std::int32_t MetresPerSecond = 2;
inline constexpr std::int32_t MilesPerHour = 3;
} // namespace SpeedUnit

/// The unit of that number; a number outside 0 to 3 is shown as metres per second.
const SSpeedUnit& SpeedUnitOf(std::int32_t nSpeedUnits);

} // namespace kestrabel
