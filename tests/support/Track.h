#pragma once

#include "model/Series.h"

#include <cmath>
#include <memory>
#include <vector>

namespace kestrabel::test {

/// A point at a time of 1 June 2024 (seconds after 10:00:00) and a position.
inline std::unique_ptr<CTrackPoint> MakePoint(double dSecond, double dLatitude, double dLongitude)
{
    auto pPoint = std::make_unique<CTrackPoint>();
    pPoint->m_time = DATE::FromCalendar({.nYear = 2024, .nMonth = 6, .nDay = 1, .nHour = 10})
                         .Plus(dSecond * DaysPerSecond);
    pPoint->m_position = MakePosition(dLatitude, dLongitude);
    return pPoint;
}

} // namespace kestrabel::test
