#include "formats/TrackLine.h"

#include "formats/TokenScanner.h"
#include "model/DateText.h"
#include "platform/NumberInput.h"

#include <array>
#include <string>

namespace kestrabel {

namespace {

constexpr double MinutesToDegrees = 0.016666666666666666;

struct STrackItems
{
    std::string_view strLatitude;
    double dLatitudeMinutes = 0.0;
    std::string_view strLongitude;
    double dLongitudeMinutes = 0.0;
    std::string strDateTime;
};

/// Month, day, time, year: as "day month year time".
bool TakeDateTime(std::string_view& strRest, STrackItems& items)
{
    std::string_view strMonth;
    std::string_view strDay;
    std::string_view strTime;
    std::string_view strYear;
    if (!TakeWord(strRest, strMonth) || !TakeWord(strRest, strDay) || !TakeWord(strRest, strTime) ||
        !TakeWord(strRest, strYear))
        return false;
    items.strDateTime.append(strDay).append(" ").append(strMonth);
    items.strDateTime.append(" ").append(strYear).append(" ").append(strTime);
    return true;
}

bool TakeItems(std::string_view strRest, ETrackLayout layout, STrackItems& items)
{
    const bool bMinutes = layout == ETrackLayout::WeekdayAndMinutes || layout == ETrackLayout::Minutes;
    const bool bWeekday = layout == ETrackLayout::WeekdayAndMinutes || layout == ETrackLayout::Weekday;
    std::string_view strWeekday;
    return TakeWord(strRest, items.strLatitude) &&
           (!bMinutes || TakeDecimal(strRest, items.dLatitudeMinutes)) &&
           TakeWord(strRest, items.strLongitude) &&
           (!bMinutes || TakeDecimal(strRest, items.dLongitudeMinutes)) &&
           (!bWeekday || TakeWord(strRest, strWeekday)) && TakeDateTime(strRest, items);
}

bool TakeItemsAtCommas(std::string_view strRest, STrackItems& items)
{
    std::array<std::string_view, 6> parts;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) {
            if (!strRest.starts_with(','))
                return false;
            strRest.remove_prefix(1);
            SkipBlanks(strRest);
        }
        if (!TakeUntilComma(strRest, parts[i]))
            return false;
    }
    items.strLatitude = parts[2];
    items.strLongitude = parts[3];
    items.strDateTime.append(parts[4]).append("   ").append(parts[5]);
    return true;
}

bool TakeItemsOf(std::string_view strLine, ETrackLayout layout, STrackItems& items)
{
    const std::string_view strRest = strLine.substr(1);
    return layout == ETrackLayout::Commas ? TakeItemsAtCommas(strRest, items)
                                          : TakeItems(strRest, layout, items);
}

double ParseAngle(std::string_view strDegrees, double dMinutes, char cPositive, char cNegative)
{
    const char c = strDegrees.front();
    const bool bNegative = c == cNegative || c == '-';
    if (bNegative || c == cPositive || c == '+')
        strDegrees.remove_prefix(1);
    const double dDegrees = ReadDecimal(strDegrees) + dMinutes * MinutesToDegrees;
    return bNegative ? -dDegrees : dDegrees;
}

} // namespace

std::optional<ETrackLayout> FindTrackLayout(std::string_view strLine)
{
    for (const ETrackLayout layout : {ETrackLayout::WeekdayAndMinutes, ETrackLayout::Minutes,
                                      ETrackLayout::Weekday, ETrackLayout::Commas})
    {
        STrackItems items;
        if (TakeItemsOf(strLine, layout, items))
            return layout;
    }
    return std::nullopt;
}

bool ParseTrackLine(std::string_view strLine, ETrackLayout layout, CTrackPoint& point)
{
    STrackItems items;
    if (!TakeItemsOf(strLine, layout, items))
        return false;
    point.m_position = MakePosition(ParseAngle(items.strLatitude, items.dLatitudeMinutes, 'N', 'S'),
                                    ParseAngle(items.strLongitude, items.dLongitudeMinutes, 'E', 'W'));
    point.m_time = ParseDateText(items.strDateTime);
    point.m_nAltitude = 0;
    return true;
}

} // namespace kestrabel
