#pragma once

#include "geo/Position.h"
#include "model/Date.h"
#include "model/Persistent.h"

#include <cstdint>
#include <string>

namespace kestrabel {

/// What a copy of a result takes over.
struct SResultValues
{
    std::int32_t m_nRank = -1;        ///< 1 = best; -1 until ranked
    std::int32_t m_nStartIndex = -1;  ///< first point of the run in its file; -1 = none
    std::int32_t m_nEndIndex = -1;    ///< last point of the run; -1 = none
    std::int32_t m_nSeriesIndex = -1; ///< the file within its competitor; -1 = none
    std::int32_t m_nPersonIndex = -1; ///< the competitor within the event; -1 = none
    std::string m_strCompetitor;
    CPosition m_posStart; ///< degrees
    DATE m_timeStart;
    CPosition m_posEnd; ///< degrees
    DATE m_timeEnd;
    double m_dDistance = 0.0;  ///< km
    double m_dDirection = 0.0; ///< radians, mean over the points
    double m_dSpeed = 0.0;     ///< km/h
    double m_dMinSpeed = 0.0;  ///< km/h
    double m_dMaxSpeed = 0.0;  ///< km/h
    double m_dSeconds = 0.0;   ///< duration, seconds
    std::int32_t m_nRun = 0;
    std::string m_strDivision;
    std::string m_strSeries;   ///< name of the track file
    double m_dWindAngle = 0.0; ///< radians
    double m_dAltitude = 0.0;  ///< metres at the start
    double m_dAltChange = 0.0; ///< metres from start to end
    double m_dHDOPMax = 0.0;
    double m_dClaimed = 0.0; ///< km/h, the speed less its uncertainty; 0 when there is no estimate
    std::int32_t m_nSatsMin = 0;
    double m_dPosError = 0.0;       ///< km, uncertainty of the distance; 0 when there is no estimate
    double m_dDopplerError = 0.0;   ///< km/h, uncertainty of the speed; 0 when there is no estimate
    std::int32_t m_nWaypoint = -1;  ///< first gate; -1 = none
    std::int32_t m_nWaypoint2 = -1; ///< second gate; -1 = none
};

/// One run found in a track file for a division. Copying takes every value but `m_strWaypoint`, which the
/// copy keeps as it was.
class CResult : public CPersistent, public SResultValues
{
public:
    static const CClassRecord Class;
    const CClassRecord& ClassRecord() const override { return Class; }

    CResult() = default;
    CResult(const CResult& other) : CPersistent(other), SResultValues(other) {}
    CResult& operator=(const CResult& other)
    {
        SResultValues::operator=(other);
        return *this;
    }

    /// True when the two overlap in time; runs that only touch do not.
    bool Overlaps(const CResult& other) const
    {
        return m_timeEnd.m_dDays > other.m_timeStart.m_dDays && m_timeStart.m_dDays < other.m_timeEnd.m_dDays;
    }

    std::string m_strWaypoint; ///< names of the gates
};

} // namespace kestrabel
