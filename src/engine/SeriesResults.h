#pragma once

#include "engine/ResultList.h"
#include "model/Event.h"
#include "platform/Progress.h"

namespace kestrabel {

/// Appends the results of one track file in one division to `results`, in result order.
///
/// The first request calculates and keeps what was found in the track file's `CSeriesDivision` of the
/// division's name; later requests only read it, so the records of a track file must be emptied when its
/// points or a setting change. A division that averages N runs keeps one combined result: speed and distance
/// are the sum over the N fastest divided by N even when there were fewer; seconds and the change of altitude
/// stay sums. The results belong to the record.
///
/// The points must be derived. False only for the track file index -1.
bool CalculateSeriesResults(const CEvent& event, const CPerson& person, int nSeries,
                            const CDivision& division, CResultList& results, CProgressDisplay& progress);

} // namespace kestrabel
