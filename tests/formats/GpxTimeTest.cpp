#include "formats/GpxTime.h"

#include "model/TimeText.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrabel::test {
namespace {

constexpr std::string_view NoNumber = "1899-12-30T00:00:00.000"; // the time 0.0

TEST(GpxTime, Table)
{
    struct SCase
    {
        std::string_view strText;
        std::string_view strExpected;
    };
    const SCase cases[] = {
        {"2007-05-01T10:20:30Z", "2007-05-01T10:20:30.000"},
        {"2007-05-01T10:20:30.4567Z", "2007-05-01T10:20:30.457"},
        {"2007-05-01T10:20:30.4564Z", "2007-05-01T10:20:30.456"},
        {"2007-05-01T10:20:30.0005Z", "2007-05-01T10:20:30.001"},
        {"2007-05-01T10:20:30:00Z", "2007-05-01T10:20:30.000"},
        {"2007-05-01T10:20:30", "2007-05-01T10:20:30.000"},
        {"2007-05-01T10:20:30.", "2007-05-01T10:20:30.000"},
        {"2007-05-01T10:20:.5Z", "2007-05-01T10:20:00.500"},
        // The zone is not interpreted.
        {"2007-05-01T10:20:30+02:00", "2007-05-01T10:20:30.000"},
        {"2007-05-01T10:20:30.5-07:00", "2007-05-01T10:20:30.500"},
        // What is not reached is 0.
        {"2007-05-01T10:20:Z", "2007-05-01T10:20:00.000"},
        {"2007-05-01T10:20Z", "2007-05-01T10:20:00.000"},
        {"2007-05-01T10Z", "2007-05-01T10:00:00.000"},
        {"2007-05-01T", "2007-05-01T00:00:00.000"},
        {"2007-05-01", "2007-05-01T00:00:00.000"},
        {"2007-05-01 10:20:30Z", "2007-05-01T00:00:00.000"},
        {"2007-05-01t10:20:30Z", "2007-05-01T00:00:00.000"},
        {"2007-5-1T1:2:3Z", "2007-05-01T01:02:03.000"},
        {"2007-05-01T10:20:abcZ", "2007-05-01T10:20:00.000"},
        {"2007-05-01T10:20:nanZ", "2007-05-01T10:20:00.000"},
        {"2007-05", "invalid"}, // no day
        {"2007", "invalid"},
        {"2007/05/01T10:20:30Z", "invalid"},
        {"7", "invalid"},
        // Blanks before a number are skipped, others end the reading.
        {" \r\n\t2007-05-01T10:20:30Z\n", "2007-05-01T10:20:30.000"},
        {"2007- 05- 01T 10: 20: 30Z", "2007-05-01T10:20:30.000"},
        {"2007-05-01 T10:20:30Z", "2007-05-01T00:00:00.000"},
        // Rounded seconds carry; a leap second does, too.
        {"2007-05-01T10:20:59.9994Z", "2007-05-01T10:20:59.999"},
        {"2007-05-01T10:20:59.9996Z", "2007-05-01T10:21:00.000"},
        {"2007-05-01T10:59:59.9996Z", "2007-05-01T11:00:00.000"},
        {"2007-12-31T23:59:59.9996Z", "2008-01-01T00:00:00.000"},
        {"2007-05-01T10:20:60Z", "2007-05-01T10:21:00.000"},
        {"2008-12-31T23:59:60.5Z", "2009-01-01T00:00:00.500"},
        {"2007-05-01T10:20:60.9996Z", "2007-05-01T10:21:01.000"},
        {"2007-05-01T10:20:61Z", "invalid"},
        {"2007-05-01T10:20:99Z", "invalid"},
        {"2007-05-01T10:20:-1Z", "invalid"},
        {"2007-05-01T10:20:1e300Z", "invalid"},
        // Fields that name no date.
        {"2007-13-01T10:20:30Z", "invalid"},
        {"2007-02-31T10:20:30Z", "invalid"},
        {"2007-00-01T10:20:30Z", "invalid"},
        {"2007-05-01T24:00:00Z", "invalid"},
        {"2007-05-01T10:60:00Z", "invalid"},
        {"2007-05-01T-1:20:00Z", "invalid"},
        {"2007--5-01T10:20:00Z", "invalid"},
        {"2008-02-29T10:20:30Z", "2008-02-29T10:20:30.000"},
        {"0-05-01T10:20:30Z", "invalid"},
        {"99-05-01T10:20:30Z", "invalid"},
        {"100-05-01T10:20:30Z", "0100-05-01T10:20:30.000"},
        {"9999-12-31T23:59:59.999Z", "9999-12-31T23:59:59.999"},
        {"10000-01-01T10:20:30Z", "invalid"},
        {"-2007-05-01T10:20:30Z", "invalid"},
        {"+2007-05-01T10:20:30Z", "2007-05-01T10:20:30.000"},
        {"99999999999-05-01T10:20:30Z", "invalid"},
        // No number at all.
        {"", NoNumber},
        {"Z", NoNumber},
        {"abc", NoNumber},
        {"T10:20:30Z", NoNumber},
        {"--2007", NoNumber},
    };
    for (const SCase& one : cases) {
        const DATE time = ParseGpxTime(one.strText);
        EXPECT_EQ(time.IsValid() ? FormatIsoMillisecond(time) : "invalid", one.strExpected) << one.strText;
    }
}

TEST(GpxTime, EveryMillisecondIsExact)
{
    for (int nSecond = 0; nSecond < 60; ++nSecond) {
        for (int nMillisecond = 0; nMillisecond < 1000; ++nMillisecond) {
            const std::string strText = "2024-06-01T12:34:" + std::to_string(100 + nSecond).substr(1) + "." +
                                        std::to_string(1000 + nMillisecond).substr(1);
            ASSERT_EQ(FormatIsoMillisecond(ParseGpxTime(strText + "Z")), strText);
        }
    }
}

} // namespace
} // namespace kestrabel::test
