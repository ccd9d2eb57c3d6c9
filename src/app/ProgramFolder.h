#pragma once

#include <string>

namespace kestrabel {

/// Where the program keeps its default project and data: the executable's folder when it can be written to
/// (portable use), else the user's folder, which is made where it is missing. Both end in a separator, the
/// result too.
std::string ProgramFolder(const std::string& strExecutableFolder, const std::string& strUserFolder);

} // namespace kestrabel
