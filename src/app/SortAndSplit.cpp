#include "app/Document.h"
#include "app/EditRecorder.h"
#include "app/NewFileName.h"
#include "app/PointChanges.h"
#include "app/TimeOrder.h"
#include "app/TrackEditing.h"
#include "platform/Path.h"
#include "present/SortTrackPointsDialog.h"

#include <algorithm>

namespace kestrabel {

void SortTrackPoints(CKestroDoc& document)
{
    CDesktop& desktop = document.m_surroundings.desktop;
    CSeries* pSeries = document.m_selection.GetCurrentSeries();
    if (pSeries == nullptr) {
        desktop.ShowMessage("Please select the file that you wish to sort.");
        return;
    }
    SSortTrackPointsDialog dialog = SSortTrackPointsDialog::From(*pSeries);
    if (!desktop.Run(dialog))
        return;

    CEditRecorder recorder(document, "Sort Track Points");
    recorder.Touch(*document.m_selection.GetCurrentPerson(), *pSeries);
    const std::vector<CTrackPoint*> points(pSeries->m_points.begin(), pSeries->m_points.end());
    recorder.Do(std::make_unique<CReorderedPoints>(*pSeries, TimeOrder(points)));
    recorder.MarkDocument();
    recorder.Finish();
    document.m_selection.Recalculate(true, false);
    recorder.Keep();
}

void SplitSeries(CKestroDoc& document)
{
    CViewSelection& selection = document.m_selection;
    CSeries* pOld = selection.GetCurrentSeries();
    if (pOld == nullptr || selection.m_dFocusPoint == -1.0) {
        document.m_surroundings.desktop.ShowMessage(
            "Please select the file and point at which you wish to split.");
        return;
    }
    CPerson& person = *selection.GetCurrentPerson();
    const int nFirst = std::min(static_cast<int>(selection.m_dFocusPoint), pOld->m_points.GetCount());
    const int nFiles = person.m_series.GetCount();
    const std::string strFolder = FolderOf(pOld->m_strFileName);

    auto pCreated = std::make_unique<CSeries>();
    CSeries& created = *pCreated;
    created.m_ellipsoid = document.m_event.m_ellipsoid;
    created.m_strIdentifier = pOld->m_strIdentifier;
    created.m_strName = pOld->m_strName + "_" + std::to_string(nFiles);
    created.m_bManaged = 1;
    created.m_strFileName = NewFileName(strFolder, created.m_strName, ".gpx");
    const std::string strOldName = pOld->m_strName + "_" + std::to_string(selection.m_nSeries);

    CEditRecorder recorder(document, "Split File");
    recorder.Touch(person, *pOld);
    recorder.Touch(person, created);
    recorder.Set(pOld->m_strName, strOldName);
    recorder.Set(pOld->m_bManaged, 1);
    recorder.Set(pOld->m_strFileName, UniqueFileName(strFolder, strOldName, ".gpx"));
    recorder.Do(std::make_unique<CObjectChange<CSeries>>(person.m_series, nFiles, std::move(pCreated)));
    recorder.Do(std::make_unique<CMovedTail>(*pOld, nFirst, created));
    recorder.MarkDocument();
    recorder.Finish();
    selection.SelectSeries(nFiles, false, true);
    recorder.Keep();
}

} // namespace kestrabel
