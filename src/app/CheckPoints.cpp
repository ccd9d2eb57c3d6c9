#include "app/CheckPoints.h"

#include <string>

namespace kestrabel {

namespace {

constexpr const char* CheckPointsName = "CheckPoints";

/// Results are kept by the division's name, which therefore nobody else may have.
std::string FreeName(const CEvent& event)
{
    std::string strName = CheckPointsName;
    for (int i = 2; event.FindDivision(strName) != nullptr; ++i)
        strName = CheckPointsName + (" " + std::to_string(i));
    return strName;
}

} // namespace

std::unique_ptr<CDivision> NewCheckPointsDivision(const CEvent& event)
{
    auto pDivision = std::make_unique<CDivision>();
    pDivision->m_strName = FreeName(event);
    pDivision->m_nKind = DivisionKind::CheckPoints;
    return pDivision;
}

CDivision& EnsureCheckPointsDivision(CEvent& event)
{
    for (CDivision* pDivision : event.m_divisions) {
        if (pDivision->m_nKind == DivisionKind::CheckPoints)
            return *pDivision;
    }
    auto pDivision = NewCheckPointsDivision(event);
    for (CPerson* pPerson : event.m_persons)
        pPerson->Enter(pDivision->m_strName);
    return event.m_divisions.Add(std::move(pDivision));
}

CWayPoint& AddCheckPoint(CEvent& event, CSeries& series, std::string_view strName, const CPosition& position,
                         double dProximity)
{
    EnsureCheckPointsDivision(event);
    CWayPoint& wayPoint = series.m_waypoints.Add(std::make_unique<CWayPoint>());
    wayPoint.m_strName = strName;
    wayPoint.m_position = position;
    wayPoint.m_dProximity = dProximity;
    wayPoint.m_rcExtent = BoxAround(position, dProximity);
    return wayPoint;
}

} // namespace kestrabel
