#include "model/TimeText.h"

#include "geo/Rounding.h"

namespace kestrabel {

namespace {

/// Appends a number of at least `nDigits` digits.
void AppendNumber(std::string& strText, int nNumber, std::size_t nDigits)
{
    const std::string strDigits = std::to_string(nNumber);
    if (strDigits.size() < nDigits)
        strText.append(nDigits - strDigits.size(), '0');
    strText += strDigits;
}

void AppendTimeOfDay(std::string& strText, const SCalendar& calendar)
{
    AppendNumber(strText, calendar.nHour, 2);
    strText += ':';
    AppendNumber(strText, calendar.nMinute, 2);
    strText += ':';
    AppendNumber(strText, calendar.nSecond, 2);
}

void AppendDay(std::string& strText, const SCalendar& calendar)
{
    AppendNumber(strText, calendar.nYear, 4);
    strText += '-';
    AppendNumber(strText, calendar.nMonth, 2);
    strText += '-';
    AppendNumber(strText, calendar.nDay, 2);
}

std::string Iso(const SCalendar& calendar)
{
    std::string strText;
    AppendDay(strText, calendar);
    strText += 'T';
    AppendTimeOfDay(strText, calendar);
    return strText;
}

std::string IsoMillisecond(const SCalendar& calendar)
{
    std::string strText = Iso(calendar);
    strText += '.';
    AppendNumber(strText, calendar.nMillisecond, 3);
    return strText;
}

} // namespace

std::string FormatTimeOfDay(const DATE& time, std::int32_t nPrecision)
{
    const std::optional<SCalendar> calendar = time.ToCalendar();
    if (!calendar)
        return {};
    std::string strText;
    AppendTimeOfDay(strText, *calendar);
    if (nPrecision == 0)
        return strText;
    strText += '.';
    switch (nPrecision) {
    case 1: AppendNumber(strText, calendar->nMillisecond / 100, 1); break;
    case 2: AppendNumber(strText, calendar->nMillisecond / 10, 2); break;
    default: AppendNumber(strText, calendar->nMillisecond, 3); break;
    }
    return strText;
}

std::string FormatDay(const DATE& time)
{
    const std::optional<SCalendar> calendar = time.ToCalendar();
    std::string strText;
    if (calendar)
        AppendDay(strText, *calendar);
    return strText;
}

std::string FormatIsoSecond(const DATE& time)
{
    const std::optional<SCalendar> calendar = time.ToCalendarSecond();
    return calendar ? Iso(*calendar) : std::string();
}

std::string FormatIsoMillisecond(const DATE& time)
{
    const std::optional<SCalendar> calendar = time.ToCalendar();
    return calendar ? IsoMillisecond(*calendar) : std::string();
}

std::string FormatIsoShortest(const DATE& time)
{
    const std::optional<SCalendar> calendar = time.ToCalendar();
    if (!calendar)
        return {};
    return calendar->nMillisecond == 0 ? Iso(*calendar) : IsoMillisecond(*calendar);
}

DATE ShiftToTimezone(const DATE& time, double dTimezone)
{
    return time.Plus(RoundTo(dTimezone * 3600.0, 3) * DaysPerSecond);
}

} // namespace kestrabel
