#include "formats/TrackFileDispatcher.h"

#include "formats/BinaryLogBytes.h"
#include "formats/PointText.h"
#include "formats/ScriptedPrompt.h"
#include "formats/SirfBytes.h"
#include "support/TemporaryFolder.h"
#include "support/Track.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

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

/// So many messages, records or lines of the other formats, from 10:00 on.
std::string Sirf(int nPoints)
{
    std::string bytes;
    for (int n = 0; n < nPoints; ++n)
        bytes += Frame(Navigation(static_cast<std::uint16_t>(n * 1000)));
    return bytes;
}

std::string BinaryLog(int nPoints)
{
    std::string bytes;
    for (int n = nPoints; n-- > 0;)
        bytes += RecordAt(static_cast<std::uint32_t>(n));
    return bytes;
}

std::string Pcx5(int nPoints, std::string_view strBehind = "")
{
    std::string strText;
    for (int n = 0; n < nPoints; ++n)
        strText += "T 1 2 01-Jun-24 10:00:0" + std::to_string(n) + " 0\r\n";
    return strText.append(strBehind);
}

std::string Gardown(int nPoints, std::string_view strBehind = "")
{
    std::string strText;
    for (int n = 0; n < nPoints; ++n)
        strText += "T 1 2 Sat Jun 1 10:00:0" + std::to_string(n) + " 2024\r\n";
    return strText.append(strBehind);
}

const std::string Noon = "2024-06-01T12:00:00";
const std::string Ten = "2024-06-01T10:00:00";
constexpr std::string_view BadLine = "$GPRMC,1\r\n";

TEST(TrackFileDispatcher, Import)
{
    const std::string strNever = "1900-01-01T00:00:00"; // what the series had before
    struct SCase
    {
        std::string strName;
        std::string strBytes;
        bool bCancel;
        int nPoints;
        std::string strDate;
        int nSourceKind;
        EImportEnd end;
    };
    const SCase cases[] = {
        {"a.gpx", Gpx(3), false, 3, Noon, 7, EImportEnd::Complete},
        {"A.GPX", Gpx(2), false, 2, Noon, 7, EImportEnd::Complete},
        {"trackgpx", Gpx(2), false, 2, Noon, 7, EImportEnd::Complete},
        {"a.txt", Log(3), false, 3, Noon, 2, EImportEnd::Complete},
        {"A.NMEA", Log(2), false, 2, Noon, 2, EImportEnd::Complete},
        {"a.sbn", Sirf(3), false, 3, Ten, 1, EImportEnd::Complete},
        {"a.sbp", BinaryLog(3), false, 3, Ten, 3, EImportEnd::Complete},
        {"A.BIN", BinaryLog(2), false, 2, Ten, 3, EImportEnd::Complete},
        {"a.trk", Pcx5(3), false, 3, Ten, 7, EImportEnd::Complete},
        {"a.gtr", Gardown(3), false, 3, Ten, 7, EImportEnd::Complete},
        {"a.gd", Gardown(2), false, 2, Ten, 7, EImportEnd::Complete},
        {"A.GDM", Gardown(2), false, 2, Ten, 7, EImportEnd::Complete},
        // Fewer than 2 points are none.
        {"a.sbn", Sirf(1), false, 0, strNever, 1, EImportEnd::Complete},
        {"a.sbn", "", false, 0, strNever, 1, EImportEnd::Failed},
        {"a.sbp", BinaryLog(1), false, 0, strNever, 3, EImportEnd::Complete},
        {"a.sbp", "", false, 0, strNever, 3, EImportEnd::Failed},
        {"a.trk", Pcx5(1), false, 0, strNever, 7, EImportEnd::Complete},
        {"a.gtr", Gardown(1), false, 0, strNever, 7, EImportEnd::Complete},
        {"a.gpx", Gpx(1), false, 0, strNever, 7, EImportEnd::Complete},
        {"a.gpx", Gpx(0), false, 0, strNever, 7, EImportEnd::Complete},
        {"a.txt", Log(1), false, 0, strNever, 2, EImportEnd::Complete},
        {"a.txt", "", false, 0, strNever, 2, EImportEnd::Complete},
        {"a.txt", Log(1, BadLine), false, 0, strNever, 2, EImportEnd::Complete},
        // The content does not decide.
        {"a.txt", Gpx(3), false, 0, strNever, 2, EImportEnd::Complete},
        {"a.gpx", Log(3), false, 0, strNever, 7, EImportEnd::Failed},
        // A cancelled read keeps the points so far, even a single one, and sets no date.
        {"a.txt", Log(4, BadLine), true, 3, strNever, 2, EImportEnd::Stopped},
        {"a.txt", Log(2, BadLine), true, 1, strNever, 2, EImportEnd::Stopped},
        {"a.txt", Log(4, BadLine), false, 4, Noon, 2, EImportEnd::Complete},
        {"a.trk", Pcx5(1, "T\r\n"), true, 1, strNever, 7, EImportEnd::Stopped},
        {"a.trk", Pcx5(1, "T 1 2 01-Jun-24 10:00:00.100 0"), false, 1, strNever, 7, EImportEnd::Stopped},
        {"a.gtr", Gardown(2, "T\r\n"), true, 2, Ten, 7, EImportEnd::Complete},
    };
    for (const SCase& one : cases) {
        const CTemporaryFolder folder;
        CScriptedPrompt prompt({!one.bCancel});
        CImportMonitor monitor(&prompt);
        CSeries series;
        series.m_strFileName = folder.Write(one.strName, one.strBytes);
        series.m_date = DATE(2.0);
        series.m_bModified = 1;
        series.m_cReserved = 7;
        auto end = EImportEnd::Unrecognised;
        const std::string strCase = one.strName + " " + one.strBytes;
        EXPECT_EQ(ImportTrackFile(monitor, series, end), one.nPoints) << strCase;
        EXPECT_EQ(series.m_points.GetCount(), one.nPoints) << strCase;
        EXPECT_EQ(FormatIsoSecond(series.m_date), one.nPoints == 0 ? strNever : one.strDate) << strCase;
        EXPECT_EQ(series.m_cReserved, one.nSourceKind) << strCase;
        EXPECT_EQ(series.m_bModified, 0) << strCase;
        EXPECT_EQ(end, one.end) << strCase;
        EXPECT_EQ(prompt.m_shown, CTexts()) << strCase;
    }
}

