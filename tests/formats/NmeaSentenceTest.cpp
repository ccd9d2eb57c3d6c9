#include "formats/NmeaSentence.h"

#include "formats/FieldSplitter.h"
#include "model/TimeText.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace kestrabel::test {
namespace {

std::string TimeText(const DATE& time)
{
    return time.IsValid() ? FormatIsoMillisecond(time) : "invalid";
}

TEST(NmeaSentence, Times)
{
    const std::string strLongDate = "230307" + std::string(4000, '0');
    struct SCase
    {
        std::string_view strDate;
        std::string_view strTime;
        std::string_view strExpected;
    };
    const SCase cases[] = {
        {"230394", "123519.50", "1994-03-23T12:35:19.500"},
        {"230349", "000000", "2049-03-23T00:00:00.000"},
        {"230350", "000000", "1950-03-23T00:00:00.000"},
        {"230399", "000000", "1999-03-23T00:00:00.000"},
        {"230300", "000000", "2000-03-23T00:00:00.000"},
        {"23032007", "235959.999", "2007-03-23T23:59:59.999"},
        {"2303100", "000000", "0100-03-23T00:00:00.000"},
        {"23037", "000000", "2007-03-23T00:00:00.000"},
        {"2303", "120000", "2000-03-23T12:00:00.000"}, // no year
        {"23", "120000", "2000-01-23T12:00:00.000"},   // no month
        {"7", "120000", "2000-01-07T12:00:00.000"},
        {"", "120000", "2000-01-01T12:00:00.000"},
        {"290200", "120000", "2000-02-29T12:00:00.000"},
        {"290201", "120000", "invalid"},
        {"310299", "120000", "invalid"},
        {"011399", "120000", "invalid"},
        {"010099", "120000", "invalid"},
        {"000199", "120000", "invalid"},
        {"abcdef", "120000", "invalid"},
        {"-10107", "120000", "invalid"},
        {"010699999999999999", "120000", "invalid"}, // the year does not fit
        {strLongDate, "120000", "invalid"},
        // Time of day: a missing part is 0.
        {"010624", "", "2024-06-01T00:00:00.000"},
        {"010624", "7", "2024-06-01T07:00:00.000"},
        {"010624", "12", "2024-06-01T12:00:00.000"},
        {"010624", "1234", "2024-06-01T12:34:00.000"},
        {"010624", "12345", "2024-06-01T12:34:05.000"},
        {"010624", "123456.", "2024-06-01T12:34:56.000"},
        {"010624", "123456.7899", "2024-06-01T12:34:56.789"}, // cut, not rounded
        {"010624", "123456.9999", "2024-06-01T12:34:56.999"},
        {"010624", "123456.999999999999", "2024-06-01T12:34:56.999"}, // not back to the start of the second
        {"010624", "123459.9999999", "2024-06-01T12:34:59.999"},
        {"010624", "ab34cd", "2024-06-01T00:34:00.000"},
        // Carry: 60 s goes into the minute, 60 min into the hour, 24 h back to 0 of the same day.
        {"010624", "123460", "2024-06-01T12:35:00.000"},
        {"010624", "123460.25", "2024-06-01T12:35:00.250"},
        {"010624", "123499", "2024-06-01T12:35:39.000"},
        {"010624", "125960", "2024-06-01T13:00:00.000"},
        {"010624", "127500", "2024-06-01T13:00:00.000"},
        {"010624", "235960", "2024-06-01T00:00:00.000"},
        {"010624", "240000", "2024-06-01T00:00:00.000"},
        {"010624", "995959", "2024-06-01T00:59:59.000"},
        // No times at all.
        {"010624", "1234120", "invalid"},
        {"010624", "1234-5", "invalid"},
        {"010624", "-10000", "invalid"},
        {"010624", "12-100", "invalid"},
        {"010624", "00001e300", "invalid"},
        {"010624", "00001e308", "invalid"},
        {"010624", "0000nan", "2024-06-01T00:00:00.000"},
        {"010624", "0000inf", "2024-06-01T00:00:00.000"},
        {"010624", "000099999999999999999999", "invalid"},
    };
    for (const SCase& one : cases) {
        const DATE time = ParseNmeaTime(one.strDate, one.strTime);
        EXPECT_EQ(TimeText(time), one.strExpected) << one.strDate.substr(0, 40) << " " << one.strTime;
        // Points are merged by equal values, which not-a-number never has.
        EXPECT_TRUE(std::isfinite(time.m_dDays)) << one.strTime;
    }
}

// 1.001 * 1000 is 1000.9999999999999: cutting the product would lose a millisecond of the log.
TEST(NmeaSentence, EveryMillisecondIsExact)
{
    for (int nSecond = 0; nSecond < 60; ++nSecond) {
        for (int nMillisecond = 0; nMillisecond < 1000; ++nMillisecond) {
            const std::string strText = "1234" + std::to_string(100 + nSecond).substr(1) + "." +
                                        std::to_string(1000 + nMillisecond).substr(1);
            const std::optional<SCalendar> calendar = ParseNmeaTime("010624", strText).ToCalendar();
            ASSERT_TRUE(calendar) << strText;
            ASSERT_EQ(calendar->nSecond, nSecond) << strText;
            ASSERT_EQ(calendar->nMillisecond, nMillisecond) << strText;
        }
    }
    const DATE whole = DATE::FromCalendar({.nYear = 2024, .nMonth = 6, .nDay = 1, .nHour = 12});
    EXPECT_EQ(ParseNmeaTime("010624", "120000.001").m_dDays, whole.m_dDays + 1.1574074074074074e-8);
}

TEST(NmeaSentence, Angles)
{
    struct SCase
    {
        std::string_view strText;
        std::string_view strHemisphere;
        double dLatitude;
        double dLongitude;
    };
    constexpr double dMinute = 0.016666666666666666;
    const SCase cases[] = {
        {"4807.038", "N", 48 + 7.038 * dMinute, 480 + 7.038 * dMinute},
        {"01131.000", "E", 1 + 131.0 * dMinute, 11 + 31.0 * dMinute},
        {"", "N", 0.0, 0.0},
        {"4", "N", 4.0, 4.0},
        {"48", "N", 48.0, 48.0},
        {"123", "N", 12 + 3 * dMinute, 123.0},
        {"abcdef", "N", 0.0, 0.0},
        {"48abc", "N", 48.0, 48.0},
        {"4.5", "N", 4 + 5 * dMinute, 4.5}, // whole degrees of latitude, decimal ones of longitude
        {"99999999999999999999", "N", 99 + 999999999999999999.0 * dMinute,
         999 + 99999999999999999.0 * dMinute},
    };
    for (const SCase& one : cases) {
        EXPECT_DOUBLE_EQ(ParseNmeaLatitude(one.strText, one.strHemisphere), one.dLatitude) << one.strText;
        EXPECT_DOUBLE_EQ(ParseNmeaLongitude(one.strText, one.strHemisphere), one.dLongitude) << one.strText;
    }
    const std::pair<std::string_view, bool> souths[] = {{"S", true},   {"s", true},  {"South", true},
                                                        {"N", false},  {"", false},  {"W", false},
                                                        {" S", false}, {"3", false}, {"5", false}};
    for (const auto& [strField, bSouth] : souths)
        EXPECT_EQ(ParseNmeaLatitude("1030.0", strField), bSouth ? -10.5 : 10.5) << strField;
    const std::pair<std::string_view, bool> wests[] = {
        {"W", true}, {"w", true}, {"west", true}, {"E", false}, {"", false}, {"S", false}, {"7", false}};
    for (const auto& [strField, bWest] : wests)
        EXPECT_EQ(ParseNmeaLongitude("01030.0", strField), bWest ? -10.5 : 10.5) << strField;
}

TEST(NmeaSentence, VtgTakesTheSpeedWithMoreDigits)
{
    struct SCase
    {
        std::string_view strKnots;
        std::string_view strKmh;
        double dSpeed;
    };
    const SCase cases[] = {
        {"10.5", "19.45", 19.45},
        {"10.55", "19.5", 10.55 * 1.852},
        {"10.55", "19.45", 19.45},  // a tie
        {"10", "19.5", 10 * 1.852}, // without a point: length plus one, here 3 against 2
        {"1", "1.85", 1.85},
        {"10.", "19", 19.0},
        {"10.5", "", 10.5 * 1.852},
        {"", "19.5", 19.5},
        {"", "", 0.0},
        {"abc", "19.5", 0.0},
        {"5.000", "9.3", 5 * 1.852},
    };
    for (const SCase& one : cases) {
        const std::string_view fields[] = {"GPVTG", "", "", "", "", one.strKnots, "N", one.strKmh, "K"};
        EXPECT_DOUBLE_EQ(ParseVtgSpeed(fields), one.dSpeed) << one.strKnots << " " << one.strKmh;
    }
}

TEST(NmeaSentence, GgaNumbers)
{
    struct SCase
    {
        std::string_view strLine;
        std::int32_t nAltitude;
        double dHdop;
        std::int32_t nSats;
        std::int32_t nRxStatus;
    };
    const SCase cases[] = {
        {"GPGGA,120000,4830.0,N,01130.0,E,2,08,0.9,545.9,M,46.9,M,,", 545, 0.9, 8, 2},
        {"GPGGA,120000,4830.0,N,01130.0,E,1,08,0.9,-3.9,M,46.9,M,,", -3, 0.9, 8, 1},
        {"GPGGA,120000,4830.0,N,01130.0,E,1,0,0.9,5,M,46.9,M,,", 5, 0.9, 0,
         9}, // no satellites: quality stays
        {"GPGGA,120000,4830.0,N,01130.0,E,0,-3,-1.5,5,M,46.9,M,,", 5, -1.5, -3, 0},
        {"GPGGA,120000,4830.0,N,01130.0,E,x,abc,abc,abc,M,46.9,M,,", 0, 0.0, 0, 9},
        {"GPGGA,120000,4830.0,N,01130.0,E,1,99999999999,1e400,1e300,M,,M,,", 2147483647, 0.0, 2147483647, 1},
        {"GPGGA,120000,4830.0,N,01130.0,E,1,8,nan,inf,M,46.9,M,,", 0, 0.0, 8, 1},
        {"GPGGA,120000,4830.0,N,01130.0,E,1,8", 0, 0.0, 8, 1}, // fields that are not there are empty
    };
    for (const SCase& one : cases) {
        std::vector<std::string_view> fields;
        SplitFields(one.strLine, fields);
        CTrackPoint point;
        point.m_nRxStatus = 9;
        point.m_dDoppler = 7.0;
        point.m_dDirection = 1.0;
        point.m_nRun = 3;
        ParseGga(fields, "010624").ApplyTo(point);
        EXPECT_EQ(point.m_nAltitude, one.nAltitude) << one.strLine;
        EXPECT_EQ(point.m_dHDOP, one.dHdop) << one.strLine;
        EXPECT_EQ(point.m_nSats, one.nSats) << one.strLine;
        EXPECT_EQ(point.m_nRxStatus, one.nRxStatus) << one.strLine;
        EXPECT_EQ(point.m_dDoppler, 7.0);
        EXPECT_EQ(point.m_dDirection, 0.0) << "what the derivation fills is cleared";
        EXPECT_EQ(point.m_nRun, 0);
        EXPECT_EQ(point.m_position, MakePosition(48.5, 11.5));
    }
}

TEST(NmeaSentence, ZdaSetsTheTimeAlone)
{
    const std::string_view fields[] = {"GPZDA", "120000.5", "1", "06", "2024", "00"};
    CTrackPoint point;
    point.m_position = MakePosition(1, 2);
    point.m_dDirection = 1.0;
    ParseZda(fields).ApplyTo(point);
    EXPECT_EQ(TimeText(point.m_time), "2024-06-01T12:00:00.500");
    EXPECT_EQ(point.m_position, MakePosition(1, 2));
    EXPECT_EQ(point.m_dDirection, 1.0);

    for (const std::string_view strYear : {"24", "0", "", "99", "10000", "-2024", "99999999999"}) {
        const std::string_view bad[] = {"GPZDA", "120000.5", "1", "06", strYear, "00"};
        EXPECT_FALSE(ParseZda(bad).time.IsValid()) << "the year is taken as it is: " << strYear;
    }
}

} // namespace
} // namespace kestrabel::test
