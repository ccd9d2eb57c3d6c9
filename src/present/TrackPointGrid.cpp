#include "present/TrackPointGrid.h"

#include "geo/Angle.h"
#include "model/NumberText.h"
#include "model/SpeedUnits.h"
#include "model/TimeText.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kestrabel {

namespace {

constexpr double KilometresToMetres = 1000.0;

constexpr std::array<SGridColumn, 25> Columns = {{
    {"Track", EAlign::Right, 40, true},         {"Latitude", EAlign::Left, 120, false},
    {"Longitude", EAlign::Left, 120, false},    {"Date", EAlign::Left, 70, true},
    {"Time", EAlign::Left, 80, true},           {"Seconds", EAlign::Right, 50, true},
    {"Distance", EAlign::Right, 60, true},      {"Speed", EAlign::Right, 60, true},
    {"Direction", EAlign::Right, 60, true},     {"Wind Angle", EAlign::Right, 60, false},
    {"VMG", EAlign::Right, 60, false},          {"Altitude", EAlign::Right, 60, false},
    {"Vert Speed", EAlign::Right, 60, false},   {"HDOP", EAlign::Right, 40, false},
    {"Invalid", EAlign::Right, 60, false},      {"Sats", EAlign::Right, 40, false},
    {"Doppler", EAlign::Right, 60, false},      {"Total Dist", EAlign::Right, 60, true},
    {"Tot Dop Dist", EAlign::Right, 60, true},  {"Run", EAlign::Right, 40, true},
    {"Doppler Run", EAlign::Right, 40, true},   {"Pos Err", EAlign::Right, 40, true},
    {"Doppler Error", EAlign::Right, 40, true}, {"USOG", EAlign::Right, 60, true},
    {"UCOG", EAlign::Right, 60, true},
}};

/// Formats the cells of one point.
struct SPointCells
{
    const CEvent& event;
    const CTrackPoint* pPrevious;
    const CTrackPoint& point;

    std::string Speed(double dKmh) const
    {
        return FormatNumber(dKmh * SpeedUnitOf(event.m_nSpeedUnits).dDisplayFactor, event.m_nSpeedPrecision,
                            true);
    }
    std::string Metres(double dKilometres) const
    {
        return FormatNumber(dKilometres * KilometresToMetres, event.m_nDistancePrecision, true);
    }
    std::string Degrees(double dRadians) const { return FormatNumber(dRadians * RadiansToDegrees, 0, true); }
    std::string LatLong(double dDegrees) const
    {
        return FormatNumber(dDegrees, event.m_nLatLongPrecision, true);
    }
    DATE ShownTime() const { return ShiftToTimezone(point.m_time, event.m_dTimezone); }
    std::string Seconds() const
    {
        const std::int32_t nDecimals = std::clamp(event.m_nTimePrecision, 0, MaxDecimals);
        return FormatPadded(SecondsBetween(pPrevious->m_time, point.m_time), nDecimals + 2, nDecimals);
    }

    std::string Cell(EPointColumn column) const
    {
        switch (column) {
        case EPointColumn::Track: return std::to_string(point.m_nTrack + 1);
        case EPointColumn::Latitude: return LatLong(point.m_position.m_dLatitude);
        case EPointColumn::Longitude: return LatLong(point.m_position.m_dLongitude);
        case EPointColumn::Date: return FormatDay(ShownTime());
        case EPointColumn::Time: return FormatTimeOfDay(ShownTime(), event.m_nTimePrecision);
        case EPointColumn::Seconds: return Seconds();
        case EPointColumn::Distance: return Metres(point.m_dDistance);
        case EPointColumn::Speed: return Speed(point.m_dSpeed);
        case EPointColumn::Direction: return Degrees(point.m_dDirection);
        case EPointColumn::WindAngle: return Degrees(point.m_dWindAngle);
        case EPointColumn::Vmg: return Speed(point.m_dSpeed * std::cos(point.m_dWindAngle));
        case EPointColumn::Altitude: return FormatNumber(point.m_nAltitude, event.m_nDistancePrecision, true);
        case EPointColumn::VertSpeed: return Speed(point.m_dVertSpeed);
        case EPointColumn::Hdop: return FormatNumber(point.m_dHDOP, 1, true);
        case EPointColumn::Invalid: return InvalidLetters(point.m_nInvalidFlags);
        case EPointColumn::Sats: return FormatNumber(point.m_nSats, 0, true);
        case EPointColumn::Doppler: return Speed(point.m_dDoppler);
        case EPointColumn::TotalDistance: return Metres(point.m_dTotalDistance);
        case EPointColumn::TotalDopplerDistance: return Metres(point.m_dTotalDopplerDistance);
        case EPointColumn::Run: return std::to_string(point.m_nRun);
        case EPointColumn::DopplerRun: return std::to_string(point.m_nDopplerRun);
        case EPointColumn::PosError: return Metres(point.m_dPosError);
        case EPointColumn::DopplerError: return Speed(point.m_dDopplerError);
        case EPointColumn::Usog: return Speed(point.m_dUSOG);
        case EPointColumn::Ucog: return Degrees(point.m_dUCOG);
        }
        return {};
    }
};

} // namespace

std::span<const SGridColumn> TrackPointColumns()
{
    return Columns;
}

std::string TrackPointCell(const CEvent& event, const CTrackPoint* pPrevious, const CTrackPoint& point,
                           EPointColumn column)
{
    const bool bContinues = pPrevious != nullptr && !StartsGap(pPrevious, point, event.m_nTimeThreshold);
    if (column > EPointColumn::Time && !bContinues)
        return {};
    return SPointCells{event, pPrevious, point}.Cell(column);
}

void WriteGrid(const CEvent& event, const CObjectArray<CTrackPoint>& points,
               std::span<const EPointColumn> columns,
               const std::function<void(std::string_view strLine)>& writeLine)
{
    std::string strLine;
    for (const EPointColumn column : columns)
        strLine.append(Columns[static_cast<std::size_t>(column)].strTitle).append(",");
    writeLine(strLine);
    const CTrackPoint* pPrevious = nullptr;
    for (const CTrackPoint* pPoint : points) {
        strLine.clear();
        for (const EPointColumn column : columns)
            strLine.append(TrackPointCell(event, pPrevious, *pPoint, column)).append(",");
        writeLine(strLine);
        pPrevious = pPoint;
    }
}

} // namespace kestrabel
