#include "present/ViewSelection.h"

#include "engine/Ranking.h"
#include "engine/TrackPointDerivation.h"
#include "model/NumberText.h"
#include "model/SpeedUnits.h"
#include "model/TimeText.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace kestrabel {

namespace {

constexpr double LowestAltitude = -2147483647.0;
constexpr double HighestAltitude = 2147483647.0;
constexpr double KilometresToMetres = 1000.0;
constexpr std::array<const char*, 6> NoFocusTexts = {"SPEED", "AVG", "DIST", "LATITUDE", "LONGITUDE", "TIME"};

const CObjectArray<CTrackPoint>& NoPoints()
{
    static const CObjectArray<CTrackPoint> none(CObjectArray<CTrackPoint>::EOwnership::Borrows);
    return none;
}

} // namespace

CViewSelection::CViewSelection(CEvent& event, CUpdateHub& hub, CProgressDisplay& progress)
    : m_event(event), m_hub(hub), m_progress(progress)
{
    SetFocusPoint(-1, -1.0);
}

void CViewSelection::Reset()
{
    ForgetResults();
    ForgetPoints();
    m_nCompetitor = m_nSeries = m_nDivision = -1;
    m_nNodeKind = 0;
    m_strCaption.clear();
    MeasureExtremes(nullptr);
    SetFocusPoint(-1, -1.0);
}

void CViewSelection::ForgetRun()
{
    m_nRunStart = m_nRunEnd = m_nRunCompetitor = m_nRunSeries = m_nRunDivision = m_nRunKind = -1;
    m_nRunWaypoint = m_nRunWaypoint2 = -1;
    m_dRunProximity = 0.0;
}

void CViewSelection::ForgetResults()
{
    ForgetRun();
    m_Results = CResultList();
}

void CViewSelection::ForgetPoints()
{
    m_merged.RemoveAll();
    m_nMergedCompetitor = -1;
}

CPerson* CViewSelection::GetCurrentPerson() const
{
    const bool bThere = m_nCompetitor >= 0 && m_nCompetitor < m_event.m_persons.GetCount();
    return bThere ? m_event.m_persons.At(m_nCompetitor) : nullptr;
}

CSeries* CViewSelection::GetCurrentSeries() const
{
    const CPerson* pPerson = GetCurrentPerson();
    const bool bThere = pPerson != nullptr && m_nSeries >= 0 && m_nSeries < pPerson->m_series.GetCount();
    return bThere ? pPerson->m_series.At(m_nSeries) : nullptr;
}

const CObjectArray<CTrackPoint>& CViewSelection::GetSeriesPoints(int nSeries)
{
    const CPerson* pPerson = GetCurrentPerson();
    if (pPerson == nullptr)
        return NoPoints();
    if (nSeries >= 0 && nSeries < pPerson->m_series.GetCount())
        return pPerson->m_series[nSeries].m_points;
    if (m_nMergedCompetitor != m_nCompetitor) {
        // File after file, each merged by time into what is there: a file keeps its own order.
        std::vector<CTrackPoint*> merged;
        for (const CSeries* pSeries : pPerson->m_series) {
            std::vector<CTrackPoint*> both;
            both.reserve(merged.size() + static_cast<std::size_t>(pSeries->m_points.GetCount()));
            std::merge(merged.begin(), merged.end(), pSeries->m_points.begin(), pSeries->m_points.end(),
                       std::back_inserter(both), [](const CTrackPoint* pOne, const CTrackPoint* pOther) {
                           return pOne->m_time.m_dDays < pOther->m_time.m_dDays;
                       });
            merged = std::move(both);
        }
        m_merged.RemoveAll();
        m_merged.Reserve(static_cast<int>(merged.size()));
        for (CTrackPoint* pPoint : merged)
            m_merged.Borrow(*pPoint);
        m_nMergedCompetitor = m_nCompetitor;
    }
    return m_merged;
}

