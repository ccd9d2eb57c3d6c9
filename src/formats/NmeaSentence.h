#pragma once

#include "geo/Position.h"
#include "model/Date.h"
#include "model/TrackPoint.h"

#include <optional>
#include <span>
#include <string_view>

namespace kestrabel {

// The sentences of NMEA 0183 that a GPS receiver writes, as fields: field 0 is the name ("GPGGA"), a field
// that the sentence does not have reads as empty.
//
//   GGA   1 time  2 latitude  3 N/S  4 longitude  5 E/W  6 quality  7 satellites  8 HDOP  9 altitude (m)
//   GLL   1 latitude  2 N/S  3 longitude  4 E/W  5 time
//   RMC   1 time  3 latitude  4 N/S  5 longitude  6 E/W  7 knots  8 course (degrees)  9 date
//   ZDA   1 time  2 day  3 month  4 year
//   VTG   5 knots  7 km/h
//   GSA   16 HDOP

using CNmeaFields = std::span<const std::string_view>;

/// What GGA, GLL, RMC and ZDA say: parsed once, applied to the point that it belongs to.
struct SNmeaFix
{
    enum class EKind
    {
        GGA,
        GLL,
        RMC,
        ZDA
    };

    EKind kind = EKind::GGA;
    DATE time;
    CPosition position;
    double dAltitude = 0.0;    ///< GGA: metres
    double dHdop = 0.0;        ///< GGA
    std::int32_t nSats = 0;    ///< GGA
    std::int32_t nQuality = 0; ///< GGA
    double dSpeed = 0.0;       ///< RMC: km/h
    double dCourse = 0.0;      ///< RMC: radians

    /// Writes the values into the point. All kinds but ZDA also clear what the derivation fills, the
    /// direction included, before RMC sets the direction.
    void ApplyTo(CTrackPoint& point) const;
};

/// Each takes the fields of its sentence; `strDate` is the date field of the last RMC ("ddmmyy").
SNmeaFix ParseGga(CNmeaFields fields, std::string_view strDate);
SNmeaFix ParseGll(CNmeaFields fields, std::string_view strDate);
SNmeaFix ParseRmc(CNmeaFields fields);
SNmeaFix ParseZda(CNmeaFields fields);

/// The speed of a VTG sentence in km/h: of its two speeds the one with more digits after the point.
double ParseVtgSpeed(CNmeaFields fields);

/// The HDOP of a GSA sentence.
double ParseGsaHdop(CNmeaFields fields);

/// Latitude "ddmm.mmmm" in degrees; south is negative. An empty text gives 0.
double ParseNmeaLatitude(std::string_view strText, std::string_view strHemisphere);
/// Longitude "dddmm.mmmm" in degrees; west is negative. An empty text gives 0.
double ParseNmeaLongitude(std::string_view strText, std::string_view strHemisphere);

/// The time of a date "ddmmyy" or "ddmmyyyy" and a time "hhmmss.sss". Two-digit years below 50 are of this
/// century. Fields that name no date give an invalid time.
DATE ParseNmeaTime(std::string_view strDate, std::string_view strTime);

} // namespace kestrabel
