#include "cli/SteadyTrack.h"
#include "cli/ToolRun.h"
#include "formats/SirfBytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

using nlohmann::json;
using test::Words;

TEST(PointsAndInfo, HaveTheUsualColumnsOrAllAndTheStatistics)
{
    const test::CToolTest tool;
    // The last step is a spike.
    tool.m_folder.Write("a.nmea", test::SteadyNmea(9, 0.006) + test::RmcLine(9, 0.5));
    const auto lines = [&](const char* pCommand) { return test::Lines(tool.Run(Words(pCommand)).strOut); };
    const std::vector<std::string> usual = lines("points a.nmea --set Ellipsoid=5");
    EXPECT_EQ(usual.at(0), "Track,Date,Time,Seconds,Distance,Speed,Direction,Total Dist,Tot Dop Dist,Run,"
                           "Doppler Run,Pos Err,Doppler Error,USOG,UCOG,\r");
    // 0.006' a second on the sphere: 11.12 m and 21.615 knots; Doppler 20 knots, 10.29 m.
    EXPECT_TRUE(usual.at(2).starts_with("2,2024-06-01,10:00:01,01,11.12,21.615,0,11.12,10.29,")) << usual[2];
    EXPECT_TRUE(lines("points a.nmea --all-fields").at(2).starts_with("2,50.0001,-1,2024-06-01,10:00:01,"));
    const std::string strInfo = tool.Run(Words("info a.nmea a.nmea")).strOut;
    for (const char* pPart :
         {"\nPeriod (UTC):           2024-06-01 10:00:00.000 to 10:00:09.000\n", " (S ",
          "\nTravel Time (Mins):     .15\nTotal Distance (Kms):   .93\nTotal Distance (Nms):   .50\n",
          "\n\nName:                   a\n"})
        EXPECT_NE(strInfo.find(pPart), std::string::npos) << strInfo;
}

TEST(ConvertCommand, WritesAFileThatReadsBackOrLeavesTheOldOne)
{
    const test::CToolTest tool;
    tool.m_folder.Write("a.nmea", test::SteadyNmea(30, 0.006));
    tool.m_folder.Write("empty.nmea", "");
    std::filesystem::create_directory(tool.m_folder.Path("my.gpx.files"));
    EXPECT_EQ(tool.Run(Words("convert a.nmea my.gpx.files/OUT.GPX")).strErr, "");
    const json document = tool.Run(Words("points my.gpx.files/OUT.GPX --format json")).Json();
    EXPECT_EQ(document["trackFile"]["pointCount"], 30);
    const json points = document["points"];
    // Positions are written with ten decimals, Doppler with hundredths of a metre a second.
    EXPECT_NEAR(points.at(29)["latitude"].get<double>(), 50.0 + 29 * 0.006 / 60.0, 1e-10);
    EXPECT_NEAR(points[29]["dopplerKmh"].get<double>(), 20.0 * 1.852, 0.02);
    EXPECT_NEAR(points[29]["speedKmh"].get<double>(), test::SteadySpeed(0.006), 0.2) << "by the ellipsoid";
    EXPECT_EQ(points[29]["time"], "2024-06-01T10:00:29.000");

    const std::string strUnknown = ": Unknown file extension. Please use a standard gpx or trk extension to "
                                   "determine the format to save\n";
    const std::string strOther = " format. Please select a different format\n";
    const std::tuple<const char*, std::string, int, std::string> cases[] = {
        {"a.nmea", "out.TXT", 1, "out.TXT: Cannot save to NMEA" + strOther},
        {"a.nmea", "out.sbn", 1, "out.sbn: Cannot save to SIRF binary" + strOther},
        {"a.nmea", "my.gpx.files/out.xyz", 1, "my.gpx.files/out.xyz" + strUnknown},
        {"a.nmea", "out", 1, "out" + strUnknown},
        {"missing.nmea", "out.gpx", 3, "missing.nmea: The file could not be located\n"},
        {"empty.nmea", "out.gpx", 1, "empty.nmea: fewer than 2 track points\n"},
    };
    for (const auto& [pInput, strOutput, nStatus, strMessage] : cases) {
        const test::SToolRun fresh = tool.Run({"convert", pInput, strOutput});
        EXPECT_EQ(std::pair(fresh.nStatus, fresh.strErr), std::pair(nStatus, strMessage));
        EXPECT_FALSE(std::filesystem::exists(tool.m_folder.Path(strOutput)));
        const std::string strOld = tool.m_folder.Write(strOutput, "old");
        EXPECT_EQ(tool.Run({"convert", pInput, strOutput}).nStatus, nStatus);
        EXPECT_EQ(test::CTemporaryFolder::Read(strOld), "old");
        std::filesystem::remove(strOld);
    }
}