int CViewSelection::FindMergedPoint(int nSeries, int nPoint)
{
    const CPointList& points = GetSeriesPoints(-1);
    // A point cannot stand before as many points as its file has before it.
    for (int i = std::max(nPoint, 0); i < points.GetCount(); ++i) {
        if (points[i].m_nSeriesIndex == nSeries && points[i].m_nTrack == nPoint)
            return i;
    }
    return -1;
}

int CViewSelection::MergedPointOrigin(int nIndex, int& nSeries)
{
    const CPointList& points = GetSeriesPoints(-1);
    if (nIndex < 0 || nIndex >= points.GetCount()) {
        nSeries = -1;
        return -1;
    }
    nSeries = points[nIndex].m_nSeriesIndex;
    return points[nIndex].m_nTrack;
}

template <class TVisit>
void CViewSelection::ForEachShownFile(TVisit&& visit) const
{
    CPerson* pPerson = GetCurrentPerson();
    for (int i = 0; pPerson != nullptr && i < pPerson->m_series.GetCount(); ++i) {
        if (m_nSeries == -1 || m_nSeries == i)
            visit(pPerson->m_series[i]);
    }
}

/// The records of the shown files go, and with them what was listed.
void CViewSelection::ForgetShownResults()
{
    ForgetResults();
    if (CPerson* pPerson = GetCurrentPerson()) {
        pPerson->m_results.RemoveAll();
        pPerson->m_combined.m_divisions.RemoveAll();
    }
    ForEachShownFile([](CSeries& series) { series.m_divisions.RemoveAll(); });
}

/// Of one file, or with null of every shown one.
void CViewSelection::MeasureExtremes(const CSeries* pOnly)
{
    m_dViewMaxSpeed = m_dViewMaxSats = m_dViewMaxHdop = 0.0;
    m_dViewMaxAltitude = LowestAltitude;
    m_dViewMinAltitude = HighestAltitude;
    const double dFactor = SpeedUnitOf(m_event.m_nSpeedUnits).dDisplayFactor;
    const auto fold = [&](const CSeries& series) {
        m_dViewMaxSpeed =
            std::max({m_dViewMaxSpeed, series.m_dMaxSpeed * dFactor, series.m_dMaxDoppler * dFactor});
        m_dViewMaxSats = std::max(m_dViewMaxSats, series.m_dMinResultSats);
        m_dViewMaxHdop = std::max(m_dViewMaxHdop, series.m_dMaxResultHDOP);
        m_dViewMaxAltitude = std::max(m_dViewMaxAltitude, series.m_dMaxAltitude);
        m_dViewMinAltitude = std::min(m_dViewMinAltitude, series.m_dMinAltitude);
    };
    if (pOnly != nullptr)
        fold(*pOnly);
    else
        ForEachShownFile(fold);
}

/// There is a competitor. The caption is said anew as well: saving and renaming give files other names.
void CViewSelection::CollectResults()
{
    const CSeries* pSeries = GetCurrentSeries();
    m_strCaption = pSeries != nullptr ? pSeries->m_strName : GetCurrentPerson()->m_strName;
    m_Results = CResultList();
    AllResults(m_event, m_nCompetitor, m_nSeries, m_Results, m_progress);
}

void CViewSelection::SelectSeries(int nSeries, bool bRecalculate, bool bPointsHint, bool bFullRefresh)
{
    ForgetResults();
    m_nSeries = nSeries;
    m_nNodeKind = NodeKind::TrackFiles;
    m_nCompetitor = 0;
    SetFocusPoint(-1, -1.0);
    const CPerson* pPerson = GetCurrentPerson();
    if (pPerson == nullptr) {
        MeasureExtremes(nullptr);
        m_nCompetitor = -1;
        m_strCaption = "All Results";
        AllResults(m_event, -1, -1, m_Results, m_progress);
        m_hub.UpdateAllViews(nullptr, HINT_POINTS_CHANGED);
        return;
    }
    const int nFiles = pPerson->m_series.GetCount();
    if (m_nSeries >= nFiles)
        m_nSeries = -1;
    if (m_nSeries < 0)
        m_nSeries = nFiles == 1 ? 0 : -1;
    if (bRecalculate)
        ForgetShownResults();
    MeasureExtremes(nullptr);
    CollectResults();
    const EUpdateHint hint = bPointsHint ? HINT_POINTS_CHANGED : HINT_RESULTS_CHANGED;
    m_hub.UpdateAllViews(nullptr, bFullRefresh ? HINT_ALL : hint);
}

