#include "formats/TrackFormat.h"

#include "formats/BinaryLogReader.h"
#include "formats/BinaryLogWriter.h"
#include "formats/GardownReader.h"
#include "formats/GpxReader.h"
#include "formats/GpxWriter.h"
#include "formats/NmeaReader.h"
#include "formats/Pcx5Reader.h"
#include "formats/Pcx5Writer.h"
#include "formats/SirfReader.h"
#include "formats/TrackMarksWriter.h"
#include "platform/Path.h"

#include <algorithm>

namespace kestrabel {

namespace {

using CPoints = CObjectArray<CTrackPoint>;

/// A reader that fills points alone as one of a track file.
template <EReadEnd (*pRead)(CImportMonitor&, std::string_view, CPoints&)>
EReadEnd ReadPoints(CImportMonitor& monitor, std::string_view strPath, CSeries& series)
{
    return pRead(monitor, strPath, series.m_points);
}

/// A reader that also learns about the logger.
template <EReadEnd (*pRead)(CImportMonitor&, std::string_view, CSeries&, CPoints&)>
EReadEnd ReadSeries(CImportMonitor& monitor, std::string_view strPath, CSeries& series)
{
    return pRead(monitor, strPath, series, series.m_points);
}

template <bool (*pWrite)(CImportMonitor&, std::string_view, const CPoints&)>
bool WritePoints(CImportMonitor& monitor, std::string_view strPath, const CSeries& /*series*/,
                 const CPoints& points)
{
    return pWrite(monitor, strPath, points);
}

bool WriteBinaryLogSeries(CImportMonitor& monitor, std::string_view strPath, const CSeries& series,
                          const CPoints& points)
{
    return WriteBinaryLog(monitor, series, strPath, points);
}

constexpr std::string_view GpxName = "GPX";
constexpr std::string_view GpxEnd = "gpx";

constexpr std::array<STrackFormat, 6> Formats = {{
    {GpxName, {".gpx"}, 0, ReadPoints<ReadGpx>, WritePoints<WriteGpx>, EText::None},
    {"Gardown",
     {".gtr", ".gd", ".gdm"},
     0,
     ReadPoints<ReadGardown>,
     WritePoints<WriteTrackMarks>,
     EText::None},
    {"PCX5", {".trk"}, 0, ReadPoints<ReadPcx5>, WritePoints<WritePcx5>, EText::None},
    {"NMEA", {".txt", ".nmea"}, SourceKind::Nmea, ReadPoints<ReadNmea>, nullptr, EText::CannotSaveNmea},
    {"SiRF stream", {".sbn"}, SourceKind::SirfStream, ReadSeries<ReadSirf>, nullptr, EText::None},
    {"binary log",
     {".bin", ".sbp"},
     SourceKind::BinaryLog,
     ReadSeries<ReadBinaryLog>,
     WriteBinaryLogSeries,
     EText::None},
}};

/// A save tests only these of a format's extensions; a name with another one is unknown to it.
bool IsTestedForSave(std::string_view strExtension)
{
    return strExtension != ".nmea" && strExtension != ".sbn";
}

std::string_view LastCharacters(std::string_view strText, std::size_t nCount)
{
    return strText.size() > nCount ? strText.substr(strText.size() - nCount) : strText;
}

bool Contains(std::string_view strText, std::string_view strPart)
{
    return strText.find(strPart) != std::string_view::npos;
}

/// The first format that is GPX by `bGpx` or has an extension for which `isMatch(format, extension)` is true.
template <class TPredicate>
const STrackFormat* FindFormat(bool bGpx, TPredicate&& isMatch)
{
    for (const STrackFormat& format : Formats) {
        if (format.strName == GpxName) {
            if (bGpx)
                return &format;
            continue;
        }
        const auto IsUsedMatch = [&](std::string_view strExtension) {
            return !strExtension.empty() && isMatch(format, strExtension);
        };
        if (std::any_of(format.extensions.begin(), format.extensions.end(), IsUsedMatch))
            return &format;
    }
    return nullptr;
}

} // namespace

std::span<const STrackFormat> TrackFormats()
{
    return Formats;
}

const STrackFormat* FormatForImport(std::string_view strFileName)
{
    constexpr std::size_t nShortExtension = 4;
    const std::string strName = ToLower(strFileName);
    return FindFormat(strName.ends_with(GpxEnd), [&](const STrackFormat&, std::string_view strExtension) {
        return Contains(LastCharacters(strName, std::max(strExtension.size(), nShortExtension)),
                        strExtension);
    });
}

const STrackFormat* FormatForReload(std::string_view strPath)
{
    const std::string strName = ToLower(strPath);
    return FindFormat(strName.ends_with(GpxEnd), [&](const STrackFormat&, std::string_view strExtension) {
        return Contains(strName, strExtension);
    });
}

const STrackFormat* FormatForSave(std::string_view strFileName, EGpxTest gpxTest)
{
    const bool bGpx = gpxTest == EGpxTest::LastThreeCharacters ? strFileName.ends_with(GpxEnd)
                                                               : Contains(strFileName, ".gpx");
    // A format that can be written comes before one that refuses.
    const auto Find = [&](bool bWritable) {
        return FindFormat(bGpx, [&](const STrackFormat& format, std::string_view strExtension) {
            return (format.pWrite != nullptr) == bWritable && IsTestedForSave(strExtension) &&
                   Contains(strFileName, strExtension);
        });
    };
    const STrackFormat* pFormat = Find(true);
    return pFormat != nullptr ? pFormat : Find(false);
}

std::string_view SaveRefusal(std::string_view strPath)
{
    const std::string strExtension = ToLower(FileExtension(strPath));
    if (strExtension == ".nmea" || strExtension == ".txt")
        return "Cannot save to NMEA format. Please select a different format";
    if (strExtension == ".sbn")
        return "Cannot save to SIRF binary format. Please select a different format";
    const STrackFormat* pFormat = FormatForSave(strExtension, EGpxTest::ExtensionAnywhere);
    if (pFormat == nullptr || pFormat->pWrite == nullptr)
        return UnknownExtensionRefusal;
    return {};
}

} // namespace kestrabel
