#pragma once

#include "cli/Output.h"
#include "model/Event.h"

#include <string_view>

namespace kestrabel {

/// The project for a terminal: settings under the names that "--set" takes and in the units that it takes,
/// then the divisions, then the waypoints.
void WriteProjectTable(const CEvent& event, std::string_view strProjectPath, COutput& output);

} // namespace kestrabel
