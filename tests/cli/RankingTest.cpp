#include "cli/SteadyTrack.h"
#include "cli/ToolRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

using nlohmann::json;
using namespace test;
using testing::HasSubstr;
using testing::MatchesRegex;

constexpr double AnnStep = 0.006; // minutes of latitude a second
constexpr double BobStep = 0.005;

/// Ann, the faster, and Bob for a minute each; Cyd's file is too short for any result.
SToolRun Judge(const std::string& strCommand, const std::string& strFurther)
{
    const CToolTest tool;
    tool.m_folder.Write("ann.nmea", SteadyNmea(60, AnnStep));
    tool.m_folder.Write("bob.nmea", SteadyNmea(60, BobStep));
    tool.m_folder.Write("cyd.nmea", SteadyNmea(2, BobStep));
    const std::string strEntries = " --entry Bob=bob.nmea --entry Ann=ann.nmea --entry Cyd=cyd.nmea ";
    return tool.Run(Words(strCommand + strEntries + "--set Ellipsoid=5 " + strFurther));
}

TEST(Ranking, JsonRanksByTheSpeedsThatWereSailed)
{
    const SToolRun run = Judge("leaderboard", "--entry Dan=dan.nmea missing.nmea --format json --division "
                                              "'10 SEC' --division '2 sec' --set Timezone=5");
    EXPECT_EQ(std::pair(run.nStatus, Lines(run.strErr).size()), std::pair(3, std::size_t{2}));
    const json divisions = run.Json()["divisions"];
    ASSERT_EQ(divisions.size(), 2U);
    EXPECT_EQ(divisions[0]["division"], "2 sec") << "in the order of the event";
    const json results = divisions[1]["results"];
    const std::pair<const char*, double> expected[] = {
        {"Ann", SteadySpeed(AnnStep)}, {"Bob", SteadySpeed(BobStep)}, {"Dan", 0.0}, {"Cyd", 0.0}};
    ASSERT_EQ(results.size(), 4U) << "who has no file that can be read stays only with a name";
    for (std::size_t i = 0; i < results.size(); ++i) {
        const auto& [pName, dSpeed] = expected[i];
        EXPECT_EQ(results[i]["rank"], i + 1);
        EXPECT_EQ(results[i]["competitor"], pName);
        EXPECT_NEAR(results[i]["speedKmh"].get<double>(), dSpeed, dSpeed * 1e-6);
        EXPECT_EQ(results[i]["seconds"], dSpeed > 0.0 ? 10 : 0);
    }
    EXPECT_EQ(results[0]["personIndex"], 1) << "Ann is the second of the event";
    EXPECT_THAT(results[0]["startTime"], testing::StartsWith("2024-06-01T10:00:")) << "UTC";

    std::string strNames;
    const json document = Judge("results", "bob.nmea --format json --division '10 sec'").Json();
    for (const json& competitor : document["competitors"]) {
        strNames += competitor["name"].get<std::string>() + ",";
        EXPECT_EQ(competitor["divisions"].at(0)["results"].empty(), competitor["name"] == "Cyd");
    }
    EXPECT_EQ(strNames, "Bob,Ann,Cyd,,") << "in the order of the command line";
}

TEST(Ranking, CsvIsTheResultsExport)
{
    // 0.006' a second: 40.0302 km/h = 21.6146 knots, 111.195 m in 10 s.
    const std::vector<std::string> lines =
        Lines(Judge("leaderboard", "--format csv --division '100 meters Accum'").strOut);
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines[0], "Competitor, Division, WayPoint, Series, \"Start Time\", \"End Time\", Seconds, "
                        "\"Distance (m)\", Speed(knots), Claimed(knots)\r");
    EXPECT_THAT(lines[1], testing::StartsWith("Ann, \"100 meters Accum\", , ann, 10:00:"));
    EXPECT_THAT(lines[1], testing::EndsWith(", 9, 100.1, 21.6, 0\r"));
    EXPECT_THAT(lines[3], testing::StartsWith("Cyd, "));
    const SToolRun results = Judge("results", "--format csv --entry +Ann=ann.nmea --set SpeedUnits=1");
    EXPECT_THAT(results.strOut, AllOf(HasSubstr(", 9, 100.1, 40, 0\r\n"), HasSubstr("\n+Ann, ")));
    EXPECT_EQ(results.strErr,
              "kestrabel-cli: the competitor \"+Ann\" has a name that spreadsheets take for a formula\n");
    EXPECT_THAT(results.strOut, Not(HasSubstr("Cyd"))) << "a competitor without results has no line";
}

TEST(Ranking, TableForTheOrganiser)
{
    // Steady speeds differ by rounding only: any second may be the best start.
    EXPECT_THAT(Judge("leaderboard", "--division '10 sec'").strOut,
                MatchesRegex("Rank  Competitor    Speed  Start         Seconds  Distance  Track\n"
                             "                  \\(knots\\)                              \\(m\\)  file\n"
                             "\n10 sec\n"
                             "   1  Ann          21.615  10:00:......   10.000    111.19  ann\n"
                             "   2  Bob          18.012  10:00:......   10.000     92.66  bob\n"
                             "   -  Cyd           -      -               -          -     -\n"));
    const std::string strUnits =
        "--set SpeedUnits=2 --set SpeedPrecision=1 --set DistancePrecision=0 --set Timezone=-10.5 ";
    EXPECT_THAT(Judge("results", strUnits + "bob.nmea --division '10 sec' --set ShowTopRows=1").strOut,
                MatchesRegex("Rank  Speed  Start         Seconds  Distance  Track\n"
                             "      \\(m/s\\)                              \\(m\\)  file\n"
                             "\nBob: 10 sec\n   1    9.3  23:30:......   10.000        93  bob\n"
                             "\nAnn: 10 sec\n   1   11.1  23:30:......   10.000       111  ann\n"
                             "\nCyd: 10 sec\n   -    -    -               -             -  -\n"
                             "\n10 sec\n   1    9.3  23:30:......   10.000        93  bob\n"));
}

} // namespace
} // namespace kestrabel
