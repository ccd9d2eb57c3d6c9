#pragma once

#include "model/ArchiveReader.h"
#include "model/ArchiveWriter.h"
#include "model/Event.h"

#include <cstdint>

namespace kestrabel {

// How the classes of the model stand in a project file. Each is written in its current form and read in any
// form it ever had: `nSchema` is the number that the file gives for the class. What an older form lacks keeps
// the value that the object has, unless the layout above the reader says otherwise.
//
// Competitors, track files, records, results and points are only read: today's files hold none.

void WriteBody(CArchiveWriter& writer, const CWayPoint& wayPoint);
void ReadBody(CArchiveReader& reader, CWayPoint& wayPoint, int nSchema);

/// Only lap racing has waypoints; of the other kinds none are written and none survive reading.
void WriteBody(CArchiveWriter& writer, const CDivision& division);
void ReadBody(CArchiveReader& reader, CDivision& division, int nSchema);

void ReadBody(CArchiveReader& reader, CTrackPoint& point, int nSchema);
void ReadBody(CArchiveReader& reader, CResult& result, int nSchema);
void ReadBody(CArchiveReader& reader, CSeriesDivision& record, int nSchema);
void ReadBody(CArchiveReader& reader, CSeries& series, int nSchema);
void ReadBody(CArchiveReader& reader, CPerson& person, int nSchema);

/// The format version that is written, and the lowest one of files that do not tell theirs.
inline constexpr std::uint32_t EventFormatVersion = 10;
inline constexpr std::uint32_t OldestEventFormatVersion = 3;
/// The version from which on a file holds the event's waypoints.
inline constexpr std::uint32_t WayPointsFormatVersion = 10;

/// Settings, divisions and waypoints. Competitors are not written.
void WriteEvent(CArchiveWriter& writer, const CEvent& event);

/// Settings, divisions and, from WayPointsFormatVersion on, waypoints. Settings and waypoints that the file
/// lacks stay as they are; competitors in the file are read over. The event's own are not looked at. Returns
/// the file's format version.
std::uint32_t ReadEvent(CArchiveReader& reader, CEvent& event);

} // namespace kestrabel