void CViewSelection::ShowDivisionResults(int nDivision)
{
    m_nNodeKind = NodeKind::Division;
    m_nDivision = nDivision;
    ListDivision();
    if (m_Results.IsEmpty()) {
        ForgetRun();
        SetFocusPoint(-1, -1.0);
    }
    m_hub.UpdateAllViews(nullptr, HINT_RESULTS_CHANGED);
}

void CViewSelection::ListDivision()
{
    m_Results = CResultList();
    const bool bOne = m_nDivision >= 0 && m_nDivision < m_event.m_divisions.GetCount();
    m_strCaption = bOne ? m_event.m_divisions[m_nDivision].m_strName : "All Divisions";
    if (m_event.m_persons.IsEmpty())
        return;
    if (bOne)
        DivisionLeaderboard(m_event, m_event.m_persons, m_event.m_divisions[m_nDivision], m_Results,
                            m_progress);
    else
        AllResults(m_event, -1, -1, m_Results, m_progress);
}

void CViewSelection::RefreshResults(bool bResetFocus)
{
    ForgetResults();
    if (bResetFocus)
        SetFocusPoint(-1, -1.0);
    const CPerson* pPerson = GetCurrentPerson();
    if (pPerson == nullptr) {
        m_hub.UpdateAllViews(nullptr, HINT_ALL);
        return;
    }
    if (m_nSeries >= pPerson->m_series.GetCount())
        m_nSeries = -1;
    ForgetShownResults();
    if (m_nNodeKind == NodeKind::Division)
        ListDivision();
    else if (m_nNodeKind == NodeKind::TrackFiles)
        CollectResults();
    m_hub.UpdateAllViews(nullptr, HINT_RESULTS_CHANGED);
}

void CViewSelection::Recalculate(bool bResetFocus, bool bDerivePoints)
{
    ForgetResults();
    const CPerson* pPerson = GetCurrentPerson();
    if (bResetFocus) {
        SetFocusPoint(-1, -1.0);
    } else if (m_nFocusSeries != -1) {
        const int nLast = GetSeriesPoints(m_nFocusSeries).GetCount() - 1;
        SetFocusPoint(m_nFocusSeries, std::min(m_dFocusPoint, static_cast<double>(nLast)));
    }
    if (pPerson == nullptr) {
        m_hub.UpdateAllViews(nullptr, HINT_POINTS_CHANGED);
        return;
    }
    if (m_nSeries >= pPerson->m_series.GetCount())
        m_nSeries = -1;
    if (bDerivePoints) {
        ForgetShownResults();
        CPerson& person = *GetCurrentPerson();
        ForEachShownFile(
            [&](CSeries& series) { RecalculateTrackPoints(m_event, person, series, m_progress); });
    }
    MeasureExtremes(nullptr);
    if (m_nNodeKind == NodeKind::Division)
        ListDivision();
    else if (m_nNodeKind == NodeKind::TrackFiles)
        CollectResults();
    m_hub.UpdateAllViews(nullptr, HINT_POINTS_CHANGED);
}

