#pragma once

#include "model/Event.h"
#include "platform/Progress.h"

namespace kestrabel {

/// The laps of one track file around the gates of a lap-racing division (kind 4): from one pass of a gate to
/// the next, every one of them.
///
/// A step of the track passes a gate when it reaches within the gate's proximity of its centre; the gates are
/// tried in their order and the first passed counts. A lap ends when its path is longer than twice the
/// proximity of the gate passed, and the next one starts at the same point. A gap in the recording loses the
/// lap in progress. The flags of the points do not matter.
///
/// The laps are appended to `results`, by the gate they start at and within that by speed, ascending; with
/// the indexes of both gates and the first ten characters of their names ("Start-Finish"), and without a
/// rank. Returns false when there are no points or no gates. The points must be derived. Linear in points
/// times gates. Shows "Calculating " and the division's name.
bool CalculateLapResults(const CEvent& event, const CPerson& person, const CSeries& series,
                         const CDivision& division, CObjectArray<CResult>& results,
                         CProgressDisplay& progress);

/// The same around the checkpoints recorded with the track file (division kind 6). Without any there are no
/// results, which is no failure.
bool CalculateCheckpointResults(const CEvent& event, const CPerson& person, const CSeries& series,
                                const CDivision& division, CObjectArray<CResult>& results,
                                CProgressDisplay& progress);

} // namespace kestrabel
