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
    const std::string one = Frame(Navigation(1000)), two = Frame(Navigation(2000)),
                      three = Frame(Navigation(3000));
    const std::string faster = Frame(strFaster), noDate = Frame(strNoDate);
    const std::string At1 = Second + "1" + Where, At2 = Second + "2" + Where, At3 = Second + "3" + Where;
    const std::string Faster = At2 + " dop=36";
    const struct
    {
        const char* pWhat;
        std::string bytes;
        CTexts points;
    } cases[] = {{"backwards", two + one, {At2, At1}},
                 {"same time", two + faster, {Faster}},
                 {"a third of another time between", faster + three + faster, {Faster, At3, Faster}},
                 {"other messages between", faster + Frame("\x02xyz") + Frame("\x07x") + faster, {Faster}},
                 {"no date is another time", one + noDate + noDate, {At1, "invalid" + Where}},
                 {"a short one gives nothing", Frame(Navigation(1000, 90)) + two, {At2}},
                 {"nor does it part two", faster + Frame(Navigation(9000, 20)) + faster, {Faster}},
                 {"only the ID counts", Frame("\x29\xFF" + Navigation(3000).substr(2)), {At3}},
                 {"others alone", Frame("\x02xyz") + Frame("\x2A" + Navigation(1000)), {}}};
    for (const auto& test : cases) {
        const SRead read(test.bytes);
        EXPECT_EQ(read.Points(), test.points) << test.pWhat;
        EXPECT_EQ(read.end, EReadEnd::Complete) << test.pWhat;
        EXPECT_EQ(read.monitor.IssueCount(), 0) << test.pWhat;
    }
}

TEST(SirfReader, DeviceFieldsAndTheSecondSpeedOfALongMessage)
{
    std::string strLong = Navigation(1000, 95);
    PutAt<std::uint16_t>(strLong, 91, 1000);
    const SRead read(Frame("\xFD" + std::string("GT,83,5,V1.4,Logger")) + Frame(strLong) +
                     Frame(Navigation(1000)));
    const CSeries& series = read.series;
    EXPECT_EQ(series.m_strIdentifier + series.m_strSerialNo + series.m_strFirmware + series.m_strInfo,
              "GT83V1.4Logger");
    EXPECT_EQ(series.m_nLogRate, 5);
    ASSERT_EQ(series.m_points.GetCount(), 1);
    EXPECT_EQ(series.m_points[0].m_dUSOG, 36.0);
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
    for (const std::size_t nLength : {0U, 1U, 513U, 65535U}) {
        const SRead read(strGood + Frame(std::string(nLength, 'x')) + Frame(Navigation(2000)));
        EXPECT_EQ(read.end, EReadEnd::Complete);
        EXPECT_EQ(read.Points(), CTexts{Second + "1" + Where}) << nLength;
        ASSERT_EQ(read.monitor.IssueCount(), 1) << nLength;
        EXPECT_EQ(read.monitor.Issues()[0].nLine, static_cast<std::int64_t>(strGood.size()));
    }
}

TEST(SirfReader, EveryTruncationKeepsThePointsSoFar)
{
    const std::string bytes = Frame("\xFD" + std::string("a,b,1,c,d")) + Frame(Navigation(1000)) + "noise" +
                              Frame(Navigation(2000, 95));
    for (std::size_t nSize = 0; nSize <= bytes.size(); ++nSize) {
        const SRead read(bytes.substr(0, nSize));
        const int nExpected = (nSize >= 18 + 99 ? 1 : 0) + (nSize == bytes.size() ? 1 : 0);
        ASSERT_EQ(read.series.m_points.GetCount(), nExpected) << nSize;
        ASSERT_EQ(read.end, nSize >= 18 ? EReadEnd::Complete : EReadEnd::Failed) << nSize;
    }
}

} // namespace
} // namespace kestrabel::test
