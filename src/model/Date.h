#pragma once

#include "geo/Rounding.h"

#include <cstdint>
#include <optional>

namespace kestrabel {

inline constexpr double SecondsPerDay = 86400.0;
inline constexpr double MillisecondsPerDay = 86400000.0;
inline constexpr double DaysPerSecond = 1.1574074074074073e-05;
inline constexpr double DaysPerMillisecond = 1.1574074074074074e-8;

/// A date and time of the calendar.
struct SCalendar
{
    int nYear = 0;
    int nMonth = 0; ///< 1 to 12
    int nDay = 0;   ///< 1 to 31
    int nHour = 0;
    int nMinute = 0;
    int nSecond = 0;
    int nMillisecond = 0;

    bool operator==(const SCalendar&) const = default;
};

/// A date-time value: days since midnight of 30 December 1899, counted evenly (the fraction is the time of
/// day, also before that date), and a status. Plain time, without a zone; years 100 to 9999.
/// A double resolves well below a microsecond in this century.
class DATE
{
public:
    enum EStatus : std::uint8_t
    {
        Valid = 0,
        Invalid = 1,
        Null = 2
    };

    DATE() = default;
    explicit DATE(double dDays) : m_dDays(dDays) {}

    static DATE MakeInvalid() { return {0.0, Invalid}; }
    static DATE MakeNull() { return {0.0, Null}; }

    /// Fields that name no date or time (month 13, 31 February, second 60) give an invalid value. It keeps
    /// the time of day where that is one, so that two fixes of a logger without a date stay apart. The
    /// milliseconds are not read.
    static DATE FromCalendar(const SCalendar& calendar);

    /// The machine's current local date and time, to the second.
    static DATE Now();

    bool IsValid() const { return m_nStatus == Valid; }

    /// The calendar fields of the time rounded to whole milliseconds; nothing when the value is not valid or
    /// outside the calendar.
    std::optional<SCalendar> ToCalendar() const;
    /// The same, rounded to the nearest whole second (halves up).
    std::optional<SCalendar> ToCalendarSecond() const;

    /// -1 when there is none.
    int Year() const;
    /// True when the time, rounded to milliseconds, lies before 1 January of that year, or is not valid.
    bool IsBeforeYear(int nYear) const;

    /// Days are added to the value; the status stays.
    DATE Plus(double dDays) const { return {m_dDays + dDays, m_nStatus}; }

    /// Same status and exactly the same value.
    bool operator==(const DATE&) const = default;

    double m_dDays = 0.0;
    EStatus m_nStatus = Valid;

private:
    DATE(double dDays, EStatus nStatus) : m_dDays(dDays), m_nStatus(nStatus) {}
};

/// The time from one value to another in seconds, rounded to milliseconds half away from zero.
inline double SecondsBetween(const DATE& from, const DATE& to)
{
    return RoundTo((to.m_dDays - from.m_dDays) * SecondsPerDay, 3);
}

} // namespace kestrabel
