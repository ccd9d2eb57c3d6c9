// Feeds the project loader with arbitrary bytes. What loads is judged, and saving it twice over a load in
// between must give the same bytes: nothing of a project may be lost or invented on the way.

#include "app/NewProject.h"
#include "engine/Ranking.h"
#include "engine/TrackPointDerivation.h"
#include "model/ProjectFile.h"

#include "InputFile.h"

#include <cstdlib>
#include <iterator>

using namespace kestrabel;

namespace {

std::string SavedBytes(const std::string& strPath, CEvent& event, const std::string& strProjectPath)
{
    SaveProject(strPath, event, strProjectPath);
    std::ifstream file(strPath, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Half a minute on a straight line.
void AddTrack(CPerson& person)
{
    CSeries& series = person.m_series.Add(std::make_unique<CSeries>());
    series.m_strName = "line";
    for (int i = 0; i < 30; ++i) {
        CTrackPoint& point = series.m_points.Add(std::make_unique<CTrackPoint>());
        point.m_time = DATE::FromCalendar({.nYear = 2024, .nMonth = 6, .nDay = 1, .nSecond = i});
        point.m_position = MakePosition(52.0 + 1e-4 * i, 5.0);
        point.m_nSats = 9;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    static const fuzz::CInputFolder folder;
    const std::string strSaved = folder.Path("saved.rsp");
    CEvent event(DATE(1.0));
    CPerson& person = AddCompetitor(event, "Anna");
    std::string strProjectPath;
    try {
        ReadProject({reinterpret_cast<const char*>(pData), nSize}, event, strProjectPath);
    } catch (const CArchiveException&) {
        return 0;
    }
    const std::string strBytes = SavedBytes(strSaved, event, strProjectPath);
    CEvent again(DATE(1.0));
    std::string strPathAgain;
    LoadProject(strSaved, again, strPathAgain);
    if (SavedBytes(strSaved, again, strPathAgain) != strBytes)
        std::abort();

    AddTrack(person);
    RecalculateTrackPoints(event, person, person.m_series[0], NoProgress());
    CResultList results;
    AllResults(event, -1, -1, results, NoProgress());
    return 0;
}
