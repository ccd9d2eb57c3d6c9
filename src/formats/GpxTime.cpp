#include "formats/GpxTime.h"

#include "geo/Rounding.h"
#include "platform/NumberInput.h"

#include <array>
#include <cmath>

namespace kestrabel {

namespace {

constexpr double SecondsEnd = 61.0; // 60 and a bit is a leap second

bool TakeCharacter(std::string_view& strText, char c)
{
    if (!strText.starts_with(c))
        return false;
    strText.remove_prefix(1);
    return true;
}

} // namespace

DATE ParseGpxTime(std::string_view strText)
{
    SCalendar calendar;
    struct SItem
    {
        int* pValue;
        char cBehind;
    };
    const std::array<SItem, 5> items = {{{&calendar.nYear, '-'},
                                         {&calendar.nMonth, '-'},
                                         {&calendar.nDay, 'T'},
                                         {&calendar.nHour, ':'},
                                         {&calendar.nMinute, ':'}}};
    double dSeconds = 0.0;
    bool bMatches = true;
    bool bAnyRead = false;
    for (const SItem& item : items) {
        bMatches = TakeInteger(strText, *item.pValue);
        bAnyRead = bAnyRead || bMatches;
        bMatches = bMatches && TakeCharacter(strText, item.cBehind);
        if (!bMatches)
            break;
    }
    if (!bAnyRead)
        return {};
    if (bMatches)
        TakeDecimal(strText, dSeconds);
    if (!(dSeconds >= 0.0 && dSeconds < SecondsEnd))
        return DATE::MakeInvalid();

    dSeconds = RoundTo(dSeconds, 3);
    const double dWhole = std::floor(dSeconds);
    const double dMilliseconds = RoundTo((dSeconds - dWhole) * 1000.0, 0);
    calendar.nSecond = static_cast<int>(dWhole);
    double dCarried = 0.0;
    if (calendar.nSecond >= 60) {
        // The minute that follows may be of another hour or day: it is reached by adding, not by counting.
        dCarried = static_cast<double>(calendar.nSecond);
        calendar.nSecond = 0;
    }
    return DATE::FromCalendar(calendar).Plus(dCarried * DaysPerSecond + dMilliseconds * DaysPerMillisecond);
}

} // namespace kestrabel
