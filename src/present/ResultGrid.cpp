#include "present/ResultGrid.h"

#include "present/CellText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace kestrabel {

namespace {

constexpr std::array<SGridColumn, 25> Columns = {{
    {"Division", EAlign::Right, 70, true},      {"Track File", EAlign::Right, 70, true},
    {"WayPoint", EAlign::Left, 70, false},      {"Start Lat", EAlign::Left, 120, false},
    {"Start Long", EAlign::Left, 120, false},   {"Start Time", EAlign::Left, 140, true},
    {"End Lat", EAlign::Left, 120, false},      {"End Long", EAlign::Left, 120, false},
    {"End Time", EAlign::Left, 140, false},     {"Seconds", EAlign::Right, 60, true},
    {"Distance", EAlign::Right, 60, true},      {"Speed", EAlign::Right, 60, true},
    {"Direction", EAlign::Right, 60, true},     {"Wind Angle", EAlign::Right, 60, false},
    {"VMG", EAlign::Right, 60, false},          {"Altitude", EAlign::Right, 60, false},
    {"Alt Change", EAlign::Right, 60, false},   {"HDOP Max", EAlign::Right, 60, false},
    {"Sats Min", EAlign::Right, 40, false},     {"Claimed", EAlign::Right, 60, false},
    {"Min Speed", EAlign::Right, 60, true},     {"Max Speed", EAlign::Right, 60, true},
    {"Run", EAlign::Right, 40, true},           {"Pos Error", EAlign::Right, 60, true},
    {"Doppler Error", EAlign::Right, 60, true},
}};

constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();

/// The number that a cell shows, before it is formatted; the days of a time.
double ShownNumber(const CEvent& event, const CResult& result, EResultColumn column)
{
    const SCellText text{event};
    switch (column) {
    case EResultColumn::StartLatitude: return result.m_posStart.m_dLatitude;
    case EResultColumn::StartLongitude: return result.m_posStart.m_dLongitude;
    case EResultColumn::StartTime: return result.m_timeStart.m_dDays;
    case EResultColumn::EndLatitude: return result.m_posEnd.m_dLatitude;
    case EResultColumn::EndLongitude: return result.m_posEnd.m_dLongitude;
    case EResultColumn::EndTime: return result.m_timeEnd.m_dDays;
    case EResultColumn::Seconds: return result.m_dSeconds;
    case EResultColumn::Distance: return result.m_dDistance * KilometresToMetres;
    case EResultColumn::Speed: return text.ShownSpeed(result.m_dSpeed);
    case EResultColumn::Direction: return result.m_dDirection * RadiansToDegrees;
    case EResultColumn::WindAngle: return result.m_dWindAngle * RadiansToDegrees;
    case EResultColumn::Vmg: return text.ShownSpeed(result.m_dSpeed * std::cos(result.m_dWindAngle));
    case EResultColumn::Altitude: return result.m_dAltitude;
    case EResultColumn::AltChange: return result.m_dAltChange;
    case EResultColumn::HdopMax: return result.m_dHDOPMax;
    case EResultColumn::SatsMin: return result.m_nSatsMin;
    case EResultColumn::Claimed: return text.ShownSpeed(result.m_dClaimed);
    case EResultColumn::MinSpeed: return text.ShownSpeed(result.m_dMinSpeed);
    case EResultColumn::MaxSpeed: return text.ShownSpeed(result.m_dMaxSpeed);
    case EResultColumn::Run: return result.m_nRun;
    case EResultColumn::PosError: return result.m_dPosError * KilometresToMetres;
    case EResultColumn::DopplerError: return text.ShownSpeed(result.m_dDopplerError);
    case EResultColumn::Division:
    case EResultColumn::TrackFile:
    case EResultColumn::WayPoint: break;
    }
    return NoNumber;
}

std::string_view ShownText(const CResult& result, EResultColumn column)
{
    switch (column) {
    case EResultColumn::Division: return result.m_strDivision;
    case EResultColumn::TrackFile: return result.m_strSeries;
    case EResultColumn::WayPoint: return result.m_nWaypoint == -1 ? std::string_view() : result.m_strWaypoint;
    default: return {};
    }
}

} // namespace

std::span<const SGridColumn> ResultColumns()
{
    return Columns;
}

