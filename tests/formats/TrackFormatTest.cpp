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
        {"a.gtr", "Gardown", "Gardown", "Gardown", "Gardown"},
        {"a.gd", "Gardown", "Gardown", "Gardown", "Gardown"},
        {"a.gdm", "Gardown", "Gardown", "Gardown", "Gardown"},
        {"a.gdx", "Gardown", "Gardown", "Gardown", "Gardown"}, // ".gd" is within the last four
        {"a.gdxy", "-", "Gardown", "Gardown", "Gardown"},
        {"a.trk", "PCX5", "PCX5", "PCX5", "PCX5"},
        {"a.sbn", "SiRF stream", "SiRF stream", "-", "-"},
        {"a.sbp", "binary log", "binary log", "binary log", "binary log"},
        {"a.bin", "binary log", "binary log", "binary log", "binary log"},
        {"A.GD", "Gardown", "Gardown", "-", "-"},
        {"A.SBP", "binary log", "binary log", "-", "-"},
        // The order in which a name is tried; a save knows no ".nmea" and tries ".txt" last.
        {"x.gtr.gpx", "GPX", "GPX", "GPX", "GPX"},
        {"x.gpx.gtr", "Gardown", "Gardown", "Gardown", "GPX"},
        {"x.trk.gtr", "Gardown", "Gardown", "Gardown", "Gardown"},
        {"x.gtr.trk", "PCX5", "Gardown", "Gardown", "Gardown"},
        {"x.txt.trk", "PCX5", "PCX5", "PCX5", "PCX5"},
        {"x.txt.sbp", "binary log", "NMEA", "binary log", "binary log"},
        {"x.sbp.txt", "NMEA", "NMEA", "binary log", "binary log"},
        {"x.nmea.sbp", "binary log", "NMEA", "binary log", "binary log"},
        {"x.sbp.nmea", "NMEA", "NMEA", "binary log", "binary log"},
        {"x.sbn.sbp", "binary log", "SiRF stream", "binary log", "binary log"},
        {"x.sbp.sbn", "SiRF stream", "SiRF stream", "binary log", "binary log"},
        {"x.txt.sbn", "SiRF stream", "NMEA", "NMEA", "NMEA"},
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
