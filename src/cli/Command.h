#pragma once

#include <string>
#include <vector>

namespace kestrabel {

/// Runs the command that the arguments (without the program's name) ask for, on the process' standard output
/// and standard error. Returns the exit status.
int RunTool(const std::vector<std::string>& arguments);

} // namespace kestrabel
