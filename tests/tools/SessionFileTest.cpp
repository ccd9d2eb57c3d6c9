#include "formats/BinaryLogReader.h"
#include "formats/GpxReader.h"
#include "formats/NmeaReader.h"
#include "formats/Pcx5Reader.h"
#include "formats/SirfReader.h"
#include "simulator/SessionSimulator.h"
#include "simulator/SessionWriter.h"
#include "simulator/SirfWriter.h"
#include "support/TemporaryFolder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <sstream>

namespace kestrabel {
namespace {

constexpr double KnotInKmh = 1.852;
constexpr double Half = 0.51; // of the last decimal, and what binary fractions add

void ExpectReadBack(const CSeries& series, const CObjectArray<CTrackPoint>& read, double dDegrees,
                    double dDoppler, int nFirstWithGga)
{
    int nRead = 0;
    for (const CTrackPoint* pPoint : series.m_points) {
        if (!pPoint->HasPosition())
            continue;
        ASSERT_LT(nRead, read.GetCount());
        const CTrackPoint& point = read[nRead];
        ASSERT_NEAR(point.m_position.m_dLatitude, pPoint->m_position.m_dLatitude, dDegrees) << nRead;
        ASSERT_NEAR(point.m_position.m_dLongitude, pPoint->m_position.m_dLongitude, dDegrees) << nRead;
        ASSERT_NEAR(point.m_dDoppler, pPoint->m_dDoppler, dDoppler) << nRead;
        ASSERT_EQ(point.m_time.ToCalendar(), pPoint->m_time.ToCalendar()) << nRead;
        if (nRead >= nFirstWithGga) {
            ASSERT_NEAR(point.m_dHDOP, pPoint->m_dHDOP, 1e-9) << nRead;
            ASSERT_EQ(point.m_nSats, pPoint->m_nSats) << nRead;
            ASSERT_EQ(point.m_nAltitude, pPoint->m_nAltitude) << nRead;
        }
        ++nRead;
    }
    EXPECT_EQ(nRead, read.GetCount());
}

TEST(SessionFile, ReadsBackAsItWasSimulated)
{
    const std::tuple<double, CPosition, SNmeaOptions> cases[] = {
        {1.0, MakePosition(52.8, 5.27), {}},
        {2.0, MakePosition(-38.84, 146.16), {.order = ESentenceOrder::GgaFirst}},
        {5.0, MakePosition(14.0, -61.0), {.nMinuteDecimals = 6}}, // across a full degree both ways
        {8.0, MakePosition(-0.001, -0.001), {.nMinuteDecimals = 8}},
        {10.0, MakePosition(59.9999, 9.9999), {.nMinuteDecimals = 4}},
    };
    const test::CTemporaryFolder folder;
    const std::string strGpx = folder.Path("session.gpx"), strNmea = folder.Path("session.nmea");
    for (const auto& [dRate, position, nmeaOptions] : cases) {
        SCOPED_TRACE(dRate);
        SSessionOptions options;
        options.dRate = dRate;
        options.nFixes = 3000;
        options.position = position;
        options.timeStart = DATE::FromCalendar({2023, 12, 31, 23, 58}); // into another year
        CSeries series;
        SimulateSession(options, series);
        CImportMonitor monitor;
        CObjectArray<CTrackPoint> gpx, nmea;
        ASSERT_TRUE(WriteSession(monitor, strGpx, series, {}));
        ASSERT_TRUE(WriteSession(monitor, strNmea, series, nmeaOptions));
        ASSERT_EQ(ReadGpx(monitor, strGpx, gpx), EReadEnd::Complete) << monitor.Message();
        ASSERT_EQ(ReadNmea(monitor, strNmea, nmea), EReadEnd::Complete) << monitor.Message();
        EXPECT_EQ(monitor.IssueCount(), 0);
        ExpectReadBack(series, gpx, 1e-10 * Half, 0.01 * 3.6 * Half, 0);
        // A GGA that stands before its RMC has yesterday's date at midnight, and is then lost to the reader.
        const double dMinute = std::pow(10.0, -nmeaOptions.nMinuteDecimals);
        const bool bRmcFirst = nmeaOptions.order == ESentenceOrder::RmcFirst;
        ExpectReadBack(series, nmea, dMinute / 60.0 * Half, 0.001 * KnotInKmh * Half, bRmcFirst ? 0 : 260);
    }
    std::istringstream lines(test::CTemporaryFolder::Read(strNmea));
    for (std::string strLine; std::getline(lines, strLine);) {
        int nSum = 0;
        const std::size_t nStar = strLine.find('*');
        for (std::size_t i = 1; i < nStar; ++i)
            nSum ^= strLine[i];
        ASSERT_EQ(std::stoi(strLine.substr(nStar + 1, 2), nullptr, 16), nSum) << strLine;
        ASSERT_EQ(strLine.substr(nStar + 3), "\r");
    }
}

TEST(SessionFile, BinaryFormatsReadBackAsSimulated)
{
    const test::CTemporaryFolder folder;
    SSessionOptions options;
    options.dRate = 8.0;
    options.nFixes = 3000;
    options.position = MakePosition(-0.001, -179.5);
    options.timeStart = DATE::FromCalendar({2023, 12, 31, 23, 58}); // into another year
    CSeries series, sirf, binaryLog;
    SimulateSession(options, series);
    CImportMonitor writing; // tells of the fixes without satellites
    CImportMonitor monitor;
    CObjectArray<CTrackPoint> pcx5;
    for (const char* pName : {"a.sbn", "a.sbp", "a.trk"})
        ASSERT_TRUE(WriteSession(writing, folder.Path(pName), series, {})) << writing.Message();
    ASSERT_EQ(ReadSirf(monitor, folder.Path("a.sbn"), sirf, sirf.m_points), EReadEnd::Complete);
    ASSERT_EQ(ReadBinaryLog(monitor, folder.Path("a.sbp"), binaryLog, binaryLog.m_points),
              EReadEnd::Complete);
    ASSERT_EQ(ReadPcx5(monitor, folder.Path("a.trk"), pcx5), EReadEnd::Complete);
    EXPECT_EQ(monitor.IssueCount(), 0);
    ASSERT_EQ(sirf.m_points.GetCount(), 3000) << "fixes without a position too";
    ASSERT_EQ(pcx5.GetCount(), 3000);
    int nLogged = 0; // a binary log has no fixes without a position
    for (int i = 0; i < 3000; ++i) {
        const CTrackPoint& expected = series.m_points[i];
        const CTrackPoint* pLogged = expected.HasPosition() ? &binaryLog.m_points[nLogged++] : nullptr;
        for (const CTrackPoint* pRead : {static_cast<const CTrackPoint*>(&sirf.m_points[i]), pLogged}) {
            if (pLogged == nullptr)
                break;
            ASSERT_EQ(pRead->m_time.ToCalendar(), expected.m_time.ToCalendar()) << i;
            ASSERT_NEAR(pRead->m_position.m_dLatitude, expected.m_position.m_dLatitude, 1e-7 * Half);
            ASSERT_NEAR(pRead->m_position.m_dLongitude, expected.m_position.m_dLongitude, 1e-7 * Half);
            ASSERT_NEAR(pRead->m_dDoppler, expected.m_dDoppler, 0.036 * Half) << i;
            ASSERT_NEAR(pRead->m_dDirection, expected.m_dDirection, 1.75e-4 * Half) << i;
            ASSERT_NEAR(pRead->m_dHDOP, expected.m_dHDOP, 0.2 * Half) << i;
            ASSERT_EQ(std::pair(pRead->m_nSats, pRead->m_nAltitude),
                      std::pair(expected.m_nSats, expected.m_nAltitude))
                << i;
        }
        ASSERT_EQ(pcx5[i].m_time.ToCalendarSecond(), expected.m_time.ToCalendarSecond()) << i;
        ASSERT_NEAR(pcx5[i].m_position.m_dLatitude, expected.m_position.m_dLatitude, 1e-7 * Half);
    }
    EXPECT_EQ(nLogged, binaryLog.m_points.GetCount());
    for (const CSeries* pRead : {&sirf, &binaryLog}) {
        EXPECT_EQ(pRead->m_strIdentifier, " " + series.m_strIdentifier);
        EXPECT_EQ(pRead->m_strSerialNo + pRead->m_strFirmware, series.m_strSerialNo + series.m_strFirmware);
        EXPECT_EQ(pRead->m_nLogRate, series.m_nLogRate);
    }
}

TEST(SessionFile, SentencesOfSpecialPoints)
{
    CTrackPoint point;
    point.m_time = DATE::FromCalendar({2009, 2, 3, 4, 5, 6}).Plus(7 * DaysPerMillisecond);
    EXPECT_TRUE(RmcSentence(point, 7).starts_with("$GPRMC,040506.007,V,,,,,,,030209,,,N*"));
    EXPECT_TRUE(GgaSentence(point, 7).starts_with("$GPGGA,040506.007,,,,,0,00,,,M,,M,,*"));
    // 59.99999999 minutes are a full degree, and the minutes have two digits before the point.
    point.m_position = MakePosition(-(9.0 + 59.99999999 / 60.0), 0.5 / 60.0);
    point.m_dDoppler = 0.5 * KnotInKmh;
    EXPECT_TRUE(RmcSentence(point, 6).starts_with("$GPRMC,040506.007,A,1000.000000,S,00000.500000,E,0.500,"));
}

} // namespace
} // namespace kestrabel
