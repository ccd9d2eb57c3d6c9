#include "app/NewProject.h"
#include "app/TrackFileImport.h"
#include "cli/SteadyTrack.h"
#include "cli/ToolRun.h"

#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace kestrabel {
namespace {

using nlohmann::json;
using test::CToolTest;
using test::KeysOf;
using test::Lines;
using test::SToolRun;

const std::set<std::string> TrackFileKeys = {
    "name",           "identifier",    "serialNo",    "firmware",      "info",         "logRate",
    "fileName",       "sourceKind",    "hasDoppler",  "day",           "pointCount",   "totalDistanceKm",
    "totalDopplerKm", "travelTimeS",   "maxSpeedKmh", "maxDopplerKmh", "minAltitudeM", "maxAltitudeM",
    "maxResultHdop",  "minResultSats", "bounds"};

const std::set<std::string> PointKeys = {"index",          "day",
                                         "time",           "latitude",
                                         "longitude",      "altitudeM",
                                         "hdop",           "sats",
                                         "rxStatus",       "dopplerKmh",
                                         "vertSpeedKmh",   "posErrorKm",
                                         "dopplerError",   "usogKmh",
                                         "ucogRad",        "distanceKm",
                                         "speedKmh",       "totalDistanceKm",
                                         "dopplerStepKm",  "totalDopplerKm",
                                         "sumStepSquares", "directionRad",
                                         "windAngleRad",   "run",
                                         "dopplerRun",     "invalidFlags",
                                         "deltaDays",      "satMask"};

/// An uneven log with altitudes, satellites and fractions that need all their digits.
std::string RichLog()
{
    std::string strLog = test::RmcLine(0, 0.0);
    for (int i = 1; i < 40; ++i) {
        const double dMinutes = i * 0.0051234 + std::sin(i) * 0.0001;
        const std::string strRmc = test::RmcLine(i, dMinutes);
        const std::string strTime = strRmc.substr(7, 6);
        const std::string strPosition =
            strRmc.substr(strRmc.find(",50"), sizeof(",50mm.mmmmmm,N,00100.000000,W") - 1);
        strLog += strRmc + "$GPGGA," + strTime + strPosition + ",2,08,1.3," + std::to_string(10 + i % 3) +
                  ",M,,M,,\n";
    }
    return strLog;
}

/// The same numbers as the library has, whatever the digits.
struct SExpected
{
    const char* pKey;
    double dValue;
};

void ExpectSame(const json& object, std::initializer_list<SExpected> members)
{
    for (const SExpected& expected : members)
        EXPECT_EQ(object[expected.pKey].get<double>(), expected.dValue) << expected.pKey;
}

TEST(PointsCommand, JsonNumbersAreTheLibrarysToTheBit)
{
    const CToolTest tool;
    const std::string strFile = tool.m_folder.Write("rich.nmea", RichLog());
    const SToolRun run = tool.Run({"points", "rich.nmea", "--format", "json"});
    ASSERT_EQ(run.nStatus, 0);
    EXPECT_EQ(run.strOut.back(), '\n');
    const json document = run.Json();
    EXPECT_EQ(KeysOf(document), (std::set<std::string>{"trackFile", "points"}));

    CEvent event;
    FillNewProject(event, DATE::Now());
    CImportMonitor monitor;
    EImportEnd end = EImportEnd::Complete;
    const CSeries* pSeries =
        AddTrackFile(event, AddCompetitor(event, ""), strFile, monitor, end, NoProgress());
    ASSERT_NE(pSeries, nullptr);
    ASSERT_EQ(document["points"].size(), static_cast<std::size_t>(pSeries->m_points.GetCount()));

    const json& file = document["trackFile"];
    EXPECT_EQ(KeysOf(file), TrackFileKeys);
    EXPECT_EQ(KeysOf(file["bounds"]), (std::set<std::string>{"west", "north", "east", "south"}));
    EXPECT_EQ(file["name"], "rich");
    EXPECT_EQ(file["fileName"], "rich.nmea");
    EXPECT_EQ(file["hasDoppler"], true);
    ExpectSame(file, {{"day", pSeries->m_date.m_dDays},
                      {"sourceKind", 2.0},
                      {"pointCount", 40.0},
                      {"totalDistanceKm", pSeries->m_dTotalDistance},
                      {"totalDopplerKm", pSeries->m_dTotalDopplerDistance},
                      {"travelTimeS", pSeries->m_dTravelTime},
                      {"maxSpeedKmh", pSeries->m_dMaxSpeed},
                      {"maxDopplerKmh", pSeries->m_dMaxDoppler},
                      {"minAltitudeM", pSeries->m_dMinAltitude},
                      {"maxAltitudeM", pSeries->m_dMaxAltitude},
                      {"maxResultHdop", pSeries->m_dMaxResultHDOP},
                      {"minResultSats", pSeries->m_dMinResultSats}});
    ExpectSame(file["bounds"], {{"west", pSeries->m_rcBounds.m_dWest},
                                {"north", pSeries->m_rcBounds.m_dNorth},
                                {"east", pSeries->m_rcBounds.m_dEast},
                                {"south", pSeries->m_rcBounds.m_dSouth}});

    std::set<double> speeds;
    for (int i = 0; i < pSeries->m_points.GetCount(); ++i) {
        SCOPED_TRACE(i);
        const json& read = document["points"][static_cast<std::size_t>(i)];
        const CTrackPoint& point = pSeries->m_points[i];
        EXPECT_EQ(KeysOf(read), PointKeys);
        ExpectSame(read, {{"index", static_cast<double>(i)},
                          {"day", point.m_time.m_dDays},
                          {"latitude", point.m_position.m_dLatitude},
                          {"longitude", point.m_position.m_dLongitude},
                          {"altitudeM", static_cast<double>(point.m_nAltitude)},
                          {"hdop", point.m_dHDOP},
                          {"sats", static_cast<double>(point.m_nSats)},
                          {"rxStatus", static_cast<double>(point.m_nRxStatus)},
                          {"dopplerKmh", point.m_dDoppler},
                          {"distanceKm", point.m_dDistance},
                          {"speedKmh", point.m_dSpeed},
                          {"totalDistanceKm", point.m_dTotalDistance},
                          {"dopplerStepKm", point.m_dDopplerStep},
                          {"totalDopplerKm", point.m_dTotalDopplerDistance},
                          {"sumStepSquares", point.m_dSumStepSquares},
                          {"directionRad", point.m_dDirection},
                          {"windAngleRad", point.m_dWindAngle},
                          {"run", static_cast<double>(point.m_nRun)},
                          {"dopplerRun", static_cast<double>(point.m_nDopplerRun)},
                          {"invalidFlags", static_cast<double>(point.m_nInvalidFlags)},
                          {"deltaDays", point.m_dDeltaTime}});
        speeds.insert(point.m_dSpeed);
    }
    EXPECT_GT(speeds.size(), 30U) << "the log is too even to prove anything";
    EXPECT_EQ(document["points"][7]["time"], "2024-06-01T10:00:07.000");
}

TEST(PointsCommand, CsvHasTheUsualColumnsOrAll)
{
    const CToolTest tool;
    tool.m_folder.Write("a.nmea", test::SteadyNmea(3, 0.006));
    const SToolRun usual = tool.Run({"points", "a.nmea", "--set", test::OnTheSphere});
    const std::vector<std::string> lines = Lines(usual.strOut);
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0],
              "Track,Date,Time,Seconds,Distance,Speed,Direction,Total Dist,Tot Dop Dist,Run,Doppler "
              "Run,Pos Err,Doppler Error,USOG,UCOG,\r");
    EXPECT_EQ(lines[1], "1,2024-06-01,10:00:00,,,,,,,,,,,,,\r");
    // 0.006' a second on the sphere: 11.12 m and 21.615 knots; Doppler 20 knots, 10.29 m.
    EXPECT_TRUE(lines[2].starts_with("2,2024-06-01,10:00:01,01,11.12,21.615,0,11.12,10.29,")) << lines[2];

    const SToolRun all = tool.Run({"points", "a.nmea", "--all-fields", "--set", test::OnTheSphere});
    EXPECT_TRUE(all.strOut.starts_with("Track,Latitude,Longitude,Date,Time,")) << all.strOut;
    EXPECT_TRUE(Lines(all.strOut)[2].starts_with("2,50.0001,-1,2024-06-01,10:00:01,")) << all.strOut;
}

