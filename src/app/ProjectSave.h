#pragma once

#include "model/Event.h"

#include <string>
#include <string_view>

namespace kestrabel {

/// Saves the project under a full path, which becomes the project's path. An event that has no data folder
/// yet gets "data" beside the file. Throws CFileException; then the old file stands, and event and path are
/// as before.
void SaveProjectUnder(std::string_view strPath, CEvent& event, std::string& strProjectPath);

} // namespace kestrabel