TEST(TrackFileDispatcher, ImportOfABrokenPointKeepsThoseBeforeIt)
{
    const CTemporaryFolder folder;
    CImportMonitor monitor;
    CSeries series;
    series.m_strFileName = folder.Write("a.gpx", Gpx(3, "<trkpt/>"));
    auto end = EImportEnd::Complete;
    EXPECT_EQ(ImportTrackFile(monitor, series, end), 3);
    EXPECT_EQ(end, EImportEnd::Failed);
    EXPECT_EQ(monitor.Message(), "Failed to read xml file");
    EXPECT_EQ(series.m_date, series.m_points[0].m_time);

    CSeries alone;
    alone.m_strFileName = folder.Write("b.gpx", Gpx(1, "<trkpt/>"));
    EXPECT_EQ(ImportTrackFile(monitor, alone, end), 0) << "one point makes no track";
}

TEST(TrackFileDispatcher, AMonitorThatWasAbortedServesTheNextFile)
{
    const CTemporaryFolder folder;
    CImportMonitor monitor;
    CSeries missing;
    missing.m_strFileName = folder.Path("missing.txt");
    auto end = EImportEnd::Complete;
    EXPECT_EQ(ImportTrackFile(monitor, missing, end), 0);
    CSeries good;
    good.m_strFileName = folder.Write("good.txt", Log(3));
    EXPECT_EQ(ImportTrackFile(monitor, good, end), 3);
}

TEST(TrackFileDispatcher, ImportOfAnUnknownName)
{
    const CTemporaryFolder folder;
    for (const std::string_view strName : {"a.csv", "a", "a.gpx.bak", "a.txt.gz"}) {
        CScriptedPrompt prompt;
        CImportMonitor monitor(&prompt);
        CSeries series;
        series.m_strFileName = folder.Write(strName, Gpx(3));
        series.m_bModified = 1;
        auto end = EImportEnd::Complete;
        EXPECT_EQ(ImportTrackFile(monitor, series, end), 0) << strName;
        EXPECT_EQ(prompt.m_shown, CTexts{" The file type is not recognised"}) << strName;
        EXPECT_EQ(end, EImportEnd::Unrecognised);
        EXPECT_EQ(series.m_bModified, 1) << "only a recognised file clears it";
    }
}