TEST(InfoCommand, TableHasTheStatistics)
{
    const CToolTest tool;
    std::string strLog = RichLog();
    strLog += test::RmcLine(40, 0.5); // from 18 to over 1000 knots: a spike
    strLog += test::RmcLine(41, 0.5);
    tool.m_folder.Write("rich.nmea", strLog);
    const SToolRun run = tool.Run({"info", "rich.nmea", "rich.nmea"});
    const std::vector<std::string> lines = Lines(run.strOut);
    ASSERT_EQ(lines.size(), 29U) << run.strOut;
    EXPECT_EQ(lines[14], "") << "an empty line between files";
    const json file = tool.Run({"info", "rich.nmea", "--format", "json"}).Json()["trackFiles"][0];
    EXPECT_EQ(KeysOf(file), TrackFileKeys);

    std::map<std::string, std::string> facts;
    for (std::size_t i = 0; i < 14; ++i) {
        const std::size_t nColon = lines[i].find(':');
        facts[lines[i].substr(0, nColon + 1)] = lines[i].substr(24);
    }
    EXPECT_EQ(facts["Name:"], "rich");
    EXPECT_EQ(facts["File:"], "rich.nmea");
    EXPECT_EQ(facts["Period (UTC):"], "2024-06-01 10:00:00.000 to 10:00:41.000");
    EXPECT_EQ(facts["Number of Points:"], "42");
    EXPECT_EQ(facts["Doppler:"], "yes");
    EXPECT_EQ(facts["Travel Time (Mins):"], ".68"); // 41 s
    EXPECT_EQ(facts["Maximum Altitude (m):"], "12");
    EXPECT_EQ(facts["Max Result HDOP:"], "1.3");
    EXPECT_EQ(facts["Min Result Sats:"], "8");
    EXPECT_EQ(facts["Log Rate:"], "-");
    EXPECT_TRUE(facts["Invalid Points:"].find("(S ") != std::string::npos) << facts["Invalid Points:"];
    EXPECT_TRUE(facts.contains("Total Distance (Kms):") && facts.contains("Total Distance (Nms):") &&
                facts.contains("Minimum Altitude (m):"));
}

