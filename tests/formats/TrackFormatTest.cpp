#include "formats/TrackFormat.h"

#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

std::string_view Name(const STrackFormat* pFormat)
{
    return pFormat == nullptr ? "-" : pFormat->strName;
}

// Import looks at the last 3, 4 or 5 characters; reading again and saving look anywhere in the path. The
// saves compare case included; who saves under a stored name lower-cases it first.
TEST(TrackFormat, ByName)
{
    struct SCase
    {
        std::string_view strName;
        std::string_view strImport;
        std::string_view strReload;
        std::string_view strSaveTrackFile;
        std::string_view strSavePoints;
    };
    const SCase cases[] = {
        {"track.gpx", "GPX", "GPX", "GPX", "GPX"},
        {"trackgpx", "GPX", "GPX", "GPX", "-"},
        {"gpx", "GPX", "GPX", "GPX", "-"},
        {"px", "-", "-", "-", "-"},
        {"", "-", "-", "-", "-"},
        {"a.txt", "NMEA", "NMEA", "NMEA", "NMEA"},
        {"a.nmea", "NMEA", "NMEA", "-", "-"},
        {".txt", "NMEA", "NMEA", "NMEA", "NMEA"},
        {"txt", "-", "-", "-", "-"},
        {"nmea", "-", "-", "-", "-"},
        {"track.gpx.bak", "-", "-", "-", "GPX"},
        {"x.nmea.bak", "-", "NMEA", "-", "-"},
        {"x.txt.bak", "-", "NMEA", "NMEA", "NMEA"},
        {"x.txtx", "-", "NMEA", "NMEA", "NMEA"},
        {"x.nmeax", "-", "NMEA", "-", "-"},
        {"x.gpx.txt", "NMEA", "NMEA", "NMEA", "GPX"},
        {"x.txt.gpx", "GPX", "GPX", "GPX", "GPX"},
        {"x.gpx.csv", "-", "-", "-", "GPX"},
        {"logs.txt/a.csv", "-", "NMEA", "NMEA", "NMEA"},
        {"C:\\logs.gpx\\a", "-", "-", "-", "GPX"},
        {"logs.txt/a.gpx", "GPX", "GPX", "GPX", "GPX"},
        {"a.unknown", "-", "-", "-", "-"},
        {"a.csv", "-", "-", "-", "-"},
        {"TRACK.GPX", "GPX", "GPX", "-", "-"},
        {"A.TXT", "NMEA", "NMEA", "-", "-"},
        {"A.NMEA", "NMEA", "NMEA", "-", "-"},
        {"Mixed.Gpx", "GPX", "GPX", "-", "-"},
    };
    for (const SCase& one : cases) {
        EXPECT_EQ(Name(FormatForImport(one.strName)), one.strImport) << one.strName;
        EXPECT_EQ(Name(FormatForReload(one.strName)), one.strReload) << one.strName;
        EXPECT_EQ(Name(FormatForSave(one.strName, EGpxTest::LastThreeCharacters)), one.strSaveTrackFile)
            << one.strName;
        EXPECT_EQ(Name(FormatForSave(one.strName, EGpxTest::ExtensionAnywhere)), one.strSavePoints)
            << one.strName;
    }
}

} // namespace
} // namespace kestrabel::test
