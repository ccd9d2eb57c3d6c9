#include "app/NewProject.h"

#include "model/EventSettings.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(NewProject, SixDivisionsAndEverySettingAtItsDefault)
{
    const DATE now(45444.5);
    CEvent event(DATE(1.0));
    // Something else in every setting and list.
    for (const SEventSetting& setting : EventSettings())
        SetEventSetting(event, setting.strName, setting.strName == "Ellipsoid" ? "5" : "2");
    event.m_posNorthWest = event.m_posSouthEast = MakePosition(1, 2);
    event.m_waypoints.Add(std::make_unique<CWayPoint>());
    AddCompetitor(event, "old");
    event.m_divisions.Add(std::make_unique<CDivision>()).m_strName = "old";

    FillNewProject(event, now);
    const CEvent fresh(now);
    for (const SEventSetting& setting : EventSettings()) {
        if (setting.strName == "Description" || setting.strName == "Location")
            continue;
        EXPECT_TRUE(std::visit([&](auto pField) { return event.*pField == fresh.*pField; }, setting.field))
            << setting.strName;
    }
    EXPECT_EQ(event.m_strDescription, "New Event");
    EXPECT_EQ(event.m_strLocation, "New Location");
    EXPECT_TRUE(event.m_persons.IsEmpty());
    EXPECT_TRUE(event.m_waypoints.IsEmpty());

    const struct
    {
        const char* pName;
        int nKind;
        double dMetres;
        int nSeconds, nAverageRuns;
    } expected[] = {
        {"2 sec", 2, 0.0, 2, 1},
        {"10 sec (best of 5)", 2, 0.0, 10, 5},
        {"10 sec", 2, 0.0, 10, 1},
        {"100 meters Accum", 1, 100.0, 10, 1},
        {"250 meters Accum", 1, 250.0, 10, 1},
        {"500 meters Accum", 1, 500.0, 10, 1},
    };
    ASSERT_EQ(event.m_divisions.GetCount(), 6);
    for (int i = 0; i < 6; ++i) {
        const CDivision& division = event.m_divisions[i];
        EXPECT_EQ(division.m_strName, expected[i].pName);
        EXPECT_EQ(division.m_nKind, expected[i].nKind) << i;
        EXPECT_EQ(division.m_dMetres, expected[i].dMetres) << i;
        EXPECT_EQ(division.m_nSeconds, expected[i].nSeconds) << i;
        EXPECT_EQ(division.m_nAverageRuns, expected[i].nAverageRuns) << i;
        EXPECT_EQ(division.m_bAccumulation, 1) << i;
        EXPECT_EQ(division.m_bOneResultPerRun, 1) << i;
        EXPECT_EQ(division.m_bStrict, 1) << i;
        EXPECT_EQ(division.m_dProximity, 0.05) << i;
        EXPECT_EQ(division.m_nCalcUsing, 0) << i;
    }
}

TEST(NewProject, CompetitorsAreEnteredInEveryDivision)
{
    CEvent event(DATE(1.0));
    FillNewProject(event, DATE(1.0));
    const CPerson& person = AddCompetitor(event, "Sam");
    EXPECT_EQ(person.m_strName, "Sam");
    ASSERT_EQ(person.m_divisionNames.size(), 6U);
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_EQ(person.m_divisionNames[i], event.m_divisions[static_cast<int>(i)].m_strName);
    const CPerson& second = AddCompetitor(event, "");
    EXPECT_EQ(&second, event.m_persons.Last());
    EXPECT_EQ(event.m_persons.GetCount(), 2);
}

} // namespace
} // namespace kestrabel
