#include "app/Document.h"
#include "app/EditRecorder.h"
#include "app/PointChanges.h"
#include "app/PointPlace.h"
#include "app/TrackEditing.h"
#include "present/DeleteSlowPointsDialog.h"

#include <algorithm>
#include <map>

namespace kestrabel {

namespace {

/// The indices of the points for which the predicate is true.
template <class TPredicate>
std::vector<int> Choose(const CSeries& series, TPredicate&& isChosen)
{
    std::vector<int> indices;
    for (int i = 0; i < series.m_points.GetCount(); ++i) {
        if (isChosen(series.m_points[i]))
            indices.push_back(i);
    }
    return indices;
}

void Remove(CEditRecorder& recorder, CPerson& person, CSeries& series, std::vector<int> indices)
{
    recorder.Touch(person, series);
    recorder.Do(std::make_unique<CRemovedPoints>(series, std::move(indices)));
}

bool HasDoppler(const CSeries& series)
{
    return std::ranges::any_of(series.m_points, [](const CTrackPoint* p) { return p->m_dDoppler > 0.0; });
}

/// Calls `visit(person, series)` for a competitor's file; -1 stands for all, an index beyond the end for
/// none.
template <class TVisit>
void ForEachFile(CEvent& event, int nCompetitor, int nSeries, TVisit&& visit)
{
    for (int i = 0; i < event.m_persons.GetCount(); ++i) {
        CPerson& person = event.m_persons[i];
        for (int j = 0; j < person.m_series.GetCount(); ++j) {
            if ((nCompetitor == -1 || nCompetitor == i) && (nSeries == -1 || nSeries == j))
                visit(person, person.m_series[j]);
        }
    }
}

} // namespace

void DeleteInvalid(CKestroDoc& document, int nCompetitor, int nSeries)
{
    CEditRecorder recorder(document, "Delete Invalid");
    ForEachFile(document.m_event, nCompetitor, nSeries, [&](CPerson& person, CSeries& series) {
        Remove(recorder, person, series,
               Choose(series, [](const CTrackPoint& point) { return !point.IsValidFor(InvalidMask::Fix); }));
    });
    recorder.MarkDocument();
    recorder.Finish();
    document.m_selection.Recalculate(true, false);
    recorder.Keep();
}

void DeleteSlowPoints(CKestroDoc& document)
{
    const CViewSelection& selection = document.m_selection;
    SDeleteSlowPointsDialog dialog = SDeleteSlowPointsDialog::From(document.m_event);
    if (!document.m_surroundings.desktop.Run(dialog))
        return;
    const double dLimit = dialog.SpeedLimit(document.m_event);
    CEditRecorder recorder(document, "Delete Slow Points");
    bool bRemoved = false;
    ForEachFile(document.m_event, selection.m_nCompetitor, selection.m_nSeries,
                [&](CPerson& person, CSeries& series) {
                    const bool bDoppler = dialog.bUseDoppler && HasDoppler(series);
                    std::vector<int> slow = Choose(series, [&](const CTrackPoint& point) {
                        return (bDoppler ? point.m_dDoppler : point.m_dSpeed) < dLimit;
                    });
                    if (slow.empty())
                        return;
                    Remove(recorder, person, series, std::move(slow));
                    bRemoved = true;
                });
    if (!bRemoved)
        return;
    recorder.MarkDocument();
    recorder.Finish();
    document.m_selection.Recalculate(true, false);
    recorder.Keep();
}

void DeletePoints(CKestroDoc& document, std::span<CTrackPoint* const> points)
{
    CPerson* pPerson = document.m_selection.GetCurrentPerson();
    if (pPerson == nullptr)
        return;
    std::map<CSeries*, std::vector<int>> indices; // of the files in which the points are
    for (const CTrackPoint* pPoint : points) {
        const SPointPlace place = FindPoint(*pPerson, *pPoint);
        if (place.pSeries != nullptr)
            indices[place.pSeries].push_back(place.nIndex);
    }
    if (indices.empty())
        return;
    CEditRecorder recorder(document, "Delete Trackpoints");
    for (CSeries* pSeries : pPerson->m_series) {
        const auto found = indices.find(pSeries);
        if (found == indices.end())
            continue;
        std::ranges::sort(found->second);
        found->second.erase(std::unique(found->second.begin(), found->second.end()), found->second.end());
        Remove(recorder, *pPerson, *pSeries, std::move(found->second));
    }
    recorder.MarkDocument();
    recorder.Finish();
    document.m_selection.Recalculate(true, false);
    recorder.Keep();
}

void DeletePoint(CKestroDoc& document, int nIndex)
{
    CViewSelection& selection = document.m_selection;
    CSeries* pSeries = selection.GetCurrentSeries();
    if (pSeries == nullptr || nIndex < 0 || nIndex >= pSeries->m_points.GetCount())
        return;
    CEditRecorder recorder(document, "Delete Trackpoints");
    Remove(recorder, *selection.GetCurrentPerson(), *pSeries, {nIndex});
    recorder.MarkDocument();
    recorder.Finish();
    if (nIndex < selection.m_dFocusPoint)
        selection.m_dFocusPoint -= 1.0;
    selection.Recalculate(false, false);
    recorder.Keep();
}

} // namespace kestrabel
