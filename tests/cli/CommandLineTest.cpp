#include "cli/CommandLine.h"

#include "cli/ToolRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

using CArguments = std::vector<std::string>;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(CommandLine, EntriesAndFilesMayBeMixed)
{
    const SArguments arguments =
        ParseCommandLine({"results", "one.gpx", "--entry", "Ann=a.gpx,b.nmea", "two.gpx", "--entry", "=c.gpx",
                          "--entry", "Zo\xeb=x=y.gpx", "--division", "2 sec", "three.gpx", "--set",
                          "Location=a=b", "--format", "json", "--strict"});
    EXPECT_EQ(arguments.command, ECommand::Results);
    EXPECT_EQ(arguments.format, EFormat::Json);
    EXPECT_TRUE(arguments.bStrict);
    EXPECT_THAT(arguments.files, ElementsAre("one.gpx", "two.gpx", "three.gpx"));
    EXPECT_THAT(arguments.divisions, ElementsAre("2 sec"));
    ASSERT_EQ(arguments.entries.size(), 3U);
    EXPECT_EQ(arguments.entries[0].strName, "Ann");
    EXPECT_THAT(arguments.entries[0].files, ElementsAre("a.gpx", "b.nmea"));
    EXPECT_EQ(arguments.entries[1].strName, "");
    EXPECT_EQ(arguments.entries[2].strName, "Zoë");
    EXPECT_THAT(arguments.entries[2].files, ElementsAre("x=y.gpx"));
    ASSERT_EQ(arguments.settings.size(), 1U);
    EXPECT_EQ(arguments.settings[0].strName, "Location");
    EXPECT_EQ(arguments.settings[0].strValue, "a=b");
}

TEST(CommandLine, FileNamesOfAnyKind)
{
    EXPECT_THAT(ParseCommandLine({"info", "{}", "%%", "results", "a b.gpx", "é.gpx"}).files,
                ElementsAre("{}", "%%", "results", "a b.gpx", "é.gpx"));
    EXPECT_THAT(ParseCommandLine({"info", "--strict", "--", "-odd.gpx", "--strict"}).files,
                ElementsAre("-odd.gpx", "--strict"));
}

TEST(CommandLine, FormatsNotGiven)
{
    EXPECT_EQ(ParseCommandLine({"leaderboard", "a.gpx"}).format, EFormat::Table);
    EXPECT_EQ(ParseCommandLine({"info", "a.gpx"}).format, EFormat::Table);
    EXPECT_EQ(ParseCommandLine({"points", "a.gpx"}).format, EFormat::Csv);
    EXPECT_EQ(ParseCommandLine({"distance", "0", "0", "0", "0"}).format, EFormat::Table);
}

TEST(CommandLine, NegativeDegreesAreNoOptions)
{
    const SDistanceArguments distance =
        ParseCommandLine({"distance", "-37.65", "-.5", "--unit", "n", "-1e1", "-180"}).distance;
    EXPECT_EQ(distance.from, MakePosition(-37.65, -0.5));
    EXPECT_EQ(distance.to, MakePosition(-10.0, -180.0));
    EXPECT_EQ(distance.cUnit, 'n');
    EXPECT_EQ(distance.ellipsoid, CEllipsoid());
}

TEST(CommandLine, AnEllipsoidIsFoundWithoutRegardToCase)
{
    const SDistanceArguments distance =
        ParseCommandLine({"distance", "0", "0", "0", "0", "--ellipsoid", "clarke 1858"}).distance;
    EXPECT_EQ(distance.ellipsoid.m_dRadius, 6378293.645);
    // "User" without values of one's own: the values that these start from.
    EXPECT_EQ(ParseCommandLine({"distance", "0", "0", "0", "0", "--ellipsoid", "User"})
                  .distance.ellipsoid.m_dRadius,
              6378160.0);
}

/// Wrong command lines, and a part of the message that says what was expected.
struct SWrongCase
{
    CArguments arguments;
    const char* pExpected;
};

