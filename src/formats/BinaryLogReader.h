#pragma once

#include "formats/ImportMonitor.h"
#include "formats/ReadEnd.h"
#include "model/Series.h"

#include <string_view>

namespace kestrabel {

/// Reads a binary log (".sbp", ".bin"; the layout is in BinaryLogRecord.h) and inserts its points in order of
/// time; records of equal time stay in file order, those of an invalid time come first. The header's text
/// sets the device fields of `series`. A file whose header holds no frame at byte 2 is taken as records from
/// its first byte on. Records without a fix are passed over; a last record that is cut off ends the file.
///
/// A file without a single whole record gives the report "Failed to read point from file" and a failure. The
/// points read before a stop stay in the array. Throws nothing but bad_alloc.
EReadEnd ReadBinaryLog(CImportMonitor& monitor, std::string_view strPath, CSeries& series,
                       CObjectArray<CTrackPoint>& points);

} // namespace kestrabel
