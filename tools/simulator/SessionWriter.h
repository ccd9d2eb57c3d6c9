#pragma once

#include "formats/ImportMonitor.h"
#include "model/Series.h"
#include "simulator/NmeaWriter.h"

#include <string_view>

namespace kestrabel {

/// True when a session can be written to a file of that name: NMEA (".txt", ".nmea"), a SiRF stream (".sbn"),
/// or any format that the system itself writes.
bool IsWritableName(std::string_view strPath);

/// Writes a simulated session in the format of the file's name. GPX has times to the millisecond and leaves
/// out the fixes without a position. False when nothing was written; the monitor has the message.
bool WriteSession(CImportMonitor& monitor, std::string_view strPath, const CSeries& series,
                  const SNmeaOptions& nmeaOptions);

} // namespace kestrabel
