#include "model/SpeedUnits.h"

#include <array>

namespace kestrabel {

const SSpeedUnit& SpeedUnitOf(std::int32_t nSpeedUnits)
{
    static constexpr std::array<SSpeedUnit, 4> units = {{
        {"nm", "(knots)", 0.5399568034557235, 1.852},
        {"kmh", "(kph)", 1.0, 1.0},
        {"ms", "(m/s)", 0.2777777777777778, 3.6},
        {"mph", "(mph)", 0.621371192237334, 1.609344},
    }};
    const bool bKnown = nSpeedUnits >= 0 && nSpeedUnits < static_cast<std::int32_t>(units.size());
    return units[static_cast<std::size_t>(bKnown ? nSpeedUnits : SpeedUnit::MetresPerSecond)];
}

} // namespace kestrabel