const SWrongCase WrongCases[] = {
    {{}, "results, leaderboard, points, info, convert, distance"},
    {{"judge"}, "results, leaderboard, points, info, convert, distance"},
    {{"--strict"}, "results, leaderboard, points, info, convert, distance"},
    {{"project"}, "convert, distance, project show, project new"},
    {{"project", "open", "a.rsp"}, "convert, distance, project show, project new"},
    {{"project", "show"}, "FILE.rsp is required; usage: kestrabel-cli project show FILE.rsp"},
    {{"project", "show", "a.rsp", "b.rsp"}, "b.rsp; usage: kestrabel-cli project show FILE.rsp"},
    {{"project", "show", "a.rsp", "--format", "csv"}, "table,json"},
    {{"project", "show", "a.rsp", "--force"}, "--force; usage: kestrabel-cli project show"},
    {{"project", "new"}, "FILE.rsp is required; usage: kestrabel-cli project new FILE.rsp [--force]"},
    {{"project", "new", "run.gpx"}, "run.gpx: a project's name ends in .rsp"},
    {{"project", "new", "rsp", "--force"}, "rsp: a project's name ends in .rsp"},
    {{"results"}, "a track file is expected; usage: kestrabel-cli results [FILE...]"},
    {{"leaderboard", "--division", "2 sec"}, "a track file is expected"},
    {{"points"}, "FILE is required"},
    {{"info"}, "a track file is expected"},
    {{"results", "a.gpx", "--fast"}, "--fast; usage: kestrabel-cli results"},
    {{"results", "a.gpx", "-x"}, "-x; usage: kestrabel-cli results"},
    {{"results", "--project", "a.rsp"}, "a track file is expected"},
    {{"results", "a.gpx", "--project"}, "--project"},
    {{"results", "a.gpx", "--project", "a.rsp", "--project", "b.rsp"}, "--project: expected one file"},
    {{"info", "a.gpx", "--project", "a.rsp"}, "usage: kestrabel-cli info"},
    {{"info", "a.gpx", "--checkpoint", "A,1,2"}, "usage: kestrabel-cli info"},
    {{"results", "a.gpx", "--checkpoint", "A"}, "expected NAME,LAT,LON[,METRES] with 0 to 1000 metres"},
    {{"results", "a.gpx", "--checkpoint", "A,1"}, "expected NAME,LAT,LON[,METRES]"},
    {{"results", "a.gpx", "--checkpoint", "A,1,2,3,4"}, "expected NAME,LAT,LON[,METRES]"},
    {{"results", "a.gpx", "--checkpoint", ",1,2"}, "expected NAME,LAT,LON[,METRES]"},
    {{"results", "a.gpx", "--checkpoint", "A,1,2,"}, "expected NAME,LAT,LON[,METRES]"},
    {{"results", "a.gpx", "--checkpoint", "A,1,2,-1"}, "0 to 1000 metres"},
    {{"results", "a.gpx", "--checkpoint", "A,1,2,1001"}, "0 to 1000 metres"},
    {{"results", "a.gpx", "--checkpoint", "A,91,2"}, "--checkpoint LAT 91: expected degrees from -90 to 90"},
    {{"results", "a.gpx", "--checkpoint", "A,1,x"}, "--checkpoint LON x: expected degrees from -180 to 180"},
    {{"results", "a.gpx", "--all-fields"}, "--all-fields; usage"},
    {{"results", "a.gpx", "--format"}, "--format table|csv|json"},
    {{"results", "a.gpx", "--format", "xml"}, "table,csv,json"},
    {{"results", "a.gpx", "--format", "csv", "--format", "json"}, "--format"},
    {{"points", "a.gpx", "--format", "table"}, "csv,json"},
    {{"info", "a.gpx", "--format", "csv"}, "table,json"},
    {{"points", "a.gpx", "b.gpx"}, "b.gpx; usage: kestrabel-cli points FILE"},
    {{"points", "a.gpx", "--entry", "Ann=b.gpx"}, "--entry"},
    {{"info", "a.gpx", "--set", "SpeedUnits=1"}, "--set"},
    {{"results", "--entry", "Ann"}, "expected \"NAME=FILE[,FILE]...\""},
    {{"results", "--entry", "Ann="}, "expected \"NAME=FILE[,FILE]...\""},
    {{"results", "--entry", "Ann=a.gpx,"}, "expected \"NAME=FILE[,FILE]...\""},
    {{"results", "--entry", "Ann=,a.gpx"}, "expected \"NAME=FILE[,FILE]...\""},
    {{"results", "--entry"}, "--entry"},
    {{"results", "a.gpx", "--set", "SpeedUnits"}, "expected NAME=VALUE"},
    {{"convert"}, "usage: kestrabel-cli convert IN OUT"},
    {{"convert", "a.nmea"}, "OUT is required"},
    {{"convert", "a.nmea", "b.gpx", "c.gpx"}, "c.gpx; usage: kestrabel-cli convert IN OUT"},
    {{"distance"}, "4 numbers are expected, not 0; usage: kestrabel-cli distance LAT1 LON1 LAT2 LON2"},
    {{"distance", "1", "2", "3"}, "4 numbers are expected, not 3"},
    {{"distance", "1", "2", "3", "4", "5"}, "4 numbers are expected, not 5"},
    {{"distance", "50,5", "2", "3", "4"}, "LAT1 50,5: expected degrees from -90 to 90"},
    {{"distance", "nan", "2", "3", "4"}, "LAT1 nan: expected degrees from -90 to 90"},
    {{"distance", "1", "2", "", "4"}, "expected degrees from -90 to 90"},
    {{"distance", "1", "2", "-90.1", "4"}, "LAT2 -90.1: expected degrees from -90 to 90"},
    {{"distance", "1", "2", "3", "180.5"}, "LON2 180.5: expected degrees from -180 to 180"},
    {{"distance", "1", "2", "3", "4", "--unit", "x"}, "k,m,n"},
    {{"distance", "1", "2", "3", "4", "--ellipsoid", "WGS85"}, "GRS80, WGS84, ANS, WGS72, Clarke 1858"},
    {{"distance", "1", "2", "3", "4", "--format", "csv"}, "table,json"},
    // What only the event can tell.
    {{"results", "a.gpx", "--set", "SpeedUnit=1"}, "expected one of Description, Location"},
    {{"results", "a.gpx", "--set", "TimeThreshold=soon"}, "TimeThreshold=soon: expected a whole number"},
    {{"leaderboard", "a.gpx", "--division", "10"},
     "expected one of \"2 sec\", \"10 sec (best of 5)\", \"10 sec\", \"100 meters Accum\""},
};

