#pragma once

#include "formats/ImportMonitor.h"
#include "formats/ReadEnd.h"
#include "model/ObjectArray.h"
#include "model/TrackPoint.h"

#include <string_view>

namespace kestrabel {

/// Reads the track points of a GPX file and appends one point per "trkpt", in document order.
///
/// Points are taken at one place only: a "trkpt" in a "trkseg" in any child of the root. Waypoints, route
/// points and whatever extensions hold are not read; track and segment boundaries are not recorded. Names are
/// compared exactly, without namespaces. A number that is none reads as 0.
///
///     attributes lat, lon    degrees             element dplr, speed    m/s
///     element time           see ParseGpxTime    element sats, sat      satellites
///     element ele            metres, truncated   element HDOP           (upper case only)
///
/// A document that is not well-formed, anywhere, gives no point at all, the report "failed to load XML
/// document" and a failure. A point without "lat" or "lon" ends reading with the report "Failed to read xml
/// file"; the points before it stay. The parser's own words are kept as an issue.
EReadEnd ReadGpx(CImportMonitor& monitor, std::string_view strPath, CObjectArray<CTrackPoint>& points);

} // namespace kestrabel
