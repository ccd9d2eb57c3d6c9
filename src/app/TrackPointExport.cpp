#include "app/TrackPointExport.h"

#include "app/Document.h"
#include "app/FileFilters.h"
#include "app/NewFileName.h"
#include "formats/TrackFileDispatcher.h"
#include "platform/Path.h"
#include "present/GridFile.h"

namespace kestrabel {

namespace {

/// The file that gives name and logger: the selected one, else the first of the first competitor.
const CSeries* DescribingSeries(const CKestroDoc& document)
{
    if (const CSeries* pSeries = document.m_selection.GetCurrentSeries())
        return pSeries;
    const CObjectArray<CPerson>& persons = document.m_event.m_persons;
    return persons.IsEmpty() || persons[0].m_series.IsEmpty() ? nullptr : persons[0].m_series.At(0);
}

void Export(CKestroDoc& document, const CSeries* pSeries, const CObjectArray<CTrackPoint>* pPoints,
            std::span<const EPointColumn> shownColumns)
{
    CDesktop& desktop = document.m_surroundings.desktop;
    if (pSeries == nullptr || pPoints == nullptr || pPoints->IsEmpty()) {
        desktop.ShowMessage("There are no trackpoints to export");
        return;
    }
    const std::string strPath = desktop.ChooseFileToSave({
        .strTitle = "",
        .strInitialPath = document.m_event.m_strDataFolder + FileTitle(pSeries->m_strFileName) + ".gpx",
        .strFilter = std::string(PointExportFilter),
        .strDefaultExtension = "gpx",
        .bConfirmOverwrite = false,
    });
    if (strPath.empty())
        return;
    const std::string strFile = LowerCasedName(strPath);
    if (strFile.ends_with(".csv")) {
        WriteGridToFile(desktop, document.m_event, strFile, *pPoints, shownColumns);
        return;
    }
    CImportMonitor monitor(&desktop);
    SavePoints(monitor, strFile, *pSeries, *pPoints);
}

} // namespace

void ExportTrackPoints(CKestroDoc& document, std::span<const EPointColumn> shownColumns)
{
    const CSeries* pSeries = document.m_selection.GetCurrentSeries();
    Export(document, pSeries, pSeries != nullptr ? &pSeries->m_points : nullptr, shownColumns);
}

void ExportSelectedTrackPoints(CKestroDoc& document, const CObjectArray<CTrackPoint>& points,
                               std::span<const EPointColumn> shownColumns)
{
    Export(document, DescribingSeries(document), &points, shownColumns);
}

} // namespace kestrabel
