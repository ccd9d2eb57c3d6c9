#pragma once

#include "formats/ImportMonitor.h"
#include "model/Series.h"

#include <string_view>

namespace kestrabel {

/// Writes the points, in array order and with the device fields of `series`, as a binary log (the layout is
/// in BinaryLogRecord.h). The old file stands until the new one is whole on the disk.
///
/// What such a file cannot hold is noted as an issue, once for each kind: a device text of more than 53
/// bytes, which is cut; points whose time becomes zero; points without satellites, which no reader takes for
/// a fix. Returns false, with the cause reported, when the file cannot be created or written. Throws nothing
/// but bad_alloc.
bool WriteBinaryLog(CImportMonitor& monitor, const CSeries& series, std::string_view strPath,
                    const CObjectArray<CTrackPoint>& points);

} // namespace kestrabel
