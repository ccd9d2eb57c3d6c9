#pragma once

#include "cli/Output.h"
#include "model/Event.h"

#include <string_view>

namespace kestrabel {

/// The project as one document: settings by the names that scripts set them by, divisions, waypoints and the
/// path that is stored in the file. Internal units.
void WriteProjectJson(const CEvent& event, std::string_view strProjectPath, COutput& output);

} // namespace kestrabel
