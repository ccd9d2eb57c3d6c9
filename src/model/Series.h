#pragma once

#include "geo/Ellipsoid.h"
#include "geo/GeoRect.h"
#include "model/ObjectArray.h"
#include "model/SeriesDivision.h"
#include "model/TrackPoint.h"
#include "model/WayPoint.h"

#include <cstdint>
#include <string>

namespace kestrabel {

/// What a track file was read from; the values of `CSeries::m_cReserved`.
namespace SourceKind {
inline constexpr std::uint8_t SirfStream = 1;
inline constexpr std::uint8_t Nmea = 2;
inline constexpr std::uint8_t BinaryLog = 3;
} // namespace SourceKind

/// One track file: a recording downloaded from a competitor's logger, with what is known about the logger and
/// the file, its points in file order, the statistics that the derivation refreshes, and the cached results
/// of every division it was calculated for. Destroying it destroys the checkpoints, then the records with
/// their results, then the points, each from the last to the first.
class CSeries : public CPersistent
{
public:
    static const CClassRecord Class;
    const CClassRecord& ClassRecord() const override { return Class; }

    /// Removes every point that is invalid for InvalidMask::Fix. Returns the number removed.
    int DeleteInvalidPoints();

    /// Empties the results of every per-division record; the records stay.
    void ClearResults();

    DATE m_date;                  ///< time of the first point at the last read
    std::string m_strName;        ///< unique per competitor
    std::string m_strIdentifier;  ///< of the logger
    std::string m_strSerialNo;    ///< of the logger
    std::string m_strFirmware;    ///< of the logger
    std::string m_strInfo;        ///< the program that wrote the file
    std::int32_t m_nLogRate = 0;  ///< shown empty when below 1
    std::string m_strFileName;    ///< full path
    std::int32_t m_bManaged = 0;  ///< the file lies in the data folder and is managed by the system
    std::int32_t m_bModified = 0; ///< points changed since the file was last read or written
    std::int32_t m_bHasDoppler = 0;
    std::uint8_t m_cReserved = 0;  ///< source kind of the last read (SourceKind), 0 = none told
    double m_dWindDirection = 0.0; ///< degrees
    double m_dTrackError = 0.0;    ///< metres; a calculation parameter
    double m_dDopplerError = 0.0;  ///< km/h; a calculation parameter

    // Statistics, as the derivation sets them.
    double m_dTotalDistance = 0.0;        ///< km
    double m_dTotalDopplerDistance = 0.0; ///< km
    double m_dTravelTime = 0.0;           ///< seconds
    double m_dMaxSpeed = 0.0;             ///< km/h
    double m_dMaxDoppler = 0.0;           ///< km/h
    double m_dMinAltitude = 0.0;          ///< metres; the largest double when no point told
    double m_dMaxAltitude = 0.0;          ///< metres; the lowest double when no point told
    double m_dMaxResultHDOP = 0.0;        ///< highest HDOP below 10.0
    double m_dMinResultSats = 0.0;        ///< the highest count, whatever its label says
    CGeoRect m_rcBounds;                  ///< degrees
    DATE m_timeStart;
    DATE m_timeEnd;
    CEllipsoid m_ellipsoid; ///< what the distances are measured on

    // Declared in reverse of the order in which they are destroyed.
    CObjectArray<CTrackPoint> m_points;
    CObjectArray<CSeriesDivision> m_divisions;
    CObjectArray<CWayPoint> m_waypoints; ///< checkpoints recorded with the track; not stored

    std::int32_t m_nSeriesIndex = -1; ///< within its competitor; -1 until the derivation looks it up
    std::int32_t m_nPersonIndex = -1; ///< of its competitor within the event; -1 until looked up

    /// No fix is earlier than the one before it. Set by the derivation, not stored; false until then.
    bool m_bInTimeOrder = false;
};

} // namespace kestrabel
