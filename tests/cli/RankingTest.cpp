#include "cli/SteadyTrack.h"
#include "cli/ToolRun.h"
#include "model/TimeText.h"
#include "platform/Text.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace kestrabel {
namespace {

using nlohmann::json;
using test::CToolTest;
using test::KeysOf;
using test::Lines;
using test::OnTheSphere;
using test::SteadySpeed;
using test::SToolRun;

constexpr double AnnStep = 0.006; // minutes of latitude a second
constexpr double BobStep = 0.005;
constexpr double RelativeTolerance = 1e-6; // of a step of some metres by the iterative formula

const std::set<std::string> ResultKeys = {"rank",
                                          "startIndex",
                                          "endIndex",
                                          "seriesIndex",
                                          "personIndex",
                                          "competitor",
                                          "division",
                                          "trackFile",
                                          "waypoint",
                                          "waypointIndex",
                                          "waypointIndex2",
                                          "startLatitude",
                                          "startLongitude",
                                          "startDay",
                                          "startTime",
                                          "endLatitude",
                                          "endLongitude",
                                          "endDay",
                                          "endTime",
                                          "distanceKm",
                                          "seconds",
                                          "speedKmh",
                                          "minSpeedKmh",
                                          "maxSpeedKmh",
                                          "directionRad",
                                          "windAngleRad",
                                          "altitudeM",
                                          "altChangeM",
                                          "hdopMax",
                                          "satsMin",
                                          "run",
                                          "dopplerErrorKmh",
                                          "posErrorKm",
                                          "claimedKmh"};

/// Ann, the faster, and Bob for a minute each; Cyd's file is too short for any result.
class Ranking : public testing::Test
{
protected:
    Ranking()
    {
        m_tool.m_folder.Write("ann.nmea", test::SteadyNmea(60, AnnStep));
        m_tool.m_folder.Write("bob.nmea", test::SteadyNmea(60, BobStep));
        m_tool.m_folder.Write("cyd.nmea", test::SteadyNmea(2, BobStep));
    }

    SToolRun Judge(const std::string& strCommand, const std::vector<std::string>& further) const
    {
        std::vector<std::string> arguments = {strCommand,     "--entry",      "Bob=bob.nmea",
                                              "--entry",      "Ann=ann.nmea", "--entry",
                                              "Cyd=cyd.nmea", "--set",        OnTheSphere};
        arguments.insert(arguments.end(), further.begin(), further.end());
        return m_tool.Run(arguments);
    }

