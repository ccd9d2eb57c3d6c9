#pragma once

#include "model/TrackPoint.h"

#include <span>

namespace kestrabel {

class CKestroDoc;

// Commands that only show something.

/// The statistics of points chosen in the grid.
void ShowSelectedProperties(CKestroDoc& document, std::span<CTrackPoint* const> points);

/// The two-point calculator. It begins with the ends of the picked run, else with positions of its own and
/// the current time.
void CalculateSpeed(CKestroDoc& document);

} // namespace kestrabel