TEST(ConvertCommand, WritesAFileThatReadsBack)
{
    const CToolTest tool;
    tool.m_folder.Write("a.nmea", test::SteadyNmea(30, 0.006));
    std::filesystem::create_directory(tool.m_folder.Path("My Folder"));
    for (const std::string strOutput : {"out.gpx", "My Folder/OUT.GPX"}) {
        const SToolRun run = tool.Run({"convert", "a.nmea", strOutput});
        EXPECT_EQ(run.nStatus, 0) << run.strErr;
        EXPECT_EQ(run.strOut + run.strErr, "");
        ASSERT_TRUE(std::filesystem::exists(tool.m_folder.Path(strOutput)));
        const json points = tool.Run({"points", strOutput, "--format", "json"}).Json()["points"];
        ASSERT_EQ(points.size(), 30U);
        // Positions are written with ten decimals, Doppler with hundredths of a metre a second.
        EXPECT_NEAR(points[29]["latitude"].get<double>(), 50.0 + 29 * 0.006 / 60.0, 1e-10);
        EXPECT_NEAR(points[29]["dopplerKmh"].get<double>(), 20.0 * 1.852, 0.02);
        EXPECT_EQ(points[29]["time"], "2024-06-01T10:00:29.000");
    }
}

TEST(ConvertCommand, WhatCannotBeWrittenIsRefusedAndTheOldFileStands)
{
    const CToolTest tool;
    tool.m_folder.Write("a.nmea", test::SteadyNmea(30, 0.006));
    tool.m_folder.Write("empty.nmea", "");
    std::filesystem::create_directory(tool.m_folder.Path("my.gpx.files"));
    std::filesystem::create_directory(tool.m_folder.Path("folder.gpx"));
    constexpr const char* pUnknown = "Unknown file extension. Please use a standard gpx or trk extension to "
                                     "determine the format to save\n";
    constexpr const char* pNmea = "Cannot save to NMEA format. Please select a different format\n";
    struct SCase
    {
        const char* pInput;
        const char* pOutput;
        int nStatus;
        std::string strMessage;
    };
    const SCase cases[] = {
        {"a.nmea", "out.nmea", 1, std::string("out.nmea: ") + pNmea},
        {"a.nmea", "out.TXT", 1, std::string("out.TXT: ") + pNmea},
        {"a.nmea", "out.sbn", 1,
         "out.sbn: Cannot save to SIRF binary format. Please select a different format\n"},
        {"a.nmea", "out.xyz", 1, std::string("out.xyz: ") + pUnknown},
        {"a.nmea", "out", 1, std::string("out: ") + pUnknown},
        {"a.nmea", "my.gpx.files/out.xyz", 1, std::string("my.gpx.files/out.xyz: ") + pUnknown},
        {"a.nmea", "folder.gpx", 1, "folder.gpx: The file could not be accessed\n"},
        {"missing.nmea", "out.gpx", 3, "missing.nmea: The file could not be located\n"},
        {"empty.nmea", "out.gpx", 1, "empty.nmea: fewer than 2 track points\n"},
        {"a.doc", "out.gpx", 3, "a.doc: The file type is not recognised\n"},
    };
    for (const SCase& test : cases) {
        SCOPED_TRACE(std::string(test.pInput) + " " + test.pOutput);
        const std::string strOutput = tool.m_folder.Path(test.pOutput);
        const bool bFolder = std::filesystem::is_directory(strOutput);
        if (!bFolder)
            tool.m_folder.Write(test.pOutput, "old");
        const SToolRun run = tool.Run({"convert", test.pInput, test.pOutput});
        EXPECT_EQ(run.nStatus, test.nStatus);
        EXPECT_EQ(run.strErr, test.strMessage);
        EXPECT_EQ(run.strOut, "");
        if (!bFolder) {
            EXPECT_EQ(test::CTemporaryFolder::Read(strOutput), "old");
            std::filesystem::remove(strOutput);
            EXPECT_EQ(tool.Run({"convert", test.pInput, test.pOutput}).nStatus, test.nStatus);
            EXPECT_FALSE(std::filesystem::exists(strOutput)) << "no file appears either";
        }
    }
}

