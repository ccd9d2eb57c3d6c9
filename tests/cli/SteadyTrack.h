#pragma once

#include "geo/Angle.h"

#include <string>

namespace kestrabel::test {

// Tracks whose speed anybody can work out: straight north along a meridian at one fix a second. On the sphere
// (radius 6371 km, "--set Ellipsoid=5") a minute of latitude is 6371 km * π / 180 / 60.

inline constexpr const char* OnTheSphere = "Ellipsoid=5";

/// km/h at so many minutes of latitude a second.
constexpr double SteadySpeed(double dMinutesPerSecond)
{
    return 6371.0 * Pi / 180.0 / 60.0 * dMinutesPerSecond * 3600.0;
}

/// One RMC sentence: `nSecond` seconds after 10:00 UTC on 1 June 2024, at 50° N plus so many minutes.
inline std::string RmcLine(int nSecond, double dMinutes)
{
    return "$GPRMC," + std::to_string(100000 + nSecond / 60 * 100 + nSecond % 60) + ",A,50" +
           (dMinutes < 10.0 ? "0" : "") + std::to_string(dMinutes) + ",N,00100.000000,W,20.0,0.0,010624\n";
}

/// An NMEA log of `nPoints` fixes.
inline std::string SteadyNmea(int nPoints, double dMinutesPerSecond)
{
    std::string strLog;
    for (int i = 0; i < nPoints; ++i)
        strLog += RmcLine(i, i * dMinutesPerSecond);
    return strLog;
}

} // namespace kestrabel::test
