#include "present/EventProperties.h"

#include "model/NumberText.h"
#include "platform/NumberInput.h"

namespace kestrabel {

namespace {

constexpr std::int32_t EdgeDecimals = 6;
constexpr SCalendar FirstSecond = {};
constexpr SCalendar LastSecond = {.nHour = 23, .nMinute = 59, .nSecond = 59};

/// The day at a time of it; a date that is none stays as it is.
DATE AtTime(const DATE& day, const SCalendar& time)
{
    const std::optional<SCalendar> calendar = day.ToCalendar();
    if (!calendar)
        return day;
    return DATE::FromCalendar({.nYear = calendar->nYear,
                               .nMonth = calendar->nMonth,
                               .nDay = calendar->nDay,
                               .nHour = time.nHour,
                               .nMinute = time.nMinute,
                               .nSecond = time.nSecond});
}

} // namespace

SEventProperties SEventProperties::From(const CEvent& event)
{
    SEventProperties properties;
    properties.description.strText = event.m_strDescription;
    properties.location.strText = event.m_strLocation;
    properties.strDataFolder = event.m_strDataFolder;
    properties.ellipsoid.Show(event.m_ellipsoid);
    properties.constrainDates.bChecked = event.m_bConstrainDates != 0;
    properties.startDate = event.m_dateStart;
    properties.endDate = event.m_dateEnd;
    properties.constrainRegion.bChecked = event.m_bConstrainRegion != 0;
    properties.north.strText = FormatSigned(event.m_posNorthWest.m_dLatitude, EdgeDecimals);
    properties.west.strText = FormatSigned(event.m_posNorthWest.m_dLongitude, EdgeDecimals);
    properties.south.strText = FormatSigned(event.m_posSouthEast.m_dLatitude, EdgeDecimals);
    properties.east.strText = FormatSigned(event.m_posSouthEast.m_dLongitude, EdgeDecimals);
    return properties;
}

std::optional<SFieldProblem> SEventProperties::Validate() const
{
    if (auto problem = FirstTextProblem({&description, &location}))
        return problem;
    return FirstProblem({&ellipsoid.radius, &ellipsoid.invFlattening});
}

void SEventProperties::ApplyTo(CEvent& event) const
{
    event.m_strDescription = description.strText;
    event.m_strLocation = location.strText;
    event.m_strDataFolder = strDataFolder;
    event.m_ellipsoid = ellipsoid.Chosen();
    event.m_bConstrainDates = constrainDates.bChecked;
    event.m_dateStart = AtTime(startDate, FirstSecond);
    event.m_dateEnd = AtTime(endDate, LastSecond);
    event.m_bConstrainRegion = constrainRegion.bChecked;
    event.m_posNorthWest = MakePosition(ReadDecimal(north.strText), ReadDecimal(west.strText));
    event.m_posSouthEast = MakePosition(ReadDecimal(south.strText), ReadDecimal(east.strText));
}

} // namespace kestrabel
