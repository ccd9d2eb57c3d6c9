#include "app/NewProject.h"
#include "cli/SteadyTrack.h"
#include "cli/ToolRun.h"
#include "model/EventSettings.h"
#include "model/ProjectFile.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

using nlohmann::json;
using test::KeysOf;
using test::SToolRun;
using testing::HasSubstr;

class Project : public testing::Test
{
protected:
    /// Saves an event as that project of the tool's folder.
    void Save(const std::string& strName, CEvent& event, std::string_view strStoredPath) const
    {
        SaveProject(m_tool.m_folder.Path(strName), event, strStoredPath);
    }

    test::CToolTest m_tool;
};

TEST_F(Project, NewHasTheSixDivisionsAndTheFullPath)
{
    const SToolRun made = m_tool.Run({"project", "new", "sub/../event.rsp"});
    EXPECT_EQ(made.nStatus, 1) << "there is no folder sub";
    EXPECT_EQ(made.strErr, "sub/../event.rsp: All or part of the path is invalid\n");
    std::filesystem::create_directory(m_tool.m_folder.Path("sub"));
    const SToolRun again = m_tool.Run({"project", "new", "sub/../event.rsp"});
    EXPECT_EQ(again.nStatus, 0);
    EXPECT_EQ(again.strOut + again.strErr, "");

    const SToolRun shown = m_tool.Run({"project", "show", "event.rsp", "--format", "json"});
    EXPECT_EQ(shown.nStatus, 0);
    EXPECT_EQ(shown.strErr, "");
    const json document = shown.Json();
    std::vector<std::string> names;
    for (const json& division : document["divisions"])
        names.push_back(division["name"]);
    EXPECT_THAT(names, testing::ElementsAre("2 sec", "10 sec (best of 5)", "10 sec", "100 meters Accum",
                                            "250 meters Accum", "500 meters Accum"));
    EXPECT_EQ(document["path"], m_tool.m_folder.Path("event.rsp"));
    EXPECT_EQ(document["settings"]["DataFolder"], m_tool.m_folder.Path("data/"));
    EXPECT_EQ(document["settings"]["Description"], "New Event");
}

TEST_F(Project, NewReplacesAFileOnlyWithForce)
{
    m_tool.m_folder.Write("event.rsp", "precious");
    const SToolRun refused = m_tool.Run({"project", "new", "event.rsp"});
    EXPECT_EQ(refused.nStatus, 1);
    EXPECT_EQ(refused.strErr, "event.rsp: the file exists; --force replaces it\n");
    EXPECT_EQ(test::CTemporaryFolder::Read(m_tool.m_folder.Path("event.rsp")), "precious");

    EXPECT_EQ(m_tool.Run({"project", "new", "--force", "event.rsp"}).nStatus, 0);
    EXPECT_EQ(m_tool.Run({"project", "show", "event.rsp"}).nStatus, 0);
    EXPECT_EQ(m_tool.Run({"project", "new", "event.rsp"}).nStatus, 1);
}

