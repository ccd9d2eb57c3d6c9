#include "cli/CommandLine.h"

#include "cli/ArgumentValues.h"
#include "cli/CommandTable.h"
#include "platform/NumberInput.h"
#include "platform/Path.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iterator>
#include <memory>
#include <string_view>

namespace kestrabel {

namespace {

constexpr const char* Description =
    "Judges GPS speed events from the track files of the riders' loggers: finds and ranks each\n"
    "competitor's best runs in every division.";

/// The name of a command in the table: "results", "project show"; of the tool itself empty.
std::string FullName(const CLI::App& app)
{
    const CLI::App* pParent = app.get_parent();
    if (pParent == nullptr)
        return {};
    const std::string strGroup = FullName(*pParent);
    return strGroup.empty() ? app.get_name() : strGroup + " " + app.get_name();
}

/// The usage line as our rows have it: CLI11's own cannot say "FILE...".
class CHelpFormatter final : public CLI::Formatter
{
public:
    CHelpFormatter() { column_width(36); }

    std::string make_usage(const CLI::App* pApp, std::string /*strName*/) const override
    {
        const std::string strFullName = FullName(*pApp);
        const SCommandRow* pRow = FindCommand(strFullName);
        if (pRow == nullptr)
            return "Usage: kestrabel-cli " + strFullName + (strFullName.empty() ? "" : " ") + "COMMAND ...\n";
        return "Usage: " + CommandStart(*pRow) + " [OPTIONS]\n";
    }
};

/// Texts of one kind in the order given, each kept as it is: the conversion to a list of texts would take
/// "{}" and "%%" for syntax.
CLI::Option* AddTexts(CLI::App& app, const std::string& strName, std::vector<std::string>& texts,
                      const std::string& strDescription)
{
    const CLI::callback_t take = [&texts](const CLI::results_t& values) {
        texts = values;
        return true;
    };
    return app.add_option(strName, take, strDescription)->take_all()->allow_extra_args(false);
}

/// The texts of the command line before anything is made of them.
struct SRawArguments
{
    std::vector<std::string> files;
    std::vector<std::string> entries;
    std::vector<std::string> settings;
    std::vector<std::string> checkpoints;
    std::vector<std::string> divisions;
    std::vector<std::string> output;
    std::vector<std::string> coordinates;
    std::vector<std::string> project;
    std::string strFormat;
    std::string strEllipsoid = "WGS84";
    std::string strUnit = "k";
    bool bStrict = false;
    bool bAllFields = false;
    bool bForce = false;
};

void AddFiles(CLI::App& app, SRawArguments& raw, const std::string& strDescription)
{
    AddTexts(app, "FILE", raw.files, strDescription)->type_name("")->expected(-1);
}

void AddOneFile(CLI::App& app, SRawArguments& raw, const std::string& strName,
                const std::string& strDescription)
{
    AddTexts(app, strName, raw.files, strDescription)->type_name("")->required();
}

/// What the event is besides its competitors.
void AddEvent(CLI::App& app, SRawArguments& raw)
{
    AddTexts(app, "--project", raw.project, "The event of this file; a new project when not given")
        ->type_name("FILE.rsp");
    AddTexts(app, "--set", raw.settings, "One setting of the event, in internal units; repeatable")
        ->type_name("NAME=VALUE");
    AddTexts(app, "--checkpoint", raw.checkpoints, "A checkpoint in every track file; repeatable")
        ->type_name("NAME,LAT,LON[,METRES]");
}

void AddStrict(CLI::App& app, SRawArguments& raw)
{
    app.add_flag("--strict", raw.bStrict, "Stop reading a file at the first line that cannot be read");
}

/// An option with one of a few values; in help "--name a|b".
void AddChoice(CLI::App& app, const std::string& strName, std::string& strChoice,
               const std::vector<std::string>& choices, const std::string& strDescription)
{
    app.add_option(strName, strChoice, strDescription)
        ->check(CLI::IsMember(choices).description(""))
        ->type_name(CLI::detail::join(choices, "|"));
}

void AddFormat(CLI::App& app, SRawArguments& raw, const std::vector<std::string>& formats)
{
    AddChoice(app, "--format", raw.strFormat, formats,
              "The form of the output; " + formats.front() + " when not given");
}

void AddRanking(CLI::App& app, SRawArguments& raw)
{
    AddFiles(app, raw, "Track files of one unnamed competitor");
    AddTexts(app, "--entry", raw.entries, "One competitor with track files; repeatable")
        ->type_name("\"NAME=FILE[,FILE]...\"");
    AddEvent(app, raw);
    AddTexts(app, "--division", raw.divisions, "Only this division; repeatable")->type_name("NAME");
    AddFormat(app, raw, {"table", "csv", "json"});
    AddStrict(app, raw);
}

void AddArguments(CLI::App& app, ECommand command, SRawArguments& raw)
{
    switch (command) {
    case ECommand::Results:
    case ECommand::Leaderboard: AddRanking(app, raw); break;
    case ECommand::Points:
        AddOneFile(app, raw, "FILE", "The track file");
        AddEvent(app, raw);
        AddFormat(app, raw, {"csv", "json"});
        app.add_flag("--all-fields", raw.bAllFields, "All columns of the CSV form instead of the usual ones");
        AddStrict(app, raw);
        break;
    case ECommand::Info:
        AddFiles(app, raw, "Track files");
        AddFormat(app, raw, {"table", "json"});
        AddStrict(app, raw);
        break;
    case ECommand::Convert:
        AddOneFile(app, raw, "IN", "The track file to read");
        AddTexts(app, "OUT", raw.output, "The file to write")->type_name("")->required();
        AddStrict(app, raw);
        break;
    case ECommand::Distance:
        AddTexts(app, "POSITIONS", raw.coordinates, "LAT1 LON1 LAT2 LON2: degrees, south and west negative")
            ->type_name("")
            ->expected(-1);
        app.add_option("--ellipsoid", raw.strEllipsoid, "Reference ellipsoid; WGS84 when not given")
            ->type_name("NAME");
        AddChoice(app, "--unit", raw.strUnit, {"k", "m", "n"},
                  "Kilometres (when not given), statute miles or nautical miles");
        AddFormat(app, raw, {"table", "json"});
        break;
    case ECommand::ShowProject:
        AddOneFile(app, raw, "FILE.rsp", "The project file");
        AddFormat(app, raw, {"table", "json"});
        break;
    case ECommand::NewProject:
        AddOneFile(app, raw, "FILE.rsp", "The project file to write");
        app.add_flag("--force", raw.bForce, "Replace a file that exists; without it that is refused");
        break;
    case ECommand::ShowText: break;
    }
}

/// A command under its name, or under its group's.
CLI::App& AddCommand(CLI::App& app, const SCommandRow& row)
{
    const std::string strName(row.strName);
    const std::size_t nBlank = strName.find(' ');
    if (nBlank == std::string::npos)
        return *app.add_subcommand(strName, std::string(row.strDescription))->group("Commands");
    const std::string strGroup = strName.substr(0, nBlank);
    const std::vector<CLI::App*> groups =
        app.get_subcommands([&](const CLI::App* pApp) { return pApp->get_name() == strGroup; });
    CLI::App* pGroup =
        groups.empty() ? app.add_subcommand(strGroup, "Show or make a project file") : groups.front();
    pGroup->require_subcommand(1)
        ->group("Commands")
        ->footer("kestrabel-cli " + strGroup + " COMMAND --help explains a command.");
    return *pGroup->add_subcommand(strName.substr(nBlank + 1), std::string(row.strDescription))
                ->group("Commands");
}

SDistanceArguments ReadDistance(const SCommandRow& row, const SRawArguments& raw)
{
    const std::vector<std::string>& degrees = raw.coordinates;
    if (degrees.size() != 4)
        RefuseCommandLine(row, "4 numbers are expected, not " + std::to_string(degrees.size()));
    return {.from = ReadPosition(degrees[0], "LAT1", degrees[1], "LON1"),
            .to = ReadPosition(degrees[2], "LAT2", degrees[3], "LON2"),
            .ellipsoid = ReadEllipsoid(raw.strEllipsoid),
            .cUnit = raw.strUnit.front()};
}

EFormat ReadFormat(ECommand command, const std::string& strFormat)
{
    if (strFormat == "json")
        return EFormat::Json;
    return strFormat == "csv" || command == ECommand::Points ? EFormat::Csv : EFormat::Table;
}

SArguments ReadArguments(const SCommandRow& row, const SRawArguments& raw)
{
    SArguments arguments;
    arguments.command = row.command;
    arguments.format = ReadFormat(row.command, raw.strFormat);
    arguments.files = raw.files;
    arguments.divisions = raw.divisions;
    arguments.bStrict = raw.bStrict;
    arguments.bAllFields = raw.bAllFields;
    std::transform(raw.entries.begin(), raw.entries.end(), std::back_inserter(arguments.entries), ReadEntry);
    std::transform(raw.settings.begin(), raw.settings.end(), std::back_inserter(arguments.settings),
                   ReadSetting);
    std::transform(raw.checkpoints.begin(), raw.checkpoints.end(), std::back_inserter(arguments.checkpoints),
                   ReadCheckPoint);
    // An empty name, as of a script's variable that is not set, must not stand for a new project.
    if (raw.project.size() > 1 || (!raw.project.empty() && raw.project.back().empty()))
        RefuseCommandLine(row, "--project: expected one file");
    if (!raw.project.empty())
        arguments.strProject = raw.project.back();
    arguments.bForce = raw.bForce;
    if (row.command == ECommand::Distance) {
        arguments.distance = ReadDistance(row, raw);
        return arguments;
    }
    if (arguments.files.empty() && arguments.entries.empty())
        RefuseCommandLine(row, "a track file is expected");
    if (row.command == ECommand::NewProject && ToLower(FileExtension(arguments.files.front())) != ".rsp")
        RefuseCommandLine(row, arguments.files.front() + ": a project's name ends in .rsp");
    if (row.command == ECommand::Convert)
        arguments.strOutput = raw.output.front();
    return arguments;
}

/// The arguments in the order in which CLI11 wants them, the last first. It takes "-.5" for an option, but
/// not "-0.5".
std::vector<std::string> Reversed(const std::vector<std::string>& arguments)
{
    std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
    double dNumber = 0.0;
    for (std::string& strText : reversed) {
        if (strText.starts_with("-.") && IsDecimal(strText, dNumber))
            strText.insert(1, "0");
    }
    return reversed;
}

SArguments ShowText(std::string strText)
{
    SArguments arguments;
    arguments.strText = std::move(strText);
    return arguments;
}

} // namespace

SArguments ParseCommandLine(const std::vector<std::string>& arguments)
{
    const std::span<const SCommandRow> table = CommandTable();
    CLI::App app(Description, "kestrabel-cli");
    app.set_version_flag("--version", "kestrabel-cli " KESTRABEL_VERSION);
    app.require_subcommand(1);
    app.formatter(std::make_shared<CHelpFormatter>());
    app.footer(HelpFooter(table) + "\n\nkestrabel-cli COMMAND --help explains a command.");

    // Every command has texts of its own, so that none sees what another one's options would leave.
    std::vector<SRawArguments> raw(table.size());
    for (std::size_t i = 0; i < table.size(); ++i) {
        CLI::App& command = AddCommand(app, table[i]);
        command.footer(HelpFooter(table.subspan(i, 1)));
        AddArguments(command, table[i].command, raw[i]);
    }
    // The command that the arguments name, as far as they were understood.
    const auto findNamed = [&] {
        const CLI::App* pNamed = &app;
        while (!pNamed->get_subcommands().empty())
            pNamed = pNamed->get_subcommands().front();
        return FindCommand(FullName(*pNamed));
    };
    try {
        app.parse(Reversed(arguments));
    } catch (const CLI::CallForHelp&) {
        return ShowText(app.help());
    } catch (const CLI::CallForVersion& version) {
        return ShowText(std::string(version.what()) + "\n");
    } catch (const CLI::ParseError& error) {
        const SCommandRow* pRow = findNamed();
        if (pRow == nullptr)
            throw CCommandLineError("expected one of the commands " + CommandNames() +
                                    "; kestrabel-cli --help explains them");
        RefuseCommandLine(*pRow, error.what());
    }
    const SCommandRow* pRow = findNamed();
    return ReadArguments(*pRow, raw[static_cast<std::size_t>(pRow - table.data())]);
}

} // namespace kestrabel
