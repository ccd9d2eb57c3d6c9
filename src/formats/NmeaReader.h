#pragma once

#include "formats/ImportMonitor.h"
#include "formats/ReadEnd.h"
#include "model/ObjectArray.h"
#include "model/TrackPoint.h"

#include <string_view>

namespace kestrabel {

/// Reads a log of NMEA 0183 sentences of the GPS talker and appends its points in file order.
///
/// The sentences of one epoch are merged into one point by equal time stamps. A point is kept when it has a
/// position and a source of its date: so every RMC epoch with a latitude gives one, while GGA and GLL wait
/// for the date of the first RMC. Checksums and status fields are not looked at. The first RMC ends the use
/// of GLL, ZDA and VTG.
///
/// A sentence with too few fields asks the monitor whether to go on: OK skips it as if it were not there,
/// Cancel ends reading. The points read before a stop stay in the array. Throws nothing but bad_alloc.
EReadEnd ReadNmea(CImportMonitor& monitor, std::string_view strPath, CObjectArray<CTrackPoint>& points);

} // namespace kestrabel
