#include "model/Date.h"

#include <chrono>
#include <cmath>
#include <ctime>

namespace kestrabel {

namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days Epoch = std::chrono::year(1899) / 12 / 30;
constexpr int FirstYear = 100;
constexpr int LastYear = 9999;
constexpr std::int64_t MillisecondsInDay = 86400000;

constexpr std::int64_t DayNumber(int nYear, int nMonth, int nDay)
{
    const sys_days days = std::chrono::year(nYear) / nMonth / nDay;
    return (days - Epoch).count();
}

constexpr std::int64_t FirstDay = DayNumber(FirstYear, 1, 1);
constexpr std::int64_t EndDay = DayNumber(LastYear + 1, 1, 1);

bool IsInCalendar(double dDays)
{
    return dDays >= static_cast<double>(FirstDay) && dDays < static_cast<double>(EndDay);
}

std::optional<SCalendar> SplitMilliseconds(std::int64_t nTotal)
{
    std::int64_t nDay = nTotal / MillisecondsInDay;
    std::int64_t nRest = nTotal % MillisecondsInDay;
    if (nRest < 0) {
        nRest += MillisecondsInDay;
        --nDay;
    }
    if (nDay >= EndDay)
        return std::nullopt; // rounded up out of the last year
    const year_month_day date(Epoch + std::chrono::days(nDay));
    const auto Part = [&](std::int64_t nUnit, std::int64_t nCount) {
        return static_cast<int>(nRest / nUnit % nCount);
    };
    return SCalendar{.nYear = static_cast<int>(date.year()),
                     .nMonth = static_cast<int>(static_cast<unsigned>(date.month())),
                     .nDay = static_cast<int>(static_cast<unsigned>(date.day())),
                     .nHour = Part(3600000, 24),
                     .nMinute = Part(60000, 60),
                     .nSecond = Part(1000, 60),
                     .nMillisecond = Part(1, 1000)};
}

bool IsDay(const SCalendar& calendar)
{
    if (calendar.nYear < FirstYear || calendar.nYear > LastYear || calendar.nMonth < 1 || calendar.nDay < 1)
        return false;
    return (std::chrono::year(calendar.nYear) / calendar.nMonth / calendar.nDay).ok();
}

std::int64_t RoundedMilliseconds(double dDays)
{
    return std::llround(dDays * MillisecondsPerDay);
}

} // namespace

DATE DATE::FromCalendar(const SCalendar& calendar)
{
    const auto IsBelow = [](int nValue, int nLimit) { return nValue >= 0 && nValue < nLimit; };
    if (!IsBelow(calendar.nHour, 24) || !IsBelow(calendar.nMinute, 60) || !IsBelow(calendar.nSecond, 60))
        return MakeInvalid();
    const int nSeconds = (calendar.nHour * 60 + calendar.nMinute) * 60 + calendar.nSecond;
    const double dTimeOfDay = static_cast<double>(nSeconds) / SecondsPerDay;
    if (!IsDay(calendar))
        return {dTimeOfDay, Invalid};
    return DATE(static_cast<double>(DayNumber(calendar.nYear, calendar.nMonth, calendar.nDay)) + dTimeOfDay);
}

DATE DATE::Now()
{
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    ::localtime_r(&now, &local);
    return FromCalendar({.nYear = local.tm_year + 1900,
                         .nMonth = local.tm_mon + 1,
                         .nDay = local.tm_mday,
                         .nHour = local.tm_hour,
                         .nMinute = local.tm_min,
                         .nSecond = local.tm_sec < 60 ? local.tm_sec : 59});
}

std::optional<SCalendar> DATE::ToCalendar() const
{
    if (!IsValid() || !IsInCalendar(m_dDays))
        return std::nullopt;
    return SplitMilliseconds(RoundedMilliseconds(m_dDays));
}

std::optional<SCalendar> DATE::ToCalendarSecond() const
{
    if (!IsValid() || !IsInCalendar(m_dDays))
        return std::nullopt;
    // From the rounded milliseconds, so that both splits agree about what a half is.
    const std::int64_t nHalfUp = RoundedMilliseconds(m_dDays) + 500;
    return SplitMilliseconds(nHalfUp - ((nHalfUp % 1000) + 1000) % 1000);
}

int DATE::Year() const
{
    const std::optional<SCalendar> calendar = ToCalendar();
    return calendar ? calendar->nYear : -1;
}

bool DATE::IsBeforeYear(int nYear) const
{
    if (!IsValid() || !IsInCalendar(m_dDays))
        return true;
    return RoundedMilliseconds(m_dDays) < DayNumber(nYear, 1, 1) * MillisecondsInDay;
}

} // namespace kestrabel
