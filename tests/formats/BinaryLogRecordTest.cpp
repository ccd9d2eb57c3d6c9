#include "formats/BinaryLogRecord.h"

#include "formats/BinaryLogBytes.h"
#include "formats/PointText.h"
#include "model/TimeText.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <tuple>

namespace kestrabel::test {
namespace {

DATE At(const SCalendar& calendar)
{
    return DATE::FromCalendar(calendar).Plus(calendar.nMillisecond * DaysPerMillisecond);
}

std::string_view Bytes(const CBinaryLogRecord& record)
{
    return {record.data(), record.size()};
}

std::string TimeOf(const std::string& record)
{
    CTrackPoint point;
    return ParseBinaryLogRecord(record, point) ? FormatIsoMillisecond(point.m_time) : "refused";
}

TEST(BinaryLogRecord, TimesAsPacked)
{
    const std::uint32_t nJune = 24 * 12 + 6;
    const std::tuple<std::uint32_t, std::uint16_t, const char*> cases[] = {
        {Packed(96, 1, 0, 0, 0), 0, "2007-12-01T00:00:00.000"},
        {Packed(97, 1, 0, 0, 0), 0, "2008-01-01T00:00:00.000"},
        {Packed(1023, 31, 23, 59, 59), 59000, "2085-03-31T23:59:59.000"},
        {Packed(2, 29, 12, 0, 0), 0, "2000-02-29T12:00:00.000"},
        // The packed second is rounded, halves up.
        {Packed(nJune, 1, 10, 0, 13), 12500, "2024-06-01T10:00:12.500"},
        {Packed(nJune, 1, 10, 0, 12), 12499, "2024-06-01T10:00:12.499"},
        {Packed(nJune, 1, 0, 0, 0), 59500, "2024-05-31T23:59:59.500"},
        {Packed(1, 1, 0, 0, 0), 59800, "1999-12-31T23:59:59.800"},
        // The whole seconds of the field do not matter.
        {Packed(nJune, 1, 10, 0, 12), 65250, "2024-06-01T10:00:12.250"},
        // What names no date is not refused.
        {Packed(0, 1, 0, 0, 0), 0, ""},
        {Packed(nJune, 31, 0, 0, 0), 0, ""},
        {Packed(nJune, 1, 0, 60, 0), 0, ""},
        {0, 0, ""},
        {Packed(nJune, 1, 0, 0, 60), 0, "refused"},
        {Packed(nJune, 1, 24, 0, 0), 0, "refused"},
        {0xffffffff, 0xffff, "refused"}};
    for (const auto& [nPacked, nField, pTime] : cases)
        EXPECT_EQ(TimeOf(Record(nPacked, nField)), pTime) << nPacked << " " << nField;
}

TEST(BinaryLogRecord, WithoutAFixIsRefused)
{
    const std::pair<std::size_t, std::string> cases[] = {
        {1, std::string(1, '\0')}, {12, "\xFF\xFF\xFF\xFF"}, {16, "\xFF\xFF\xFF\xFF"}};
    for (const auto& [nOffset, bytes] : cases) // satellites, latitude, longitude, which does not tell
        EXPECT_EQ(TimeOf(RecordAt(0).replace(nOffset, bytes.size(), bytes)) == "refused", nOffset != 16);
}

TEST(BinaryLogRecord, LayoutOfAPoint)
{
    CTrackPoint point;
    point.m_time = At({2007, 12, 31, 23, 58, 12, 600});
    point.m_position = MakePosition(-33.5, 151.25);
    point.m_nAltitude = -12;
    point.m_dDoppler = 36.0;
    point.m_dDirection = 1.5707963267948966;
    point.m_dVertSpeed = -1.8;
    point.m_dHDOP = 1.2;
    point.m_nSats = 9;
    point.m_nSatMask = 0x80000001;
    bool bTimeFits = false;
    const CBinaryLogRecord record = MakeBinaryLogRecord(point, bTimeFits);
    EXPECT_TRUE(bTimeFits);
    // HDOP, satellites, 12600 ms; 2007-12 is 96, day 31, 23:58:13; mask; positions; -1200 cm; 1000; 9000;
    // -50.
    const std::uint32_t nPacked = Packed(96, 31, 23, 58, 13);
    std::string expected("\x06\x09\x38\x31", 4);
    for (unsigned i = 0; i < 4; ++i)
        expected += static_cast<char>(nPacked >> 8U * i & 0xffU);
    expected += std::string("\x01\x00\x00\x80", 4) + std::string("\x40\x4E\x08\xEC", 4) +
                std::string("\x20\xEB\x26\x5A", 4) + std::string("\x50\xFB\xFF\xFF", 4) +
                std::string("\xE8\x03\x28\x23\xCE\xFF\x00\x00", 8);
    EXPECT_EQ(Bytes(record), expected);

    CTrackPoint again;
    ASSERT_TRUE(ParseBinaryLogRecord(Bytes(record), again));
    EXPECT_EQ(PointText(again), PointText(point));
    EXPECT_DOUBLE_EQ(again.m_dVertSpeed, -1.8);
    EXPECT_EQ(again.m_nSatMask, 0x80000001);
}

TEST(BinaryLogRecord, WhichTimesFit)
{
    const std::pair<SCalendar, bool> cases[] = {
        {{1999, 12, 31, 23, 59, 59, 499}, false},
        {{1999, 12, 31, 23, 59, 59, 500}, true}, // the packed second is that of the next year already
        {{2000, 2, 29}, true},
        {{2038, 1, 19, 3, 14, 8}, true},
        {{2085, 3, 31, 23, 59, 59, 499}, true},
        {{2085, 3, 31, 23, 59, 59, 500}, false},
        {{2086, 1, 1}, false},
        {{9999, 12, 31}, false},
        {{2024, 13, 1}, false}};
    for (const auto& [calendar, bFits] : cases) {
        CTrackPoint point;
        point.m_nSats = 1;
        point.m_time = At(calendar);
        bool bTimeFits = !bFits;
        const CBinaryLogRecord record = MakeBinaryLogRecord(point, bTimeFits);
        EXPECT_EQ(bTimeFits, bFits) << calendar.nYear;
        const std::string strExpected = bFits ? FormatIsoMillisecond(point.m_time) : "";
        EXPECT_EQ(TimeOf(std::string(Bytes(record))), strExpected) << calendar.nYear;
        if (!bFits) {
            EXPECT_EQ(Bytes(record).substr(2, 6), std::string(6, '\0'));
        }
    }
}

TEST(BinaryLogRecord, EveryMillisecondComesBack)
{
    // Up to and over a midnight that begins a leap day.
    for (int n = 0; n < 4000; ++n) {
        CTrackPoint point;
        point.m_nSats = 1;
        point.m_time = At({2024, 2, 28, 23, 59, 58}).Plus(n * DaysPerMillisecond);
        bool bTimeFits = false;
        ASSERT_EQ(TimeOf(std::string(Bytes(MakeBinaryLogRecord(point, bTimeFits)))),
                  FormatIsoMillisecond(point.m_time));
    }
}

TEST(BinaryLogRecord, ValuesBeyondAFieldBecomeItsNearest)
{
    const double dInfinity = std::numeric_limits<double>::infinity();
    const struct
    {
        double dValue;
        double dHdop, dLatitude, dDoppler, dClimb;
        int nSats;
    } cases[] = {
        {1e300, 51.0, 214.7483647, 2359.26, 1179.612, 255},
        {-dInfinity, 0.0, -214.7483648, 0.0, -1179.648, -1},
        {std::nan(""), 0.0, 0.0, 0.0, 0.0, -1},
        {0.1, 0.2, 0.1, 0.108, 0.108, 1}, // halves away from zero: 0.5 fifths are 1
    };
    for (const auto& test : cases) {
        CTrackPoint point;
        point.m_time = At({2024, 1, 1});
        point.m_dHDOP = point.m_dDoppler = point.m_dVertSpeed = point.m_dDirection = test.dValue;
        point.m_position = MakePosition(test.dValue, test.dValue);
        point.m_nSats = test.nSats == 255 ? 256 : test.nSats;
        point.m_nAltitude = std::numeric_limits<std::int32_t>::max();
        bool bTimeFits = false;
        std::string record(Bytes(MakeBinaryLogRecord(point, bTimeFits)));
        EXPECT_EQ(static_cast<unsigned char>(record[1]), test.nSats < 0 ? 0 : test.nSats);
        record[1] = 1;
        CTrackPoint again;
        ASSERT_TRUE(ParseBinaryLogRecord(record, again));
        EXPECT_DOUBLE_EQ(again.m_dHDOP, test.dHdop) << test.dValue;
        EXPECT_DOUBLE_EQ(again.m_position.m_dLatitude, test.dLatitude) << test.dValue;
        EXPECT_DOUBLE_EQ(again.m_position.m_dLongitude, test.dLatitude) << test.dValue;
        EXPECT_DOUBLE_EQ(again.m_dDoppler, test.dDoppler) << test.dValue;
        EXPECT_DOUBLE_EQ(again.m_dVertSpeed, test.dClimb) << test.dValue;
        EXPECT_EQ(again.m_nAltitude, 21474836);
    }
}

} // namespace
} // namespace kestrabel::test
