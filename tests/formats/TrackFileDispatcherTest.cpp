#include "formats/TrackFileDispatcher.h"

#include "formats/ScriptedPrompt.h"
#include "model/TimeText.h"
#include "platform/Path.h"
#include "support/TemporaryFolder.h"
#include "support/Track.h"

#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

using CTexts = std::vector<std::string>;

std::string Log(int nPoints, std::string_view strBehind = "")
{
    std::string strText;
    for (int n = 0; n < nPoints; ++n)
        strText += "$GPRMC,12000" + std::to_string(n) + ",A,4830.0,N,01130.0,E,10.0,090.0,010624,,\r\n";
    return strText.append(strBehind);
}

std::string Gpx(int nPoints, std::string_view strBehind = "")
{
    std::string strText = "<gpx><trk><trkseg>";
    for (int n = 0; n < nPoints; ++n)
        strText += "<trkpt lat='1' lon='2'><time>2024-06-01T12:00:0" + std::to_string(n) + "Z</time></trkpt>";
    return strText.append(strBehind).append("</trkseg></trk></gpx>");
}

const std::string Noon = "2024-06-01T12:00:00";
constexpr std::string_view BadLine = "$GPRMC,1\r\n";

TEST(TrackFileDispatcher, Import)
{
    const std::string strNever = "1900-01-01T00:00:00"; // what the series had before
    const struct
    {
        std::string strName, strBytes;
        bool bCancel;
        int nPoints;
        std::string strDate;
        int nSourceKind;
        EImportEnd end;
    } cases[] = {
        {"a.gpx", Gpx(3), false, 3, Noon, 7, EImportEnd::Complete},
        {"a.txt", Log(3, BadLine), false, 3, Noon, 2, EImportEnd::Complete},
        {"A.NMEA", Log(2), false, 2, Noon, 2, EImportEnd::Complete},
        // Fewer than 2 points are none.
        {"a.txt", Log(1), false, 0, strNever, 2, EImportEnd::Complete},
        {"a.gpx", Gpx(3, "<trkpt/>"), false, 3, Noon, 7, EImportEnd::Failed},
        {"a.csv", Gpx(3), false, 0, strNever, 7, EImportEnd::Unrecognised},
        // A cancelled read keeps the points so far, even a single one, and sets no date.
        {"a.txt", Log(2, BadLine), true, 1, strNever, 2, EImportEnd::Stopped},
    };
    for (const auto& one : cases) {
        const CTemporaryFolder folder;
        CScriptedPrompt prompt({!one.bCancel});
        CImportMonitor monitor(&prompt);
        monitor.Abort(); // by the file before
        CSeries series;
        series.m_strFileName = folder.Write(one.strName, one.strBytes);
        series.m_date = DATE(2.0);
        series.m_bModified = 1;
        series.m_cReserved = 7;
        auto end = EImportEnd::Unrecognised;
        EXPECT_EQ(ImportTrackFile(monitor, series, end), one.nPoints) << one.strBytes;
        EXPECT_EQ(FormatIsoSecond(series.m_date), one.strDate) << one.strBytes;
        EXPECT_EQ(series.m_cReserved, one.nSourceKind) << one.strBytes;
        EXPECT_EQ(end, one.end) << one.strBytes;
        const bool bKnown = end != EImportEnd::Unrecognised;
        EXPECT_EQ(series.m_bModified, bKnown ? 0 : 1) << one.strBytes;
        EXPECT_EQ(prompt.m_shown, bKnown ? CTexts() : CTexts{" The file type is not recognised"});
    }
}

TEST(TrackFileDispatcher, Reload)
{
    const struct
    {
        std::string strName, strStored, strBytes;
        bool bRead;
        int nPoints, nSourceKind;
    } cases[] = {
        {"Track.GPX", "track.gpx", Gpx(2), true, 2, 7},
        {"Track.Txt.BAK", "track.txt.bak", Log(2), true, 2, 2},
        {"a.nmea", "a.nmea", Log(1), true, 1, 2}, // no clean-up here
        {"a.gpx", "a.gpx", "<gpx>", false, 0, 7},
    };
    for (const auto& one : cases) {
        const CTemporaryFolder folder;
        CImportMonitor monitor;
        CSeries series;
        series.m_cReserved = 7;
        const std::string strPath = folder.Write(one.strName, one.strBytes);
        EXPECT_EQ(LoadTrackFile(monitor, series, strPath), one.bRead) << one.strName;
        EXPECT_EQ(series.m_strFileName, folder.Path(one.strStored));
        EXPECT_EQ(series.m_points.GetCount(), one.nPoints) << one.strName;
        EXPECT_EQ(series.m_cReserved, one.nSourceKind) << one.strName;
    }
}

TEST(TrackFileDispatcher, Saves)
{
    const struct
    {
        std::string strName;
        bool bSaveTrackFile, bSavePoints, bRefusedTrackFile, bRefusedPoints;
    } cases[] = {
        {"a.gpx", true, true, false, false},
        {"a.gpx.bak", false, true, false, false},
        {"a.txt", false, false, true, true},
        {"a.nmea", false, false, false, false},
        // A stored name is lower case unless that would be another file; a chosen one is taken as it is.
        {"A.GPX", true, false, false, false},
    };
    for (const auto& one : cases) {
        for (const bool bPoints : {false, true}) {
            const CTemporaryFolder folder;
            CScriptedPrompt prompt;
            CImportMonitor monitor(&prompt);
            CSeries series;
            series.m_points.Add(MakePoint(0, 1.0, 2.0));
            CObjectArray<CTrackPoint> chosen; // not the points of the series
            chosen.Add(MakePoint(1, 1.0, 2.0));
            // The stored name may be one that is found by its case only.
            series.m_strFileName = bPoints ? "elsewhere.gpx" : folder.Path(one.strName);
            const std::string strFile = folder.Write(bPoints ? one.strName : ToUpper(one.strName), "old");
            const bool bExpected = bPoints ? one.bSavePoints : one.bSaveTrackFile;
            const bool bRefused = bPoints ? one.bRefusedPoints : one.bRefusedTrackFile;
            EXPECT_EQ(bExpected,
                      bPoints ? SavePoints(monitor, strFile, series, chosen) : SaveTrackFile(monitor, series))
                << one.strName;
            EXPECT_EQ(prompt.m_shown, bRefused ? CTexts{"Cannot save to NMEA format"} : CTexts());
            const std::string strText = CTemporaryFolder::Read(strFile);
            const bool bWritten =
                strText.find(bPoints ? "10:00:01Z</time>" : "10:00:00Z</time>") != std::string::npos;
            EXPECT_TRUE(bExpected ? bWritten : strText == "old") << one.strName << bPoints;
        }
    }
}

} // namespace
} // namespace kestrabel::test
