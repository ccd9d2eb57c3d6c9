#pragma once

#include "model/Series.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

// Every field of a point, a result and a track file's statistics, so that two of them can be compared to the
// bit.

namespace kestrabel::test {

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

template <class T>
void Print(std::ostream& out, const T& value)
{
    if constexpr (std::is_arithmetic_v<T>)
        out << +value; // a byte as a number
    else if constexpr (std::is_same_v<T, DATE>)
        out << value.m_dDays;
    else
        out << "(another)";
}

/// One field, whatever its type: says how two objects differ in it, or nothing. Known by its place in the
/// list.
template <class T>
using SField = std::function<void(std::ostream&, std::size_t, const T&, const T&)>;

template <class T, class... TFields>
std::vector<SField<T>> Fields(TFields... pFields)
{
    return {[=](std::ostream& out, std::size_t nField, const T& one, const T& other) {
        if (IsSame(one.*pFields, other.*pFields))
            return;
        Print(out << "field " << nField << ": ", one.*pFields);
        Print(out << " != ", other.*pFields);
        out << "; ";
    }...};
}

inline const std::vector<SField<CTrackPoint>>& PointFields()
{
    using C = CTrackPoint;
    static const auto fields = Fields<C>(
        &C::m_nInvalidFlags, &C::m_nTrack, &C::m_nSeriesIndex, &C::m_time, &C::m_position, &C::m_dDirection,
        &C::m_dDeltaTime, &C::m_dDistance, &C::m_dSpeed, &C::m_dTotalDistance, &C::m_dDopplerStep,
        &C::m_dTotalDopplerDistance, &C::m_dSumStepSquares, &C::m_dWindAngle, &C::m_nRun, &C::m_nDopplerRun,
        &C::m_dDoppler, &C::m_dVertSpeed, &C::m_dHDOP, &C::m_nSats, &C::m_nAltitude);
    return fields;
}

inline const std::vector<SField<CSeries>>& StatisticsFields()
{
    using C = CSeries;
    static const auto fields =
        Fields<C>(&C::m_dTotalDistance, &C::m_dTotalDopplerDistance, &C::m_dTravelTime, &C::m_dMaxSpeed,
                  &C::m_dMaxDoppler, &C::m_dMinAltitude, &C::m_dMaxAltitude, &C::m_dMaxResultHDOP,
                  &C::m_dMinResultSats, &C::m_rcBounds, &C::m_bHasDoppler, &C::m_timeStart, &C::m_timeEnd);
    return fields;
}

inline const std::vector<SField<SResultValues>>& ResultFields()
{
    using C = SResultValues;
    static const auto fields =
        Fields<C>(&C::m_nRank, &C::m_nStartIndex, &C::m_nEndIndex, &C::m_nSeriesIndex, &C::m_nPersonIndex,
                  &C::m_strCompetitor, &C::m_posStart, &C::m_timeStart, &C::m_posEnd, &C::m_timeEnd,
                  &C::m_dDistance, &C::m_dDirection, &C::m_dSpeed, &C::m_dMinSpeed, &C::m_dMaxSpeed,
                  &C::m_dSeconds, &C::m_nRun, &C::m_strDivision, &C::m_strSeries, &C::m_dWindAngle,
                  &C::m_dAltitude, &C::m_dAltChange, &C::m_dHDOPMax, &C::m_dClaimed, &C::m_nSatsMin,
                  &C::m_dPosError, &C::m_dDopplerError, &C::m_nWaypoint, &C::m_nWaypoint2);
    return fields;
}

/// The fields in which two objects differ, with both values; empty when there are none.
template <class T>
std::string Differences(const std::vector<SField<T>>& fields, const T& one, const T& other)
{
    std::ostringstream out;
    out.precision(std::numeric_limits<double>::max_digits10);
    for (std::size_t i = 0; i < fields.size(); ++i)
        fields[i](out, i, one, other);
    return out.str();
}

} // namespace kestrabel::test
