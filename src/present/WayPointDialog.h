#pragma once

#include "model/WayPoint.h"
#include "present/DialogField.h"

namespace kestrabel {

/// "Way Point Dialog", or "Check Point Dialog" for a checkpoint of a track file.
struct SWayPointDialog
{
    static constexpr std::string_view NameLabel = "Name:";

    static SWayPointDialog From(const CWayPoint& wayPoint, bool bCheckPoint);
    void ApplyTo(CWayPoint& wayPoint) const;
    std::optional<SFieldProblem> Validate() const
    {
        return FirstProblem({&latitude, &longitude, &proximity});
    }
    /// Of the group box; the title adds " Dialog".
    std::string_view GroupTitle() const { return bCheckPoint ? "Check Point" : "Way Point"; }

    bool bCheckPoint = false;
    std::string strName;
    SNumberField latitude{"Latitude:", -90.0, 90.0};
    SNumberField longitude{"Longitude:", -180.0, 360.0};
    SNumberField proximity{"Proximity:", 0.0, 1000.0}; ///< metres
};

} // namespace kestrabel