TEST(CommandLine, ProjectAndCheckpoints)
{
    const SArguments arguments =
        ParseCommandLine({"points", "a.gpx", "--checkpoint", "Gate 1,-38.85,146.16", "--project", "e.rsp",
                          "--checkpoint", "Zo\xeb, 0.5 ,-.5,12.5"});
    EXPECT_EQ(arguments.strProject, "e.rsp");
    ASSERT_EQ(arguments.checkpoints.size(), 2U);
    EXPECT_EQ(arguments.checkpoints[0].strName, "Gate 1");
    EXPECT_EQ(arguments.checkpoints[0].position, MakePosition(-38.85, 146.16));
    EXPECT_EQ(arguments.checkpoints[0].dProximity, 0.005) << "5 metres when not given";
    EXPECT_EQ(arguments.checkpoints[1].strName, "Zoë");
    EXPECT_EQ(arguments.checkpoints[1].position, MakePosition(0.5, -0.5));
    EXPECT_EQ(arguments.checkpoints[1].dProximity, 0.0125);

    const SArguments made = ParseCommandLine({"project", "new", "Dir.x/E.RSP", "--force"});
    EXPECT_EQ(made.command, ECommand::NewProject);
    EXPECT_THAT(made.files, ElementsAre("Dir.x/E.RSP"));
    EXPECT_TRUE(made.bForce);
    const SArguments shown = ParseCommandLine({"project", "show", "any", "--format", "json"});
    EXPECT_EQ(shown.command, ECommand::ShowProject);
    EXPECT_EQ(shown.format, EFormat::Json);
    EXPECT_FALSE(shown.bForce);
}

TEST(CommandLine, AWrongOneEndsWithStatus2AndWhatWasExpected)
{
    const test::CToolTest tool;
    for (const SWrongCase& wrong : WrongCases) {
        std::string strShown;
        for (const std::string& strArgument : wrong.arguments)
            strShown += strArgument + " ";
        SCOPED_TRACE(strShown);
        const test::SToolRun run = tool.Run(wrong.arguments);
        EXPECT_EQ(run.nStatus, 2);
        EXPECT_EQ(run.strOut, "");
        EXPECT_THAT(run.strErr, testing::StartsWith("kestrabel-cli: "));
        EXPECT_THAT(run.strErr, HasSubstr(wrong.pExpected));
        EXPECT_EQ(test::Lines(run.strErr).size(), 1U) << run.strErr;
    }
}

TEST(CommandLine, HelpAndVersion)
{
    const test::CToolTest tool;
    const test::SToolRun version = tool.Run({"--version"});
    EXPECT_EQ(version.nStatus, 0);
    EXPECT_EQ(version.strOut, "kestrabel-cli 1.917\n");

    const test::SToolRun help = tool.Run({"--help"});
    EXPECT_EQ(help.nStatus, 0);
    EXPECT_EQ(help.strErr, "");
    const test::SToolRun group = tool.Run({"project", "--help"});
    EXPECT_THAT(group.strOut, HasSubstr("Usage: kestrabel-cli project COMMAND ..."));
    for (const CArguments& command : std::initializer_list<CArguments>{{"results"},
                                                                       {"leaderboard"},
                                                                       {"points"},
                                                                       {"info"},
                                                                       {"convert"},
                                                                       {"distance"},
                                                                       {"project", "show"},
                                                                       {"project", "new"}})
    {
        const std::string strCommand = command.size() == 1 ? command[0] : command[0] + " " + command[1];
        EXPECT_THAT(help.strOut, HasSubstr("\n  kestrabel-cli " + strCommand + " ")) << "an example";
        CArguments arguments = command;
        arguments.emplace_back("--help");
        const test::SToolRun own = tool.Run(arguments);
        EXPECT_EQ(own.nStatus, 0);
        EXPECT_THAT(own.strOut, HasSubstr("Usage: kestrabel-cli " + strCommand + " "));
        EXPECT_THAT(own.strOut, HasSubstr("Example:\n  kestrabel-cli " + strCommand + " "));
        for (const std::string& strLine : test::Lines(own.strOut))
            EXPECT_LE(strLine.size(), 100U) << strLine;
    }
}

} // namespace
} // namespace kestrabel
