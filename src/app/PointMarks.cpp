#include "app/Document.h"
#include "app/EditRecorder.h"
#include "app/PointChanges.h"
#include "app/PointPlace.h"
#include "app/TrackEditing.h"

#include <algorithm>

namespace kestrabel {

namespace {

/// Touches the files of the points and marks these. False when none of them is the competitor's.
bool Mark(CEditRecorder& recorder, CPerson& person, std::span<CTrackPoint* const> points, bool bInvalid)
{
    auto pMarks = std::make_unique<CMarkedPoints>();
    std::vector<CSeries*> files;
    for (CTrackPoint* pPoint : points) {
        CSeries* pSeries = FindPoint(person, *pPoint).pSeries;
        if (pSeries == nullptr)
            continue;
        if (std::ranges::find(files, pSeries) == files.end()) {
            recorder.Touch(person, *pSeries, false);
            files.push_back(pSeries);
        }
        const int nFlags = bInvalid ? pPoint->m_nInvalidFlags | InvalidFlag::User : 0;
        pMarks->Mark(*pPoint, static_cast<std::uint8_t>(nFlags));
    }
    if (pMarks->IsEmpty())
        return false;
    recorder.Do(std::move(pMarks));
    return true;
}

std::string_view NameOf(bool bInvalid)
{
    return bInvalid ? "Mark as Invalid" : "Mark as Valid";
}

} // namespace

void MarkPoints(CKestroDoc& document, std::span<CTrackPoint* const> points, bool bInvalid)
{
    CPerson* pPerson = document.m_selection.GetCurrentPerson();
    CEditRecorder recorder(document, NameOf(bInvalid));
    if (pPerson == nullptr || !Mark(recorder, *pPerson, points, bInvalid))
        return;
    recorder.Finish();
    document.m_selection.Recalculate(false, false);
    recorder.Keep();
}

void MarkFocusPoint(CKestroDoc& document, bool bInvalid)
{
    CViewSelection& selection = document.m_selection;
    CPerson* pPerson = selection.GetCurrentPerson();
    const int nPoint = static_cast<int>(selection.m_dFocusPoint);
    const CObjectArray<CTrackPoint>& points = selection.GetSeriesPoints(selection.m_nFocusSeries);
    if (pPerson == nullptr || nPoint < 0 || nPoint >= points.GetCount())
        return;
    CTrackPoint* pPoint = points.At(nPoint);
    CEditRecorder recorder(document, NameOf(bInvalid));
    if (!Mark(recorder, *pPerson, {&pPoint, 1}, bInvalid))
        return;
    recorder.Finish(false);
    selection.RefreshResults(false);
    recorder.Keep();
}

} // namespace kestrabel
