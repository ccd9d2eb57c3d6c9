#include "app/NewProject.h"

#include "model/EventSettings.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(NewProject, SixDivisionsForEverybodyAndEverySettingAtItsDefault)
{
    CEvent event(DATE(1.0));
    for (const SEventSetting& setting : EventSettings())
        SetEventSetting(event, setting.strName, setting.strName == "Ellipsoid" ? "5" : "2");
    event.m_waypoints.Add(std::make_unique<CWayPoint>());
    AddCompetitor(event, "old");
    event.m_divisions.Add(std::make_unique<CDivision>()).m_strName = "old";
    FillNewProject(event, DATE(45444.5));
    EXPECT_EQ(event.m_strDescription + ", " + event.m_strLocation, "New Event, New Location");
    EXPECT_TRUE(event.m_persons.IsEmpty() && event.m_waypoints.IsEmpty());
    const CEvent fresh(DATE(45444.5));
    event.m_strDescription = event.m_strLocation = "";
    for (const SEventSetting& setting : EventSettings())
        std::visit([&](auto pField) { EXPECT_TRUE(event.*pField == fresh.*pField); }, setting.field);

    // Name, kind, metres, seconds, runs that are averaged.
    const std::tuple<std::string, int, double, int, int> expected[] = {
        {"2 sec", 2, 0.0, 2, 1},
        {"10 sec (best of 5)", 2, 0.0, 10, 5},
        {"10 sec", 2, 0.0, 10, 1},
        {"100 meters Accum", 1, 100.0, 10, 1},
        {"250 meters Accum", 1, 250.0, 10, 1},
        {"500 meters Accum", 1, 500.0, 10, 1},
    };
    const CPerson& person = AddCompetitor(event, "Sam");
    ASSERT_EQ(event.m_divisions.GetCount(), 6);
    for (int i = 0; i < 6; ++i) {
        const CDivision& d = event.m_divisions[i];
        EXPECT_EQ(std::tuple(d.m_strName, d.m_nKind, d.m_dMetres, d.m_nSeconds, d.m_nAverageRuns),
                  expected[i]);
        EXPECT_EQ(std::tuple(d.m_bAccumulation, d.m_bOneResultPerRun, d.m_bStrict), std::tuple(1, 1, 1));
        EXPECT_TRUE(person.TakesPartIn(d.m_strName));
    }
}

} // namespace
} // namespace kestrabel
