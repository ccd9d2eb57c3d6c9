#pragma once

#include "model/Date.h"
#include "model/ObjectArray.h"
#include "model/Persistent.h"
#include "model/WayPoint.h"

#include <cstdint>
#include <string>

namespace kestrabel {

/// How a division finds its results; the values of `CDivision::m_nKind`.
namespace DivisionKind {
inline constexpr std::uint8_t Distance = 1;
inline constexpr std::uint8_t Time = 2;
inline constexpr std::uint8_t AlphaRacing = 3;
inline constexpr std::uint8_t LapRacing = 4;
inline constexpr std::uint8_t Splits = 5;
inline constexpr std::uint8_t CheckPoints = 6;
} // namespace DivisionKind

/// Which speed a division judges; the values of `CDivision::m_nCalcUsing`.
namespace CalcUsing {
inline constexpr std::uint8_t Trackpoints = 0;
inline constexpr std::uint8_t Doppler = 1;
inline constexpr std::uint8_t DopplerIfAvailable = 2;
} // namespace CalcUsing

/// One result category of an event. Competitors and per-file records refer to it by its name, which is unique
/// within the event without regard to case.
class CDivision : public CPersistent
{
public:
    static const CClassRecord Class;
    const CClassRecord& ClassRecord() const override { return Class; }

    /// True for the kinds that report everything they find instead of the best: laps, splits, checkpoints.
    bool KeepsAllResults() const
    {
        return m_nKind == DivisionKind::LapRacing || m_nKind == DivisionKind::Splits ||
               m_nKind == DivisionKind::CheckPoints;
    }

    std::string m_strName;
    std::uint8_t m_nKind = DivisionKind::Distance;
    double m_dMetres = 500.0;         ///< run length, longest path (alpha) or piece length (splits), metres
    double m_dFurther1 = 0.0;         ///< stored and loaded unchanged
    double m_dFurther2 = 0.0;         ///< stored and loaded unchanged
    double m_dMinCalcInterval = 0.0;  ///< stored only
    std::int32_t m_nStartAt = 0;      ///< stored only
    std::int32_t m_nSeconds = 10;     ///< run duration, seconds
    std::uint8_t m_nAverageRuns = 1;  ///< best runs averaged into one result, 1 to 99
    std::uint8_t m_bAccumulation = 0; ///< distance summed along the track, not in a straight line
    std::uint8_t m_bOneResultPerRun = 1; ///< a result lies within one run, and a run gives one result
    std::uint8_t m_bUseAltitude = 0;     ///< distances include the change of altitude
    double m_dProximity = 0.05;          ///< km
    std::uint8_t m_nCalcUsing = CalcUsing::Trackpoints;
    std::int32_t m_bStrict = 1;          ///< no invalid point inside a result
    DATE m_dateFrom;                     ///< stored and loaded unchanged
    DATE m_dateTo;                       ///< stored and loaded unchanged
    CObjectArray<CWayPoint> m_waypoints; ///< the gates of lap racing
};

} // namespace kestrabel
