#include "present/map/MapColors.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

constexpr double StillSpeed = 0.5; // display units
constexpr double FullBright = 200.0;
constexpr double HalfBright = 130.0;
constexpr int ColouredFiles = 4;

int Shade(double dBright, double dFraction)
{
    return static_cast<int>(std::floor(dBright * dFraction));
}

SSceneColor Colour(int nRed, int nGreen, int nBlue)
{
    return {static_cast<std::uint8_t>(nRed), static_cast<std::uint8_t>(nGreen),
            static_cast<std::uint8_t>(nBlue)};
}

} // namespace

double SpeedFraction(double dSpeed, double dViewMaxSpeed)
{
    if (dViewMaxSpeed <= StillSpeed)
        return 0.5;
    const double dFraction = dSpeed / dViewMaxSpeed;
    return dFraction > 0.0 ? std::min(dFraction, 1.0) : 0.0; // 0 for what is no number
}

int SpeedStep(int nFile, double dFraction)
{
    switch (nFile) {
    case 0:
    case 1: return Shade(FullBright, dFraction);
    case 2: return Shade(HalfBright, dFraction);
    // Both shades grow with the speed: where one of them changes, their sum does.
    case 3: return Shade(FullBright, dFraction) + Shade(HalfBright, dFraction);
    default: return 0;
    }
}

SScenePen SpeedPen(int nFile, double dFraction)
{
    if (nFile >= ColouredFiles)
        return {ESceneRole::Track, {0, 0, 0}};
    const int nFull = Shade(FullBright, dFraction);
    const int nHalf = Shade(HalfBright, dFraction);
    const int nFullRest = static_cast<int>(FullBright) - nFull;
    const int nHalfRest = static_cast<int>(HalfBright) - nHalf;
    SSceneColor color = Colour(0, nFull, nFullRest);
    if (nFile == 1)
        color = Colour(nFull, nFull, nFullRest);
    else if (nFile == 2)
        color = Colour(0, nHalf, nHalfRest);
    else if (nFile == 3)
        color = Colour(nFull, nHalfRest, nHalfRest);
    return {ESceneRole::Data, color};
}

} // namespace kestrabel
