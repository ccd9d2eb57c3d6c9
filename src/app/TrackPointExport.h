#pragma once

#include "model/ObjectArray.h"
#include "model/TrackPoint.h"
#include "present/TrackPointGrid.h"

#include <span>

namespace kestrabel {

class CKestroDoc;

// Points as a file of any writable track format or, for ".csv", as the table that the track-point grid shows.
// The writers tell what fails. An existing file is replaced without a question.

/// Every point of the selected track file.
void ExportTrackPoints(CKestroDoc& document, std::span<const EPointColumn> shownColumns);

/// The points chosen in the grid, in its order.
void ExportSelectedTrackPoints(CKestroDoc& document, const CObjectArray<CTrackPoint>& points,
                               std::span<const EPointColumn> shownColumns);

} // namespace kestrabel
