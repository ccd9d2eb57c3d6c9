#include "app/InquiryCommands.h"

#include "app/Document.h"
#include "present/SelectedPropertiesDialog.h"
#include "present/SpeedDialog.h"

#include <algorithm>
#include <utility>

namespace kestrabel {

namespace {

using CEnds = std::pair<const CTrackPoint*, const CTrackPoint*>;

/// The ends of the picked run, with which the calculator begins; null for nothing.
CEnds PickedEnds(CViewSelection& selection)
{
    if (selection.m_nRunSeries == -1)
        return {};
    const CObjectArray<CTrackPoint>& points = selection.GetSeriesPoints(selection.m_nRunSeries);
    const int nFirst = selection.m_nRunStart;
    const int nLast = selection.m_nRunEnd;
    if (nFirst < 0 || nFirst >= nLast || nLast >= points.GetCount())
        return {};
    return {points.At(nFirst), points.At(nLast)};
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