/// Names and values of a project as the document must show them.
TEST_F(Project, ShowJsonHasEveryMemberUnderItsName)
{
    CEvent event(DATE(45444.25));
    event.m_strLocation = "Zoë's bay";
    event.m_dateEnd = DATE::MakeInvalid();
    event.m_nReserved = -7;
    event.m_bConstrainDates = 1;
    event.m_dZoom = 0.1;
    event.m_ellipsoid.SetEllipsoid(CEllipsoid::User, 6377000.5, 300.25);
    CDivision& laps = event.m_divisions.Add(std::make_unique<CDivision>());
    laps.m_strName = "Laps";
    laps.m_nKind = DivisionKind::LapRacing;
    laps.m_dMetres = 250.5;
    laps.m_nSeconds = 3;
    laps.m_nAverageRuns = 4;
    laps.m_bOneResultPerRun = 0;
    laps.m_bUseAltitude = 1;
    laps.m_nCalcUsing = 2;
    laps.m_bStrict = 0;
    laps.m_dMinCalcInterval = 1.5;
    laps.m_nStartAt = 9;
    CWayPoint& gate = laps.m_waypoints.Add(std::make_unique<CWayPoint>());
    gate.m_strName = "Gate";
    gate.m_position = MakePosition(-38.84, 146.16);
    event.m_waypoints.Add(std::make_unique<CWayPoint>()).m_strName = "Buoy";
    Save("e.rsp", event, "C:\\Events\\e.rsp");

    const json document = m_tool.Run({"project", "show", "e.rsp", "--format", "json"}).Json();
    EXPECT_EQ(KeysOf(document), (std::set<std::string>{"settings", "divisions", "waypoints", "path"}));
    EXPECT_EQ(document["path"], "C:\\Events\\e.rsp");
    const json expectedDivision = json::parse(
        R"({"name": "Laps", "kind": 4, "metres": 250.5, "seconds": 3, "averageRuns": 4, "accumulation": false,
            "oneResultPerRun": false, "useAltitude": true, "proximityKm": 0.05, "calcUsing": 2, "strict": false,
            "minCalcInterval": 1.5, "startAt": 9, "waypoints":
                [{"name": "Gate", "latitude": -38.84, "longitude": 146.16, "proximityKm": 0.005}]})");
    EXPECT_EQ(document["divisions"], json::array({expectedDivision}));
    EXPECT_EQ(document["waypoints"],
              json::parse(R"([{"name": "Buoy", "latitude": 0, "longitude": 0, "proximityKm": 0.005}])"));

    const json& settings = document["settings"];
    std::set<std::string> names;
    for (const SEventSetting& setting : EventSettings())
        names.emplace(setting.strName);
    EXPECT_EQ(KeysOf(settings), names);
    EXPECT_EQ(settings["Location"], "Zoë's bay");
    EXPECT_EQ(settings["DateStart"], 45444.25);
    EXPECT_TRUE(settings["DateEnd"].is_null());
    EXPECT_EQ(settings["Reserved"], -7);
    EXPECT_EQ(settings["ConstrainDates"], 1);
    EXPECT_EQ(settings["Zoom"], 0.1);
    EXPECT_EQ(settings["NorthWest"], json::parse(R"({"latitude": -38.83, "longitude": 146.155})"));
    EXPECT_EQ(settings["Ellipsoid"],
              json::parse(R"({"index": 6, "radius": 6377000.5, "invFlattening": 300.25})"));

    const SToolRun table = m_tool.Run({"project", "show", "e.rsp"});
    for (const char* pPart :
         {"Path                C:\\Events\\e.rsp\n", "Location            Zoë's bay\n",
          "DateStart           2024-06-01 06:00:00\n", "DateEnd\n", "NorthWest           -38.83,146.155\n",
          "Ellipsoid           User,6377000.5,300.25\n", "Lap Racing", "\nThe event\n", "\nLaps\n", "\nGate",
          "\nBuoy"})
        EXPECT_THAT(table.strOut, HasSubstr(pPart));
    for (const std::string& strLine : test::Lines(table.strOut))
        EXPECT_LE(strLine.size(), 101U) << strLine;
}

TEST_F(Project, WhatIsNoProjectIsNamedWithTheReason)
{
    m_tool.m_folder.Write("ann.nmea", test::SteadyNmea(60, 0.006));
    m_tool.m_folder.Write("cut.rsp", std::string("\x05New", 4));
    const struct
    {
        const char *pFile, *pReason;
    } cases[] = {
        {"none.rsp", "The file could not be located"},
        {"cut.rsp", "not a project, or a damaged one: byte 1: 5 characters of text do not fit in the 3 bytes "
                    "that are left"},
    };
    for (const auto& test : cases) {
        const std::string strMessage = std::string(test.pFile) + ": " + test.pReason + "\n";
        for (const std::vector<std::string>& arguments :
             {std::vector<std::string>{"project", "show", test.pFile},
              {"results", "ann.nmea", "--project", test.pFile},
              {"leaderboard", "--entry", "Ann=ann.nmea", "--project", test.pFile},
              {"points", "ann.nmea", "--project", test.pFile}})
        {
            const SToolRun run = m_tool.Run(arguments);
            EXPECT_EQ(run.nStatus, 3) << arguments[0];
            EXPECT_EQ(run.strOut, "") << arguments[0];
            EXPECT_EQ(run.strErr, strMessage) << arguments[0];
        }
    }
}

