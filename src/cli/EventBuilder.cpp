#include "cli/EventBuilder.h"

#include "app/CheckPoints.h"
#include "app/NewProject.h"
#include "app/TrackFileImport.h"
#include "cli/ProjectCommands.h"
#include "model/EventSettings.h"
#include "platform/Path.h"
#include "platform/Text.h"

#include <algorithm>

namespace kestrabel {

namespace {

void ReadFiles(CEvent& event, CPerson& person, const std::vector<std::string>& files,
               const std::vector<SCheckPointArgument>& checkpoints, CImportReport& report,
               CProgressDisplay& progress)
{
    for (const std::string& strFile : files) {
        CImportMonitor monitor(&report.Prompt());
        EImportEnd end = EImportEnd::Complete;
        CSeries* pSeries = AddTrackFile(event, person, strFile, monitor, end, progress);
        report.FileEnded(strFile, monitor, end, pSeries != nullptr ? pSeries->m_points.GetCount() : 0);
        for (const SCheckPointArgument& checkpoint : checkpoints) {
            if (pSeries != nullptr)
                AddCheckPoint(event, *pSeries, checkpoint.strName, checkpoint.position,
                              checkpoint.dProximity);
        }
    }
}

} // namespace

bool SetUpEvent(CEvent& event, const SArguments& arguments, CMessages& messages)
{
    FillNewProject(event, DATE::Now());
    std::string strStoredPath;
    if (!arguments.strProject.empty() && !OpenProject(arguments.strProject, event, strStoredPath, messages))
        return false;
    for (const SSettingArgument& setting : arguments.settings) {
        const std::string strExpected = SetEventSetting(event, setting.strName, setting.strValue);
        if (!strExpected.empty())
            throw CCommandLineError("--set " + setting.strName + "=" + setting.strValue + ": expected " +
                                    strExpected);
    }
    if (!arguments.checkpoints.empty())
        EnsureCheckPointsDivision(event);
    return true;
}

std::vector<const CDivision*> ChooseDivisions(const CEvent& event, const std::vector<std::string>& names)
{
    for (const std::string& strName : names) {
        if (event.FindDivision(ToUtf8(strName)) != nullptr)
            continue;
        std::string strDivisions;
        for (const CDivision* pDivision : event.m_divisions)
            strDivisions.append(strDivisions.empty() ? "\"" : ", \"")
                .append(pDivision->m_strName)
                .append("\"");
        throw CCommandLineError("--division " + strName + ": expected one of " + strDivisions);
    }
    std::vector<const CDivision*> divisions;
    for (const CDivision* pDivision : event.m_divisions) {
        const auto isChosen = [&](const std::string& strName) {
            return event.FindDivision(ToUtf8(strName)) == pDivision;
        };
        if (names.empty() || std::any_of(names.begin(), names.end(), isChosen))
            divisions.push_back(pDivision);
    }
    return divisions;
}

void AddCompetitors(CEvent& event, const SArguments& arguments, CImportReport& report,
                    CProgressDisplay& progress)
{
    for (const SEntryArgument& entry : arguments.entries)
        ReadFiles(event, AddCompetitor(event, entry.strName), entry.files, arguments.checkpoints, report,
                  progress);
    if (arguments.files.empty())
        return;
    CPerson& unnamed = AddCompetitor(event, "");
    ReadFiles(event, unnamed, arguments.files, arguments.checkpoints, report, progress);
    if (unnamed.m_series.IsEmpty())
        event.m_persons.RemoveAt(event.m_persons.GetCount() - 1);
}

} // namespace kestrabel
