#include "model/Date.h"

#include "model/TimeText.h"

#include <cmath>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(Date, DayCountsOfTheCalendarAndFieldsThatNameNoTime)
{
    constexpr double None = -1e9;
    const std::pair<SCalendar, double> cases[] = {
        {{1899, 12, 29}, -1.0},      {{1900, 2, 29}, None},          {{1900, 3, 1}, 61.0},
        {{2000, 2, 29}, 36585.0},    {{2024, 2, 30}, None},          {{2100, 3, 1}, 73110.0},
        {{2024, 4, 31}, None},       {{2024, 0, 1}, None},           {{2024, 13, 1}, None},
        {{99, 12, 31}, None},        {{100, 1, 1}, -657434.0},       {{9999, 12, 31}, 2958465.0},
        {{10000, 1, 1}, None},       {{2024, 1, 1, 24}, None},       {{2024, 1, 1, -1}, None},
        {{2024, 1, 1, 0, 60}, None}, {{2024, 1, 1, 0, 0, 60}, None}, {{2024, 1, 1, 0, 0, -1}, None},
    };
    for (const auto& [fields, dDays] : cases) {
        const DATE date = DATE::FromCalendar(fields);
        EXPECT_EQ(date.IsValid(), dDays != None) << fields.nYear << "-" << fields.nMonth;
        if (dDays == None)
            continue;
        EXPECT_EQ(date.m_dDays, dDays);
        EXPECT_EQ(date.ToCalendar(), fields);
        EXPECT_EQ(date.ToCalendarSecond(), fields);
        EXPECT_EQ(date.Year(), fields.nYear);
    }
}

TEST(Date, FieldsComeFromTheRoundedTime)
{
    const DATE newYear = DATE::FromCalendar({2025, 1, 1});
    const DATE below = newYear.Plus(-0.0006 * DaysPerSecond), above = newYear.Plus(-0.0004 * DaysPerSecond);
    EXPECT_EQ(FormatIsoMillisecond(below), "2024-12-31T23:59:59.999");
    EXPECT_EQ(FormatIsoMillisecond(above), "2025-01-01T00:00:00.000");
    EXPECT_TRUE(below.IsBeforeYear(2025) && !above.IsBeforeYear(2025)) << "as the fields say";
    // Before day 0 time runs forward as well: the day before, six in the evening.
    EXPECT_EQ(FormatIsoMillisecond(DATE(-0.25)), "1899-12-29T18:00:00.000");
    EXPECT_EQ(FormatIsoSecond(DATE(-0.5 / SecondsPerDay)), "1899-12-30T00:00:00") << "halves up";
    EXPECT_EQ(FormatIsoSecond(DATE(-0.501 / SecondsPerDay)), "1899-12-29T23:59:59");
}

TEST(Date, EveryMillisecondOfAMinuteComesBack)
{
    const DATE start = DATE::FromCalendar({2024, 6, 1, 13, 59});
    for (int i = 0; i < 60'000; ++i) {
        const DATE time = start.Plus(i * 0.001 * DaysPerSecond);
        const auto calendar = time.ToCalendar();
        ASSERT_TRUE(calendar && calendar->nMinute == 59);
        ASSERT_EQ(calendar->nSecond * 1000 + calendar->nMillisecond, i);
        ASSERT_EQ(time.ToCalendarSecond()->nSecond, (i + 500) / 1000 % 60) << i;
        ASSERT_EQ(SecondsBetween(start, time), i / 1000.0);
        ASSERT_EQ(SecondsBetween(time, start), i == 0 ? 0.0 : -i / 1000.0);
    }
    EXPECT_EQ(SecondsBetween(start, start.Plus(199.9996 * DaysPerSecond)), 200.0);
    EXPECT_EQ(SecondsBetween(start, start.Plus(-0.0006 * DaysPerSecond)), -0.001);
}

TEST(Date, WhatIsNoTimeHasNoFields)
{
    for (const DATE& date : {DATE::MakeNull(), DATE(std::nan("")), DATE(HUGE_VAL), DATE(1e300),
                             DATE(-657434.001), DATE(2958465.999999999)})
    {
        EXPECT_FALSE(date.ToCalendar() || date.ToCalendarSecond()) << date.m_dDays;
        EXPECT_EQ(date.Year(), -1);
        EXPECT_EQ(FormatTimeOfDay(date, 3) + FormatDay(date) + FormatIsoSecond(date), "");
        EXPECT_EQ(FormatIsoMillisecond(date) + FormatIsoShortest(date), "");
    }
    EXPECT_EQ(DATE::MakeInvalid().Plus(1.0).m_nStatus, DATE::Invalid);
    EXPECT_TRUE(DATE::MakeInvalid().IsBeforeYear(2000));
}

} // namespace
} // namespace kestrabel
