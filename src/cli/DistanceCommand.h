#pragma once

#include "cli/Arguments.h"
#include "cli/Output.h"

namespace kestrabel {

/// `distance`: the distance between two positions and the forward azimuth at the first. "-" or null for a
/// value that is not a number, as below a few centimetres.
void PrintDistance(const SDistanceArguments& arguments, EFormat format, COutput& output);

} // namespace kestrabel
