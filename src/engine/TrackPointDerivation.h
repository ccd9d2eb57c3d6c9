#pragma once

#include "model/Event.h"
#include "platform/Progress.h"

namespace kestrabel {

/// Turns the fixes of a track file into points that can be judged: time step, distance, speed, direction,
/// wind angle and running totals from the previous fix; validity flags; two run numbers, by position-derived
/// and by Doppler speed; and the statistics of the file, the boxes of its checkpoints and its place in the
/// event.
///
/// Everything derived is rebuilt but the user's own mark (InvalidFlag::User). A point after a gap (a step of
/// "Time Threshold" or more) keeps the step, distance, speed, direction and wind angle that it held before
/// the call. The last point of a file gets no spike test, no HDOP or satellite test and no run number.
///
/// `person` owns `series`. Distances are measured on the series' own ellipsoid. Returns false for fewer than
/// 2 points; then statistics, boxes and indexes are set and no point is touched. Two linear passes, nothing
/// allocated per point. Shows "Calculating track points".
bool CalculateTrackPoints(const CEvent& event, const CPerson& person, CSeries& series,
                          CProgressDisplay& progress);

/// Empties the records of a track file and derives its points again: what must follow every change of a
/// point.
void RecalculateTrackPoints(const CEvent& event, CPerson& person, CSeries& series,
                            CProgressDisplay& progress);

} // namespace kestrabel
