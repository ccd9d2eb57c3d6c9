#pragma once

#include "model/Series.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <type_traits>

// Every field of a point, a result and a track file's statistics, compared to the bit.

namespace kestrabel::test {

inline constexpr int NoDifference = -1;

/// Numbers are equal to the bit; any two not-a-numbers are the same.
template <class T>
bool IsSame(const T& one, const T& other)
{
    if constexpr (std::is_same_v<T, double>)
        return (std::isnan(one) && std::isnan(other)) ||
               std::bit_cast<std::uint64_t>(one) == std::bit_cast<std::uint64_t>(other);
    else
        return one == other;
}

/// The place in the list of the first field that differs.
template <class T, class... TFields>
int FirstDifference(const T& one, const T& other, TFields... pFields)
{
    int nField = 0;
    return ((IsSame(one.*pFields, other.*pFields) && ++nField > 0) && ...) ? NoDifference : nField;
}

inline int Difference(const CTrackPoint& one, const CTrackPoint& other)
{
    using C = CTrackPoint;
    return FirstDifference(one, other, &C::m_nInvalidFlags, &C::m_nTrack, &C::m_nSeriesIndex, &C::m_time,
                           &C::m_position, &C::m_dDirection, &C::m_dDeltaTime, &C::m_dDistance, &C::m_dSpeed,
                           &C::m_dTotalDistance, &C::m_dDopplerStep, &C::m_dTotalDopplerDistance,
                           &C::m_dSumStepSquares, &C::m_dWindAngle, &C::m_nRun, &C::m_nDopplerRun,
                           &C::m_dDoppler, &C::m_dVertSpeed, &C::m_dHDOP, &C::m_nSats, &C::m_nAltitude);
}

inline int Difference(const CSeries& one, const CSeries& other)
{
    using C = CSeries;
    return FirstDifference(one, other, &C::m_dTotalDistance, &C::m_dTotalDopplerDistance, &C::m_dTravelTime,
                           &C::m_dMaxSpeed, &C::m_dMaxDoppler, &C::m_dMinAltitude, &C::m_dMaxAltitude,
                           &C::m_dMaxResultHDOP, &C::m_dMinResultSats, &C::m_rcBounds, &C::m_bHasDoppler,
                           &C::m_timeStart, &C::m_timeEnd);
}

inline int Difference(const SResultValues& one, const SResultValues& other)
{
    using C = SResultValues;
    return FirstDifference(one, other, &C::m_nRank, &C::m_nStartIndex, &C::m_nEndIndex, &C::m_nSeriesIndex,
                           &C::m_nPersonIndex, &C::m_strCompetitor, &C::m_posStart, &C::m_timeStart,
                           &C::m_posEnd, &C::m_timeEnd, &C::m_dDistance, &C::m_dDirection, &C::m_dSpeed,
                           &C::m_dMinSpeed, &C::m_dMaxSpeed, &C::m_dSeconds, &C::m_nRun, &C::m_strDivision,
                           &C::m_strSeries, &C::m_dWindAngle, &C::m_dAltitude, &C::m_dAltChange,
                           &C::m_dHDOPMax, &C::m_dClaimed, &C::m_nSatsMin, &C::m_dPosError,
                           &C::m_dDopplerError, &C::m_nWaypoint, &C::m_nWaypoint2);
}

} // namespace kestrabel::test
