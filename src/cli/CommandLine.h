#pragma once

#include "cli/Arguments.h"

#include <string>
#include <vector>

namespace kestrabel {

/// Understands the arguments behind the program's name. Settings and division names are taken as written:
/// only an event can tell which there are. Throws CCommandLineError.
SArguments ParseCommandLine(const std::vector<std::string>& arguments);

} // namespace kestrabel