TEST(TrackFileDispatcher, ImportOfAFileThatCannotBeOpened)
{
    const CTemporaryFolder folder;
    for (const std::string_view strName : {"missing.txt", "missing.gpx"}) {
        CScriptedPrompt prompt;
        CImportMonitor monitor(&prompt);
        CSeries series;
        series.m_strFileName = folder.Path(strName);
        auto end = EImportEnd::Complete;
        EXPECT_EQ(ImportTrackFile(monitor, series, end), 0) << strName;
        EXPECT_EQ(end, EImportEnd::Failed) << strName;
        EXPECT_EQ(prompt.m_shown, CTexts()) << strName;
        ASSERT_FALSE(monitor.Message().empty()) << strName;
    }
}

TEST(TrackFileDispatcher, Reload)
{
    struct SCase
    {
        std::string strName;
        std::string strStored;
        std::string strBytes;
        bool bRead;
        int nPoints;
        int nSourceKind;
    };
    const SCase cases[] = {
        {"Track.GPX", "track.gpx", Gpx(2), true, 2, 7},
        {"Track.Txt.BAK", "track.txt.bak", Log(2), true, 2, 2},
        {"a.nmea", "a.nmea", Log(1), true, 1, 2}, // no clean-up here
        {"a.csv", "a.csv", Log(2), false, 0, 7},
        {"A.CSV", "a.csv", Log(2), false, 0, 7},
        {"a.gpx", "a.gpx", "<gpx>", false, 0, 7},
    };
    for (const SCase& one : cases) {
        const CTemporaryFolder folder;
        CScriptedPrompt prompt;
        CImportMonitor monitor(&prompt);
        CSeries series;
        series.m_cReserved = 7;
        series.m_bModified = 1;
        EXPECT_EQ(LoadTrackFile(monitor, series, folder.Write(one.strName, one.strBytes)), one.bRead)
            << one.strName;
        EXPECT_EQ(series.m_strFileName, folder.Path(one.strStored)) << one.strName;
        EXPECT_EQ(series.m_points.GetCount(), one.nPoints) << one.strName;
        EXPECT_EQ(series.m_cReserved, one.nSourceKind) << one.strName;
        EXPECT_EQ(series.m_bModified, 1) << "the caller clears it";
        EXPECT_EQ(prompt.m_shown, CTexts()) << one.strName;
    }
}

TEST(TrackFileDispatcher, ReloadKeepsTheCaseThatTellsTwoFilesApart)
{
    const CTemporaryFolder folder;
    CImportMonitor monitor;
    CSeries series;
    folder.Write("track.gpx", Gpx(5));
    const std::string strChosen = folder.Write("TRACK.GPX", Gpx(2));
    EXPECT_TRUE(LoadTrackFile(monitor, series, strChosen));
    EXPECT_EQ(series.m_strFileName, strChosen);
    EXPECT_EQ(series.m_points.GetCount(), 2);
}

void FillSeries(CSeries& series)
{
    series.m_points.Add(MakePoint(0, 1.0, 2.0));
    series.m_points.Add(MakePoint(1, 1.0, 2.0));
}

