#pragma once

#include "model/Event.h"

namespace kestrabel {

/// Makes the event that of a new project: every setting at its default, no competitors or waypoints, "New
/// Event" at "New Location", and the six classic divisions: 2 s, 10 s (best of 5), 10 s, 100 m, 250 m and 500
/// m. `now` becomes both dates.
void FillNewProject(CEvent& event, const DATE& now);

/// Appends a competitor of that name, entered in every division, without track files.
CPerson& AddCompetitor(CEvent& event, std::string_view strName);

} // namespace kestrabel
