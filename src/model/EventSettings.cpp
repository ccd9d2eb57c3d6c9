#include "model/EventSettings.h"

#include "platform/NumberInput.h"
#include "platform/Path.h"

#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace kestrabel {

namespace {

constexpr std::array<SEventSetting, 31> Settings = {{
    {"Description", &CEvent::m_strDescription},
    {"Location", &CEvent::m_strLocation},
    {"DataFolder", &CEvent::m_strDataFolder},
    {"DateStart", &CEvent::m_dateStart},
    {"DateEnd", &CEvent::m_dateEnd},
    {"NorthWest", &CEvent::m_posNorthWest},
    {"SouthEast", &CEvent::m_posSouthEast},
    {"ShowTopRows", &CEvent::m_nShowTopRows},
    {"SpeedUnits", &CEvent::m_nSpeedUnits},
    {"ConstrainDates", &CEvent::m_bConstrainDates},
    {"Reserved", &CEvent::m_nReserved},
    {"ConstrainRegion", &CEvent::m_bConstrainRegion},
    {"AccThreshold", &CEvent::m_dAccThreshold},
    {"DeccThreshold", &CEvent::m_dDeccThreshold},
    {"SpeedThreshold", &CEvent::m_dSpeedThreshold},
    {"TimeThreshold", &CEvent::m_nTimeThreshold},
    {"MaxHDOP", &CEvent::m_dMaxHDOP},
    {"MinSats", &CEvent::m_nMinSats},
    {"CaptureFocus", &CEvent::m_bCaptureFocus},
    {"Ellipsoid", &CEvent::m_ellipsoid},
    {"Zoom", &CEvent::m_dZoom},
    {"Smoothing", &CEvent::m_nSmoothing},
    {"StopRunAngle", &CEvent::m_dStopRunAngle},
    {"StopRunSpeed", &CEvent::m_dStopRunSpeed},
    {"Timezone", &CEvent::m_dTimezone},
    {"SpeedPrecision", &CEvent::m_nSpeedPrecision},
    {"TimePrecision", &CEvent::m_nTimePrecision},
    {"DistancePrecision", &CEvent::m_nDistancePrecision},
    {"LatLongPrecision", &CEvent::m_nLatLongPrecision},
    {"DopplerError", &CEvent::m_dDopplerError},
    {"TrackpointError", &CEvent::m_dTrackpointError},
}};

/// The numbers of a comma-separated list; empty when one of them is none.
std::vector<double> ReadNumbers(std::string_view strText)
{
    std::vector<double> numbers;
    while (true) {
        const std::size_t nComma = strText.find(',');
        double dNumber = 0.0;
        if (!IsDecimal(strText.substr(0, nComma), dNumber))
            return {};
        numbers.push_back(dNumber);
        if (nComma == std::string_view::npos)
            return numbers;
        strText.remove_prefix(nComma + 1);
    }
}

/// Sets one field; each overload returns what it expected, or an empty text when it was given that.
struct SFieldSetter
{
    std::string_view strValue;

    std::string operator()(std::string& strField) const
    {
        strField = strValue;
        return {};
    }

    std::string operator()(std::int32_t& nField) const
    {
        const std::vector<double> numbers = ReadNumbers(strValue);
        if (numbers.size() != 1 || numbers[0] != std::trunc(numbers[0]) ||
            std::abs(numbers[0]) > static_cast<double>(std::numeric_limits<std::int32_t>::max()))
            return "a whole number";
        nField = static_cast<std::int32_t>(numbers[0]);
        return {};
    }

    std::string operator()(double& dField) const
    {
        const std::vector<double> numbers = ReadNumbers(strValue);
        if (numbers.size() != 1)
            return "a number";
        dField = numbers[0];
        return {};
    }

    std::string operator()(DATE& date) const
    {
        const std::vector<double> numbers = ReadNumbers(strValue);
        if (numbers.size() != 1)
            return "a date as a count of days since 30 December 1899";
        date = DATE(numbers[0]);
        return {};
    }

    std::string operator()(CPosition& position) const
    {
        const std::vector<double> numbers = ReadNumbers(strValue);
        if (numbers.size() != 2)
            return "LATITUDE,LONGITUDE in degrees";
        position = MakePosition(numbers[0], numbers[1]);
        return {};
    }

    std::string operator()(CEllipsoid& ellipsoid) const
    {
        const std::vector<double> numbers = ReadNumbers(strValue);
        const std::size_t nWanted = !numbers.empty() && numbers[0] == CEllipsoid::User ? 3 : 1;
        if (numbers.size() != nWanted || numbers[0] != std::trunc(numbers[0]) || numbers[0] < 0.0 ||
            numbers[0] > CEllipsoid::User)
            return "an ellipsoid's index, 0 to 5, or 6,RADIUS,INVERSE FLATTENING";
        const bool bUser = nWanted == 3;
        ellipsoid.SetEllipsoid(static_cast<std::int32_t>(numbers[0]), bUser ? numbers[1] : 0.0,
                               bUser ? numbers[2] : 0.0);
        return {};
    }
};

} // namespace

std::span<const SEventSetting> EventSettings()
{
    return Settings;
}

std::string SetEventSetting(CEvent& event, std::string_view strName, std::string_view strValue)
{
    for (const SEventSetting& setting : Settings) {
        if (EqualNoCase(setting.strName, strName))
            return std::visit([&](auto pField) { return SFieldSetter{strValue}(event.*pField); },
                              setting.field);
    }
    std::string strNames;
    for (const SEventSetting& setting : Settings)
        strNames.append(strNames.empty() ? "one of " : ", ").append(setting.strName);
    return strNames;
}

} // namespace kestrabel
