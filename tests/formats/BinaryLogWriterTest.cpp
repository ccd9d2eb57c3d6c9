#include "formats/BinaryLogWriter.h"

#include "formats/BinaryLogReader.h"
#include "formats/PointText.h"
#include "support/TemporaryFolder.h"
#include "support/Track.h"

#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

void FillSeries(CSeries& series)
{
    for (int n = 0; n < 3; ++n) {
        series.m_points.Add(MakePoint(n * 0.2, 48.5, 11.5));
        series.m_points.Last()->m_nSats = 8;
    }
}

std::string HeaderOf(CSeries& series, CImportMonitor& monitor)
{
    const CTemporaryFolder folder;
    const std::string strPath = folder.Path("a.sbp");
    EXPECT_TRUE(WriteBinaryLog(monitor, series, strPath, series.m_points));
    const std::string bytes = CTemporaryFolder::Read(strPath);
    EXPECT_EQ(bytes.size(), 64U + 32U * static_cast<std::size_t>(series.m_points.GetCount()));
    return bytes.substr(0, 64);
}

TEST(BinaryLogWriter, HeaderTextThatDoesNotFitIsCut)
{
    // The text has 17 bytes beside the identifier; 53 fit.
    for (const std::size_t nLength : {std::size_t(36), std::size_t(37), std::size_t(5000)}) {
        CSeries series;
        FillSeries(series);
        series.m_strIdentifier = std::string(nLength, 'i');
        CImportMonitor monitor;
        const std::string header = HeaderOf(series, monitor);
        EXPECT_EQ(header.substr(2, 5), std::string("\xA0\xA2\x36\x00\xFD", 5)) << nLength;
        EXPECT_EQ(header.substr(60), std::string("\x00\x00\xB0\xB3", 4)) << nLength;
        EXPECT_EQ(monitor.IssueCount(), nLength == 36 ? 0 : 1) << nLength;
    }
    CSeries series;
    series.m_strIdentifier = std::string(51, 'i') + "\xC3\xB6";
    CImportMonitor monitor;
    EXPECT_EQ(HeaderOf(series, monitor).substr(4, 3), std::string("\x35\x00\xFD", 3)) << "no half character";
}

TEST(BinaryLogWriter, HeaderAndPointsReadBack)
{
    const CTemporaryFolder folder;
    CSeries series;
    FillSeries(series);
    series.m_strIdentifier = "J\xC3\xB6rg";
    series.m_strSerialNo = "83";
    series.m_nLogRate = 5;
    series.m_strFirmware = "V1";
    series.m_points[0].m_nInvalidFlags = InvalidFlag::User;
    CImportMonitor monitor;
    std::string expected = std::string("\x2E\x00\xA0\xA2\x1B\x00\xFD", 7) +
                           " J\xC3\xB6rg,83,5,V1,Kestro1.917" + std::string("\x00\x00\xB0\xB3", 4);
    expected.resize(64, '\xFF');
    EXPECT_EQ(HeaderOf(series, monitor), expected);
    const std::string strPath = folder.Path("a.sbp");
    ASSERT_TRUE(WriteBinaryLog(monitor, series, strPath, series.m_points));
    CSeries read;
    ASSERT_EQ(ReadBinaryLog(monitor, strPath, read, read.m_points), EReadEnd::Complete);
    EXPECT_EQ(PointTexts(read.m_points), PointTexts(series.m_points)) << "invalid points too";
    EXPECT_EQ(read.m_strIdentifier, " J\xC3\xB6rg");
    EXPECT_EQ(monitor.IssueCount(), 0);
}

TEST(BinaryLogWriter, NotesWhatTheFileCannotHold)
{
    CSeries series;
    FillSeries(series);
    series.m_points[0].m_time = DATE::MakeInvalid();
    series.m_points[1].m_time = DATE::FromCalendar({.nYear = 2086, .nMonth = 1, .nDay = 1});
    series.m_points[2].m_nSats = 0;
    CImportMonitor monitor;
    HeaderOf(series, monitor);
    ASSERT_EQ(monitor.IssueCount(), 2);
    EXPECT_EQ(monitor.Issues()[0].strReason,
              "2 points with a time that is not from 2000 to March 2085, written as zero");
    EXPECT_EQ(monitor.Issues()[1].strReason, "1 point without satellites, passed over when the file is read");
}

} // namespace
} // namespace kestrabel::test