TEST_F(Project, ItsDivisionsAndSettingsJudgeTheRun)
{
    m_tool.m_folder.Write("ann.nmea", test::SteadyNmea(60, 0.006));
    CEvent event(DATE(45444.0));
    event.m_nSpeedUnits = 2;
    event.m_ellipsoid.SetEllipsoid(5, 0.0, 0.0);
    CDivision& division = event.m_divisions.Add(std::make_unique<CDivision>());
    division.m_strName = "5 s";
    division.m_nKind = DivisionKind::Time;
    division.m_nSeconds = 5;
    division.m_bAccumulation = 1;
    Save("e.rsp", event, "");

    const SToolRun board =
        m_tool.Run({"leaderboard", "--project", "e.rsp", "--entry", "Ann=ann.nmea", "--format", "json"});
    EXPECT_EQ(board.nStatus, 0);
    const json divisions = board.Json()["divisions"];
    ASSERT_EQ(divisions.size(), 1U) << "the project's one instead of the usual six";
    EXPECT_EQ(divisions[0]["division"], "5 s");
    EXPECT_EQ(divisions[0]["results"][0]["seconds"], 5.0);
    EXPECT_NEAR(divisions[0]["results"][0]["speedKmh"].get<double>(), test::SteadySpeed(0.006), 1e-4);

    const auto header = [&](std::vector<std::string> further) {
        further.insert(further.begin(), {"results", "ann.nmea", "--project", "e.rsp", "--format", "csv"});
        return test::Lines(m_tool.Run(further).strOut).front();
    };
    EXPECT_THAT(header({}), HasSubstr("Speed(m/s)"));
    EXPECT_THAT(header({"--set", "SpeedUnits=1"}), HasSubstr("Speed(kph)")) << "over the project's";
    EXPECT_EQ(m_tool.Run({"results", "ann.nmea", "--project", "e.rsp", "--division", "2 sec"}).nStatus, 2);

    const auto speed = [&](const std::vector<std::string>& further) {
        std::vector<std::string> arguments = {"points", "ann.nmea", "--format", "json"};
        arguments.insert(arguments.end(), further.begin(), further.end());
        return m_tool.Run(arguments).Json()["points"][1]["speedKmh"].get<double>();
    };
    EXPECT_EQ(speed({"--project", "e.rsp"}), speed({"--set", test::OnTheSphere}));
    EXPECT_NE(speed({"--project", "e.rsp"}), speed({}));
}

TEST_F(Project, CheckpointsBringTheirDivision)
{
    m_tool.m_folder.Write("ann.nmea", test::SteadyNmea(60, 0.006));
    CEvent event(DATE(45444.0));
    Save("none.rsp", event, "");
    CDivision& gates = event.m_divisions.Add(std::make_unique<CDivision>());
    gates.m_strName = "Gates";
    gates.m_nKind = DivisionKind::CheckPoints;
    Save("gates.rsp", event, "");
    const auto divisionsOf = [&](const std::vector<std::string>& further) {
        std::vector<std::string> arguments = {"results",  "--entry",  "Ann=ann.nmea",
                                              "ann.nmea", "--format", "json"};
        arguments.insert(arguments.end(), further.begin(), further.end());
        const SToolRun run = m_tool.Run(arguments);
        EXPECT_EQ(run.strErr, "");
        std::vector<std::vector<std::string>> names;
        const json document = run.Json();
        for (const json& competitor : document["competitors"]) {
            names.emplace_back();
            for (const json& division : competitor["divisions"])
                names.back().push_back(division["division"]);
        }
        return names;
    };
    const std::string strGate = "Gate,50.0015,-1.0,20";
    using CNames = std::vector<std::vector<std::string>>;
    EXPECT_EQ(divisionsOf({"--project", "none.rsp"}), (CNames{{}, {}}));
    EXPECT_EQ(divisionsOf({"--project", "none.rsp", "--checkpoint", strGate}),
              (CNames{{"CheckPoints"}, {"CheckPoints"}}));
    EXPECT_EQ(divisionsOf({"--project", "gates.rsp", "--checkpoint", strGate}),
              (CNames{{"Gates"}, {"Gates"}}));
    EXPECT_EQ(divisionsOf({"--checkpoint", strGate, "--division", "checkpoints"}),
              (CNames{{"CheckPoints"}, {"CheckPoints"}}));
}

} // namespace
} // namespace kestrabel
