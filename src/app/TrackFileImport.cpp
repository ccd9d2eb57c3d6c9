#include "app/TrackFileImport.h"

#include "engine/TrackPointDerivation.h"
#include "platform/Path.h"
#include "platform/Text.h"

namespace kestrabel {

CSeries* AddTrackFile(const CEvent& event, CPerson& person, std::string_view strPath, CImportMonitor& monitor,
                      EImportEnd& end, CProgressDisplay& progress)
{
    auto pSeries = std::make_unique<CSeries>();
    pSeries->m_strName = ToUtf8(FileTitle(strPath));
    pSeries->m_strFileName = StoredFileName(strPath);
    pSeries->m_ellipsoid = event.m_ellipsoid;
    if (ImportTrackFile(monitor, *pSeries, end) == 0)
        return nullptr;
    CSeries& series = person.m_series.Add(std::move(pSeries));
    CalculateTrackPoints(event, person, series, progress);
    return &series;
}

void DeriveAll(const CEvent& event, CPerson& person, CProgressDisplay& progress)
{
    for (CSeries* pSeries : person.m_series)
        RecalculateTrackPoints(event, person, *pSeries, progress);
}

} // namespace kestrabel
