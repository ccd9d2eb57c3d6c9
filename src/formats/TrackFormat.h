#pragma once

#include "formats/ImportMonitor.h"
#include "formats/ReadEnd.h"
#include "formats/StringTable.h"
#include "model/Series.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace kestrabel {

/// One track format: how its files are called, how they are read and how they are written. A track file is
/// recognised by its name alone.
struct STrackFormat
{
    /// Appends the file's points to the series.
    using Reader = EReadEnd (*)(CImportMonitor& monitor, std::string_view strPath, CSeries& series);
    /// Writes the points; the series tells about the logger.
    using Writer = bool (*)(CImportMonitor& monitor, std::string_view strPath, const CSeries& series,
                            const CObjectArray<CTrackPoint>& points);

    std::string_view strName;
    std::array<std::string_view, 3> extensions; ///< lower case, dot included; unused ones are empty
    std::uint8_t nSourceKind;                   ///< SourceKind, 0 = reading leaves the file's as it was
    Reader pRead;                               ///< null when the format cannot be read
    Writer pWrite;                              ///< null when it cannot be written
    EText saveRefusal;                          ///< shown instead of writing; EText::None: nothing is shown
};

/// All formats, in the order in which a name is tried.
std::span<const STrackFormat> TrackFormats();

/// The format of a file to be imported: "gpx" as the last three characters (no dot needed), or an extension
/// within as many last characters as make one (".nmea" five, the others four), without regard to case.
/// Null when there is none.
const STrackFormat* FormatForImport(std::string_view strFileName);

/// The format of a file to be read again: "gpx" as the last three characters, or an extension anywhere in the
/// path, without regard to case. Null when there is none.
const STrackFormat* FormatForReload(std::string_view strPath);

enum class EGpxTest
{
    LastThreeCharacters,
    ExtensionAnywhere
};

/// The format to save in: the GPX test as told, or an extension anywhere in the name, case included.
/// ".nmea" and ".sbn" have none. Null when there is none.
const STrackFormat* FormatForSave(std::string_view strFileName, EGpxTest gpxTest);

inline constexpr std::string_view UnknownExtensionRefusal =
    "Unknown file extension. Please use a standard gpx or trk extension to determine the format to save";

/// Why no track file can be saved under a name with that extension, to tell the user before anything is
/// tried; empty when one can. The case does not matter; folders of the path decide nothing.
std::string_view SaveRefusal(std::string_view strPath);

} // namespace kestrabel
