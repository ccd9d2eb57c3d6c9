#pragma once

#include "cli/Arguments.h"
#include "cli/ExitStatus.h"
#include "cli/Messages.h"
#include "cli/Output.h"
#include "model/Event.h"

#include <string>

namespace kestrabel {

/// Takes the project's settings, divisions and waypoints into the event; false, with a message and nothing
/// changed, when the file is none.
bool OpenProject(const std::string& strPath, CEvent& event, std::string& strProjectPath, CMessages& messages);

/// `project show`: settings, divisions and waypoints of a project file.
EExitStatus ShowProject(const SArguments& arguments, CMessages& messages, COutput& output);

/// `project new`: writes the project with the six usual divisions. A file that exists is replaced only when
/// the arguments say so.
EExitStatus MakeProject(const SArguments& arguments, CMessages& messages);

} // namespace kestrabel
