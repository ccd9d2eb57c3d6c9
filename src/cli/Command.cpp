#include "cli/Command.h"

#include "cli/CommandLine.h"
#include "cli/ConvertCommand.h"
#include "cli/DistanceCommand.h"
#include "cli/EventBuilder.h"
#include "cli/InfoCommand.h"
#include "cli/PointsCommand.h"
#include "cli/ProjectCommands.h"
#include "cli/RankingCommands.h"
#include "cli/TerminalProgress.h"

#include <iostream>
#include <new>
#include <unistd.h>

namespace kestrabel {

namespace {

/// The export's form is fixed, so a name that a spreadsheet would run as a formula can only be told.
void WarnOfFormulas(const CEvent& event, CMessages& messages)
{
    for (const CPerson* pPerson : event.m_persons) {
        if (pPerson->m_strName.find_first_of("=+-@") == 0) {
            messages.AboutTool("the competitor \"" + pPerson->m_strName +
                               "\" has a name that spreadsheets take for a formula");
            return;
        }
    }
}

/// The commands that look at the track files of an event.
EExitStatus RunOnEvent(const SArguments& arguments, CImportReport& report, CMessages& messages,
                       COutput& output)
{
    CTerminalProgress terminal(std::cerr);
    CProgressDisplay& progress = ::isatty(STDERR_FILENO) != 0 ? terminal : NoProgress();
    CEvent event;
    if (!SetUpEvent(event, arguments, messages))
        return EExitStatus::Unreadable;
    const std::vector<const CDivision*> divisions = ChooseDivisions(event, arguments.divisions);
    AddCompetitors(event, arguments, report, progress);
    if (!report.HasPoints())
        return report.Status();
    if (arguments.format == EFormat::Csv)
        WarnOfFormulas(event, messages);
    switch (arguments.command) {
    case ECommand::Results: PrintResults(event, divisions, arguments.format, output, progress); break;
    case ECommand::Leaderboard: PrintLeaderboard(event, divisions, arguments.format, output, progress); break;
    case ECommand::Points:
        PrintPoints(event, event.m_persons[0].m_series[0], arguments.format, arguments.bAllFields, output);
        break;
    default: PrintInfo(event, arguments.format, output); break;
    }
    return report.Status();
}

EExitStatus RunCommand(const SArguments& arguments, CImportReport& report, CMessages& messages,
                       COutput& output)
{
    switch (arguments.command) {
    case ECommand::ShowText: output.Write(arguments.strText); return EExitStatus::Done;
    case ECommand::Distance:
        PrintDistance(arguments.distance, arguments.format, output);
        return EExitStatus::Done;
    case ECommand::Convert:
        return ConvertTrackFile(arguments.files.front(), arguments.strOutput, report, messages);
    case ECommand::ShowProject: return ShowProject(arguments, messages, output);
    case ECommand::NewProject: return MakeProject(arguments, messages);
    default: return RunOnEvent(arguments, report, messages, output);
    }
}

/// Runs a command up to its last byte and the closing line.
EExitStatus Run(const SArguments& arguments, CMessages& messages)
{
    CImportReport report(messages, arguments.bStrict);
    COutput output(STDOUT_FILENO);
    EExitStatus status = EExitStatus::Done;
    try {
        status = RunCommand(arguments, report, messages, output);
        output.Finish();
    } catch (const COutputError& error) {
        messages.About("standard output", error.what());
        status = Worse(EExitStatus::Failed, report.Status());
    }
    report.Close();
    return status;
}

} // namespace

int RunTool(const std::vector<std::string>& arguments)
{
    CMessages messages(std::cerr);
    EExitStatus status = EExitStatus::Failed;
    try {
        status = Run(ParseCommandLine(arguments), messages);
    } catch (const CCommandLineError& error) {
        messages.AboutTool(error.what());
        status = EExitStatus::WrongCommandLine;
    } catch (const std::bad_alloc&) {
        messages.AboutTool("out of memory");
    }
    return static_cast<int>(status);
}

} // namespace kestrabel
