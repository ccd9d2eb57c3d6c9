#include "model/WayPoint.h"

namespace kestrabel {

constinit const CClassRecord CWayPoint::Class = {
    "CWayPoint", 2, []() -> std::unique_ptr<CPersistent> { return std::make_unique<CWayPoint>(); }};

} // namespace kestrabel
