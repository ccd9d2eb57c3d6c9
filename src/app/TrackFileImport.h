#pragma once

#include "formats/TrackFileDispatcher.h"
#include "model/Event.h"
#include "platform/Progress.h"

#include <string_view>

namespace kestrabel {

/// Reads a track file, named after its file, appends it to the competitor's and derives its points. A file
/// that yields no point leaves the competitor as it was and gives null; `end` and the monitor tell why. The
/// series takes the event's ellipsoid.
CSeries* AddTrackFile(const CEvent& event, CPerson& person, std::string_view strPath, CImportMonitor& monitor,
                      EImportEnd& end, CProgressDisplay& progress);

/// Derives all files of a competitor: each knows its place among them.
void DeriveAll(const CEvent& event, CPerson& person, CProgressDisplay& progress);

} // namespace kestrabel
