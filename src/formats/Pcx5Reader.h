#pragma once

#include "formats/ImportMonitor.h"
#include "formats/ReadEnd.h"
#include "model/ObjectArray.h"
#include "model/TrackPoint.h"

#include <string_view>

namespace kestrabel {

// PCX5 (".trk"), the track log of a handheld's download program: one record per line, of a kind that the
// letter in the first column tells. Only track lines are read:
//
//     T  N3302.12345 W09612.12345 04-MAY-07 12:34:56 -9999       degrees and minutes run together
//     T +33.0353908 -96.2020575 04-May-07 12:34:56 10            decimal degrees
//
// Latitude, longitude, date, time (a fraction of at most two digits is allowed and dropped), altitude (m).

enum class EPcx5Line
{
    Point,   ///< the point was filled
    Skipped, ///< five items cannot be read; the user goes on without the line
    Bad      ///< the user does not, or the time has a longer fraction
};

/// Reads a track line, which begins with "T". A line without its five items asks the monitor whether to go
/// on; a date or time that is none gives an invalid time. `nLine` is the number of the line in its file.
EPcx5Line ParsePcx5Line(CImportMonitor& monitor, std::string_view strLine, std::int64_t nLine,
                        CTrackPoint& point);

/// Reads a PCX5 file and appends its points in file order. A bad line ends reading with the report "Invalid
/// PCX5 format found"; the points before it stay. Throws nothing but bad_alloc.
EReadEnd ReadPcx5(CImportMonitor& monitor, std::string_view strPath, CObjectArray<CTrackPoint>& points);

} // namespace kestrabel
