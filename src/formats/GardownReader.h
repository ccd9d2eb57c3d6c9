#pragma once

#include "formats/ImportMonitor.h"
#include "formats/ReadEnd.h"
#include "model/ObjectArray.h"
#include "model/TrackPoint.h"

#include <string_view>

namespace kestrabel {

/// Reads a text track log (".gtr", ".gd", ".gdm") and appends a point per line that begins with "T", in file
/// order. The first readable one decides the layout of all (see TrackLine.h). A line that does not fit asks
/// the monitor whether to go on, and is skipped either way: Cancel only adds the report "Invalid format
/// found". Throws nothing but bad_alloc.
EReadEnd ReadGardown(CImportMonitor& monitor, std::string_view strPath, CObjectArray<CTrackPoint>& points);

} // namespace kestrabel
