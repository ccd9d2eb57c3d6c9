#pragma once

#include "model/Event.h"
#include "platform/LargeVector.h"
#include "present/graph/GraphFields.h"
#include "present/ViewSelection.h"

#include <cstdint>
#include <vector>

namespace kestrabel {

/// The values of one series, one for each point of its track, in what its scale shows: speeds in the display
/// unit, the others as they are.
struct SGraphCurve
{
    const SGraphSeries* pSeries = nullptr;
    CLargeVector<float> values;
};

/// What the graph needs to know of the points of one track file, packed: every frame of a pan looks at all of
/// them. One more may stand for the points of all files in a row.
struct SGraphTrack
{
    /// Point i of the track is shown at x = entries[i]; empty: at i.
    CLargeVector<std::int32_t> entries;
    CLargeVector<std::uint8_t> invalid; ///< InvalidFlag bits; and StartsGapMark
    std::vector<SGraphCurve> curves;    ///< of the shown series, in the order of their table

    /// No line leads to this point. A bit that no flag of a point has.
    static constexpr std::uint8_t StartsGapMark = 0x80;

    std::int32_t EntryOf(std::int32_t i) const
    {
        return entries.empty() ? i : entries[static_cast<std::size_t>(i)];
    }
    std::int32_t Count() const { return static_cast<std::int32_t>(invalid.size()); }
};

/// The shown list of points, track by track in the order in which they are drawn. A copy: it stays as it was
/// when the points change, and must be made anew then.
std::vector<SGraphTrack> MakeGraphTracks(const CEvent& event, CViewSelection& selection,
                                         const CGridFields& fields);

/// The mean of the valid speeds (km/h) around each point of a list: of `nCount` points, of which the one
/// itself is the middle one, or the first behind the middle. Below 2 the speeds themselves; 0 where none is
/// valid.
CLargeVector<double> SmoothedSpeeds(const CObjectArray<CTrackPoint>& points, std::int32_t nCount);

} // namespace kestrabel
