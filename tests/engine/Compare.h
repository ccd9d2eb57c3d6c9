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

/// Equal to the bit; any two not-a-numbers are the same.
inline bool IsSame(double dOne, double dOther)
{
    if (std::isnan(dOne) && std::isnan(dOther))
        return true;
    return std::bit_cast<std::uint64_t>(dOne) == std::bit_cast<std::uint64_t>(dOther);
}

template <class T>
bool IsSame(const T& one, const T& other)
{
    return one == other;
}

inline void Print(std::ostream& out, const DATE& date)
{
    out << date.m_dDays << '/' << date.m_nStatus;
}

inline void Print(std::ostream& out, const CPosition& position)
{
    out << position.m_dLatitude << ',' << position.m_dLongitude;
}

inline void Print(std::ostream& out, const CGeoRect& rc)
{
    out << rc.m_dWest << ',' << rc.m_dNorth << ',' << rc.m_dEast << ',' << rc.m_dSouth;
}

inline void Print(std::ostream& out, const std::string& strText)
{
    out << strText;
}

template <class T>
requires std::is_arithmetic_v<T>
void Print(std::ostream& out, T value)
{
    out << +value; // a byte as a number
}

/// One field, whatever its type.
template <class T>
struct SField
{
    template <class TValue>
    SField(const char* strFieldName, TValue T::*pField)
        : strName(strFieldName),
          print([pField](std::ostream& out, const T& object) { Print(out, object.*pField); }),
          isSame([pField](const T& one, const T& other) { return IsSame(one.*pField, other.*pField); })
    {
    }

    const char* strName;
    std::function<void(std::ostream&, const T&)> print;
    std::function<bool(const T&, const T&)> isSame;
};

inline const std::vector<SField<CTrackPoint>>& PointFields()
{
    using C = CTrackPoint;
    static const std::vector<SField<C>> fields = {
        {"flags", &C::m_nInvalidFlags},
        {"track", &C::m_nTrack},
        {"series", &C::m_nSeriesIndex},
        {"time", &C::m_time},
        {"position", &C::m_position},
        {"direction", &C::m_dDirection},
        {"delta time", &C::m_dDeltaTime},
        {"distance", &C::m_dDistance},
        {"speed", &C::m_dSpeed},
        {"total distance", &C::m_dTotalDistance},
        {"Doppler step", &C::m_dDopplerStep},
        {"total Doppler distance", &C::m_dTotalDopplerDistance},
        {"sum of step squares", &C::m_dSumStepSquares},
        {"wind angle", &C::m_dWindAngle},
        {"run", &C::m_nRun},
        {"Doppler run", &C::m_nDopplerRun},
        {"Doppler", &C::m_dDoppler},
        {"vertical speed", &C::m_dVertSpeed},
        {"HDOP", &C::m_dHDOP},
        {"satellites", &C::m_nSats},
        {"altitude", &C::m_nAltitude},
    };
    return fields;
}

inline const std::vector<SField<CSeries>>& StatisticsFields()
{
    using C = CSeries;
    static const std::vector<SField<C>> fields = {
        {"total distance", &C::m_dTotalDistance},
        {"total Doppler distance", &C::m_dTotalDopplerDistance},
        {"travel time", &C::m_dTravelTime},
        {"max speed", &C::m_dMaxSpeed},
        {"max Doppler", &C::m_dMaxDoppler},
        {"min altitude", &C::m_dMinAltitude},
        {"max altitude", &C::m_dMaxAltitude},
        {"max HDOP", &C::m_dMaxResultHDOP},
        {"satellites", &C::m_dMinResultSats},
        {"bounds", &C::m_rcBounds},
        {"has Doppler", &C::m_bHasDoppler},
        {"time start", &C::m_timeStart},
        {"time end", &C::m_timeEnd},
    };
    return fields;
}

inline const std::vector<SField<SResultValues>>& ResultFields()
{
    using C = SResultValues;
    static const std::vector<SField<C>> fields = {
        {"rank", &C::m_nRank},
        {"start index", &C::m_nStartIndex},
        {"end index", &C::m_nEndIndex},
        {"series index", &C::m_nSeriesIndex},
        {"person index", &C::m_nPersonIndex},
        {"competitor", &C::m_strCompetitor},
        {"start position", &C::m_posStart},
        {"start time", &C::m_timeStart},
        {"end position", &C::m_posEnd},
        {"end time", &C::m_timeEnd},
        {"distance", &C::m_dDistance},
        {"direction", &C::m_dDirection},
        {"speed", &C::m_dSpeed},
        {"min speed", &C::m_dMinSpeed},
        {"max speed", &C::m_dMaxSpeed},
        {"seconds", &C::m_dSeconds},
        {"run", &C::m_nRun},
        {"division", &C::m_strDivision},
        {"series", &C::m_strSeries},
        {"wind angle", &C::m_dWindAngle},
        {"altitude", &C::m_dAltitude},
        {"alt change", &C::m_dAltChange},
        {"HDOP max", &C::m_dHDOPMax},
        {"claimed", &C::m_dClaimed},
        {"sats min", &C::m_nSatsMin},
        {"pos error", &C::m_dPosError},
        {"Doppler error", &C::m_dDopplerError},
        {"waypoint", &C::m_nWaypoint},
        {"waypoint 2", &C::m_nWaypoint2},
    };
    return fields;
}

/// The fields in which two objects differ, with both values; empty when there are none.
template <class T>
std::string Differences(const std::vector<SField<T>>& fields, const T& one, const T& other)
{
    std::ostringstream out;
    out.precision(std::numeric_limits<double>::max_digits10);
    for (const SField<T>& field : fields) {
        if (field.isSame(one, other))
            continue;
        out << field.strName << ": ";
        field.print(out, one);
        out << " != ";
        field.print(out, other);
        out << "; ";
    }
    return out.str();
}

} // namespace kestrabel::test
