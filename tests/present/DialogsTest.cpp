#include "model/SpeedUnits.h"
#include "present/SelectDivisionDialog.h"
#include "present/SelectedPropertiesDialog.h"
#include "present/SelectWayPointDialog.h"
#include "present/TrackFilePropertiesDialog.h"
#include "present/WayPointDialog.h"
#include "support/Track.h"

#include <gtest/gtest.h>
#include <limits>

namespace kestrabel {
namespace {

std::vector<std::string> Texts(const CDialogLines& lines)
{
    std::vector<std::string> texts;
    for (const auto& [strLabel, strText] : lines)
        texts.push_back(strText);
    return texts;
}

TEST(EditDivisionDialog, WhatEachKindOpensAndChecks)
{
    CDivision division; // with "One result per run"
    division.m_bUseAltitude = 1;
    // Open: Metres Seconds Proximity Altitude aCcumulation Result Waypoints; checked: Altitude aCcumulation
    // Result.
    const std::pair<int, std::string> cases[] = {{1, "M--ACR- A-R"}, {2, "-S-ACR- A-R"}, {3, "M-P---- -C-"},
                                                 {4, "--PA--W AC-"}, {5, "M--A--- AC-"}, {6, "------- -C-"},
                                                 {0, "M--ACR- A-R"}, {9, "M--ACR- A-R"}};
    for (const auto& [nKind, strExpected] : cases) {
        SEditDivisionDialog d = SEditDivisionDialog::From(CEvent(), division);
        d.SetKind(static_cast<std::uint8_t>(nKind));
        const bool flags[] = {d.metres.bEnabled,         d.seconds.bEnabled,
                              d.proximity.bEnabled,      d.useAltitude.bEnabled,
                              d.accumulation.bEnabled,   d.oneResultPerRun.bEnabled,
                              d.bWayPointsEnabled,       false,
                              d.useAltitude.bChecked,    d.accumulation.bChecked,
                              d.oneResultPerRun.bChecked};
        std::string strText = "MSPACRW ACR";
        for (std::size_t i = 0; i < strText.size(); ++i)
            strText[i] = flags[i] || strText[i] == ' ' ? strText[i] : '-';
        EXPECT_EQ(strText, strExpected) << nKind;
    }
}

TEST(EditDivisionDialog, NoProximityBecomesAMillimetre)
{
    CDivision division;
    EXPECT_TRUE(SEditDivisionDialog::From(CEvent(), division).bAddToAllCompetitors) << "new";
    division.m_strName = "Alpha";
    division.m_dProximity = 0.0;
    const SEditDivisionDialog dialog = SEditDivisionDialog::From(CEvent(), division);
    EXPECT_EQ(dialog.proximity.strText, "0.001");
    EXPECT_FALSE(dialog.bAddToAllCompetitors);
    dialog.ApplyTo(division);
    EXPECT_DOUBLE_EQ(division.m_dProximity, 0.000001);
}

TEST(EditDivisionDialog, AnEntryThatAnotherKindPutOutOfReachIsNotJudged)
{
    CDivision division;
    SEditDivisionDialog dialog = SEditDivisionDialog::From(CEvent(), division);
    dialog.strName = "500 m";
    dialog.SetKind(DivisionKind::Time);
    dialog.seconds.strText = "99999999999";
    EXPECT_TRUE(dialog.Validate());
    dialog.SetKind(DivisionKind::Distance);
    EXPECT_FALSE(dialog.Validate());
    dialog.ApplyTo(division);
    EXPECT_EQ(division.m_nSeconds, std::numeric_limits<std::int32_t>::max()) << "as near as a number gets";
}

TEST(WayPointDialog, LongitudesUpTo360)
{
    CWayPoint wayPoint;
    wayPoint.m_dProximity = 0.0051;
    SWayPointDialog dialog = SWayPointDialog::From(wayPoint, false);
    EXPECT_EQ(dialog.proximity.strText, "5.1") << "5.1000000000000005 is noise";
    dialog.longitude.strText = "200";
    EXPECT_FALSE(dialog.Validate());
    dialog.longitude.strText = "-200";
    ASSERT_TRUE(dialog.Validate());
    EXPECT_EQ(dialog.Validate()->pField, &dialog.longitude);
    EXPECT_EQ(dialog.Validate()->strMessage, "Longitude: please enter a number from -180 to 360.");
}

TEST(SelectDivisionDialog, CheckedNamesInTheOrderOfTheEvent)
{
    CEvent event;
    for (const char* pName : {"2 sec", "10 sec", "Alpha"})
        event.m_divisions.Add(std::make_unique<CDivision>()).m_strName = pName;
    CPerson person;
    person.m_divisionNames = {"gone", "Alpha", "10 sec"};
    SEditCompetitorDialog competitor = SEditCompetitorDialog::From(event, person);
    SSelectDivisionDialog dialog = SSelectDivisionDialog::From(competitor);
    EXPECT_EQ(dialog.CheckedNames(), (std::vector<std::string>{"10 sec", "Alpha"}));
    dialog.Toggle(0);
    dialog.Toggle(1);
    EXPECT_EQ(dialog.CheckedNames(), (std::vector<std::string>{"2 sec", "Alpha"}));

    competitor.RemoveDivisions(std::array{0, 2});
    EXPECT_EQ(competitor.divisionNames, std::vector<std::string>{"Alpha"});
    competitor.number.strText = "1234567890123";
    ASSERT_TRUE(competitor.Validate());
    EXPECT_EQ(competitor.Validate()->pField, &competitor.number);
}

TEST(SelectWayPointDialog, MarksStayWithTheirWayPoint)
{
    CDivision division;
    for (const char* pName : {"A", "B", "C"})
        division.m_waypoints.Add(std::make_unique<CWayPoint>()).m_strName = pName;
    SEditDivisionDialog edited = SEditDivisionDialog::From(CEvent(), division);
    SSelectWayPointDialog dialog = SSelectWayPointDialog::From(edited);
    dialog.Toggle(2);
    dialog.nSelected = 1;
    dialog.Delete();
    EXPECT_EQ(dialog.nSelected, 1);
    EXPECT_EQ(dialog.checked, (std::vector{false, true}));
    for (int i = 0; i < 3; ++i)
        dialog.Delete();
    EXPECT_FALSE(dialog.HasSelection());
    EXPECT_EQ(edited.wayPoints.GetCount(), 3) << "before OK";
    dialog.Add(std::make_unique<CWayPoint>());
    dialog.ApplyTo(edited);
    EXPECT_EQ(edited.wayPoints.GetCount(), 1);
    EXPECT_EQ(edited.wayPointsChecked.size(), 1U);
}

TEST(SelectedPropertiesDialog, OnlyUsableFixesCount)
{
    CObjectArray<CTrackPoint> points;
    const struct
    {
        double dSpeed; ///< km/h
        int nAltitude;
        std::uint8_t nFlags;
    } fixes[] = {{37.04, -3, 0},
                 {18.52, 8, InvalidFlag::SpeedSpike | InvalidFlag::DopplerSpike},
                 {999, 99, InvalidFlag::Hdop},
                 {999, 99, InvalidFlag::User},
                 {999, 99, InvalidFlag::Time}};
    for (const auto& fix : fixes) {
        CTrackPoint& point = points.Add(test::MakePoint(0.0, 50.0, 1.0));
        point.m_dSpeed = fix.dSpeed;
        point.m_dDoppler = 18.52;
        point.m_nAltitude = fix.nAltitude;
        point.m_nInvalidFlags = fix.nFlags;
        point.m_dDeltaTime = 1.5 * DaysPerSecond;
        point.m_dDistance = 0.926;
    }
    CEvent event;
    event.m_nTimePrecision = 1;
    const std::vector<const CTrackPoint*> all(points.begin(), points.end());
    using CTexts = std::vector<std::string>;
    EXPECT_EQ(Texts(SSelectedPropertiesDialog::From(event, all).lines),
              (CTexts{"2", "3", "1.85", "1", "8", "-3", "10", "15", "0", "5"}));
    EXPECT_EQ(Texts(SSelectedPropertiesDialog::From(event, std::span(all).first(1)).lines),
              (CTexts{"1", "1.5", ".93", ".5", "-3", "-3", "10", "20", "0", "0"}));
    EXPECT_EQ(Texts(SSelectedPropertiesDialog::From(event, std::span(all).last(3)).lines),
              (CTexts{"0", "0", "0", "0", "", "", "0", "0", "0", "0"}));
}

TEST(TrackFilePropertiesDialog, StatisticsInTheirOwnDecimals)
{
    CEvent event;
    event.m_nSpeedUnits = SpeedUnit::MilesPerHour;
    event.m_nDistancePrecision = 0;
    CSeries series;
    using CTexts = std::vector<std::string>;
    EXPECT_EQ(Texts(STrackFilePropertiesDialog::From(event, series).statistics),
              (CTexts{"0", "0", "0", "0", "", "", "0", "0"}));
    series.m_points.Add(test::MakePoint(0.0, 50.0, 1.0));
    series.m_dTravelTime = 100.0;
    series.m_dTotalDistance = 10.0;
    series.m_dMaxAltitude = -std::numeric_limits<double>::max();
    series.m_dMinAltitude = -2.0;
    series.m_dMaxResultHDOP = 1.25;
    series.m_dMinResultSats = 11.0;
    series.m_nLogRate = 5;
    const STrackFilePropertiesDialog dialog = STrackFilePropertiesDialog::From(event, series);
    EXPECT_EQ(Texts(dialog.statistics), (CTexts{"1", "1.67", "10", "6.21", "", "-2", "1.2", "11"}));
    EXPECT_EQ(Texts(dialog.gpsInformation).back(), "5");
}

} // namespace
} // namespace kestrabel
