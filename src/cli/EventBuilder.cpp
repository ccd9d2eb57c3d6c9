#include "cli/EventBuilder.h"

#include "app/NewProject.h"
#include "app/TrackFileImport.h"
#include "model/EventSettings.h"
#include "platform/Path.h"
#include "platform/Text.h"

#include <algorithm>

namespace kestrabel {

namespace {

void ReadFiles(const CEvent& event, CPerson& person, const std::vector<std::string>& files,
               CImportReport& report, CProgressDisplay& progress)
{
    for (const std::string& strFile : files) {
        CImportMonitor monitor(&report.Prompt());
        EImportEnd end = EImportEnd::Complete;
        const CSeries* pSeries = AddTrackFile(event, person, strFile, monitor, end, progress);
        report.FileEnded(strFile, monitor, end, pSeries != nullptr ? pSeries->m_points.GetCount() : 0);
    }
}

} // namespace

void SetUpEvent(CEvent& event, const std::vector<SSettingArgument>& settings)
{
    FillNewProject(event, DATE::Now());
    for (const SSettingArgument& setting : settings) {
        const std::string strExpected = SetEventSetting(event, setting.strName, setting.strValue);
        if (!strExpected.empty())
            throw CCommandLineError("--set " + setting.strName + "=" + setting.strValue + ": expected " +
                                    strExpected);
    }
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
        ReadFiles(event, AddCompetitor(event, entry.strName), entry.files, report, progress);
    if (arguments.files.empty())
        return;
    CPerson& unnamed = AddCompetitor(event, "");
    ReadFiles(event, unnamed, arguments.files, report, progress);
    if (unnamed.m_series.IsEmpty())
        event.m_persons.RemoveAt(event.m_persons.GetCount() - 1);
}

} // namespace kestrabel
