#pragma once

#include "geo/Ellipsoid.h"
#include "model/Division.h"
#include "model/ObjectArray.h"
#include "model/Person.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kestrabel {

/// The event: the root that owns competitors, divisions and waypoints, and every calculation and display
/// setting. A new one has the defaults below and the current date and time as both dates.
class CEvent : public CPersistent
{
public:
    static const CClassRecord Class;
    const CClassRecord& ClassRecord() const override { return Class; }

    CEvent() : CEvent(DATE::Now()) {}
    explicit CEvent(const DATE& now) : m_dateStart(now), m_dateEnd(now) {}

    /// The first division of that name without regard to case; null when there is none.
    CDivision* FindDivision(std::string_view strName) const;

    /// True when a fix lies in the region and between the dates that the event is constrained to (bounds
    /// included, where those switches are on) and does not start a gap. `pPrevious` is the fix before it,
    /// null for the first of its file.
    bool IsWithinConstraints(const CTrackPoint* pPrevious, const CTrackPoint& point) const;

    std::string m_strDescription;
    std::string m_strLocation;
    std::string m_strDataFolder; ///< ends in a separator; empty = not yet chosen
    DATE m_dateStart;
    DATE m_dateEnd;
    CPosition m_posNorthWest = MakePosition(-38.83, 146.155);
    CPosition m_posSouthEast = MakePosition(-38.86, 146.175);
    std::int32_t m_nShowTopRows = 10;
    std::int32_t m_nSpeedUnits = 0; ///< display unit, see SpeedUnits.h
    std::int32_t m_bConstrainDates = 0;
    std::int32_t m_nReserved = 0; ///< stored and loaded unchanged
    std::int32_t m_bConstrainRegion = 0;
    double m_dAccThreshold = 9.26;       ///< km/h per second
    double m_dDeccThreshold = 18.52;     ///< km/h per second
    double m_dSpeedThreshold = 92.6;     ///< km/h
    std::int32_t m_nTimeThreshold = 200; ///< seconds
    double m_dMaxHDOP = 1000.0;
    std::int32_t m_nMinSats = 0;
    std::int32_t m_bCaptureFocus = 0;
    CEllipsoid m_ellipsoid;
    double m_dZoom = 1.3;
    std::int32_t m_nSmoothing = 1;               ///< points in the moving mean
    double m_dStopRunAngle = 1.5707963267948966; ///< radians
    double m_dStopRunSpeed = 18.52;              ///< km/h
    double m_dTimezone = 0.0;                    ///< hours added to every displayed time
    std::int32_t m_nSpeedPrecision = 3;          ///< decimals
    std::int32_t m_nTimePrecision = 0;           ///< decimals of seconds
    std::int32_t m_nDistancePrecision = 2;       ///< decimals of distances and altitudes
    std::int32_t m_nLatLongPrecision = 7;        ///< decimals of degrees
    double m_dDopplerError = 0.0;                ///< km/h
    double m_dTrackpointError = 0.0;             ///< km
    CObjectArray<CPerson> m_persons;
    CObjectArray<CDivision> m_divisions; ///< in display order
    CObjectArray<CWayPoint> m_waypoints;
};

} // namespace kestrabel