    CToolTest m_tool;
};

TEST_F(Ranking, LeaderboardJsonRanksByTheSpeedsThatWereSailed)
{
    const SToolRun run = Judge("leaderboard", {"--format", "json", "--division", "10 SEC"});
    EXPECT_EQ(run.nStatus, 0);
    EXPECT_EQ(run.strErr, "");
    const json document = run.Json();
    EXPECT_EQ(KeysOf(document), std::set<std::string>{"divisions"});
    ASSERT_EQ(document["divisions"].size(), 1U);
    const json& division = document["divisions"][0];
    EXPECT_EQ(KeysOf(division), (std::set<std::string>{"division", "results"}));
    EXPECT_EQ(division["division"], "10 sec");
    const json& results = division["results"];
    ASSERT_EQ(results.size(), 3U);

    const std::pair<const char*, double> expected[] = {
        {"Ann", SteadySpeed(AnnStep)}, {"Bob", SteadySpeed(BobStep)}, {"Cyd", 0.0}};
    for (std::size_t i = 0; i < results.size(); ++i) {
        const json& result = results[i];
        const auto& [pName, dSpeed] = expected[i];
        SCOPED_TRACE(pName);
        EXPECT_EQ(KeysOf(result), ResultKeys);
        EXPECT_EQ(result["rank"], i + 1);
        EXPECT_EQ(result["competitor"], pName);
        EXPECT_NEAR(result["speedKmh"].get<double>(), dSpeed, dSpeed * RelativeTolerance);
        const double dSeconds = dSpeed > 0.0 ? 10.0 : 0.0;
        EXPECT_EQ(result["seconds"].get<double>(), dSeconds);
        EXPECT_NEAR(result["distanceKm"].get<double>(), dSpeed * dSeconds / 3600.0, 1e-7);
    }
    EXPECT_EQ(results[0]["personIndex"], 1) << "Ann is the second of the event";
    EXPECT_EQ(results[0]["trackFile"], "ann");
    EXPECT_EQ(results[2]["startIndex"], -1);
}

TEST_F(Ranking, ResultTimesAreTheDayCountsAndTheirTexts)
{
    const json results =
        Judge("leaderboard", {"--format", "json", "--set", "Timezone=5"}).Json()["divisions"][0]["results"];
    const json& best = results[0];
    // 1 June 2024, 10:00 UTC; the timezone is not applied.
    constexpr double dTenOClock = 45444.0 + 10.0 / 24.0;
    const double dStartDay = best["startDay"].get<double>();
    EXPECT_NEAR(dStartDay, dTenOClock + best["startIndex"].get<int>() / 86400.0, 1e-9);
    EXPECT_EQ(best["startTime"], FormatIsoMillisecond(DATE(dStartDay)));
    EXPECT_TRUE(best["startTime"].get<std::string>().starts_with("2024-06-01T10:00:"));
    EXPECT_EQ(best["endTime"], FormatIsoMillisecond(DATE(best["endDay"].get<double>())));
    EXPECT_EQ(best["endIndex"].get<int>() - best["startIndex"].get<int>(), 2);
}

TEST_F(Ranking, ResultsJsonListsEachCompetitorInCommandLineOrder)
{
    const SToolRun run = Judge("results", {"--format", "json", "bob.nmea"});
    const json document = run.Json();
    EXPECT_EQ(KeysOf(document), std::set<std::string>{"competitors"});
    std::vector<std::string> names;
    for (const json& competitor : document["competitors"]) {
        EXPECT_EQ(KeysOf(competitor), (std::set<std::string>{"name", "divisions"}));
        names.push_back(competitor["name"]);
        std::vector<std::string> divisions;
        for (const json& division : competitor["divisions"]) {
            EXPECT_EQ(KeysOf(division), (std::set<std::string>{"division", "results"}));
            divisions.push_back(division["division"]);
            double dFaster = 1e9;
            int nRank = 0;
            for (const json& result : division["results"]) {
                EXPECT_EQ(KeysOf(result), ResultKeys);
                EXPECT_EQ(result["rank"], ++nRank);
                EXPECT_EQ(result["division"], division["division"]);
                EXPECT_LE(result["speedKmh"].get<double>(), dFaster) << "the fastest first";
                dFaster = result["speedKmh"].get<double>();
            }
            EXPECT_EQ(nRank == 0, competitor["name"] == "Cyd") << "no result is an empty list";
        }
        EXPECT_EQ(divisions,
                  (std::vector<std::string>{"2 sec", "10 sec (best of 5)", "10 sec", "100 meters Accum",
                                            "250 meters Accum", "500 meters Accum"}));
    }
    EXPECT_EQ(names, (std::vector<std::string>{"Bob", "Ann", "Cyd", ""}));
}

TEST_F(Ranking, DivisionsKeepTheEventsOrder)
{
    const json document =
        Judge("leaderboard", {"--format", "json", "--division", "10 sec", "--division", "2 SEC"}).Json();
    ASSERT_EQ(document["divisions"].size(), 2U);
    EXPECT_EQ(document["divisions"][0]["division"], "2 sec");
    EXPECT_EQ(document["divisions"][1]["division"], "10 sec");
}

TEST_F(Ranking, CsvIsTheResultsExport)
{
    // 0.006' a second: 40.0302 km/h = 21.6146 knots, 111.195 m in 10 s.
    const SToolRun leaderboard = Judge("leaderboard", {"--format", "csv", "--division", "100 meters Accum"});
    const std::vector<std::string> lines = Lines(leaderboard.strOut);
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines[0], "Competitor, Division, WayPoint, Series, \"Start Time\", \"End Time\", Seconds, "
                        "\"Distance (m)\", Speed(knots), Claimed(knots)\r");
    EXPECT_TRUE(lines[1].starts_with("Ann, \"100 meters Accum\", , ann, 10:00:")) << lines[1];
    EXPECT_TRUE(lines[1].ends_with(", 9, 100.1, 21.6, 0\r")) << lines[1];
    EXPECT_TRUE(lines[2].ends_with(", 11, 101.9, 18, 0\r")) << lines[2];
    EXPECT_TRUE(lines[3].starts_with("Cyd, ")) << lines[3];
    EXPECT_EQ(lines[4], "\r");

