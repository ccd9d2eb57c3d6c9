#pragma once

#include "geo/Angle.h"
#include "model/Event.h"
#include "model/NumberText.h"
#include "model/SpeedUnits.h"
#include "model/TimeText.h"

#include <algorithm>
#include <string>

namespace kestrabel {

/// The forms of the numbers in both grids, by the event's units and precisions.
struct SCellText
{
    const CEvent& event;

    double ShownSpeed(double dKmh) const { return dKmh * SpeedUnitOf(event.m_nSpeedUnits).dDisplayFactor; }
    std::string Speed(double dKmh) const
    {
        return FormatNumber(ShownSpeed(dKmh), event.m_nSpeedPrecision, true);
    }
    std::string Metres(double dMetres) const
    {
        return FormatNumber(dMetres, event.m_nDistancePrecision, true);
    }
    std::string LatLong(double dDegrees) const
    {
        return FormatNumber(dDegrees, event.m_nLatLongPrecision, true);
    }
    std::string Degrees(double dRadians) const { return FormatNumber(dRadians * RadiansToDegrees, 0, true); }
    DATE ShownTime(const DATE& time) const { return ShiftToTimezone(time, event.m_dTimezone); }
    std::string Time(const DATE& time) const
    {
        return FormatTimeOfDay(ShownTime(time), event.m_nTimePrecision);
    }
    /// A duration, zeros before it.
    std::string Seconds(double dSeconds) const
    {
        const std::int32_t nDecimals = std::clamp(event.m_nTimePrecision, 0, MaxDecimals);
        return FormatPadded(dSeconds, nDecimals + 2, nDecimals);
    }
};

inline constexpr double KilometresToMetres = 1000.0;

} // namespace kestrabel
