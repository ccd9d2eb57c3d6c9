#pragma once

#include "model/Event.h"

#include <memory>
#include <string_view>

namespace kestrabel {

/// The division that a first checkpoint calls for, named "CheckPoints", with a number behind that when
/// another division of the event has the name. The caller adds it.
std::unique_ptr<CDivision> NewCheckPointsDivision(const CEvent& event);

/// The first division that judges checkpoints. When there is none a new one is appended and every competitor
/// entered in it.
CDivision& EnsureCheckPointsDivision(CEvent& event);

/// Adds a checkpoint to a track file of the event, and the division that judges it. The file's results are
/// then those of before: records must be calculated again. `dProximity` in km.
CWayPoint& AddCheckPoint(CEvent& event, CSeries& series, std::string_view strName, const CPosition& position,
                         double dProximity);

} // namespace kestrabel
