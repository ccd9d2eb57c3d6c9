#pragma once

#include "cli/Arguments.h"
#include "cli/ImportReport.h"
#include "model/Event.h"
#include "platform/Progress.h"

#include <vector>

namespace kestrabel {

/// Makes the event that of a new project with the settings of the command line. Throws CCommandLineError for
/// a setting that there is not, or a value that it does not take.
void SetUpEvent(CEvent& event, const std::vector<SSettingArgument>& settings);

/// The divisions of those names, without regard to case, in the event's order; all for no name. Throws
/// CCommandLineError for a name that no division has.
std::vector<const CDivision*> ChooseDivisions(const CEvent& event, const std::vector<std::string>& names);

/// Adds the competitors in the order of the command line, the unnamed one last, and reads their track files.
/// The report tells about every file. A named competitor stays also without a file that gave points, the
/// unnamed one does not.
void AddCompetitors(CEvent& event, const SArguments& arguments, CImportReport& report,
                    CProgressDisplay& progress);

} // namespace kestrabel
