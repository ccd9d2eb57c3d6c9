#pragma once

#include "cli/Arguments.h"
#include "cli/Output.h"
#include "model/Event.h"

namespace kestrabel {

/// `points`: every fix of a track file, as CSV in display units or as JSON in the model's.
void PrintPoints(const CEvent& event, const CSeries& series, EFormat format, bool bAllFields,
                 COutput& output);

} // namespace kestrabel
