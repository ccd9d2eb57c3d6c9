#include "formats/TrackFormat.h"

#include "formats/GpxReader.h"
#include "formats/GpxWriter.h"
#include "formats/NmeaReader.h"
#include "platform/Path.h"

#include <algorithm>

namespace kestrabel {

namespace {

EReadEnd ReadGpxSeries(CImportMonitor& monitor, std::string_view strPath, CSeries& series)
{
    return ReadGpx(monitor, strPath, series.m_points);
}

EReadEnd ReadNmeaSeries(CImportMonitor& monitor, std::string_view strPath, CSeries& series)
{
    return ReadNmea(monitor, strPath, series.m_points);
}

bool WriteGpxSeries(CImportMonitor& monitor, std::string_view strPath, const CSeries& /*series*/,
                    const CObjectArray<CTrackPoint>& points)
{
    return WriteGpx(monitor, strPath, points);
}

constexpr std::string_view GpxName = "GPX";
constexpr std::string_view GpxEnd = "gpx";

constexpr std::array<STrackFormat, 2> Formats = {{
    {GpxName, {".gpx"}, 0, ReadGpxSeries, WriteGpxSeries, EText::None},
    {"NMEA", {".txt", ".nmea"}, SourceKind::Nmea, ReadNmeaSeries, nullptr, EText::CannotSaveNmea},
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

/// The first format that is GPX by `bGpx` or has an extension for which `isMatch` is true.
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
            return !strExtension.empty() && isMatch(strExtension);
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
    return FindFormat(strName.ends_with(GpxEnd), [&](std::string_view strExtension) {
        return Contains(LastCharacters(strName, std::max(strExtension.size(), nShortExtension)),
                        strExtension);
    });
}

const STrackFormat* FormatForReload(std::string_view strPath)
{
    const std::string strName = ToLower(strPath);
    return FindFormat(strName.ends_with(GpxEnd),
                      [&](std::string_view strExtension) { return Contains(strName, strExtension); });
}

const STrackFormat* FormatForSave(std::string_view strFileName, EGpxTest gpxTest)
{
    const bool bGpx = gpxTest == EGpxTest::LastThreeCharacters ? strFileName.ends_with(GpxEnd)
                                                               : Contains(strFileName, ".gpx");
    return FindFormat(bGpx, [&](std::string_view strExtension) {
        return IsTestedForSave(strExtension) && Contains(strFileName, strExtension);
    });
}

} // namespace kestrabel
