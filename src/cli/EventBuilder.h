#pragma once

#include "cli/Arguments.h"
#include "cli/ImportReport.h"
#include "cli/Messages.h"
#include "model/Event.h"
#include "platform/Progress.h"

#include <vector>

namespace kestrabel {

/// Makes the event that of the project, or of a new one, with the settings of the command line; checkpoints
/// bring a division that judges them. False, with a message, when the project cannot be read. Throws
/// CCommandLineError for a setting that there is not, or a value that it does not take.
bool SetUpEvent(CEvent& event, const SArguments& arguments, CMessages& messages);

/// The divisions of those names, without regard to case, in the event's order; all for no name. Throws
/// CCommandLineError for a name that no division has.
std::vector<const CDivision*> ChooseDivisions(const CEvent& event, const std::vector<std::string>& names);

/// Adds the competitors in the order of the command line, the unnamed one last, and reads their track files.
/// Each file gets the checkpoints. The report tells about every file. A named competitor stays also without a
/// file that gave points, the unnamed one does not.
void AddCompetitors(CEvent& event, const SArguments& arguments, CImportReport& report,
                    CProgressDisplay& progress);

} // namespace kestrabel
