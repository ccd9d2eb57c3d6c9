#include "cli/CommandTable.h"

#include <algorithm>
#include <array>

namespace kestrabel {

namespace {

constexpr const char* RankingOptions =
    R"([--entry "NAME=FILE[,FILE]..."]... [--project FILE.rsp] [--set NAME=VALUE]... )"
    "[--checkpoint NAME,LAT,LON[,METRES]]... [--division NAME]... [--format table|csv|json] [--strict]";

constexpr std::array<SCommandRow, 8> Commands = {{
    {ECommand::Results, "results", "Each competitor's runs, division by division, the fastest first",
     "[FILE...]", RankingOptions, R"(--entry "Ann=ann1.gpx,ann2.nmea" --division "10 sec")"},
    {ECommand::Leaderboard, "leaderboard", "Each division's ranking over all competitors", "[FILE...]",
     RankingOptions, R"(--entry "Ann=ann.gpx" --entry "Bob=bob.nmea" --format csv)"},
    {ECommand::Points, "points", "Every fix of a track file with its derived values", "FILE",
     "[--project FILE.rsp] [--set NAME=VALUE]... [--checkpoint NAME,LAT,LON[,METRES]]... "
     "[--format csv|json] [--all-fields] [--strict]",
     "run.gpx --set SpeedUnits=1 --all-fields"},
    {ECommand::Info, "info", "The statistics of track files", "FILE...", "[--format table|json] [--strict]",
     "run.gpx log.txt"},
    {ECommand::Convert, "convert", "Read a track file and write its points in the format of the new name",
     "IN OUT", "[--strict]", "log.txt run.gpx"},
    {ECommand::Distance, "distance", "Distance and forward azimuth between two positions, in degrees",
     "LAT1 LON1 LAT2 LON2", "[--ellipsoid NAME] [--unit k|m|n] [--format table|json]",
     "-37.95103 144.42487 -37.65282 143.92650 --unit n"},
    {ECommand::ShowProject, "project show", "The settings, divisions and waypoints of a project file",
     "FILE.rsp", "[--format table|json]", "event.rsp"},
    {ECommand::NewProject, "project new", "Write the default project with its six divisions", "FILE.rsp",
     "[--force]", "event.rsp"},
}};

} // namespace

std::span<const SCommandRow> CommandTable()
{
    return Commands;
}

const SCommandRow* FindCommand(std::string_view strName)
{
    const auto row = std::find_if(Commands.begin(), Commands.end(),
                                  [&](const SCommandRow& candidate) { return candidate.strName == strName; });
    return row == Commands.end() ? nullptr : &*row;
}

std::string CommandNames()
{
    std::string strNames;
    for (const SCommandRow& row : Commands)
        strNames.append(strNames.empty() ? "" : ", ").append(row.strName);
    return strNames;
}

std::string CommandStart(const SCommandRow& row)
{
    return std::string("kestrabel-cli ").append(row.strName).append(" ").append(row.strPositionals);
}

std::string HelpFooter(std::span<const SCommandRow> rows)
{
    std::string strText = rows.size() == 1 ? "Example:\n" : "Examples:\n";
    for (const SCommandRow& row : rows)
        strText.append("  kestrabel-cli ")
            .append(row.strName)
            .append(" ")
            .append(row.strExample)
            .append("\n");
    return strText + "\nExit status: 0 done; 1 nothing to report, or a write failed; 2 wrong command line;\n"
                     "3 a file could not be read.";
}

void RefuseCommandLine(const SCommandRow& row, const std::string& strReason)
{
    throw CCommandLineError((strReason + "; usage: " + CommandStart(row)).append(" ").append(row.strOptions));
}

} // namespace kestrabel
