#include "model/NumberText.h"
#include "model/SpeedUnits.h"
#include "model/TimeText.h"

#include <cmath>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(NumberText, TrimmedSignedPaddedAndInSpeedUnits)
{
    // The value, its decimals, and the texts: trimmed|with all decimals.
    const std::tuple<double, int, const char*> cases[] = {
        {0.25, 3, ".25|.250"},
        {-0.0, 3, "0|0"},
        {-0.5, 2, "-.5|-.50"},
        {0.05, 3, ".05|.05"},
        {0.1, 3, ".1|.100"},
        {250.0, 2, "250|250.00"},
        {100.0, 0, "100|100"},
        {-0.04, 1, "0|0"},
        {50.7654321987, 7, "50.7654322|50.7654322"},
        {1234567.891, -3, "1234568|1234568"},
        {std::nan(""), 2, "0|0"},
    };
    for (const auto& [d, nDecimals, pTexts] : cases)
        EXPECT_EQ(FormatNumber(d, nDecimals, true) + "|" + FormatNumber(d, nDecimals, false), pTexts);
    EXPECT_EQ(FormatNumber(-1.0, 40, false), "-1.000000000000000000000000000") << "30 characters";
    EXPECT_EQ(FormatNumber(1e40, 2, true), "100000000000000003037860284270");
    EXPECT_EQ(FormatSigned(-38.83, 6) + FormatSigned(146.155, 6), "-38.830000+146.155000");
    EXPECT_EQ(FormatSigned(-1e-9, 6), "+0") << "rounds to nothing";
    const std::tuple<double, int, int, const char*> padded[] = {
        {5.0, 2, 0, "05"},      {123.0, 2, 0, "123"},     {1.0, 5, 3, "1.000"},
        {0.25, 6, 2, "000.25"}, {-1.5, 6, 2, "-01.50"},   {-0.04, 3, 1, "0.0"},
        {1.5, -3, 1, "1.5"},    {9.9996, 5, 3, "10.000"}, {HUGE_VAL, 2, 0, "0"},
    };
    for (const auto& [dValue, nWidth, nDecimals, pText] : padded)
        EXPECT_EQ(FormatPadded(dValue, nWidth, nDecimals), pText);
    EXPECT_EQ(FormatPadded(1.0, 2147483647, 2147483647).size(), 64U) << "limited";
    for (int nUnit = -1; nUnit < 5; ++nUnit)
        EXPECT_NEAR(SpeedUnitOf(nUnit).dDisplayFactor * SpeedUnitOf(nUnit).dEntryFactor, 1.0, 1e-15) << nUnit;
}

TEST(TimeText, CutsTheTimeOfDayAndShiftsByWholeMilliseconds)
{
    const DATE noon = DATE::FromCalendar({2024, 6, 1, 12, 7});
    const std::pair<double, const char*> cases[] = {
        {9.07, "12:07:09 12:07:09.0 12:07:09.07 12:07:09.070"},
        {9.9994, "12:07:09 12:07:09.9 12:07:09.99 12:07:09.999"},
        {9.9996, "12:07:10 12:07:10.0 12:07:10.00 12:07:10.000"},
        {59.5, "12:07:59 12:07:59.5 12:07:59.50 12:07:59.500"},
        {42779.9996, "00:00:00 00:00:00.0 00:00:00.00 00:00:00.000"},
    };
    for (const auto& [dSeconds, pTexts] : cases) {
        const auto text = [&](int nPrecision) {
            return FormatTimeOfDay(noon.Plus(dSeconds * DaysPerSecond), nPrecision);
        };
        EXPECT_EQ(text(0) + " " + text(1) + " " + text(2) + " " + text(3), pTexts);
        EXPECT_EQ(text(-1) + text(4), text(3) + text(3));
    }
    EXPECT_EQ(FormatDay(noon.Plus(42779.9996 * DaysPerSecond)), "2024-06-02") << "with the time of day";

    EXPECT_EQ(FormatIsoShortest(ShiftToTimezone(noon, 9.5)), "2024-06-01T21:37:00");
    EXPECT_EQ(FormatIsoShortest(ShiftToTimezone(noon, -12.5)), "2024-05-31T23:37:00");
    EXPECT_EQ(FormatIsoShortest(ShiftToTimezone(noon, 0.0006 / 3600.0)), "2024-06-01T12:07:00.001");
    const DATE later = noon.Plus(0.0003 * DaysPerSecond);
    EXPECT_EQ(FormatIsoShortest(ShiftToTimezone(later, 0.0003 / 3600.0)), "2024-06-01T12:07:00");
    EXPECT_FALSE(ShiftToTimezone(DATE::MakeInvalid(), 9.5).IsValid());
}

} // namespace
} // namespace kestrabel
