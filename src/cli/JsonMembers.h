#pragma once

#include "cli/JsonWriter.h"
#include "model/Result.h"
#include "model/Series.h"
#include "model/TrackPoint.h"

namespace kestrabel {

// The members of the model's objects under the keys of the tool's documents. Each writes into an object that
// the caller has begun. Units are the model's own and stand in the keys; times are not shifted to a timezone.

void WritePointMembers(CJsonWriter& json, const CTrackPoint& point);
void WriteTrackFileMembers(CJsonWriter& json, const CSeries& series);
void WriteResultMembers(CJsonWriter& json, const CResult& result);

} // namespace kestrabel
