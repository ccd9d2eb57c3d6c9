#include "app/CheckPoints.h"

#include "app/NewProject.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(CheckPoints, TheFirstOneBringsTheDivision)
{
    CEvent event(DATE(45444.0));
    FillNewProject(event, DATE(45444.0));
    CPerson& ann = AddCompetitor(event, "Ann");
    CPerson& ben = AddCompetitor(event, "Ben");
    CSeries& series = ann.m_series.Add(std::make_unique<CSeries>());
    const CPosition position = MakePosition(60.0, 5.0);
    for (const char* pName : {"CP1", "CP2"}) {
        const CWayPoint& wayPoint = AddCheckPoint(event, series, pName, position, 1.0);
        EXPECT_EQ(&wayPoint, series.m_waypoints.Last());
        EXPECT_EQ(wayPoint.m_strName, pName);
        EXPECT_EQ(wayPoint.m_position, position);
        EXPECT_EQ(wayPoint.m_dProximity, 1.0);
        EXPECT_EQ(wayPoint.m_rcExtent, BoxAround(position, 1.0));
    }
    ASSERT_EQ(event.m_divisions.GetCount(), 7) << "exactly one for both";
    const CDivision& division = event.m_divisions[6];
    EXPECT_EQ(division.m_strName, "CheckPoints");
    EXPECT_EQ(division.m_nKind, DivisionKind::CheckPoints);
    EXPECT_EQ(division.m_dMetres, CDivision().m_dMetres);
    EXPECT_EQ(division.m_nSeconds, CDivision().m_nSeconds);
    for (const CPerson* pPerson : {&ann, &ben})
        EXPECT_TRUE(pPerson->TakesPartIn("CheckPoints")) << pPerson->m_strName;
}

TEST(CheckPoints, ADivisionThatJudgesThemIsUsed)
{
    CEvent event(DATE(45444.0));
    CDivision& gates = event.m_divisions.Add(std::make_unique<CDivision>());
    gates.m_strName = "Gates";
    gates.m_nKind = DivisionKind::CheckPoints;
    EXPECT_EQ(&EnsureCheckPointsDivision(event), &gates);
    EXPECT_EQ(event.m_divisions.GetCount(), 1);
}

TEST(CheckPoints, ANameThatAnotherDivisionHasGetsANumber)
{
    CEvent event(DATE(45444.0));
    for (const char* pName : {"checkpoints", "CheckPoints 2"})
        event.m_divisions.Add(std::make_unique<CDivision>()).m_strName = pName;
    EXPECT_EQ(EnsureCheckPointsDivision(event).m_strName, "CheckPoints 3");
}

} // namespace
} // namespace kestrabel
