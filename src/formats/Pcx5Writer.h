#pragma once

#include "formats/ImportMonitor.h"
#include "model/ObjectArray.h"
#include "model/TrackPoint.h"

#include <string_view>

namespace kestrabel {

/// Writes all points, in array order, as a PCX5 2.08 file: WGS 84, decimal degrees to 7 decimals, times to
/// the nearest second, whole metres. Years have two digits. A time that is not valid is written "00-Jan-00
/// 00:00:00", which names no day, so that the position is kept.
///
/// The old file stands until the new one is whole on the disk. A file that cannot be created: the cause text
/// is reported and shown; a failed write: the report "Failed to write file". Both then return false. Throws
/// nothing but bad_alloc.
bool WritePcx5(CImportMonitor& monitor, std::string_view strPath, const CObjectArray<CTrackPoint>& points);

} // namespace kestrabel
