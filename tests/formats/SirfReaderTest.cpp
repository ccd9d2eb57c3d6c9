#include "formats/SirfReader.h"

#include "formats/PointText.h"
#include "formats/SirfBytes.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

using CTexts = std::vector<std::string>;

struct SRead
{
    CImportMonitor monitor;
    CSeries series;
    EReadEnd end = EReadEnd::Complete;

    explicit SRead(std::string_view bytes)
    {
        const CTemporaryFolder folder;
        end = ReadSirf(monitor, folder.Write("a.sbn", bytes), series, series.m_points);
    }
    CTexts Points() const { return PointTexts(series.m_points); }
};

const std::string Second = "2024-06-01T10:00:0";
const std::string Where = " 48.5 11.5";

TEST(SirfReader, OnePointPerTimeInFileOrder)
{
    std::string strFaster = Navigation(2000);
    PutAt<std::uint16_t>(strFaster, 40, 1000);
    std::string strNoDate = Navigation(1000);
    strNoDate[13] = 0;
    const struct
    {
        const char* pWhat;
        std::string bytes;
        CTexts points;
    } cases[] = {
        {"two",
         Frame(Navigation(1000)) + Frame(Navigation(2000)),
         {Second + "1" + Where, Second + "2" + Where}},
        {"backwards",
         Frame(Navigation(2000)) + Frame(Navigation(1000)),
         {Second + "2" + Where, Second + "1" + Where}},
        {"same time", Frame(Navigation(2000)) + Frame(strFaster), {Second + "2" + Where + " dop=36"}},
        {"a third of another time between",
         Frame(strFaster) + Frame(Navigation(3000)) + Frame(strFaster),
         {Second + "2" + Where + " dop=36", Second + "3" + Where, Second + "2" + Where + " dop=36"}},
        {"other messages between do not part them",
         Frame(strFaster) + Frame("\x02xyz") + Frame("\x07x") + Frame(strFaster),
         {Second + "2" + Where + " dop=36"}},
        {"no date is another time",
         Frame(Navigation(1000)) + Frame(strNoDate) + Frame(strNoDate),
         {Second + "1" + Where, "invalid" + Where}},
        {"a short one gives nothing",
         Frame(Navigation(1000, 90)) + Frame(Navigation(2000)),
         {Second + "2" + Where}},
        {"nor does it part two",
         Frame(strFaster) + Frame(Navigation(9000, 20)) + Frame(strFaster),
         {Second + "2" + Where + " dop=36"}},
        {"only the ID counts",
         Frame(std::string("\x29\xFF", 2) + Navigation(4000).substr(2)),
         {Second + "4" + Where}},
        {"others alone", Frame("\x02xyz") + Frame("\x2A" + Navigation(1000)), {}},
    };
    for (const auto& test : cases) {
        const SRead read(test.bytes);
        EXPECT_EQ(read.Points(), test.points) << test.pWhat;
        EXPECT_EQ(read.end, EReadEnd::Complete) << test.pWhat;
        EXPECT_EQ(read.monitor.IssueCount(), 0) << test.pWhat;
    }
}

TEST(SirfReader, OfTheSameTimeALongMessageKeepsItsSecondSpeed)
{
    std::string strLong = Navigation(1000, 95);
    PutAt<std::uint16_t>(strLong, 91, 1000);
    const SRead read(Frame(strLong) + Frame(Navigation(1000)));
    ASSERT_EQ(read.series.m_points.GetCount(), 1);
    EXPECT_EQ(read.series.m_points[0].m_dUSOG, 36.0);
}

TEST(SirfReader, DeviceFields)
{
    const SRead read(Frame("\xFD"
                           "GT,83,5,V1.4,Logger") +
                     Frame(Navigation(0)));
    EXPECT_EQ(read.series.m_strIdentifier, "GT");
    EXPECT_EQ(read.series.m_strSerialNo, "83");
    EXPECT_EQ(read.series.m_nLogRate, 5);
    EXPECT_EQ(read.series.m_strFirmware, "V1.4");
    EXPECT_EQ(read.series.m_strInfo, "Logger");
}

TEST(SirfReader, NoMessageIsAFailure)
{
    for (const std::string& bytes : {std::string(), std::string("$GPRMC,120000"), std::string(5000, '\xA0'),
                                     Frame("ab").substr(0, 9), Frame("x", 600)})
    {
        const SRead read(bytes);
        EXPECT_EQ(read.end, EReadEnd::Failed);
        EXPECT_EQ(read.monitor.Message(), "Failed to read header from file");
        EXPECT_EQ(read.Points(), CTexts());
    }
}

TEST(SirfReader, BadLengthEndsReadingAndIsNoted)
{
    const std::string strGood = Frame(Navigation(1000));
    for (const std::size_t nLength :
         {std::size_t(0), std::size_t(1), std::size_t(513), std::size_t(1025), std::size_t(65535)})
    {
        const SRead read(strGood + Frame(std::string(nLength, 'x')) + Frame(Navigation(2000)));
        EXPECT_EQ(read.end, EReadEnd::Complete);
        EXPECT_EQ(read.Points(), CTexts{Second + "1" + Where}) << nLength;
        ASSERT_EQ(read.monitor.IssueCount(), 1) << nLength;
        EXPECT_EQ(read.monitor.Issues()[0].nLine, static_cast<std::int64_t>(strGood.size()));
    }
}

TEST(SirfReader, EveryTruncationKeepsThePointsSoFar)
{
    const std::string bytes = Frame("\xFD"
                                    "a,b,1,c,d") +
                              Frame(Navigation(1000)) + "noise" + Frame(Navigation(2000, 95));
    for (std::size_t nSize = 0; nSize <= bytes.size(); ++nSize) {
        const SRead read(bytes.substr(0, nSize));
        const int nExpected = (nSize >= 18 + 99 ? 1 : 0) + (nSize == bytes.size() ? 1 : 0);
        ASSERT_EQ(read.series.m_points.GetCount(), nExpected) << nSize;
        ASSERT_EQ(read.end, nSize >= 18 ? EReadEnd::Complete : EReadEnd::Failed) << nSize;
    }
}

TEST(SirfReader, StopsWhenTheMonitorIsAborted)
{
    const CTemporaryFolder folder;
    CImportMonitor monitor;
    monitor.Abort();
    CSeries series;
    const std::string strPath = folder.Write("a.sbn", Frame(Navigation(0)));
    EXPECT_EQ(ReadSirf(monitor, strPath, series, series.m_points), EReadEnd::Stopped);
    EXPECT_TRUE(series.m_points.IsEmpty());
}

TEST(SirfReader, OpenFailure)
{
    const CTemporaryFolder folder;
    CImportMonitor monitor;
    CSeries series;
    const std::string strPath = folder.Path("missing.sbn");
    EXPECT_EQ(ReadSirf(monitor, strPath, series, series.m_points), EReadEnd::Failed);
    EXPECT_EQ(monitor.Message(), strPath + ": The file could not be located");
    EXPECT_TRUE(monitor.IsAborted());
}

} // namespace
} // namespace kestrabel::test
