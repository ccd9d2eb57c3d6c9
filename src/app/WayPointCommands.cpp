#include "app/WayPointCommands.h"

#include "app/CheckPoints.h"
#include "app/Document.h"
#include "app/EditRecorder.h"
#include "geo/Proximity.h"
#include "present/WayPointDialog.h"

#include <algorithm>

namespace kestrabel {

namespace {

/// The waypoint as the user wants it, at first named `strName` at the point; null when cancelled.
std::unique_ptr<CWayPoint> AskForWayPoint(CKestroDoc& document, bool bCheckPoint, std::string strName,
                                          const CPosition& position)
{
    auto pWayPoint = std::make_unique<CWayPoint>();
    pWayPoint->m_strName = std::move(strName);
    pWayPoint->m_position = position;
    SWayPointDialog dialog = SWayPointDialog::From(*pWayPoint, bCheckPoint);
    if (!document.m_surroundings.desktop.Run(dialog))
        return nullptr;
    dialog.ApplyTo(*pWayPoint);
    pWayPoint->m_rcExtent = BoxAround(pWayPoint->m_position, pWayPoint->m_dProximity);
    return pWayPoint;
}

/// Where the point of what is shown is; null for an index that it has not.
const CPosition* PositionOf(CViewSelection& selection, int nPoint)
{
    const CObjectArray<CTrackPoint>& points = selection.GetSeriesPoints(selection.m_nSeries);
    return nPoint >= 0 && nPoint < points.GetCount() ? &points[nPoint].m_position : nullptr;
}

/// `pPosition` is null where a point is meant that does not exist.
void AddWaypointAt(CKestroDoc& document, const CPosition* pPosition)
{
    CViewSelection& selection = document.m_selection;
    if (selection.GetCurrentSeries() == nullptr || pPosition == nullptr) {
        document.m_surroundings.desktop.ShowMessage("First select a point to add it as a waypoint");
        return;
    }
    CObjectArray<CWayPoint>& wayPoints = document.m_event.m_waypoints;
    const int nCount = wayPoints.GetCount();
    auto pWayPoint = AskForWayPoint(document, false, "WP" + std::to_string(nCount + 1), *pPosition);
    if (pWayPoint == nullptr)
        return;
    CEditRecorder recorder(document, "Add Waypoint");
    recorder.Do(std::make_unique<CObjectChange<CWayPoint>>(wayPoints, nCount, std::move(pWayPoint)));
    recorder.MarkDocument();
    recorder.Finish();
    selection.RefreshResults(false);
    recorder.Keep();
}

void AddCheckPointAt(CKestroDoc& document, const CPosition* pPosition)
{
    CViewSelection& selection = document.m_selection;
    CSeries* pSeries = selection.GetCurrentSeries();
    if (pSeries == nullptr || pPosition == nullptr) {
        document.m_surroundings.desktop.ShowMessage("First select a file to add a check point");
        return;
    }
    CEvent& event = document.m_event;
    const int nCount = pSeries->m_waypoints.GetCount();
    auto pWayPoint = AskForWayPoint(document, true, "CP" + std::to_string(nCount + 1), *pPosition);
    if (pWayPoint == nullptr)
        return;

    CEditRecorder recorder(document, "Add CheckPoint");
    recorder.Touch(*selection.GetCurrentPerson(), *pSeries, false);
    recorder.Do(
        std::make_unique<CObjectChange<CWayPoint>>(pSeries->m_waypoints, nCount, std::move(pWayPoint)));
    const bool bJudged = std::ranges::any_of(
        event.m_divisions, [](const CDivision* p) { return p->m_nKind == DivisionKind::CheckPoints; });
    const int nDivision = event.m_divisions.GetCount();
    if (!bJudged) {
        auto pDivision = NewCheckPointsDivision(event);
        for (CPerson* pPerson : event.m_persons) {
            std::vector<std::string> names = pPerson->m_divisionNames;
            names.push_back(pDivision->m_strName);
            recorder.Set(pPerson->m_divisionNames, std::move(names));
        }
        recorder.VoidDivision(pDivision->m_strName);
        recorder.Do(
            std::make_unique<CObjectChange<CDivision>>(event.m_divisions, nDivision, std::move(pDivision)));
    }
    recorder.MarkDocument();
    recorder.Finish();
    if (bJudged)
        selection.RefreshResults(false);
    else
        selection.ShowDivisionResults(nDivision);
    recorder.Keep();
}

} // namespace

void AddWaypointAtPoint(CKestroDoc& document, int nPoint)
{
    AddWaypointAt(document, PositionOf(document.m_selection, nPoint));
}

void AddWaypointAtPosition(CKestroDoc& document, const CPosition& position)
{
    AddWaypointAt(document, &position);
}

void AddCheckPointAtPoint(CKestroDoc& document, int nPoint)
{
    AddCheckPointAt(document, PositionOf(document.m_selection, nPoint));
}

void AddCheckPointAtPosition(CKestroDoc& document, const CPosition& position)
{
    AddCheckPointAt(document, &position);
}

} // namespace kestrabel
