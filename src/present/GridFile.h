#pragma once

#include "platform/UserPrompt.h"
#include "present/TrackPointGrid.h"

namespace kestrabel {

/// Writes the track-point grid, with these columns, as a file of CR LF lines. When that fails the user is
/// told "Failed to write grid to file", and what was written stays.
void WriteGridToFile(CUserPrompt& prompt, const CEvent& event, std::string_view strPath,
                     const CObjectArray<CTrackPoint>& points, std::span<const EPointColumn> columns);

} // namespace kestrabel