TEST(ConvertCommand, WhatIsNotKeptOfTheTimesIsToldOfAFileThatWasWritten)
{
    const test::CToolTest tool;
    const auto writeTrack = [&](const char* pName, std::initializer_list<const char*> times) {
        std::string strPoints;
        for (const char* pTime : times)
            strPoints.append(R"(<trkpt lat="50" lon="-1"><time>)").append(pTime).append("Z</time></trkpt>");
        tool.m_folder.Write(pName, "<gpx><trk><trkseg>" + strPoints + "</trkseg></trk></gpx>");
    };
    writeTrack("in.gpx", {"2050-01-01T00:00:00", "2049-12-31T23:59:59", "2100-02-29T00:00:00"});
    writeTrack("half.gpx", {"2024-06-01T10:00:00.5", "2024-06-01T10:00:02"});
    const std::array<const char*, 3> cases[] = {
        {"in.gpx", "out.gpx", "out.gpx: 1 point without a valid time, written without one\n"},
        {"in.gpx", "out.trk",
         "out.trk: 2 points with a time that is not from 1950 to 2049, of whose year two digits are "
         "written\n"},
        {"half.gpx", "half.trk", "half.trk: times are written to the whole second\n"},
        {"half.gpx", "gone/half.trk", "gone/half.trk: All or part of the path is invalid\n"},
    };
    for (const auto& [pInput, pOutput, pMessage] : cases)
        EXPECT_EQ(tool.Run({"convert", pInput, pOutput}).strErr, pMessage);
}

TEST(ConvertCommand, EveryReadableFormatToEveryWritableOne)
{
    const test::CToolTest tool;
    const std::string strGga = ",5000.0,N,00100.0,W,1,08,1.0,0,M,0,M,,\n";
    tool.m_folder.Write("in.nmea", test::RmcLine(0, 0.0) + "$GPGGA,100000" + strGga +
                                       test::RmcLine(1, 0.006) + "$GPGGA,100001" + strGga);
    tool.m_folder.Write("in.sbn", test::Frame("\xfd SIM,1,1,1,x") + test::Frame(test::Navigation(0)) +
                                      test::Frame(test::Navigation(1000)));
    const std::vector<std::string> writable = {"gpx", "sbp", "bin", "trk", "gtr", "gd", "gdm"};
    std::vector<std::string> readable = {"nmea", "sbn"};
    for (const std::string& strFormat : writable) {
        ASSERT_EQ(tool.Run({"convert", "in.nmea", "in." + strFormat}).nStatus, 0) << strFormat;
        if (!strFormat.starts_with('g') || strFormat == "gpx") // track marks are not read again
            readable.push_back(strFormat);
    }
    tool.m_folder.Write("in.gtr",
                        "T N50.0 W1.0 Sat Jun 1 10:00:00 2024\r\nT N50.1 W1.0 Sat Jun 1 10:00:01 2024\r\n");
    readable.push_back("gtr");
    const std::set<std::string> tellSatellites = {"nmea", "gpx", "sbp", "bin"};
    for (const std::string& strFrom : readable) {
        for (const std::string& strTo : writable) {
            SCOPED_TRACE(strFrom + " to " + strTo);
            const test::SToolRun run = tool.Run({"convert", "in." + strFrom, "out." + strTo});
            EXPECT_EQ(run.nStatus, 0);
            // A reader of binary logs passes over what has no satellites: that must be told at once.
            if ((strTo == "sbp" || strTo == "bin") && !tellSatellites.contains(strFrom)) {
                EXPECT_THAT(run.strErr, testing::HasSubstr("2 points without satellites, passed over"));
                continue;
            }
            if (strTo.starts_with('g') && strTo != "gpx") {
                const std::string strMarks = test::CTemporaryFolder::Read(tool.m_folder.Path("out." + strTo));
                EXPECT_EQ(test::Lines(strMarks).size(), 2U) << strMarks;
                continue;
            }
            const std::string strInfo = tool.Run({"info", "out." + strTo}).strOut;
            EXPECT_THAT(strInfo, testing::ContainsRegex("Number of Points: +2\n"));
        }
    }
}

TEST(DistanceCommand, PrintsTextAndJson)
{
    const test::CToolTest tool;
    // A degree along a meridian of the sphere is 6371 km * π / 180 = 111.19493 km.
    const std::string strCommand = "distance 51 -1 50 -1 --ellipsoid sphere ";
    EXPECT_EQ(tool.Run(Words(strCommand)).strOut, "111.19493 km  180.0000°\n");
    EXPECT_EQ(tool.Run(Words(strCommand + "--unit n")).strOut, "60.04046 nm  180.0000°\n");
    EXPECT_EQ(tool.Run(Words(strCommand + "--unit m")).strOut, "69.09332 mi  180.0000°\n");
    json document = tool.Run(Words(strCommand + "--format json")).Json();
    EXPECT_NEAR(document["distance"].get<double>(), 6371.0 * Pi / 180.0, 1e-9);
    document.erase("distance");
    EXPECT_EQ(document.dump(), R"({"azimuthDeg":180,"ellipsoid":"Sphere","unit":"k"})");
}

} // namespace
} // namespace kestrabel