std::string ResultCell(const CEvent& event, const CResult& result, EResultColumn column)
{
    const SCellText text{event};
    const double dNumber = ShownNumber(event, result, column);
    switch (column) {
    case EResultColumn::Division:
    case EResultColumn::TrackFile:
    case EResultColumn::WayPoint: return std::string(ShownText(result, column));
    case EResultColumn::StartLatitude:
    case EResultColumn::StartLongitude:
    case EResultColumn::EndLatitude:
    case EResultColumn::EndLongitude: return text.LatLong(dNumber);
    case EResultColumn::StartTime: return text.Time(result.m_timeStart);
    case EResultColumn::EndTime: return text.Time(result.m_timeEnd);
    case EResultColumn::Seconds: return text.Seconds(dNumber);
    case EResultColumn::Distance:
    case EResultColumn::Altitude:
    case EResultColumn::AltChange:
    case EResultColumn::PosError: return text.Metres(dNumber);
    case EResultColumn::Speed:
    case EResultColumn::Vmg:
    case EResultColumn::Claimed:
    case EResultColumn::MinSpeed:
    case EResultColumn::MaxSpeed:
    case EResultColumn::DopplerError: return FormatNumber(dNumber, event.m_nSpeedPrecision, true);
    case EResultColumn::Direction:
    case EResultColumn::WindAngle:
    case EResultColumn::SatsMin: return FormatNumber(dNumber, 0, true);
    case EResultColumn::HdopMax: return FormatNumber(dNumber, 1, true);
    case EResultColumn::Run: return std::to_string(result.m_nRun);
    }
    return {};
}

std::vector<int> FillResults(const CResultList& results)
{
    std::vector<int> rows;
    const int nCount = results.GetCount();
    for (int i = nCount - 1; i >= 0; --i) {
        if (std::isnan(results[i].m_dMinSpeed))
            continue;
        if (i + 1 < nCount && results[i].m_nRank <= results[i + 1].m_nRank)
            rows.push_back(CGrid::Separator);
        rows.push_back(i);
    }
    return rows;
}

CResultGrid::CResultGrid(const CEvent& event, CUpdateHub& hub, CViewSelection& selection,
                         CSettingsStore& settings)
    : CGrid(selection, settings, "Results", Columns, WidestColumn), m_event(event), m_hub(hub)
{
    m_hub.Attach(*this);
    Fill();
}

void CResultGrid::OnUpdate(EUpdateHint hint)
{
    if (hint == HINT_ALL || hint == HINT_POINTS_CHANGED || hint == HINT_RESULTS_CHANGED)
        Fill();
    if (hint == HINT_ALL || hint == HINT_POINTS_CHANGED || hint == HINT_FOCUS_MOVED)
        FollowFocus();
}

const CResult* CResultGrid::ResultOf(int nObject) const
{
    const CResultList& results = m_selection.m_Results;
    return nObject >= 0 && nObject < results.GetCount() ? &results[nObject] : nullptr;
}

const CResult* CResultGrid::ResultAt(int nRow) const
{
    return ResultOf(ObjectOf(nRow));
}

std::string CResultGrid::Text(int nObject, int nField) const
{
    const CResult* pResult = ResultOf(nObject);
    return pResult == nullptr ? std::string()
                              : ResultCell(m_event, *pResult, static_cast<EResultColumn>(nField));
}

bool CResultGrid::IsText(int nField) const
{
    return static_cast<EResultColumn>(nField) <= EResultColumn::WayPoint;
}

CGrid::SSortKey CResultGrid::SortKey(int nObject, int nField) const
{
    const auto column = static_cast<EResultColumn>(nField);
    const CResult* pResult = ResultOf(nObject);
    if (pResult == nullptr)
        return {NoNumber, {}};
    return {ShownNumber(m_event, *pResult, column), ShownText(*pResult, column)};
}

void CResultGrid::Pick(int nObject)
{
    const CResult* pResult = ResultOf(nObject);
    if (pResult == nullptr)
        return;
    m_strPickedDivision = pResult->m_strDivision;
    m_selection.PickResult(this, pResult);
}

int CResultGrid::FocusRow() const
{
    const CObjectArray<CTrackPoint>& points = m_selection.GetSeriesPoints(m_selection.m_nFocusSeries);
    const auto nPoint = static_cast<int>(m_selection.m_dFocusPoint);
    if (nPoint < 0 || nPoint >= points.GetCount())
        return -1;
    const double dTime = points[nPoint].m_time.m_dDays;
    const auto row = std::ranges::find_if(Rows(), [&](int nObject) {
        const CResult* pResult = ResultOf(nObject);
        return pResult != nullptr && pResult->m_strDivision == m_strPickedDivision &&
               pResult->m_timeStart.m_dDays <= dTime && dTime <= pResult->m_timeEnd.m_dDays;
    });
    return row == Rows().end() ? -1 : static_cast<int>(row - Rows().begin());
}

} // namespace kestrabel
