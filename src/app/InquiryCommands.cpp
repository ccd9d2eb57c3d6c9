#include "app/InquiryCommands.h"

#include "app/Document.h"
#include "present/SelectedPropertiesDialog.h"
#include "present/SpeedDialog.h"

#include <algorithm>
#include <utility>

namespace kestrabel {

namespace {

using CEnds = std::pair<const CTrackPoint*, const CTrackPoint*>;

CEnds EndsIn(CViewSelection& selection, int nSeries, int nFirst, int nLast)
{
    const CObjectArray<CTrackPoint>& points = selection.GetSeriesPoints(nSeries);
    if (nFirst < 0 || nFirst >= nLast || nLast >= points.GetCount())
        return {};
    return {points.At(nFirst), points.At(nLast)};
}

/// What the calculator begins with; null for nothing.
CEnds PickedEnds(CViewSelection& selection)
{
    if (selection.m_nRunSeries != -1) {
        const CEnds run =
            EndsIn(selection, selection.m_nRunSeries, selection.m_nRunStart, selection.m_nRunEnd);
        if (run.first != nullptr)
            return run;
    }
    const auto nFocus = static_cast<int>(selection.m_dFocusPoint);
    return EndsIn(selection, selection.m_nFocusSeries, nFocus - 1, nFocus);
}

} // namespace

void ShowSelectedProperties(CKestroDoc& document, std::span<CTrackPoint* const> points)
{
    const std::vector<const CTrackPoint*> chosen(points.begin(), points.end());
    SSelectedPropertiesDialog dialog = SSelectedPropertiesDialog::From(document.m_event, chosen);
    document.m_surroundings.desktop.Run(dialog);
}

void CalculateSpeed(CKestroDoc& document)
{
    SSpeedDialog dialog = SSpeedDialog::From(document.m_event, DATE::Now());
    const auto [pFirst, pLast] = PickedEnds(document.m_selection);
    if (pFirst != nullptr)
        dialog.SetRun(document.m_event, *pFirst, *pLast);
    document.m_surroundings.desktop.Run(dialog);
}

} // namespace kestrabel