TEST(ConvertCommand, AStrictStopWritesWhatWasRead)
{
    const CToolTest tool;
    tool.m_folder.Write("a.nmea", test::SteadyNmea(10, 0.006) + "$GPGGA,1\n" + test::RmcLine(10, 0.06));
    const SToolRun run = tool.Run({"convert", "a.nmea", "a.gpx", "--strict"});
    EXPECT_EQ(run.nStatus, 3);
    EXPECT_EQ(run.strErr, "a.nmea: stopped at line 11: $GPGGA with 2 fields instead of 12\n");
    EXPECT_EQ(tool.Run({"points", "a.gpx", "--format", "json"}).Json()["points"].size(), 9U);
}

TEST(DistanceCommand, PrintsTextAndJson)
{
    const CToolTest tool;
    // A degree along a meridian of the sphere is 6371 km * π / 180 = 111.19493 km.
    const std::vector<std::string> north = {"distance", "50", "-1", "51", "-1", "--ellipsoid", "sphere"};
    EXPECT_EQ(tool.Run(north).strOut, "111.19493 km  0.0000°\n");
    EXPECT_EQ(tool.Run({"distance", "51", "-1", "50", "-1", "--ellipsoid", "sphere", "--unit", "n"}).strOut,
              "60.04046 nm  180.0000°\n");
    EXPECT_EQ(tool.Run({"distance", "51", "-1", "50", "-1", "--ellipsoid", "sphere", "--unit", "m"}).strOut,
              "69.09332 mi  180.0000°\n");

    std::vector<std::string> asJson = north;
    asJson.insert(asJson.end(), {"--format", "json", "--unit", "k"});
    const json document = tool.Run(asJson).Json();
    EXPECT_EQ(KeysOf(document), (std::set<std::string>{"distance", "unit", "azimuthDeg", "ellipsoid"}));
    EXPECT_NEAR(document["distance"].get<double>(), 6371.0 * Pi / 180.0, 1e-9);
    EXPECT_EQ(document["unit"], "k");
    EXPECT_EQ(document["ellipsoid"], "Sphere");
    EXPECT_EQ(document["azimuthDeg"].get<double>(), 0.0);
}

} // namespace
} // namespace kestrabel
