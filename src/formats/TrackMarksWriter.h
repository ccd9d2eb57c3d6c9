#pragma once

#include "formats/ImportMonitor.h"
#include "model/ObjectArray.h"
#include "model/TrackPoint.h"

#include <string_view>

namespace kestrabel {

/// Writes all points, in array order, as track marks, the form of a saved ".gtr", ".gd" or ".gdm": degrees to
/// 10 decimals, times to the nearest second (empty when not valid), and two zeros; lines end with CR LF.
///
///     +48.5000000000,+11.5000000000,2024-06-01T10:00:00,0,0
///
/// These are no track lines: the reader of those names finds no point in them. The old file stands until the
/// new one is whole on the disk. A file that cannot be created is reported with its cause, a failed write as
/// "Failed to write track marks"; both return false. Throws nothing but bad_alloc.
bool WriteTrackMarks(CImportMonitor& monitor, std::string_view strPath,
                     const CObjectArray<CTrackPoint>& points);

} // namespace kestrabel
