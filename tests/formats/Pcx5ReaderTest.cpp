#include "formats/Pcx5Reader.h"

#include "formats/PointText.h"
#include "formats/ScriptedPrompt.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

using CTexts = std::vector<std::string>;
constexpr std::string_view Question = "Unknown file format. Failed to read line. \n Do you wish to continue?";

struct SRead
{
    CScriptedPrompt prompt;
    CImportMonitor monitor;
    CObjectArray<CTrackPoint> points;
    EReadEnd end = EReadEnd::Complete;

    explicit SRead(std::string_view bytes, bool bCancel = false) : prompt({!bCancel}), monitor(&prompt)
    {
        const CTemporaryFolder folder;
        end = ReadPcx5(monitor, folder.Write("a.trk", bytes), points);
    }
};

TEST(Pcx5Reader, TrackLines)
{
    const struct
    {
        const char *pLine, *pPoint; // "?": the question is asked; "!": the file is refused
    } cases[] = {
        {"T  N3302.12345 W09612.12345 04-MAY-07 12:34:56 -9999",
         "2007-05-04T12:34:56 33.0353908 -96.2020575 alt=-9999"},
        {"T +33.0353908 -96.2020575 04-May-07 12:34:56 10",
         "2007-05-04T12:34:56 33.0353908 -96.2020575 alt=10"},
        {"T s3302.5 e09612.0 04-May-07 12:34:56 10", "2007-05-04T12:34:56 -33.0416667 96.2 alt=10"},
        {"T -3330.0 +15115.0 04-May-07 12:34:56 10", "2007-05-04T12:34:56 -33.5 151.25 alt=10"},
        // The latitude alone tells that minutes follow the degrees.
        {"T 100 9612 04-May-07 12:34:56 10", "2007-05-04T12:34:56 100 9612 alt=10"},
        {"T 100.5 9612 04-May-07 12:34:56 10", "2007-05-04T12:34:56 1.0083333 96.2 alt=10"},
        {"T N0030 E00030 04-May-07 12:34:56 10", "2007-05-04T12:34:56 30 30 alt=10"},
        // Altitude and time are cut.
        {"T 1 2 04-May-07 12:34:56 -10.9", "2007-05-04T12:34:56 1 2 alt=-10"},
        {"T 1 2 04-May-07 12:34:56 1e300", "2007-05-04T12:34:56 1 2 alt=2147483647"},
        {"T 1 2 04-May-07 12:34:56,99 0", "2007-05-04T12:34:56 1 2"},
        {"T 1 2 04-May-07 12:34:56. 0", "2007-05-04T12:34:56 1 2"},
        {"T 1 2 04-May-07 12:34:56.123 0", "!"},
        {"T 1 2 04-May-07 12:34:56.099 0", "2007-05-04T12:34:56 1 2"},
        {"T 1 2 04-May-07 12:34 0", "2007-05-04T12:34:00 1 2"},
        // A position with an unreadable time is kept.
        {"T 1 2 00-Jan-00 00:00:00 0", "invalid 1 2"},
        {"T 1 2 31-Feb-07 12:34:56 0", "invalid 1 2"},
        {"T 1 2 31-Dec-99 00:00:00 0", "1999-12-31T00:00:00 1 2"},
        // Items.
        {"T\t1\t2\t04-May-07\t12:34:56\t10", "2007-05-04T12:34:56 1 2 alt=10"},
        {"T1 2 04-May-07 12:34:56 10", "2007-05-04T12:34:56 1 2 alt=10"},
        {"T 1 2 04-May-07 12:34:56 10m", "2007-05-04T12:34:56 1 2 alt=10"},
        {"T N W 04-May-07 12:34:56 10", "2007-05-04T12:34:56 0 0 alt=10"},
        {"T 1 2 04-May-07 12:34:56", "?"},
        {"T 1 2 04-May-07 12:34:56 high", "?"},
        {"T", "?"},
        // Other kinds of record.
        {"", ""},
        {" T 1 2 04-May-07 12:34:56 10", ""},
        {"t 1 2 04-May-07 12:34:56 10", ""},
        {"H  LATITUDE    LONGITUDE    DATE      TIME     ALT ;track", ""},
    };
    for (const auto& test : cases) {
        const SRead read(test.pLine);
        const std::string strExpected = test.pPoint;
        const bool bRefused = strExpected == "!";
        const bool bAsked = strExpected == "?";
        const bool bPoint = !bRefused && !bAsked && !strExpected.empty();
        EXPECT_EQ(PointTexts(read.points), bPoint ? CTexts{strExpected} : CTexts()) << test.pLine;
        EXPECT_EQ(read.prompt.m_asked, bAsked ? CTexts{std::string(Question)} : CTexts()) << test.pLine;
        EXPECT_EQ(read.monitor.Message(), bRefused ? "Invalid PCX5 format found" : "") << test.pLine;
        EXPECT_EQ(read.end, bRefused ? EReadEnd::Stopped : EReadEnd::Complete) << test.pLine;
        EXPECT_EQ(read.monitor.IssueCount(), bAsked || bRefused ? 1 : 0) << test.pLine;
    }
}

TEST(Pcx5Reader, ALineThatCannotBeReadIsSkippedOrEndsReading)
{
    const std::string strGood = "T 1 2 04-May-07 12:34:56 0\r\n";
    for (const bool bCancel : {false, true}) {
        const SRead read(strGood + "T 1 2\r\n" + strGood, bCancel);
        EXPECT_EQ(read.points.GetCount(), bCancel ? 1 : 2);
        EXPECT_EQ(read.end, bCancel ? EReadEnd::Stopped : EReadEnd::Complete);
        EXPECT_EQ(read.monitor.Message(), bCancel ? "Invalid PCX5 format found" : "");
        ASSERT_EQ(read.monitor.IssueCount(), 1);
        EXPECT_EQ(read.monitor.Issues()[0].nLine, 2);
    }
}

TEST(Pcx5Reader, EveryTruncationKeepsThePointsSoFar)
{
    const std::string strLine = "T N3302.12345 W09612.12345 04-MAY-07 12:34:56 -9999\r\n";
    const std::string bytes = "H x\r\n" + strLine + strLine;
    for (std::size_t nSize = 0; nSize <= bytes.size(); ++nSize) {
        const SRead read(std::string_view(bytes).substr(0, nSize));
        // A line is whole from the first digit of its altitude on.
        const std::size_t nEnough = strLine.size() - 5;
        const int nExpected =
            (nSize >= 5 + nEnough ? 1 : 0) + (nSize >= 5 + strLine.size() + nEnough ? 1 : 0);
        ASSERT_EQ(read.points.GetCount(), nExpected) << nSize;
        ASSERT_EQ(read.end, EReadEnd::Complete) << nSize;
    }
}

} // namespace
} // namespace kestrabel::test
