#include "present/TrackPointGrid.h"

#include "present/CellText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace kestrabel {

namespace {

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

/// The number that a cell shows, before it is formatted; the days of a time. `pPrevious` is null for the
/// first point, whose step is none.
double ShownNumber(const CEvent& event, const CTrackPoint* pPrevious, const CTrackPoint& point,
                   EPointColumn column)
{
    const SCellText text{event};
    switch (column) {
    case EPointColumn::Track: return point.m_nTrack + 1;
    case EPointColumn::Latitude: return point.m_position.m_dLatitude;
    case EPointColumn::Longitude: return point.m_position.m_dLongitude;
    case EPointColumn::Date:
    case EPointColumn::Time: return point.m_time.m_dDays;
    case EPointColumn::Seconds:
        return pPrevious == nullptr ? 0.0 : SecondsBetween(pPrevious->m_time, point.m_time);
    case EPointColumn::Distance: return point.m_dDistance * KilometresToMetres;
    case EPointColumn::Speed: return text.ShownSpeed(point.m_dSpeed);
    case EPointColumn::Direction: return point.m_dDirection * RadiansToDegrees;
    case EPointColumn::WindAngle: return point.m_dWindAngle * RadiansToDegrees;
    case EPointColumn::Vmg: return text.ShownSpeed(point.m_dSpeed * std::cos(point.m_dWindAngle));
    case EPointColumn::Altitude: return point.m_nAltitude;
    case EPointColumn::VertSpeed: return text.ShownSpeed(point.m_dVertSpeed);
    case EPointColumn::Hdop: return point.m_dHDOP;
    case EPointColumn::Invalid: return point.m_nInvalidFlags;
    case EPointColumn::Sats: return point.m_nSats;
    case EPointColumn::Doppler: return text.ShownSpeed(point.m_dDoppler);
    case EPointColumn::TotalDistance: return point.m_dTotalDistance * KilometresToMetres;
    case EPointColumn::TotalDopplerDistance: return point.m_dTotalDopplerDistance * KilometresToMetres;
    case EPointColumn::Run: return point.m_nRun;
    case EPointColumn::DopplerRun: return point.m_nDopplerRun;
    case EPointColumn::PosError: return point.m_dPosError * KilometresToMetres;
    case EPointColumn::DopplerError: return text.ShownSpeed(point.m_dDopplerError);
    case EPointColumn::Usog: return text.ShownSpeed(point.m_dUSOG);
    case EPointColumn::Ucog: return point.m_dUCOG * RadiansToDegrees;
    }
    return 0.0;
}

std::string FormattedCell(const CEvent& event, const CTrackPoint* pPrevious, const CTrackPoint& point,
                          EPointColumn column)
{
    const SCellText text{event};
    const double dNumber = ShownNumber(event, pPrevious, point, column);
    switch (column) {
    case EPointColumn::Track: return std::to_string(point.m_nTrack + 1);
    case EPointColumn::Run: return std::to_string(point.m_nRun);
    case EPointColumn::DopplerRun: return std::to_string(point.m_nDopplerRun);
    case EPointColumn::Latitude:
    case EPointColumn::Longitude: return text.LatLong(dNumber);
    case EPointColumn::Date: return FormatDay(text.ShownTime(point.m_time));
    case EPointColumn::Time: return text.Time(point.m_time);
    case EPointColumn::Seconds: return text.Seconds(dNumber);
    case EPointColumn::Distance:
    case EPointColumn::Altitude:
    case EPointColumn::TotalDistance:
    case EPointColumn::TotalDopplerDistance:
    case EPointColumn::PosError: return text.Metres(dNumber);
    case EPointColumn::Speed:
    case EPointColumn::Vmg:
    case EPointColumn::VertSpeed:
    case EPointColumn::Doppler:
    case EPointColumn::DopplerError:
    case EPointColumn::Usog: return FormatNumber(dNumber, event.m_nSpeedPrecision, true);
    case EPointColumn::Direction:
    case EPointColumn::WindAngle:
    case EPointColumn::Sats:
    case EPointColumn::Ucog: return FormatNumber(dNumber, 0, true);
    case EPointColumn::Hdop: return FormatNumber(dNumber, 1, true);
    case EPointColumn::Invalid: return InvalidLetters(point.m_nInvalidFlags);
    }
    return {};
}

const CTrackPoint* PointBefore(const CObjectArray<CTrackPoint>& points, int nIndex)
{
    return nIndex > 0 ? points.At(nIndex - 1) : nullptr;
}

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
    return FormattedCell(event, pPrevious, point, column);
}

std::vector<int> FillPoints(const CEvent& event, const CObjectArray<CTrackPoint>& points, int nFirst,
                            int nLast, CProgressDisplay& progress)
{
    nFirst = std::max(nFirst, 0);
    nLast = std::min(nLast, points.GetCount());
    std::vector<int> rows;
    if (nFirst >= nLast)
        return rows;
    rows.reserve(static_cast<std::size_t>(nLast - nFirst));
    CProgress shown(progress, "Populating TrackPoint Grid", nLast - nFirst);
    for (int i = nFirst; i < nLast; ++i) {
        if (StartsGap(PointBefore(points, i), points[i], event.m_nTimeThreshold))
            rows.push_back(CGrid::Separator);
        rows.push_back(i);
        shown.Step();
    }
    return rows;
}

