#include "present/SpeedDialog.h"

#include "geo/DistanceCalculator.h"
#include "model/NumberText.h"
#include "model/TimeText.h"

#include <cmath>

namespace kestrabel {

namespace {

constexpr CPosition FirstStart = MakePosition(-37.9510334166667, 144.424867888889);
constexpr CPosition FirstEnd = MakePosition(-37.6528211388889, 143.926495527778);
constexpr double SecondsPerHour = 3600.0;
constexpr std::int32_t DistanceDecimals = 6; // millimetres of a kilometre
constexpr std::int32_t SpeedDecimals = 3;
constexpr std::int32_t DirectionDecimals = 2;

void Show(SSpeedEnd& end, const CPosition& position, const DATE& time)
{
    end.latitude.Set(position.m_dLatitude);
    end.longitude.Set(position.m_dLongitude);
    end.time = time;
}

CPosition PositionOf(const SSpeedEnd& end)
{
    return MakePosition(end.latitude.Value(), end.longitude.Value());
}

/// 0 to 360; 0 for not-a-number.
double Degrees(double dAzimuth)
{
    if (std::isnan(dAzimuth))
        return 0.0;
    const double dDegrees = dAzimuth * 0.3183098861837907 * 180.0;
    return dDegrees < 0.0 ? dDegrees + 360.0 : dDegrees;
}

} // namespace

SSpeedDialog SSpeedDialog::From(const CEvent& event, const DATE& now)
{
    SSpeedDialog dialog;
    Show(dialog.start, FirstStart, now);
    Show(dialog.end, FirstEnd, now);
    dialog.ellipsoid.Show(event.m_ellipsoid);
    return dialog;
}

void SSpeedDialog::SetRun(const CEvent& event, const CTrackPoint& first, const CTrackPoint& last)
{
    Show(start, first.m_position, ShiftToTimezone(first.m_time, event.m_dTimezone));
    Show(end, last.m_position, ShiftToTimezone(last.m_time, event.m_dTimezone));
}

std::optional<SFieldProblem> SSpeedDialog::Calculate()
{
    CDistanceCalculator calculator(ellipsoid.Chosen(), strUnit.empty() ? 'n' : strUnit.front());
    const CPosition from = PositionOf(start);
    const CPosition to = PositionOf(end);
    result.dDistance = calculator.Distance(from, to);
    result.dDirection = Degrees(calculator.m_dAzimuth);
    const double dSpeed = std::abs(result.dDistance * SecondsPerHour / SecondsBetween(start.time, end.time));
    result.dSpeed = std::isfinite(dSpeed) ? dSpeed : 0.0;
    calculator.Distance(to, from);
    result.dReverse = Degrees(calculator.m_dAzimuth);
    return FirstProblem({&start.latitude, &start.longitude, &end.latitude, &end.longitude, &ellipsoid.radius,
                         &ellipsoid.invFlattening});
}

CDialogLines SSpeedDialog::ResultLines() const
{
    return {{"Distance:", FormatNumber(result.dDistance, DistanceDecimals, true)},
            {"Speed:", FormatNumber(result.dSpeed, SpeedDecimals, true)},
            {"Direction:", FormatNumber(result.dDirection, DirectionDecimals, true)},
            {"Reverse:", FormatNumber(result.dReverse, DirectionDecimals, true)}};
}

} // namespace kestrabel
