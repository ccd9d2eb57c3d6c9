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

TEST(CommandLine, ProjectAndCheckpoints)
{
    const SArguments arguments =
        ParseCommandLine(Words("points a.gpx --checkpoint 'Gate 1,-38.85,146.16' --project e.rsp "
                               "--checkpoint 'Zo\xeb, 0.5 ,-.5,12.5'"));
    EXPECT_EQ(arguments.strProject, "e.rsp");
    ASSERT_EQ(arguments.checkpoints.size(), 2U);
    EXPECT_EQ(arguments.checkpoints[0].strName + arguments.checkpoints[1].strName, "Gate 1Zoë");
    EXPECT_EQ(arguments.checkpoints[0].position, MakePosition(-38.85, 146.16));
    EXPECT_EQ(arguments.checkpoints[0].dProximity, 0.005) << "5 metres when not given";
    EXPECT_EQ(arguments.checkpoints[1].position, MakePosition(0.5, -0.5));
    EXPECT_EQ(arguments.checkpoints[1].dProximity, 0.0125);

    const SArguments made = ParseCommandLine(Words("project new Dir.x/E.RSP --force"));
    EXPECT_TRUE(made.command == ECommand::NewProject && made.bForce);
    EXPECT_THAT(made.files, ElementsAre("Dir.x/E.RSP"));
    const SArguments shown = ParseCommandLine(Words("project show any --format json"));
    EXPECT_TRUE(shown.command == ECommand::ShowProject && shown.format == EFormat::Json && !shown.bForce);
}

TEST(CommandLine, AWrongOneEndsWithStatus2AndWhatWasExpected)
{
    const std::pair<const char*, const char*> cases[] = {
        {"judge", "results, leaderboard, points, info, convert, distance"},
        {"project open a.rsp", "convert, distance, project show, project new"},
        {"project show", "FILE.rsp is required; usage: kestrabel-cli project show FILE.rsp"},
        {"project show a.rsp --force", "--force; usage: kestrabel-cli project show"},
        {"project new rsp --force", "rsp: a project's name ends in .rsp"},
        {"results --project a.rsp", "a track file is expected"},
        {"results a.gpx --project a.rsp --project b.rsp", "--project: expected one file"},
        {"results a.gpx --project ''", "--project: expected one file"},
        {"info a.gpx --checkpoint A,1,2", "usage: kestrabel-cli info"},
        {"results a.gpx --checkpoint A,1", "expected NAME,LAT,LON[,METRES] with 0 to 1000 metres"},
        {"results a.gpx --checkpoint ,1,2", "expected NAME,LAT,LON[,METRES]"},
        {"results a.gpx --checkpoint A,1,2,", "expected NAME,LAT,LON[,METRES]"},
        {"results a.gpx --checkpoint A,1,2,1001", "0 to 1000 metres"},
        {"results a.gpx --checkpoint A,91,2", "--checkpoint LAT 91: expected degrees from -90 to 90"},
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
    for (const std::string strCommand :
         {"results", "leaderboard", "points", "info", "convert", "distance", "project show", "project new"})
    {
        const test::SToolRun help = tool.Run(Words(strCommand + " --help"));
        EXPECT_EQ(help.nStatus, 0);
        EXPECT_THAT(help.strOut, HasSubstr("Usage: kestrabel-cli " + strCommand + " "));
    }
}

} // namespace
} // namespace kestrabel
