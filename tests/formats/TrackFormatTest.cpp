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
    const struct
    {
        std::string_view strName, strImport, strReload, strSaveTrackFile, strSavePoints;
    } cases[] = {
        {"track.gpx", "GPX", "GPX", "GPX", "GPX"},
        {"gpx", "GPX", "GPX", "GPX", "-"},
        {"a.txt", "NMEA", "NMEA", "NMEA", "NMEA"},
        {"a.nmea", "NMEA", "NMEA", "-", "-"},
        {"txt", "-", "-", "-", "-"},
        {"track.gpx.bak", "-", "-", "-", "GPX"},
        {"x.nmea.bak", "-", "NMEA", "-", "-"},
        {"x.txtx", "-", "NMEA", "NMEA", "NMEA"},
        {"x.nmeax", "-", "NMEA", "-", "-"},
        {"logs.txt/a.csv", "-", "NMEA", "NMEA", "NMEA"},
        {"C:\\logs.gpx\\a", "-", "-", "-", "GPX"},
        {"TRACK.GPX", "GPX", "GPX", "-", "-"},
    };
    for (const auto& one : cases) {
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
