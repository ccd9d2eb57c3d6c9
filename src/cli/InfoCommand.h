#pragma once

#include "cli/Arguments.h"
#include "cli/Output.h"
#include "model/Event.h"

namespace kestrabel {

/// `info`: the statistics of all track files of the event.
void PrintInfo(const CEvent& event, EFormat format, COutput& output);

} // namespace kestrabel