    const SToolRun results =
        Judge("results", {"--format", "csv", "--division", "100 meters Accum", "--set", "SpeedUnits=1"});
    EXPECT_NE(results.strOut.find(", 9, 100.1, 40, 0\r\n"), std::string::npos) << results.strOut;
    EXPECT_EQ(results.strOut.find("Cyd"), std::string::npos) << "a competitor without results has no line";
}

TEST_F(Ranking, ANameThatASpreadsheetWouldRunIsToldOnce)
{
    const std::vector<std::string> event = {"leaderboard",  "--entry", "+Ann=ann.nmea", "--entry",
                                            "Bob=bob.nmea", "--entry", "@Cyd=cyd.nmea"};
    EXPECT_EQ(m_tool.Run(event).strErr, "") << "no spreadsheet reads a table";
    std::vector<std::string> asCsv = event;
    asCsv.insert(asCsv.end(), {"--format", "csv"});
    const SToolRun run = m_tool.Run(asCsv);
    EXPECT_EQ(run.nStatus, 0);
    EXPECT_EQ(run.strErr, "kestrabel-cli: the competitor \"+Ann\" has a name that spreadsheets take for a "
                          "formula\n");
    EXPECT_NE(run.strOut.find("\n@Cyd, "), std::string::npos) << "the name itself is not touched";
}

TEST_F(Ranking, TableForTheOrganiser)
{
    const SToolRun run = Judge("leaderboard", {"--division", "10 sec"});
    const std::vector<std::string> lines = Lines(run.strOut);
    ASSERT_EQ(lines.size(), 7U);
    EXPECT_EQ(lines[0], "Rank  Competitor    Speed  Start         Seconds  Distance  Track");
    EXPECT_EQ(lines[1], "                  (knots)                              (m)  file");
    EXPECT_EQ(lines[3], "10 sec");
    EXPECT_TRUE(lines[4].starts_with("   1  Ann          21.615  10:00:")) << lines[4];
    EXPECT_TRUE(lines[4].ends_with("   10.000    111.19  ann")) << lines[4];
    EXPECT_TRUE(lines[5].starts_with("   2  Bob          18.012  10:00:")) << lines[5];
    EXPECT_EQ(lines[6], "   -  Cyd           -      -               -          -     -");
}

TEST_F(Ranking, TableUsesTheEventsUnitPrecisionAndTimezone)
{
    const SToolRun run =
        Judge("results", {"--division", "10 sec", "--set", "SpeedUnits=2", "--set", "SpeedPrecision=1",
                          "--set", "DistancePrecision=0", "--set", "Timezone=-2.5"});
    EXPECT_NE(run.strOut.find("(m/s)"), std::string::npos);
    EXPECT_NE(run.strOut.find("\nAnn: 10 sec\n   1   11.1  07:30:"), std::string::npos) << run.strOut;
    EXPECT_NE(run.strOut.find("   10.000       111  ann\n"), std::string::npos) << run.strOut;
}

