#include "model/NumberText.h"
#include "model/SpeedUnits.h"
#include "model/TimeText.h"

#include <cmath>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(NumberText, Numbers)
{
    const struct
    {
        double dValue;
        std::int32_t nDecimals;
        const char *pTrimmed, *pWhole;
    } cases[] = {
        {0.25, 3, ".25", ".250"},
        {12.4, 0, "12", "12"},
        {-1.5, 1, "-1.5", "-1.5"},
        {0.0, 3, "0", "0"},
        {-0.0, 3, "0", "0"},
        {0.5, 2, ".5", ".50"},
        {-0.5, 2, "-.5", "-.50"},
        {0.05, 3, ".05", ".05"}, // below 0.1 always trimmed
        {0.0005, 3, ".001", ".001"},
        {0.1, 3, ".1", ".100"},
        {1.5, 3, "1.5", "1.500"},
        {250.0, 2, "250", "250.00"},
        {100.0, 0, "100", "100"},
        {0.999, 2, "1", "1.00"},
        {9.996, 2, "10", "10.00"},
        {0.04, 1, "0", "0"}, // rounds to nothing
        {-0.04, 1, "0", "0"},
        {-0.4, 0, "0", "0"},
        {0.6, 0, "1", "1"},
        {1e-300, 32, "0", "0"},
        {38.83, 6, "38.83", "38.830000"},
        {50.7654321987, 7, "50.7654322", "50.7654322"},
        {1234567.891, -3, "1234568", "1234568"},          // no fewer than none
        {1.0, 40, "1", "1.0000000000000000000000000000"}, // 30 characters
        {-1.0, 40, "-1", "-1.000000000000000000000000000"},
        {0.5, 32, ".5", ".50000000000000000000000000000"},
        {1e40, 2, "100000000000000003037860284270", "100000000000000003037860284270"},
        {std::nan(""), 2, "0", "0"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(FormatNumber(test.dValue, test.nDecimals, true), test.pTrimmed)
            << test.dValue << " " << test.nDecimals;
        EXPECT_EQ(FormatNumber(test.dValue, test.nDecimals, false), test.pWhole)
            << test.dValue << " " << test.nDecimals;
        EXPECT_EQ(FormatFixed(test.dValue, test.nDecimals, true), test.pTrimmed);
    }
}

TEST(NumberText, SignedAndPadded)
{
    EXPECT_EQ(FormatSigned(-38.83, 6), "-38.830000");
    EXPECT_EQ(FormatSigned(146.155, 6), "+146.155000");
    EXPECT_EQ(FormatSigned(0.0, 6), "+0");
    EXPECT_EQ(FormatSigned(-0.5, 6), "-.500000");
    EXPECT_EQ(FormatSigned(-1e-9, 6), "+0") << "rounds to nothing";
    const struct
    {
        double dValue;
        std::int32_t nWidth, nDecimals;
        const char* pText;
    } cases[] = {
        {5.0, 2, 0, "05"},         {12.0, 2, 0, "12"},     {123.0, 2, 0, "123"}, {1.0, 5, 3, "1.000"},
        {0.1, 3, 1, "0.1"},        {0.25, 6, 2, "000.25"}, {-5.0, 4, 0, "-005"}, {-1.5, 6, 2, "-01.50"},
        {0.0, 2, 0, "00"},         {-0.04, 3, 1, "0.0"},   {1.5, -3, 1, "1.5"},  {9.9996, 5, 3, "10.000"},
        {std::nan(""), 2, 0, "0"}, {HUGE_VAL, 2, 0, "0"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(FormatPadded(test.dValue, test.nWidth, test.nDecimals), test.pText) << test.dValue;
    EXPECT_EQ(FormatPadded(1.0, 2147483647, 2147483647).size(), 64U) << "limited";
}

TEST(TimeText, TimeOfDayCutsAndNeverShowsASecondMore)
{
    const DATE noon = DATE::FromCalendar({.nYear = 2024, .nMonth = 6, .nDay = 1, .nHour = 12, .nMinute = 7});
    const struct
    {
        double dSeconds;
        const char* pTexts[4]; // by precision
    } cases[] = {
        {9.0, {"12:07:09", "12:07:09.0", "12:07:09.00", "12:07:09.000"}},
        {9.499, {"12:07:09", "12:07:09.4", "12:07:09.49", "12:07:09.499"}},
        {9.5, {"12:07:09", "12:07:09.5", "12:07:09.50", "12:07:09.500"}},
        {9.501, {"12:07:09", "12:07:09.5", "12:07:09.50", "12:07:09.501"}},
        {9.07, {"12:07:09", "12:07:09.0", "12:07:09.07", "12:07:09.070"}},
        {9.999, {"12:07:09", "12:07:09.9", "12:07:09.99", "12:07:09.999"}},
        {9.9994, {"12:07:09", "12:07:09.9", "12:07:09.99", "12:07:09.999"}},
        {9.9996, {"12:07:10", "12:07:10.0", "12:07:10.00", "12:07:10.000"}},
        {59.5, {"12:07:59", "12:07:59.5", "12:07:59.50", "12:07:59.500"}},
        {59.9996, {"12:08:00", "12:08:00.0", "12:08:00.00", "12:08:00.000"}},
        {42779.9996, {"00:00:00", "00:00:00.0", "00:00:00.00", "00:00:00.000"}},
    };
    for (const auto& test : cases) {
        const DATE time = noon.Plus(test.dSeconds * DaysPerSecond);
        for (std::int32_t nPrecision = 0; nPrecision < 4; ++nPrecision)
            EXPECT_EQ(FormatTimeOfDay(time, nPrecision), test.pTexts[nPrecision]) << test.dSeconds;
        EXPECT_EQ(FormatTimeOfDay(time, -1), test.pTexts[3]);
        EXPECT_EQ(FormatTimeOfDay(time, 4), test.pTexts[3]);
    }
    EXPECT_EQ(FormatDay(noon.Plus(42779.9994 * DaysPerSecond)), "2024-06-01");
    EXPECT_EQ(FormatDay(noon.Plus(42779.9996 * DaysPerSecond)), "2024-06-02") << "with the time of day";
    EXPECT_EQ(FormatDay(DATE::FromCalendar({.nYear = 987, .nMonth = 1, .nDay = 2})), "0987-01-02");
    EXPECT_EQ(FormatIsoShortest(noon), "2024-06-01T12:07:00");
    EXPECT_EQ(FormatIsoShortest(noon.Plus(0.1 * DaysPerSecond)), "2024-06-01T12:07:00.100");
}

TEST(TimeText, TimezonesShiftByWholeMilliseconds)
{
    const DATE evening = DATE::FromCalendar({.nYear = 2024, .nMonth = 12, .nDay = 31, .nHour = 20});
    const struct
    {
        double dHours;
        const char* pText;
    } cases[] = {
        {0.0, "2024-12-31T20:00:00.000"},
        {9.5, "2025-01-01T05:30:00.000"},
        {-24.0, "2024-12-30T20:00:00.000"},
        {24.0, "2025-01-01T20:00:00.000"},
        {-3.75, "2024-12-31T16:15:00.000"},
        {1.0 / 3600.0, "2024-12-31T20:00:01.000"},
        {0.0004 / 3600.0, "2024-12-31T20:00:00.000"},
        {0.0006 / 3600.0, "2024-12-31T20:00:00.001"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(FormatIsoMillisecond(ShiftToTimezone(evening, test.dHours)), test.pText) << test.dHours;
    EXPECT_EQ(FormatIsoMillisecond(ShiftToTimezone(evening.Plus(0.0003 * DaysPerSecond), 0.0003 / 3600.0)),
              "2024-12-31T20:00:00.000")
        << "0.3 ms of timezone are none";
    EXPECT_NEAR((ShiftToTimezone(evening, 9.5).m_dDays - evening.m_dDays) * SecondsPerDay, 34200.0, 1e-6);
    EXPECT_FALSE(ShiftToTimezone(DATE::MakeInvalid(), 9.5).IsValid());
}

TEST(SpeedUnits, FactorsAreTheLiterals)
{
    const struct
    {
        std::int32_t nUnit;
        const char *pText, *pSuffix;
        double dDisplay, dEntry;
    } cases[] = {
        {0, "nm", "(knots)", 0.5399568034557235, 1.852}, {1, "kmh", "(kph)", 1.0, 1.0},
        {2, "ms", "(m/s)", 0.2777777777777778, 3.6},     {3, "mph", "(mph)", 0.621371192237334, 1.609344},
        {4, "ms", "(m/s)", 0.2777777777777778, 3.6},     {-1, "ms", "(m/s)", 0.2777777777777778, 3.6},
    };
    for (const auto& test : cases) {
        const SSpeedUnit& unit = SpeedUnitOf(test.nUnit);
        EXPECT_EQ(unit.strText, test.pText);
        EXPECT_EQ(unit.strSuffix, test.pSuffix);
        EXPECT_EQ(unit.dDisplayFactor, test.dDisplay);
        EXPECT_EQ(unit.dEntryFactor, test.dEntry);
    }
}

} // namespace
} // namespace kestrabel
