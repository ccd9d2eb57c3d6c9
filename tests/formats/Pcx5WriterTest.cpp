#include "formats/Pcx5Writer.h"

#include "formats/Pcx5Reader.h"
#include "formats/PointText.h"
#include "support/TemporaryFolder.h"
#include "support/Track.h"

#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

constexpr std::string_view Head =
    "H  SOFTWARE NAME & VERSION\r\n"
    "I  PCX5 2.08  Created by Kestrabel\r\n\r\n"
    "H  R DATUM                IDX DA            DF            DX            DY            DZ\r\n"
    "M  G WGS 84               100 +0.000000e+00 +0.000000e+00 +0.000000e+00 +0.000000e+00 "
    "+0.000000e+00\n\r\n"
    "H  COORDINATE SYSTEM\r\n"
    "U  LAT LON DEG\r\n\r\n"
    "H  LATITUDE    LONGITUDE    DATE      TIME     ALT ;track\r\n";

TEST(Pcx5Writer, LinesAndTheirPointsAgain)
{
    const auto At = [](int nYear, int nMonth, int nDay, double dSeconds) {
        return DATE::FromCalendar({.nYear = nYear, .nMonth = nMonth, .nDay = nDay})
            .Plus(dSeconds * DaysPerSecond);
    };
    const struct
    {
        DATE time;
        CPosition position;
        std::int32_t nAltitude;
        const char *pLine, *pReadBack;
    } cases[] = {
        {At(2007, 5, 4, 45296), MakePosition(33.0353908, -96.2020575), 10,
         "T +33.0353908 -96.2020575 04-May-07 12:34:56 10",
         "2007-05-04T12:34:56 33.0353908 -96.2020575 alt=10"},
        {At(2007, 5, 4, 0), MakePosition(-0.5, 179.99999999), -9999,
         "T -.5000000 +180.0000000 04-May-07 00:00:00 -9999", "2007-05-04T00:00:00 -.5 180 alt=-9999"},
        {At(2000, 2, 29, 86399.5), MakePosition(0.0, -1e-9), 0, "T +0 +0 01-Mar-00 00:00:00 0",
         "2000-03-01T00:00:00 0 0"},
        {At(2000, 12, 31, 86399.499), MakePosition(0.05, -0.05), 0, "T +.05 -.05 31-Dec-00 23:59:59 0",
         "2000-12-31T23:59:59 .05 -.05"},
        {At(1999, 12, 31, 1), MakePosition(1.0, 2.0), 0, "T +1.0000000 +2.0000000 31-Dec-99 00:00:01 0",
         "1999-12-31T00:00:01 1 2"},
        // Two digits do not tell the century.
        {At(2100, 1, 1, 0), MakePosition(1.0, 2.0), 0, "T +1.0000000 +2.0000000 01-Jan-00 00:00:00 0",
         "2000-01-01T00:00:00 1 2"},
        {DATE::MakeInvalid(), MakePosition(1.0, 2.0), 3, "T +1.0000000 +2.0000000 00-Jan-00 00:00:00 3",
         "invalid 1 2 alt=3"},
    };
    const CTemporaryFolder folder;
    const std::string strPath = folder.Path("a.trk");
    CObjectArray<CTrackPoint> points;
    std::string strExpected(Head);
    std::vector<std::string> readBack;
    for (const auto& test : cases) {
        points.Add(MakePoint(0.0, test.position.m_dLatitude, test.position.m_dLongitude));
        points.Last()->m_time = test.time;
        points.Last()->m_nAltitude = test.nAltitude;
        strExpected.append(test.pLine).append("\r\n");
        readBack.emplace_back(test.pReadBack);
    }
    CImportMonitor monitor;
    ASSERT_TRUE(WritePcx5(monitor, strPath, points));
    EXPECT_EQ(CTemporaryFolder::Read(strPath), strExpected);
    CObjectArray<CTrackPoint> read;
    ASSERT_EQ(ReadPcx5(monitor, strPath, read), EReadEnd::Complete);
    EXPECT_EQ(PointTexts(read), readBack);
    ASSERT_EQ(monitor.IssueCount(), 1);
    EXPECT_TRUE(
        monitor.Issues()[0].strReason.starts_with("2 points with a time that is not from 1950 to 2049"));
}

} // namespace
} // namespace kestrabel::test
