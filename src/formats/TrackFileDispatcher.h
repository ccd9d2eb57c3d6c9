#pragma once

#include "formats/ImportMonitor.h"
#include "model/Series.h"

#include <string_view>

namespace kestrabel {

/// How the reading of a track file ended.
enum class EImportEnd
{
    Complete,     ///< read to its end
    Unrecognised, ///< no format of that name, or one that cannot be read
    Failed,       ///< could not be opened or is not what its name says; the monitor tells
    Stopped,      ///< the user stopped, or the file could not be read on; the points so far stay
};

// Both ways of reading begin with a clear abort flag, whatever the monitor was used for before.

/// Reads the file named by `series.m_strFileName` into the series by the format of its name. A series that
/// then holds fewer than 2 points is emptied, else its date becomes that of its first point; its modified
/// mark is cleared. After a stop the points so far stay as they are. A name of no format shows " The file
/// type is not recognised". Returns the number of points.
int ImportTrackFile(CImportMonitor& monitor, CSeries& series, EImportEnd& end);

/// Reads the file again: its path, lower-cased, becomes the series' file name, and the points are appended to
/// those the series holds, which the caller has removed. A path of no format reads and reports nothing.
/// Returns true when the file was read to its end.
bool LoadTrackFile(CImportMonitor& monitor, CSeries& series, std::string_view strPath);

/// Writes the series' points to its own file, in the format of its name, whose case does not matter. False
/// when nothing was written.
bool SaveTrackFile(CImportMonitor& monitor, const CSeries& series);

/// Writes points to a file of any name, compared case included; the series tells about the logger. A name
/// that reads as NMEA shows "Cannot save to NMEA format"; one of no format shows nothing. False when nothing
/// was written.
bool SavePoints(CImportMonitor& monitor, std::string_view strFileName, const CSeries& series,
                const CObjectArray<CTrackPoint>& points);

} // namespace kestrabel
