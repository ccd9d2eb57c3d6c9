#pragma once

#include "formats/ImportMonitor.h"
#include "model/ObjectArray.h"
#include "model/TrackPoint.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kestrabel {

enum class ESentenceOrder
{
    RmcFirst,
    GgaFirst
};

struct SNmeaOptions
{
    ESentenceOrder order = ESentenceOrder::RmcFirst;
    std::int32_t nMinuteDecimals = 7; ///< of latitude and longitude, 4 to 8; 7 tell a fifth of a millimetre
};

// The sentences of one fix, as a receiver with a fast fix writes them; no line end. A point without a
// position gives empty fields and the status of no fix.
//
//   $GPRMC,hhmmss.sss,A,ddmm.mmmmmmm,N,dddmm.mmmmmmm,E,knots,course,ddmmyy,,,A*hh
//   $GPGGA,hhmmss.sss,ddmm.mmmmmmm,N,dddmm.mmmmmmm,E,1,satellites,hdop,altitude,M,0.0,M,,*hh
//
// The time of the point has calendar fields.
std::string RmcSentence(const CTrackPoint& point, std::int32_t nMinuteDecimals);
std::string GgaSentence(const CTrackPoint& point, std::int32_t nMinuteDecimals);

/// Writes both sentences per point, each ended by CR LF. False when the file cannot be created or written;
/// the old one then stands and the monitor has the message.
bool WriteNmea(CImportMonitor& monitor, std::string_view strPath, const CObjectArray<CTrackPoint>& points,
               const SNmeaOptions& options);

} // namespace kestrabel
