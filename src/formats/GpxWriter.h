#pragma once

#include "formats/ImportMonitor.h"
#include "model/Event.h"
#include "model/ObjectArray.h"
#include "model/TrackPoint.h"

#include <string_view>

namespace kestrabel {

// Both writers produce GPX 1.0, one line per item, each ended by CR LF. The old file stands until the new one
// is whole on the disk. A file that cannot be created: the cause text is reported and shown; a failed write:
// the report "Failed to write file". Both then return false. Names are written as UTF-8, with the characters
// that XML reserves escaped.

/// Writes the points as one track named after the file: the form of a saved track file. Times are to the
/// second. Doppler speed (0.01 m/s), HDOP (0.1) and satellites are written for every point when any of the
/// first 1000 has a Doppler speed, else for none.
bool WriteGpx(CImportMonitor& monitor, std::string_view strPath, const CObjectArray<CTrackPoint>& points);

/// Writes one track per track file of one competitor (`nPerson`) or all (-1), and of these one file
/// (`nSeries`) or all (-1). Times are to the millisecond; Doppler, HDOP and satellites are written for a
/// track file in which any point has a Doppler speed.
bool WriteEventGpx(CImportMonitor& monitor, const CEvent& event, int nPerson, int nSeries,
                   std::string_view strPath);

} // namespace kestrabel
