#pragma once

#include "model/Event.h"
#include "present/GridField.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace kestrabel {

/// The columns of the track-point grid, in table order; the values number them.
enum class EPointColumn : int
{
    Track,
    Latitude,
    Longitude,
    Date,
    Time,
    Seconds,
    Distance,
    Speed,
    Direction,
    WindAngle,
    Vmg,
    Altitude,
    VertSpeed,
    Hdop,
    Invalid,
    Sats,
    Doppler,
    TotalDistance,
    TotalDopplerDistance,
    Run,
    DopplerRun,
    PosError,
    DopplerError,
    Usog,
    Ucog,
};

std::span<const SGridColumn> TrackPointColumns();

/// The text of one cell, in display units. `pPrevious` is the point before it in the list, null for the
/// first. The first point, and one that starts a gap, show only the columns up to "Time".
std::string TrackPointCell(const CEvent& event, const CTrackPoint* pPrevious, const CTrackPoint& point,
                           EPointColumn column);

/// The grid as comma-separated lines: the titles of the columns, then one line per point; every field is
/// followed by a comma. Lines come without their terminator (CR LF in a file).
void WriteGrid(const CEvent& event, const CObjectArray<CTrackPoint>& points,
               std::span<const EPointColumn> columns,
               const std::function<void(std::string_view strLine)>& writeLine);

} // namespace kestrabel
