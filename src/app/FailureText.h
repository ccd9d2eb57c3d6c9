#pragma once

#include "formats/TrackFileDispatcher.h"

#include <string>
#include <string_view>

namespace kestrabel {

/// Why a track file could not be read or written, for a message: its path and the reason.
std::string FileFailureText(const CImportMonitor& monitor, std::string_view strPath);

/// The same for an import that gave no point; empty when the user knows already: an unknown format was shown,
/// or the user stopped.
std::string EmptyImportText(const CImportMonitor& monitor, std::string_view strPath, EImportEnd end);

} // namespace kestrabel