CTrackPointGrid::CTrackPointGrid(const CEvent& event, CUpdateHub& hub, CViewSelection& selection,
                                 CSettingsStore& settings, CProgressDisplay& progress)
    : CGrid(selection, settings, "Trackpoints", Columns, std::numeric_limits<std::int32_t>::max()),
      m_event(event),
      m_hub(hub),
      m_progress(progress)
{
    m_hub.Attach(*this);
    Fill();
}

void CTrackPointGrid::OnUpdate(EUpdateHint hint)
{
    if (hint == HINT_RESULTS_CHANGED)
        return;
    if (hint != HINT_FOCUS_MOVED)
        Fill();
    const bool bOnlyWithFile = hint == HINT_ALL || hint == HINT_TRACKFILE_CHANGED;
    if (!bOnlyWithFile || m_selection.m_nFocusSeries >= 0)
        FollowFocus();
}

std::vector<int> CTrackPointGrid::MakeRows()
{
    const CObjectArray<CTrackPoint>& points = Points();
    return FillPoints(m_event, points, 0, points.GetCount(), m_progress);
}

std::vector<CTrackPoint*> CTrackPointGrid::PointsOf(std::span<const int> rows) const
{
    const CObjectArray<CTrackPoint>& points = Points();
    std::vector<CTrackPoint*> chosen;
    for (const int nRow : rows) {
        if (const int nIndex = ObjectOf(nRow); nIndex != Separator && nIndex < points.GetCount())
            chosen.push_back(points.At(nIndex));
    }
    return chosen;
}

std::vector<EPointColumn> CTrackPointGrid::ShownPointColumns() const
{
    std::vector<EPointColumn> columns;
    for (const int nField : ShownColumns())
        columns.push_back(static_cast<EPointColumn>(nField));
    return columns;
}

std::string CTrackPointGrid::Text(int nObject, int nField) const
{
    const CObjectArray<CTrackPoint>& points = Points();
    if (nObject >= points.GetCount())
        return {};
    return TrackPointCell(m_event, PointBefore(points, nObject), points[nObject],
                          static_cast<EPointColumn>(nField));
}

CGrid::SSortKey CTrackPointGrid::SortKey(int nObject, int nField) const
{
    const CObjectArray<CTrackPoint>& points = Points();
    if (nObject >= points.GetCount())
        return {};
    return {ShownNumber(m_event, PointBefore(points, nObject), points[nObject],
                        static_cast<EPointColumn>(nField)),
            {}};
}

void CTrackPointGrid::Pick(int nObject)
{
    const CObjectArray<CTrackPoint>& points = Points();
    if (nObject < points.GetCount())
        m_selection.MoveFocus(this, points[nObject].m_nSeriesIndex, points[nObject].m_nTrack);
}

int CTrackPointGrid::FocusRow() const
{
    const auto nFocus = static_cast<int>(m_selection.m_dFocusPoint);
    const int nSeries = m_selection.m_nFocusSeries;
    if (nSeries < 0)
        return nFocus < RowCount() ? std::max(nFocus, -1) : -1;
    const CObjectArray<CTrackPoint>& points = Points();
    const auto isFocus = [&](int nRow) {
        const int nIndex = ObjectOf(nRow);
        return nIndex != Separator && nIndex < points.GetCount() &&
               points[nIndex].m_nSeriesIndex == nSeries && points[nIndex].m_nTrack == nFocus;
    };
    // Separators and other files only push a point's row further down; sorting puts it anywhere.
    const int nFrom = std::clamp(nFocus, 0, RowCount());
    for (int nRow = nFrom; nRow < RowCount(); ++nRow) {
        if (isFocus(nRow))
            return nRow;
    }
    for (int nRow = 0; nRow < nFrom; ++nRow) {
        if (isFocus(nRow))
            return nRow;
    }
    return -1;
}

std::string PrintHeading(const CEvent& event, const CViewSelection& selection, std::string_view strTitle)
{
    double dKilometres = 0.0;
    if (const CSeries* pSeries = selection.GetCurrentSeries()) {
        dKilometres = pSeries->m_dTotalDistance;
    } else if (const CPerson* pPerson = selection.GetCurrentPerson()) {
        for (const CSeries* pOne : pPerson->m_series)
            dKilometres += pOne->m_dTotalDistance;
    }
    const struct
    {
        double dFactor;
        std::string_view strText;
    } units[] = {{SpeedUnitOf(SpeedUnit::Knots).dDisplayFactor, "nm"},
                 {1.0, "kms"},
                 {KilometresToMetres, "m"},
                 {SpeedUnitOf(SpeedUnit::MilesPerHour).dDisplayFactor, "mi"}};
    const bool bKnown =
        event.m_nSpeedUnits >= SpeedUnit::Knots && event.m_nSpeedUnits <= SpeedUnit::MilesPerHour;
    const auto& unit = units[bKnown ? event.m_nSpeedUnits : SpeedUnit::MetresPerSecond];
    return std::string(strTitle)
        .append("  Distance=")
        .append(FormatNumber(dKilometres * unit.dFactor, 1, true))
        .append(unit.strText);
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
