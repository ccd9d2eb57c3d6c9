#include "formats/BinaryLogReader.h"

#include "formats/BinaryLogBytes.h"
#include "formats/PointText.h"
#include "formats/SirfBytes.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

struct SRead
{
    CImportMonitor monitor;
    CSeries series;
    EReadEnd end = EReadEnd::Complete;

    explicit SRead(std::string_view bytes)
    {
        const CTemporaryFolder folder;
        end = ReadBinaryLog(monitor, folder.Write("a.sbp", bytes), series, series.m_points);
    }
    /// The seconds after 10:00 of the points.
    std::string Seconds() const
    {
        std::string strText;
        for (const CTrackPoint* pPoint : series.m_points) {
            const auto calendar = pPoint->m_time.ToCalendar();
            strText += calendar ? std::to_string(calendar->nMinute * 60 + calendar->nSecond) : "-";
            strText += ' ';
        }
        return strText;
    }
};

std::string Header(std::string_view payload)
{
    std::string header = std::string("\x27\x00", 2) + Frame(payload);
    header.resize(64, '\xFF');
    return header;
}

const std::string GoodHeader = Header("\xFD"
                                      "RODNEY,83,5,V1.0");

TEST(BinaryLogReader, Headers)
{
    std::string littleEndian = GoodHeader;
    std::swap(littleEndian[4], littleEndian[5]);
    std::string wrongEnd = GoodHeader;
    wrongEnd[wrongEnd.find('\xB3')] = '\xB4';
    std::string shifted = "x" + GoodHeader;
    shifted.resize(64);
    const std::string records = RecordAt(1) + RecordAt(2) + RecordAt(3);
    const struct
    {
        const char* pWhat;
        std::string bytes;
        const char* pSeconds;
        const char* pIdentifier;
    } cases[] = {
        {"none", records, "1 2 3 ", ""},
        {"little-endian", littleEndian + records, "1 2 3 ", "RODNEY"},
        {"any start", "zz" + GoodHeader.substr(2) + records, "1 2 3 ", "RODNEY"},
        {"any message", Header(")ID,1") + records, "1 2 3 ", "ID"},
        {"as long as it can be", Header("\xFD" + std::string(53, 'i')) + records, "1 2 3 ",
         "iiiiiiiiiiiiiiiiiiiiiiiiiiiiiii"},
        // Its bytes are then taken as two records, in which FF tells that there is no fix.
        {"wrong end", wrongEnd + records, "1 2 3 ", ""},
        {"not where it should be", shifted + records, "1 2 3 153 ", ""}, // but these make a record
    };
    for (const auto& test : cases) {
        const SRead read(test.bytes);
        EXPECT_EQ(read.end, EReadEnd::Complete) << test.pWhat;
        EXPECT_EQ(read.Seconds(), test.pSeconds) << test.pWhat;
        EXPECT_EQ(read.series.m_strIdentifier, test.pIdentifier) << test.pWhat;
    }
    EXPECT_EQ(PointText(SRead(RecordAt(1)).series.m_points[0]), "2024-06-01T10:00:01 48.5 11.5 sats=5");
    // A frame may reach beyond the header; the records do not move.
    const SRead read(std::string(2, '.') + Frame("\xFD" + std::string(200, 'i')) + RecordAt(0));
    EXPECT_EQ(read.series.m_strIdentifier, std::string(31, 'i'));
    for (const std::size_t nLength : {0U, 1U, 257U, 65535U}) {
        const SRead bad(std::string(2, '.') + Frame(std::string(nLength, 'i'), nLength) + RecordAt(1));
        EXPECT_EQ(bad.series.m_strIdentifier, "") << nLength;
    }
}

TEST(BinaryLogReader, PointsStandInOrderOfTime)
{
    const auto Order = [](const std::vector<std::uint32_t>& seconds) {
        std::string bytes = GoodHeader;
        for (const std::uint32_t nSecond : seconds)
            bytes += nSecond == 0 ? Record(0) : RecordAt(nSecond);
        return SRead(bytes).Seconds();
    };
    EXPECT_EQ(Order({5, 4, 3, 2, 1}), "1 2 3 4 5 ");
    EXPECT_EQ(Order({1, 9, 2, 3}), "1 2 3 9 ");
    EXPECT_EQ(Order({2, 0, 1}), "- 1 2 ") << "no date stands before all dates";

    // Those of equal time stay in file order.
    std::string bytes = GoodHeader;
    for (const char cSats : std::string_view("\1\2\3\4")) {
        bytes += RecordAt(cSats < 3 ? 7 : 6);
        bytes[bytes.size() - 31] = cSats;
    }
    const SRead read(bytes);
    std::string strSats;
    for (const CTrackPoint* pPoint : read.series.m_points)
        strSats += std::to_string(pPoint->m_nSats);
    EXPECT_EQ(strSats, "3412");
}

TEST(BinaryLogReader, BackwardsIsNotQuadratic)
{
    std::string bytes;
    constexpr std::uint32_t nRecords = 200'000;
    for (std::uint32_t n = nRecords; n-- > 0;)
        bytes += Record(Packed(24 * 12 + 6, 1 + n / 86400, n / 3600 % 24, n / 60 % 60, n % 60));
    const SRead read(bytes);
    ASSERT_EQ(read.series.m_points.GetCount(), static_cast<int>(nRecords));
    for (int i = 1; i < static_cast<int>(nRecords); ++i)
        ASSERT_LT(read.series.m_points[i - 1].m_time.m_dDays, read.series.m_points[i].m_time.m_dDays);
}

TEST(BinaryLogReader, RefusedRecordsArePassedOver)
{
    std::string noSats = RecordAt(2);
    noSats[1] = 0;
    const SRead read(GoodHeader + RecordAt(1) + noSats + std::string(32, '\xFF') + RecordAt(3));
    EXPECT_EQ(read.Seconds(), "1 3 ");
    EXPECT_EQ(read.monitor.IssueCount(), 0);
    const SRead none(GoodHeader + noSats);
    EXPECT_EQ(none.end, EReadEnd::Complete) << "a log that never had a fix is still a log";
    EXPECT_EQ(none.Seconds(), "");
}

TEST(BinaryLogReader, EveryTruncationKeepsThePointsSoFar)
{
    const std::string bytes = GoodHeader + RecordAt(1) + RecordAt(2) + RecordAt(3);
    const std::size_t nFrameEnd = 2 + 8 + 17;
    for (std::size_t nSize = 0; nSize <= bytes.size(); ++nSize) {
        const SRead read(bytes.substr(0, nSize));
        // Without a whole frame the bytes are records, of which 32 make one.
        const bool bAnyRecord = nSize < nFrameEnd ? nSize >= 32 : nSize >= 64 + 32;
        ASSERT_EQ(read.end, bAnyRecord ? EReadEnd::Complete : EReadEnd::Failed) << nSize;
        ASSERT_EQ(read.monitor.Message(), bAnyRecord ? "" : "Failed to read point from file") << nSize;
        ASSERT_EQ(read.series.m_points.GetCount(), nSize < 64 ? 0 : static_cast<int>((nSize - 64) / 32))
            << nSize;
        ASSERT_EQ(read.series.m_strIdentifier, nSize < nFrameEnd ? "" : "RODNEY") << nSize;
    }
}

} // namespace
} // namespace kestrabel::test
