#include "formats/NmeaSentence.h"

#include "formats/FieldSplitter.h"
#include "formats/PointText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <tuple>
#include <vector>

namespace kestrabel::test {
namespace {

TEST(SplitFields, QuotesAndLongFields)
{
    // Only a quote before a comma closes, one inside a field is data, one never closed lasts to the end.
    std::vector<std::string_view> fields = {"left", "over"};
    SplitFields("\"a\"b,c\",, d\"e,\"x,y", fields);
    EXPECT_EQ(fields, (std::vector<std::string_view>{"a\"b,c", "", " d\"e", "x,y"}));
    const std::string strLong(2048, 'x');
    const std::string strLine = strLong + "y,\"" + strLong + "y\",";
    SplitFields(strLine, fields);
    EXPECT_EQ(fields, (std::vector<std::string_view>{strLong, strLong, ""}));
}

TEST(NmeaSentence, Times)
{
    const std::tuple<std::string_view, std::string_view, std::string_view> cases[] = {
        {"230394", "123519.50", "1994-03-23T12:35:19.500"},
        {"230350", "000000", "1950-03-23T00:00:00.000"},
        {"23032007", "235959.999", "2007-03-23T23:59:59.999"},
        {"290201", "120000", "invalid"},
        {"010699999999999999", "120000", "invalid"}, // the year does not fit
        // Time of day: a missing part is 0.
        {"010624", "", "2024-06-01T00:00:00.000"},
        {"010624", "123456.7899", "2024-06-01T12:34:56.789"},         // cut, not rounded
        {"010624", "123456.999999999999", "2024-06-01T12:34:56.999"}, // not back to the start of the second
        // Carry: 60 s goes into the minute, 60 min into the hour, 24 h back to 0 of the same day.
        {"010624", "125960.25", "2024-06-01T13:00:00.250"},
        {"010624", "235960", "2024-06-01T00:00:00.000"},
        // No times at all.
        {"010624", "1234-5", "invalid"},
        {"010624", "00001e300", "invalid"},
    };
    for (const auto& [strDate, strTime, strExpected] : cases) {
        const DATE time = ParseNmeaTime(strDate, strTime);
        EXPECT_EQ(time.IsValid() ? FormatIsoMillisecond(time) : "invalid", strExpected) << strDate << strTime;
        // Points are merged by equal values, which not-a-number never has.
        EXPECT_TRUE(std::isfinite(time.m_dDays)) << strTime;
    }
    // 1.001 * 1000 is 1000.9999999999999: cutting the product would lose a millisecond of the log.
    for (int n = 0; n < 60'000; ++n) {
        const std::string strMilliseconds = std::to_string(100'000 + n);
        const std::string strSeconds = strMilliseconds.substr(1, 2) + "." + strMilliseconds.substr(3);
        ASSERT_EQ(FormatIsoMillisecond(ParseNmeaTime("010624", "1234" + strSeconds)),
                  "2024-06-01T12:34:" + strSeconds);
    }
}

TEST(NmeaSentence, Angles)
{
    constexpr double dMinute = 0.016666666666666666;
    const std::tuple<std::string_view, double, double> cases[] = {
        {"4807.038", 48 + 7.038 * dMinute, 480 + 7.038 * dMinute},
        {"01131.000", 1 + 131.0 * dMinute, 11 + 31.0 * dMinute},
        {"4.5", 4 + 5 * dMinute, 4.5}, // whole degrees of latitude, decimal ones of longitude
    };
    for (const auto& [strText, dLatitude, dLongitude] : cases) {
        EXPECT_DOUBLE_EQ(ParseNmeaLatitude(strText, "N"), dLatitude) << strText;
        EXPECT_DOUBLE_EQ(ParseNmeaLongitude(strText, "E"), dLongitude) << strText;
    }
    EXPECT_EQ(ParseNmeaLatitude("1030.0", "south"), -10.5);
    EXPECT_EQ(ParseNmeaLatitude("1030.0", "3"), 10.5); // an S but for a bit
    EXPECT_EQ(ParseNmeaLongitude("01030.0", "West"), -10.5);
    EXPECT_EQ(ParseNmeaLongitude("01030.0", ""), 10.5);
}

TEST(NmeaSentence, VtgGgaAndZda)
{
    const std::tuple<std::string_view, std::string_view, double> speeds[] = {
        {"10.55", "19.5", 10.55 * 1.852},
        {"10.55", "19.45", 19.45},  // a tie
        {"10", "19.5", 10 * 1.852}, // without a point: length plus one, here 3 against 2
    };
    for (const auto& [strKnots, strKmh, dSpeed] : speeds) {
        const std::string_view fields[] = {"GPVTG", "", "", "", "", strKnots, "N", strKmh, "K"};
        EXPECT_DOUBLE_EQ(ParseVtgSpeed(fields), dSpeed) << strKnots << " " << strKmh;
    }
    const std::pair<std::string, std::string> fixes[] = {
        {"E,2,08,0.9,-3.9,M,46.9,M,,", " alt=-3 hdop=.9 sats=8 fix=2"},
        {"E,1,0,0.9,5,M,46.9,M,,", " alt=5 hdop=.9 fix=9"}, // no satellites: the quality stays
        {"E,1,8", " sats=8 fix=1"},                         // fields that are not there are empty
    };
    for (const auto& [strFields, strValues] : fixes) {
        const std::string strLine = "GPGGA,120000,4830.0,N,01130.0," + strFields;
        std::vector<std::string_view> fields;
        SplitFields(strLine, fields);
        CTrackPoint point;
        point.m_nRxStatus = 9;
        point.m_dDoppler = 7.0;
        point.m_dDirection = 1.0; // derived, so it is cleared
        ParseGga(fields, "010624").ApplyTo(point);
        EXPECT_EQ(PointText(point), "2024-06-01T12:00:00 48.5 11.5 dop=7" + strValues);
    }
    // The year of ZDA is taken as it is.
    const std::string_view bad[] = {"GPZDA", "120000.5", "1", "06", "24", "00"};
    EXPECT_FALSE(ParseZda(bad).time.IsValid());
}

} // namespace
} // namespace kestrabel::test
