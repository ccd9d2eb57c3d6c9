#pragma once

#include "geo/Position.h"

namespace kestrabel {

class CKestroDoc;

// Named positions at a point of the current track file, asked for in a dialog that starts there. Each is one
// step of the document's history and modifies the document. `nPoint` is an index in the file, or with all
// files shown in their merged list; -1 means none.

/// Adds a waypoint to the event.
void AddWaypointAtPoint(CKestroDoc& document, int nPoint);
/// The same at a position where there is no point; a track file must be shown all the same.
void AddWaypointAtPosition(CKestroDoc& document, const CPosition& position);

/// Adds a checkpoint to the track file, and with the first one the division that judges checkpoints, whose
/// results are then shown.
void AddCheckPointAtPoint(CKestroDoc& document, int nPoint);
void AddCheckPointAtPosition(CKestroDoc& document, const CPosition& position);

} // namespace kestrabel
