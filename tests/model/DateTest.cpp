#include "model/Date.h"

#include "model/TimeText.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace kestrabel {
namespace {

DATE At(int nYear, int nMonth, int nDay, double dSeconds = 0.0)
{
    return DATE::FromCalendar({.nYear = nYear, .nMonth = nMonth, .nDay = nDay})
        .Plus(dSeconds / SecondsPerDay);
}

TEST(Date, DayCountsOfTheCalendar)
{
    const struct
    {
        int nYear, nMonth, nDay;
        double dDays;
    } cases[] = {
        {1899, 12, 30, 0.0},   {1899, 12, 31, 1.0},   {1899, 12, 29, -1.0},   {1900, 1, 1, 2.0},
        {1900, 2, 28, 60.0},   {1900, 3, 1, 61.0},    {2000, 1, 1, 36526.0},  {2000, 2, 29, 36585.0},
        {2024, 6, 1, 45444.0}, {2100, 3, 1, 73110.0}, {100, 1, 1, -657434.0}, {9999, 12, 31, 2958465.0},
    };
    for (const auto& test : cases) {
        const SCalendar fields{.nYear = test.nYear, .nMonth = test.nMonth, .nDay = test.nDay};
        const DATE date = DATE::FromCalendar(fields);
        EXPECT_TRUE(date.IsValid());
        EXPECT_EQ(date.m_dDays, test.dDays) << test.nYear;
        EXPECT_EQ(date.ToCalendar(), fields) << test.nYear;
        EXPECT_EQ(date.ToCalendarSecond(), fields) << test.nYear;
        EXPECT_EQ(date.Year(), test.nYear);
    }
}

TEST(Date, FieldsThatNameNoTimeAreInvalid)
{
    const struct
    {
        SCalendar fields;
        bool bValid;
    } cases[] = {
        {{.nYear = 2000, .nMonth = 2, .nDay = 29}, true},
        {{.nYear = 1900, .nMonth = 2, .nDay = 29}, false},
        {{.nYear = 2100, .nMonth = 2, .nDay = 29}, false},
        {{.nYear = 2024, .nMonth = 2, .nDay = 30}, false},
        {{.nYear = 2024, .nMonth = 2, .nDay = 31}, false},
        {{.nYear = 2024, .nMonth = 4, .nDay = 31}, false},
        {{.nYear = 2024, .nMonth = 1, .nDay = 32}, false},
        {{.nYear = 2024, .nMonth = 1, .nDay = 0}, false},
        {{.nYear = 2024, .nMonth = 0, .nDay = 1}, false},
        {{.nYear = 2024, .nMonth = 13, .nDay = 1}, false},
        {{.nYear = 2024, .nMonth = -1, .nDay = 1}, false},
        {{.nYear = 99, .nMonth = 1, .nDay = 1}, false},
        {{.nYear = 100, .nMonth = 1, .nDay = 1}, true},
        {{.nYear = 9999, .nMonth = 12, .nDay = 31}, true},
        {{.nYear = 10000, .nMonth = 1, .nDay = 1}, false},
        {{.nYear = 2024, .nMonth = 1, .nDay = 1, .nHour = 23, .nMinute = 59, .nSecond = 59}, true},
        {{.nYear = 2024, .nMonth = 1, .nDay = 1, .nHour = 24}, false},
        {{.nYear = 2024, .nMonth = 1, .nDay = 1, .nHour = -1}, false},
        {{.nYear = 2024, .nMonth = 1, .nDay = 1, .nMinute = 60}, false},
        {{.nYear = 2024, .nMonth = 1, .nDay = 1, .nSecond = 60}, false},
        {{.nYear = 2024, .nMonth = 1, .nDay = 1, .nSecond = -1}, false},
        {{}, false},
    };
    for (const auto& test : cases) {
        const DATE date = DATE::FromCalendar(test.fields);
        EXPECT_EQ(date.IsValid(), test.bValid)
            << test.fields.nYear << "-" << test.fields.nMonth << "-" << test.fields.nDay;
        EXPECT_EQ(date.ToCalendar().has_value(), test.bValid);
    }
}

TEST(Date, FieldsComeFromTheRoundedTime)
{
    const struct
    {
        const char* pWhat;
        double dSeconds; // after 2024-12-31 23:59:00
        const char *pMillisecond, *pSecond;
    } cases[] = {
        {"whole", 0.0, "2024-12-31T23:59:00.000", "2024-12-31T23:59:00"},
        {"half a second up", 1.5, "2024-12-31T23:59:01.500", "2024-12-31T23:59:02"},
        {"just below half", 1.499, "2024-12-31T23:59:01.499", "2024-12-31T23:59:01"},
        {"half by the millisecond", 1.4996, "2024-12-31T23:59:01.500", "2024-12-31T23:59:02"},
        {"last second", 59.0, "2024-12-31T23:59:59.000", "2024-12-31T23:59:59"},
        {"seconds carry", 59.5, "2024-12-31T23:59:59.500", "2025-01-01T00:00:00"},
        {"last millisecond", 59.999, "2024-12-31T23:59:59.999", "2025-01-01T00:00:00"},
        {"below half a millisecond", 59.9994, "2024-12-31T23:59:59.999", "2025-01-01T00:00:00"},
        {"milliseconds carry", 59.9996, "2025-01-01T00:00:00.000", "2025-01-01T00:00:00"},
        {"next year", 60.0, "2025-01-01T00:00:00.000", "2025-01-01T00:00:00"},
    };
    for (const auto& test : cases) {
        const DATE time = At(2024, 12, 31, 86340.0 + test.dSeconds);
        EXPECT_EQ(FormatIsoMillisecond(time), test.pMillisecond) << test.pWhat;
        EXPECT_EQ(FormatIsoSecond(time), test.pSecond) << test.pWhat;
    }
    // Before day 0 time runs forward as well: the day before, six in the evening.
    EXPECT_EQ(FormatIsoMillisecond(DATE(-0.25)), "1899-12-29T18:00:00.000");
    EXPECT_EQ(FormatIsoSecond(DATE(-0.5 / SecondsPerDay)), "1899-12-30T00:00:00") << "halves up";
    EXPECT_EQ(FormatIsoSecond(DATE(-0.501 / SecondsPerDay)), "1899-12-29T23:59:59");
}

TEST(Date, EveryMillisecondOfAMinuteComesBack)
{
    const DATE start =
        DATE::FromCalendar({.nYear = 2024, .nMonth = 6, .nDay = 1, .nHour = 13, .nMinute = 59});
    for (int i = 0; i < 60'000; ++i) {
        const DATE time = start.Plus(i * 0.001 * DaysPerSecond);
        const auto calendar = time.ToCalendar();
        ASSERT_TRUE(calendar && calendar->nMinute == 59 &&
                    calendar->nSecond * 1000 + calendar->nMillisecond == i)
            << i;
        const auto second = time.ToCalendarSecond();
        ASSERT_EQ(second->nMinute * 60 + second->nSecond, (59 * 60 * 1000 + i + 500) / 1000 % 3600) << i;
        ASSERT_EQ(SecondsBetween(start, time), i / 1000.0);
        ASSERT_EQ(SecondsBetween(time, start), i == 0 ? 0.0 : -i / 1000.0);
        const DATE again = DATE::FromCalendar(*calendar).Plus(calendar->nMillisecond * DaysPerMillisecond);
        ASSERT_NEAR(again.m_dDays, time.m_dDays, 1e-11) << "a microsecond";
    }
}

TEST(Date, WhatIsNoTimeHasNoFields)
{
    const double dInfinity = std::numeric_limits<double>::infinity();
    const DATE dates[] = {DATE::MakeInvalid(), DATE::MakeNull(),  DATE(std::nan("")),     DATE(dInfinity),
                          DATE(-dInfinity),    DATE(1e300),       DATE(-1e300),           DATE(2958466.0),
                          DATE(-657435.0),     DATE(-657434.001), DATE(2958465.999999999)};
    for (const DATE& date : dates) {
        EXPECT_FALSE(date.ToCalendar()) << date.m_dDays;
        EXPECT_FALSE(date.ToCalendarSecond()) << date.m_dDays;
        EXPECT_EQ(date.Year(), -1);
        EXPECT_EQ(FormatTimeOfDay(date, 3), "");
        EXPECT_EQ(FormatDay(date), "");
        EXPECT_EQ(FormatIsoSecond(date), "");
        EXPECT_EQ(FormatIsoMillisecond(date), "");
        EXPECT_EQ(FormatIsoShortest(date), "");
    }
    EXPECT_EQ(DATE::MakeInvalid().Plus(1.0).m_nStatus, DATE::Invalid);
    EXPECT_EQ(DATE::MakeNull().m_nStatus, DATE::Null);
    EXPECT_EQ(DATE(), DATE(0.0));
    EXPECT_NE(DATE(), DATE::MakeInvalid());
}

TEST(Date, YearsBeforeTwoThousand)
{
    EXPECT_TRUE(At(1999, 12, 31, 86399.999).IsBeforeYear(2000));
    EXPECT_FALSE(At(1999, 12, 31, 86399.9996).IsBeforeYear(2000)) << "as the fields say";
    EXPECT_FALSE(At(2000, 1, 1).IsBeforeYear(2000));
    EXPECT_TRUE(DATE().IsBeforeYear(2000));
    EXPECT_TRUE(DATE::MakeInvalid().IsBeforeYear(2000));
    EXPECT_TRUE(DATE(std::nan("")).IsBeforeYear(2000));
}

TEST(Date, StepsAreWholeMilliseconds)
{
    const DATE start = At(2024, 6, 1, 36000.0);
    const struct
    {
        double dSeconds, dStep;
    } cases[] = {
        {1.0, 1.0},     {0.1, 0.1},        {0.0004, 0.0},       {0.0006, 0.001},
        {-1.0, -1.0},   {-0.0006, -0.001}, {-0.0004, 0.0},      {86400.0, 86400.0},
        {200.0, 200.0}, {199.9996, 200.0}, {199.9994, 199.999}, {1e6 + 0.1234, 1e6 + 0.123},
    };
    for (const auto& test : cases)
        EXPECT_EQ(SecondsBetween(start, start.Plus(test.dSeconds / SecondsPerDay)), test.dStep)
            << test.dSeconds;
}

TEST(Date, NowIsTheMachinesLocalTime)
{
    ::setenv("TZ", "UTC0", 1);
    ::tzset();
    const double dUtc = DATE::Now().m_dDays;
    ::setenv("TZ", "XXX-9:30", 1);
    ::tzset();
    const double dLocal = DATE::Now().m_dDays;
    ::unsetenv("TZ");
    ::tzset();
    EXPECT_NEAR((dLocal - dUtc) * 24.0, 9.5, 5.0 / 3600.0);
    EXPECT_NEAR(dUtc, 25569.0 + static_cast<double>(std::time(nullptr)) / SecondsPerDay, 5.0 / SecondsPerDay);
}

} // namespace
} // namespace kestrabel