void CViewSelection::SetFocusPoint(int nSeries, double dPoint)
{
    m_nFocusSeries = nSeries;
    m_dFocusPoint = std::round(dPoint);
    const CPointList* pPoints = nSeries != -1 && m_dFocusPoint != -1.0 ? &GetSeriesPoints(nSeries) : nullptr;
    if (pPoints == nullptr || pPoints->IsEmpty()) {
        m_dFocusPoint = -1.0;
        std::ranges::copy(NoFocusTexts, m_statusTexts.begin());
        return;
    }
    m_dFocusPoint = std::clamp(m_dFocusPoint, 0.0, static_cast<double>(pPoints->GetCount() - 1));
    const CTrackPoint& point = (*pPoints)[static_cast<int>(m_dFocusPoint)];
    const double dFactor = SpeedUnitOf(m_event.m_nSpeedUnits).dDisplayFactor;
    const auto degrees = [&](double d) { return FormatNumber(d, m_event.m_nLatLongPrecision, true); };
    m_statusTexts = {
        FormatNumber(point.m_dSpeed * dFactor, 3, true),
        "AVG",
        FormatNumber(point.m_dTotalDistance * KilometresToMetres, 2, true),
        degrees(point.m_position.m_dLatitude),
        degrees(point.m_position.m_dLongitude),
        FormatTimeOfDay(ShiftToTimezone(point.m_time, m_event.m_dTimezone), m_event.m_nTimePrecision)};
}

void CViewSelection::SelectResult(const CResult* pResult)
{
    ForgetRun();
    if (pResult == nullptr || pResult->m_nStartIndex == -1 || pResult->m_nPersonIndex < 0 ||
        pResult->m_nPersonIndex >= m_event.m_persons.GetCount())
    {
        SetFocusPoint(-1, -1.0);
        return;
    }
    m_nRunKind = DivisionKind::CheckPoints;
    for (int i = 0; i < m_event.m_divisions.GetCount(); ++i) {
        const CDivision& division = m_event.m_divisions[i];
        if (division.m_strName != pResult->m_strDivision)
            continue;
        m_nRunKind = division.m_nKind;
        m_nRunDivision = division.m_nKind == DivisionKind::CheckPoints ? -1 : i;
        m_dRunProximity = division.m_dProximity;
        break;
    }
    m_nRunStart = pResult->m_nStartIndex;
    m_nRunEnd = pResult->m_nEndIndex;
    m_nRunCompetitor = pResult->m_nPersonIndex;
    m_nRunSeries = pResult->m_nSeriesIndex;
    m_nRunWaypoint = pResult->m_nWaypoint;
    m_nRunWaypoint2 = pResult->m_nWaypoint2;
    if (m_nRunCompetitor != m_nCompetitor) {
        ForgetPoints();
        m_nCompetitor = m_nRunCompetitor;
        m_nSeries = m_nFocusSeries = m_nRunSeries;
        if (const CSeries* pSeries = GetCurrentSeries()) {
            MeasureExtremes(pSeries);
            m_strCaption = pSeries->m_strName;
        }
    }
    const bool bStraight = m_nRunKind == DivisionKind::Distance || m_nRunKind == DivisionKind::Time;
    SetFocusPoint(m_nRunSeries, bStraight ? m_nRunStart : FastestOfRun());
}

/// The index of the run's fastest point. A run that reaches beyond its file ends with it.
int CViewSelection::FastestOfRun()
{
    const CPointList& points = GetSeriesPoints(m_nRunSeries);
    m_nRunEnd = std::min(m_nRunEnd, points.GetCount() - 1);
    int nFastest = m_nRunStart;
    for (int i = m_nRunStart; i <= m_nRunEnd; ++i) {
        if (points[i].m_dSpeed > points[nFastest].m_dSpeed)
            nFastest = i;
    }
    return nFastest;
}

void CViewSelection::MoveFocus(const CPane* pSender, int nSeries, double dPoint)
{
    SetFocusPoint(nSeries, dPoint);
    m_hub.UpdateAllViews(pSender, HINT_FOCUS_MOVED);
}

void CViewSelection::PickResult(const CPane* pSender, const CResult* pResult)
{
    const int nCompetitor = m_nCompetitor;
    SelectResult(pResult);
    if (m_nCompetitor != nCompetitor)
        m_hub.UpdateAllViews(pSender, HINT_TRACKFILE_CHANGED);
    m_hub.UpdateAllViews(pSender, HINT_FOCUS_MOVED);
}

} // namespace kestrabel
