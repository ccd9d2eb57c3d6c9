#pragma once

#include <string_view>

namespace kestrabel {

/// Numbers of the texts that readers and writers report.
enum class EText : int
{
    None = 0,
    OpenFailure, ///< "%S: %S": file name, cause text
    UnknownLine, ///< the question about a line that cannot be read
    NotRecognised,
    CannotSaveNmea,
    ReadFailure,
    WriteFailure,
    XmlLoadFailure,
    XmlWalkFailure,
    NoSirfMessage,
    NoBinaryLogRecord,
    BadPcx5Line,
    BadTrackLine,
    TrackMarksFailure,
};

/// The text of that number; empty for a number that has none.
std::string_view StringTableText(EText text);

} // namespace kestrabel
