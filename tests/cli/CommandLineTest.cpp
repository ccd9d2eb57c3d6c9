#include "cli/CommandLine.h"

#include "cli/ToolRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

using test::Words;
using namespace testing;

TEST(CommandLine, EntriesFilesAndOptionsMayBeMixed)
{
    const SArguments arguments = ParseCommandLine(
        Words("results one.gpx --entry Ann=a.gpx,b.nmea --entry =c.gpx 'a b.gpx' --entry Zo\xeb=x=y.gpx "
              "--division '2 sec' {} --set Location=a=b --format json --strict"));
    EXPECT_TRUE(arguments.command == ECommand::Results && arguments.format == EFormat::Json &&
                arguments.bStrict);
    EXPECT_THAT(arguments.files, ElementsAre("one.gpx", "a b.gpx", "{}"));
    EXPECT_THAT(arguments.divisions, ElementsAre("2 sec"));
    ASSERT_EQ(arguments.entries.size(), 3U);
    EXPECT_THAT(arguments.entries[0].files, ElementsAre("a.gpx", "b.nmea"));
    EXPECT_EQ(arguments.entries[1].strName + arguments.entries[2].strName, "Zoë");
    EXPECT_THAT(arguments.entries[2].files, ElementsAre("x=y.gpx"));
    EXPECT_EQ(arguments.settings[0].strName + ": " + arguments.settings[0].strValue, "Location: a=b");
    EXPECT_THAT(ParseCommandLine(Words("info --strict -- -a.gpx --strict")).files,
                ElementsAre("-a.gpx", "--strict"));

    const SDistanceArguments distance =
        ParseCommandLine(Words("distance -37.65 -.5 --unit n -1e1 -180 --ellipsoid 'clarke 1858'")).distance;
    EXPECT_EQ(distance.from, MakePosition(-37.65, -0.5)) << "negative degrees are no options";
    EXPECT_EQ(distance.to, MakePosition(-10.0, -180.0));
    EXPECT_EQ(std::pair(distance.cUnit, distance.ellipsoid.m_dRadius), std::pair('n', 6378293.645));
    EXPECT_EQ(ParseCommandLine(Words("distance 0 0 0 0")).distance.ellipsoid, CEllipsoid());
}

TEST(CommandLine, AWrongOneEndsWithStatus2AndWhatWasExpected)
{
    const std::pair<const char*, const char*> cases[] = {
        {"judge", "results, leaderboard, points, info, convert, distance"},
        {"results", "a track file is expected; usage: kestrabel-cli results [FILE...]"},
        {"results a.gpx --all-fields", "--all-fields; usage: kestrabel-cli results"},
        {"results --entry Ann", "expected \"NAME=FILE[,FILE]...\""},
        {"results --entry Ann=a.gpx,", "expected \"NAME=FILE[,FILE]...\""},
        {"results --entry Ann=,a.gpx", "expected \"NAME=FILE[,FILE]...\""},
        {"results a.gpx --set SpeedUnits", "expected NAME=VALUE"},
        {"results a.gpx --format csv --format json", "--format"},
        {"distance 1 2 3", "4 numbers are expected, not 3; usage: kestrabel-cli distance LAT1"},
        {"distance 50,5 2 3 4", "LAT1 50,5: expected degrees from -90 to 90"},
        {"distance nan 2 3 4", "LAT1 nan: expected degrees from -90 to 90"},
        {"distance 1 2 3 180.5", "LON2 180.5: expected degrees from -180 to 180"},
        {"distance 1 2 3 4 --ellipsoid WGS85", "GRS80, WGS84, ANS, WGS72, Clarke 1858"},
        // What only the event can tell.
        {"results a.gpx --set SpeedUnit=1", "expected one of Description, Location"},
        {"results a.gpx --set TimeThreshold=soon", "TimeThreshold=soon: expected a whole number"},
        {"leaderboard a.gpx --division 10", "expected one of \"2 sec\", \"10 sec (best of 5)\", \"10 sec\""},
    };
    const test::CToolTest tool;
    for (const auto& [pCommand, pExpected] : cases) {
        const test::SToolRun run = tool.Run(Words(pCommand));
        EXPECT_EQ(std::pair(run.nStatus, run.strOut), std::pair(2, std::string())) << pCommand;
        EXPECT_THAT(test::Lines(run.strErr), ElementsAre(HasSubstr(pExpected))) << pCommand;
    }
    EXPECT_EQ(tool.Run({"--version"}).strOut, "kestrabel-cli 1.917\n");
    for (const std::string strCommand : {"results", "leaderboard", "points", "info", "convert", "distance"}) {
        const test::SToolRun help = tool.Run({strCommand, "--help"});
        EXPECT_EQ(help.nStatus, 0);
        EXPECT_THAT(help.strOut, HasSubstr("Usage: kestrabel-cli " + strCommand + " "));
    }
}

} // namespace
} // namespace kestrabel
