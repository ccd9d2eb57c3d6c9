#pragma once

#include "formats/ImportMonitor.h"
#include "formats/ReadEnd.h"
#include "model/Series.h"

#include <string_view>

namespace kestrabel {

/// Reads a stream of SiRF binary messages (".sbn") and appends a point per fix to `points`, in file order.
///
///     message 41    a point; of messages with the same time stamp that follow each other the last one counts
///     message 253   the device fields of `series`
///
/// All others contribute nothing, nor does a message 41 shorter than 91 bytes. A file without any message
/// gives the report "Failed to read header from file" and a failure. A frame longer than 512 bytes or shorter
/// than 2 ends reading, which is noted as an issue. Throws nothing but bad_alloc.
EReadEnd ReadSirf(CImportMonitor& monitor, std::string_view strPath, CSeries& series,
                  CObjectArray<CTrackPoint>& points);

} // namespace kestrabel