TEST(TrackFileDispatcher, Saves)
{
    struct SCase
    {
        std::string strName;
        bool bSaveTrackFile;
        bool bSavePoints;
        bool bRefusedTrackFile;
        bool bRefusedPoints;
    };
    const SCase cases[] = {
        {"a.gpx", true, true, false, false},
        {"agpx", true, false, false, false},
        {"a.gpx.bak", false, true, false, false},
        {"a.txt", false, false, true, true},
        {"a.txt.bak", false, false, true, true},
        {"a.nmea", false, false, false, false},
        {"a.sbn", false, false, false, false},
        {"a.csv", false, false, false, false},
        {"a", false, false, false, false},
        // A stored name is lower case unless that would be another file; a chosen one is taken as it is.
        {"A.GPX", true, false, false, false},
        {"A.TXT", false, false, true, false},
    };
    const std::string strRefusal = "Cannot save to NMEA format";
    for (const SCase& one : cases) {
        for (const bool bPoints : {false, true}) {
            const CTemporaryFolder folder;
            CScriptedPrompt prompt;
            CImportMonitor monitor(&prompt);
            CSeries series;
            FillSeries(series);
            series.m_strFileName = bPoints ? "elsewhere.gpx" : folder.Path(one.strName);
            const bool bExpected = bPoints ? one.bSavePoints : one.bSaveTrackFile;
            const bool bRefused = bPoints ? one.bRefusedPoints : one.bRefusedTrackFile;
            EXPECT_EQ(bPoints ? SavePoints(monitor, folder.Path(one.strName), series, series.m_points)
                              : SaveTrackFile(monitor, series),
                      bExpected)
                << one.strName << bPoints;
            EXPECT_EQ(prompt.m_shown, bRefused ? CTexts{strRefusal} : CTexts()) << one.strName << bPoints;
            EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path("")), {}),
                      bExpected ? 1 : 0)
                << one.strName << bPoints;
            EXPECT_EQ(CTemporaryFolder::Read(folder.Path(one.strName)).find("10:00:01Z</time>") !=
                          std::string::npos,
                      bExpected)
                << one.strName << bPoints;
        }
    }
}

TEST(TrackFileDispatcher, SavesInTheFormatOfTheName)
{
    const std::string strBinary("\x2E\x00\xA0\xA2", 4);
    const std::pair<std::string, std::string> cases[] = {
        {"a.sbp", strBinary},   {"a.bin", strBinary},  {"a.sbp.txt", strBinary}, {"a.trk", "H  SOFTWARE"},
        {"a.gtr", "+1.000000"}, {"a.gd", "+1.000000"}, {"a.gdm", "+1.000000"},
    };
    for (const auto& [strName, strStart] : cases) {
        const CTemporaryFolder folder;
        CImportMonitor monitor;
        CSeries series;
        FillSeries(series);
        series.m_strFileName = folder.Path(strName);
        EXPECT_TRUE(SaveTrackFile(monitor, series)) << strName;
        EXPECT_TRUE(CTemporaryFolder::Read(folder.Path(strName)).starts_with(strStart)) << strName;
        EXPECT_TRUE(SavePoints(monitor, folder.Path("other" + strName), series, series.m_points)) << strName;
        EXPECT_EQ(CTemporaryFolder::Read(folder.Path("other" + strName)),
                  CTemporaryFolder::Read(folder.Path(strName)));
    }
}

TEST(TrackFileDispatcher, ASaveByTheStoredNameWritesTheFileWithCapitals)
{
    const CTemporaryFolder folder;
    const std::string strChosen = folder.Write("Track.GPX", Gpx(2));
    CImportMonitor monitor;
    CSeries series;
    series.m_strFileName = folder.Path("track.gpx");
    auto end = EImportEnd::Failed;
    ASSERT_EQ(ImportTrackFile(monitor, series, end), 2);
    EXPECT_TRUE(SaveTrackFile(monitor, series));
    EXPECT_FALSE(std::filesystem::exists(folder.Path("track.gpx")));
    EXPECT_NE(CTemporaryFolder::Read(strChosen), Gpx(2));
}

TEST(TrackFileDispatcher, SavePointsWritesThePointsGivenNotThoseOfTheFile)
{
    const CTemporaryFolder folder;
    CImportMonitor monitor;
    CSeries series;
    FillSeries(series);
    CObjectArray<CTrackPoint> chosen(CObjectArray<CTrackPoint>::EOwnership::Borrows);
    chosen.Borrow(series.m_points[1]);
    EXPECT_TRUE(SavePoints(monitor, folder.Path("a.gpx"), series, chosen));
    const std::string strText = CTemporaryFolder::Read(folder.Path("a.gpx"));
    EXPECT_EQ(strText.find("<trkpt"), strText.rfind("<trkpt"));
}

} // namespace
} // namespace kestrabel::test
