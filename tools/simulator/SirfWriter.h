#pragma once

#include "formats/ImportMonitor.h"
#include "model/Series.h"

#include <string>
#include <string_view>

namespace kestrabel {

// A stream of SiRF binary messages, as a logger stores what its receiver sends; the frames and the layout of
// message 41 are told in formats/SirfMessage. Checksums are right (the sum of the payload's bytes, 15 bits).

/// A payload of at most 1023 bytes in its frame.
std::string SirfFrame(std::string_view payload);

/// The payload of message 41 for a point whose time has calendar fields: 95 bytes, with the Doppler speed and
/// the course as the second speed and course; 91 bytes without them for a point without a position.
std::string SirfNavigation(const CTrackPoint& point);

/// Writes one message 253 with the device fields and a message 41 per point. False when the file cannot be
/// created or written; the old one then stands and the monitor has the message.
bool WriteSirf(CImportMonitor& monitor, std::string_view strPath, const CSeries& series);

} // namespace kestrabel