TEST_F(Ranking, TheUnnamedCompetitorHasNoNameInResultsAndADashInTheLeaderboard)
{
    const SToolRun results = m_tool.Run({"results", "ann.nmea", "--division", "10 sec"});
    EXPECT_NE(results.strOut.find("\n10 sec\n   1 "), std::string::npos) << results.strOut;
    const SToolRun leaderboard = m_tool.Run({"leaderboard", "ann.nmea", "--division", "10 sec"});
    EXPECT_NE(leaderboard.strOut.find("\n   1  -  "), std::string::npos) << leaderboard.strOut;
}

TEST_F(Ranking, WhoseFilesCannotBeReadStaysOnlyWithAName)
{
    const SToolRun run = m_tool.Run({"leaderboard", "--entry", "Ann=ann.nmea", "--entry", "Dan=dan.nmea",
                                     "missing.nmea", "--division", "2 sec", "--format", "json"});
    EXPECT_EQ(run.nStatus, 3);
    EXPECT_EQ(Lines(run.strErr).size(), 2U);
    const json results = run.Json()["divisions"][0]["results"];
    ASSERT_EQ(results.size(), 2U);
    EXPECT_EQ(results[1]["competitor"], "Dan");

    const SToolRun none = m_tool.Run({"leaderboard", "--entry", "Dan=dan.nmea", "missing.nmea"});
    EXPECT_EQ(none.nStatus, 3);
    EXPECT_EQ(none.strOut, "");
}

TEST_F(Ranking, EveryTableFits100ColumnsOfPlainText)
{
    const std::string strLong(80, 'w');
    m_tool.m_folder.Write(strLong + ".nmea", test::SteadyNmea(60, AnnStep));
    m_tool.m_folder.Write("late.nmea", test::SteadyNmea(60, AnnStep) +
                                           "$GPRMC,110000,A,5010.000000,N,00100.0,W,20.0,0.0,020624\n");
    const std::vector<std::string> event = {
        "--entry", std::string(90, 'n') + "=" + strLong + ".nmea,late.nmea",
        "--entry", "\x1b[31mBob=bob.nmea",
        "--set",   "SpeedPrecision=40",
        "--set",   "DistancePrecision=40",
        "--set",   "TrackpointError=0.001"};
    for (const std::string strCommand : {"results", "leaderboard"}) {
        std::vector<std::string> arguments = {strCommand};
        arguments.insert(arguments.end(), event.begin(), event.end());
        const SToolRun run = m_tool.Run(arguments);
        EXPECT_EQ(run.nStatus, 0);
        for (const std::string& strLine : Lines(run.strOut)) {
            EXPECT_LE(CountCharacters(strLine), 100U) << strLine;
            EXPECT_FALSE(strLine.ends_with(' ')) << strLine;
            EXPECT_TRUE(std::none_of(strLine.begin(), strLine.end(), [](char c) {
                return static_cast<unsigned char>(c) < ' ';
            })) << strLine;
        }
    }
    const SToolRun info =
        m_tool.Run({"info", std::string(60, '.') + "/" + strLong + ".nmea", strLong + ".nmea"});
    for (const std::string& strLine : Lines(info.strOut))
        EXPECT_LE(CountCharacters(strLine), 100U) << strLine;
}

TEST_F(Ranking, TheDateIsShownWhenTheResultsHaveSeveral)
{
    std::string strLater = test::SteadyNmea(60, BobStep);
    for (std::size_t nPosition = 0; (nPosition = strLater.find("010624", nPosition)) != std::string::npos;)
        strLater.replace(nPosition, 6, "030624");
    m_tool.m_folder.Write("later.nmea", strLater);
    const SToolRun one = m_tool.Run({"results", "ann.nmea", "--division", "10 sec"});
    EXPECT_EQ(one.strOut.find("Date"), std::string::npos);
    const SToolRun two = m_tool.Run({"results", "ann.nmea", "later.nmea", "--division", "10 sec"});
    EXPECT_NE(two.strOut.find("  Date        Start"), std::string::npos);
    EXPECT_NE(two.strOut.find("  2024-06-01  10:00:"), std::string::npos);
    EXPECT_NE(two.strOut.find("  2024-06-03  10:00:"), std::string::npos);
}

} // namespace
} // namespace kestrabel
