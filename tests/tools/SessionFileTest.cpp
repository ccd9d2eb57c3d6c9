#include "formats/BinaryLogReader.h"
#include "formats/GpxReader.h"
#include "formats/NmeaReader.h"
#include "formats/Pcx5Reader.h"
#include "formats/SirfReader.h"
#include "simulator/SessionSimulator.h"
#include "simulator/SessionWriter.h"
#include "simulator/SirfWriter.h"
#include "support/TemporaryFolder.h"
#include "tools/SessionOptionsFor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <sstream>

namespace kestrabel {
namespace {

using test::CTemporaryFolder;
using test::KnotInKmh;
using test::Session;

void Write(const std::string& strPath, const CSeries& series, const SNmeaOptions& nmea = {})
{
    CImportMonitor monitor;
    ASSERT_TRUE(WriteSession(monitor, strPath, series, nmea)) << monitor.Message();
}

/// All bytes but the line of a GPX head that tells when it was written.
std::string BytesOf(const SSessionOptions& options, const std::string& strPath)
{
    CSeries series;
    SimulateSession(options, series);
    Write(strPath, series);
    std::istringstream lines(CTemporaryFolder::Read(strPath));
    std::string strBytes;
    for (std::string strLine; std::getline(lines, strLine);) {
        if (!strLine.starts_with("  <time>"))
            strBytes += strLine + "\n";
    }
    return strBytes;
}

TEST(SessionFile, SameSeedSameBytes)
{
    const CTemporaryFolder folder;
    for (const char* pName : {"a.nmea", "a.gpx", "a.sbn", "a.trk"}) {
        const std::string strFirst = BytesOf(Session(9, 5.0, 3000), folder.Path(pName));
        EXPECT_EQ(strFirst, BytesOf(Session(9, 5.0, 3000), folder.Path(pName)));
        EXPECT_NE(strFirst, BytesOf(Session(10, 5.0, 3000), folder.Path(pName)));
        EXPECT_GT(strFirst.size(), 3000U * 40U);
    }
}

// What a written file holds, read back, against the points.

struct SPrecision
{
    double dDegrees;
    double dDoppler; ///< km/h
};

void ExpectReadBack(const CSeries& series, const CObjectArray<CTrackPoint>& read, const SPrecision& precision,
                    int nFirstWithGga)
{
    std::vector<const CTrackPoint*> written;
    for (const CTrackPoint* pPoint : series.m_points) {
        if (pPoint->HasPosition())
            written.push_back(pPoint);
    }
    ASSERT_EQ(read.GetCount(), std::ssize(written));
    for (int i = 0; i < read.GetCount(); ++i) {
        const CTrackPoint& expected = *written[static_cast<std::size_t>(i)];
        const CTrackPoint& point = read[i];
        ASSERT_NEAR(point.m_position.m_dLatitude, expected.m_position.m_dLatitude, precision.dDegrees) << i;
        ASSERT_NEAR(point.m_position.m_dLongitude, expected.m_position.m_dLongitude, precision.dDegrees) << i;
        ASSERT_NEAR(point.m_dDoppler, expected.m_dDoppler, precision.dDoppler) << i;
        ASSERT_EQ(point.m_time.ToCalendar(), expected.m_time.ToCalendar()) << i;
        if (i >= nFirstWithGga) {
            ASSERT_NEAR(point.m_dHDOP, expected.m_dHDOP, 1e-9) << i;
            ASSERT_EQ(point.m_nSats, expected.m_nSats) << i;
            ASSERT_EQ(point.m_nAltitude, expected.m_nAltitude) << i;
        }
    }
}

TEST(SessionFile, ReadsBackAsItWasSimulated)
{
    constexpr double dHalf = 0.51; // of the last decimal, and what binary fractions add
    struct SCase
    {
        double dRate;
        CPosition position;
        SNmeaOptions nmea;
    };
    const std::array<SCase, 5> cases = {{
        {1.0, MakePosition(52.8, 5.27), {}},
        {2.0, MakePosition(-38.84, 146.16), {.order = ESentenceOrder::GgaFirst}},
        {5.0, MakePosition(14.0, -61.0), {.nMinuteDecimals = 6}}, // across a full degree both ways
        {8.0, MakePosition(-0.001, -0.001), {.nMinuteDecimals = 8}},
        {10.0, MakePosition(59.9999, 9.9999), {.nMinuteDecimals = 4}},
    }};
    const CTemporaryFolder folder;
    for (const SCase& row : cases) {
        SCOPED_TRACE(row.dRate);
        SSessionOptions options = Session(21, row.dRate, 3000);
        options.position = row.position;
        options.timeStart = DATE::FromCalendar(
            {.nYear = 2023, .nMonth = 12, .nDay = 31, .nHour = 23, .nMinute = 58}); // into another year
        CSeries series;
        SimulateSession(options, series);
        CImportMonitor monitor;

        CObjectArray<CTrackPoint> gpx;
        Write(folder.Path("session.gpx"), series);
        ASSERT_EQ(ReadGpx(monitor, folder.Path("session.gpx"), gpx), EReadEnd::Complete) << monitor.Message();
        ExpectReadBack(series, gpx, {1e-10 * dHalf, 0.01 * 3.6 * dHalf}, 0);

        CObjectArray<CTrackPoint> nmea;
        Write(folder.Path("session.nmea"), series, row.nmea);
        ASSERT_EQ(ReadNmea(monitor, folder.Path("session.nmea"), nmea), EReadEnd::Complete)
            << monitor.Message();
        const double dMinute = std::pow(10.0, -row.nmea.nMinuteDecimals);
        // A GGA that stands before its RMC has yesterday's date at midnight, and is then lost to the reader.
        const bool bRmcFirst = row.nmea.order == ESentenceOrder::RmcFirst;
        ExpectReadBack(series, nmea, {dMinute / 60.0 * dHalf, 0.001 * KnotInKmh * dHalf},
                       bRmcFirst ? 0 : static_cast<int>(130.0 * row.dRate));
        EXPECT_EQ(monitor.IssueCount(), 0);
    }
}

/// The points that have a position.
CObjectArray<CTrackPoint> Copies(const CObjectArray<CTrackPoint>& points)
{
    CObjectArray<CTrackPoint> copies;
    for (const CTrackPoint* pPoint : points) {
        if (pPoint->HasPosition())
            copies.Add(std::make_unique<CTrackPoint>(*pPoint));
    }
    return copies;
}

TEST(SessionFile, BinaryFormatsReadBackAsSimulated)
{
    constexpr double dHalf = 0.51; // of the last unit
    const CTemporaryFolder folder;
    for (const double dRate : {1.0, 2.0, 5.0, 8.0, 10.0}) {
        SSessionOptions options = Session(21, dRate, 3000);
        options.position = MakePosition(-0.001, -179.5);
        options.timeStart = DATE::FromCalendar(
            {.nYear = 2023, .nMonth = 12, .nDay = 31, .nHour = 23, .nMinute = 58}); // into another year
        CSeries series;
        SimulateSession(options, series);
        CSeries sirf;
        CSeries binaryLog;
        CImportMonitor monitor;
        Write(folder.Path("a.sbn"), series);
        Write(folder.Path("a.sbp"), series);
        ASSERT_EQ(ReadSirf(monitor, folder.Path("a.sbn"), sirf, sirf.m_points), EReadEnd::Complete);
        ASSERT_EQ(ReadBinaryLog(monitor, folder.Path("a.sbp"), binaryLog, binaryLog.m_points),
                  EReadEnd::Complete);
        ASSERT_EQ(sirf.m_points.GetCount(), 3000) << "fixes without a position too";
        for (const CSeries* pRead : {&sirf, &binaryLog}) {
            const CObjectArray<CTrackPoint> written = Copies(series.m_points);
            const CObjectArray<CTrackPoint> read = Copies(pRead->m_points);
            ASSERT_EQ(read.GetCount(), written.GetCount());
            for (int i = 0; i < read.GetCount(); ++i) {
                const CTrackPoint& point = read[i];
                const CTrackPoint& expected = written[i];
                ASSERT_EQ(point.m_time.ToCalendar(), expected.m_time.ToCalendar()) << i;
                ASSERT_NEAR(point.m_position.m_dLatitude, expected.m_position.m_dLatitude, 1e-7 * dHalf);
                ASSERT_NEAR(point.m_position.m_dLongitude, expected.m_position.m_dLongitude, 1e-7 * dHalf);
                ASSERT_NEAR(point.m_dDoppler, expected.m_dDoppler, 0.036 * dHalf) << i;
                ASSERT_NEAR(point.m_dDirection, expected.m_dDirection, 1.75e-4 * dHalf) << i;
                ASSERT_NEAR(point.m_dHDOP, expected.m_dHDOP, 0.2 * dHalf) << i;
                ASSERT_EQ(point.m_nSats, expected.m_nSats) << i;
                ASSERT_EQ(point.m_nAltitude, expected.m_nAltitude) << i;
            }
            EXPECT_EQ(pRead->m_strIdentifier, " " + series.m_strIdentifier);
            EXPECT_EQ(pRead->m_strSerialNo, series.m_strSerialNo);
            EXPECT_EQ(pRead->m_nLogRate, series.m_nLogRate);
            EXPECT_EQ(pRead->m_strFirmware, series.m_strFirmware);
        }
        EXPECT_EQ(sirf.m_points.Last()->m_dUSOG, sirf.m_points.Last()->m_dDoppler);
        EXPECT_EQ(sirf.m_points[0].m_dUSOG, 0.0) << "a fix without a position has none";

        CObjectArray<CTrackPoint> pcx5;
        Write(folder.Path("a.trk"), series);
        ASSERT_EQ(ReadPcx5(monitor, folder.Path("a.trk"), pcx5), EReadEnd::Complete);
        ASSERT_EQ(pcx5.GetCount(), 3000);
        for (int i = 0; i < pcx5.GetCount(); ++i) {
            ASSERT_EQ(pcx5[i].m_time.ToCalendarSecond(), series.m_points[i].m_time.ToCalendarSecond()) << i;
            ASSERT_NEAR(pcx5[i].m_position.m_dLatitude, series.m_points[i].m_position.m_dLatitude,
                        1e-7 * dHalf);
        }
        EXPECT_EQ(monitor.IssueCount(), 0);
    }
}

TEST(SessionFile, SirfFramesAreWellFormed)
{
    EXPECT_EQ(SirfFrame("\x29\x01"), std::string("\xA0\xA2\x00\x02\x29\x01\x00\x2A\xB0\xB3", 10));
    EXPECT_EQ(SirfFrame(std::string(256, '\xFF')).substr(260), std::string("\x7F\x00\xB0\xB3", 4))
        << "the checksum has 15 bits";
    CTrackPoint point;
    EXPECT_EQ(SirfNavigation(point).size(), 91U);
    point.m_position = MakePosition(1.0, -1.0);
    EXPECT_EQ(SirfNavigation(point).size(), 95U);
    EXPECT_EQ(SirfNavigation(point).substr(23, 8), std::string("\x00\x98\x96\x80\xFF\x67\x69\x80", 8));
}

TEST(SessionFile, EverySentenceIsWellFormed)
{
    const CTemporaryFolder folder;
    CSeries series;
    SimulateSession(Session(4, 5.0, 1000), series);
    for (const ESentenceOrder order : {ESentenceOrder::RmcFirst, ESentenceOrder::GgaFirst}) {
        Write(folder.Path("a.txt"), series, {.order = order});
        const std::string strBytes = CTemporaryFolder::Read(folder.Path("a.txt"));
        std::istringstream lines(strBytes);
        int nLines = 0;
        for (std::string strLine; std::getline(lines, strLine); ++nLines) {
            const bool bRmc = (nLines % 2 == 0) == (order == ESentenceOrder::RmcFirst);
            ASSERT_TRUE(strLine.starts_with(bRmc ? "$GPRMC," : "$GPGGA,")) << strLine;
            ASSERT_EQ(strLine.back(), '\r') << strLine;
            ASSERT_EQ(std::count(strLine.begin(), strLine.end(), ','), bRmc ? 12 : 14) << strLine;
            const std::size_t nStar = strLine.find('*');
            ASSERT_EQ(nStar + 4, strLine.size()) << strLine;
            int nSum = 0;
            for (std::size_t i = 1; i < nStar; ++i)
                nSum ^= strLine[i];
            ASSERT_EQ(std::stoul(strLine.substr(nStar + 1, 2), nullptr, 16), static_cast<unsigned long>(nSum))
                << strLine;
        }
        EXPECT_EQ(nLines, 2000);
        EXPECT_TRUE(strBytes.ends_with("\r\n"));
    }
}

TEST(SessionFile, SentencesOfSpecialPoints)
{
    CTrackPoint point;
    point.m_time =
        DATE::FromCalendar({.nYear = 2009, .nMonth = 2, .nDay = 3, .nHour = 4, .nMinute = 5, .nSecond = 6})
            .Plus(7 * DaysPerMillisecond);
    const auto Body = [](const std::string& strSentence) {
        return strSentence.substr(0, strSentence.find('*'));
    };
    EXPECT_EQ(Body(RmcSentence(point, 7)), "$GPRMC,040506.007,V,,,,,,,030209,,,N");
    EXPECT_EQ(Body(GgaSentence(point, 7)), "$GPGGA,040506.007,,,,,0,00,,,M,,M,,");

    // 59.99999999 minutes are a full degree, and the minutes have two digits before the point.
    point.m_position = MakePosition(-(9.0 + 59.99999999 / 60.0), 0.5 / 60.0);
    point.m_dDoppler = 0.5 * KnotInKmh;
    point.m_dDirection = 0.0174532925;
    point.m_nSats = 7;
    point.m_dHDOP = 0.9;
    point.m_nRxStatus = 1;
    EXPECT_EQ(Body(RmcSentence(point, 6)),
              "$GPRMC,040506.007,A,1000.000000,S,00000.500000,E,0.500,1.00,030209,,,A");
    EXPECT_EQ(Body(GgaSentence(point, 4)),
              "$GPGGA,040506.007,1000.0000,S,00000.5000,E,1,07,0.9,0.0,M,0.0,M,,");
}

TEST(SessionFile, TheNameTellsTheFormat)
{
    for (const char* pName :
         {"a.nmea", "a.txt", "a.gpx", "A.GPX", "x.y/a.gpx", "a.sbn", "a.sbp", "a.bin", "a.trk", "a.gtr"})
        EXPECT_TRUE(IsWritableName(pName)) << pName;
    for (const char* pName : {"a", "a.doc", "gpx", ""})
        EXPECT_FALSE(IsWritableName(pName)) << pName;
    const CTemporaryFolder folder;
    CSeries series;
    SimulateSession(Session(1, 1.0, 10), series);
    for (const char* pName : {"missing/a.nmea", "missing/a.gpx", "missing/a.sbn", "missing/a.sbp"}) {
        CImportMonitor monitor;
        EXPECT_FALSE(WriteSession(monitor, folder.Path(pName), series, {}));
        EXPECT_NE(monitor.Message(), "") << pName;
    }
}

} // namespace
} // namespace kestrabel
