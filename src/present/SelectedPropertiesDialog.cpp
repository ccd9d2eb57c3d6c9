#include "present/SelectedPropertiesDialog.h"

#include "model/NumberText.h"
#include "model/SpeedUnits.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

constexpr std::int32_t DeviationDecimals = 3;

struct SSpread
{
    double dMean = 0.0;
    double dDeviation = 0.0; ///< of the whole, not of a sample
};

/// Two passes: speeds of a long track differ little, and squares of large numbers would hide it.
SSpread SpreadOf(const std::vector<const CTrackPoint*>& points, double CTrackPoint::*pSpeed)
{
    SSpread spread;
    if (points.empty())
        return spread;
    const auto dCount = static_cast<double>(points.size());
    for (const CTrackPoint* pPoint : points)
        spread.dMean += pPoint->*pSpeed;
    spread.dMean /= dCount;
    if (points.size() == 1)
        return spread;
    double dSquares = 0.0;
    for (const CTrackPoint* pPoint : points)
        dSquares += (pPoint->*pSpeed - spread.dMean) * (pPoint->*pSpeed - spread.dMean);
    spread.dDeviation = std::sqrt(dSquares / dCount);
    return spread;
}

} // namespace

SSelectedPropertiesDialog SSelectedPropertiesDialog::From(const CEvent& event,
                                                          std::span<const CTrackPoint* const> points)
{
    std::vector<const CTrackPoint*> counted;
    std::ranges::copy_if(points, std::back_inserter(counted),
                         [](const CTrackPoint* p) { return p->IsValidFor(InvalidMask::Fix); });
    double dSeconds = 0.0;
    double dKilometres = 0.0;
    std::int32_t nHighest = counted.empty() ? 0 : counted.front()->m_nAltitude;
    std::int32_t nLowest = nHighest;
    for (const CTrackPoint* pPoint : counted) {
        dSeconds += pPoint->StepSeconds();
        dKilometres += pPoint->m_dDistance;
        nHighest = std::max(nHighest, pPoint->m_nAltitude);
        nLowest = std::min(nLowest, pPoint->m_nAltitude);
    }
    const SSpread doppler = SpreadOf(counted, &CTrackPoint::m_dDoppler);
    const SSpread speed = SpreadOf(counted, &CTrackPoint::m_dSpeed);
    const double dFactor = SpeedUnitOf(event.m_nSpeedUnits).dDisplayFactor;
    const auto distance = [&](double d) { return FormatNumber(d, event.m_nDistancePrecision, true); };
    const auto altitude = [&](std::int32_t n) { return counted.empty() ? std::string() : distance(n); };
    const auto mean = [&](double d) { return FormatNumber(d * dFactor, event.m_nSpeedPrecision, true); };
    const auto deviation = [&](double d) { return FormatNumber(d * dFactor, DeviationDecimals, true); };
    SSelectedPropertiesDialog dialog;
    dialog.lines = {
        {"Number of Points:", std::to_string(counted.size())},
        {"Travel Time:", FormatNumber(dSeconds, event.m_nTimePrecision, true)},
        {"Distance(Kms):", distance(dKilometres)},
        {"Distance (Nms):", distance(dKilometres * SpeedUnitOf(SpeedUnit::Knots).dDisplayFactor)},
        {"Maximum Altitude (m):", altitude(nHighest)},
        {"Minimum Altitude (m):", altitude(nLowest)},
        {"Doppler Average:", mean(doppler.dMean)},
        {"Speed Average:", mean(speed.dMean)},
        {"Doppler Std Dev:", deviation(doppler.dDeviation)},
        {"Speed Std Dev:", deviation(speed.dDeviation)},
    };
    return dialog;
}

} // namespace kestrabel
