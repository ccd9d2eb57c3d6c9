#pragma once

#include "model/Event.h"

#include <string_view>

namespace kestrabel {

/// The first division that judges checkpoints. When there is none a new one named "CheckPoints" is appended
/// (with a number behind that when another division has the name) and every competitor is entered in it.
CDivision& EnsureCheckPointsDivision(CEvent& event);

/// Adds a checkpoint to a track file of the event, and the division that judges it. The file's results are
/// then those of before: records must be calculated again. `dProximity` in km.
CWayPoint& AddCheckPoint(CEvent& event, CSeries& series, std::string_view strName, const CPosition& position,
                         double dProximity);

} // namespace kestrabel
