#pragma once

#include "geo/GeoRect.h"
#include "geo/Position.h"
#include "model/Persistent.h"

#include <string>

namespace kestrabel {

/// A named position: a waypoint of the event, a checkpoint of a track file or a gate of a lap-racing
/// division, as where it is kept says.
class CWayPoint : public CPersistent
{
public:
    static const CClassRecord Class;
    const CClassRecord& ClassRecord() const override { return Class; }

    std::string m_strName;
    CPosition m_position;
    CGeoRect m_rcExtent;         ///< box that reaches the proximity in each direction; computed, not stored
    double m_dProximity = 0.005; ///< km
};

} // namespace kestrabel
