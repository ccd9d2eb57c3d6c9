#include "model/DateText.h"

#include "model/TimeText.h"

#include <cmath>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace kestrabel {
namespace {

/// "2007-05-04T12:34:56", or "-" for no time.
std::string Parsed(std::string_view strText)
{
    const DATE date = ParseDateText(strText);
    return date.IsValid() ? FormatIsoSecond(date) : "-";
}

TEST(DateText, ReadsWhatPeopleWrite)
{
    // Of each line the time and the texts for it.
    std::istringstream lines(R"(0100-01-01T00:00:00|0100-01-01|1/1/100
1899-12-30T00:00:00|0:0:0|12:00 AM
1899-12-30T00:00:01|12:00:01 am
1899-12-30T12:00:00|12:00PM
1899-12-30T12:34:00|12:34
1899-12-30T12:34:56|12:34:56|12:34:56.789
1899-12-30T15:00:00|3 pm
1899-12-30T23:59:59|11:59:59 PM
1950-01-01T00:00:00|1/1/50
1999-12-31T00:00:00|31/12/1999|12/31/1999
2000-01-01T00:00:00|1/1/00
2000-02-29T00:00:00|29 Feb 2000
2001-01-12T10:12:00|12 Jan 2001 10:12:00|Jan 12 10:12:00 2001
2007-01-01T00:00:00|1/1/7
2007-02-01T08:09:10|1. 2. 2007. 8:09:10
2007-03-01T00:00:00|1 March 07
2007-05-04T00:00:00|2007.05.04.|04-05-2007|4/5/07|  4 - 5 - 2007  |04-MAY-07|May 4, 2007|2007-may-04
2007-05-04T01:02:03|2007/5/4 1:02:03
2007-05-04T12:34:00|4.5.2007 12:34
2007-05-04T12:34:56|04-May-07 12:34:56|12:34:56 4/5/2007|2007/05/04   12:34:56
2007-05-04T15:00:00|3 pm 4 May 2007
2007-05-24T03:04:05|24/05/2007 3:04:05 a.m.
2007-05-24T15:04:00|24.5.2007 15.04|24 May 2007 3.04 pm
2007-05-24T15:04:05|5/24/2007 3:04:05 PM|24/05/2007 3:04:05 p.m.|24/05/2007 03:04:05 p. m.
2007-05-24T15:04:05|24/05/2007 15.04.05|24.5.2007 15.04.05|24.5.2007 15.04.05.6|2007. 05. 24. 15.04.05
2007-06-01T00:00:00|1 Jun 07
2007-07-01T00:00:00|1 Jul 07
2007-09-01T00:00:00|1 Sept 2007
2007-09-04T00:00:00|4. september 2007
2012-12-13T00:00:00|12/13/2012
2032-05-04T00:00:00|32-05-04
2049-01-01T00:00:00|1/1/49
9999-12-31T23:59:59|9999-12-31 23:59:59
-|2007-13-04|13/13/2012|1/1/099|1 Ma 07|1 Mayo 07|Mon 1 May 07|1 May May|May|29 Feb 2007|29 Feb 2100
-|31 Apr 2007|00-Jan-00|2007-00-01|13:00 PM|24:00:00|12:60:00|12:00:60|12:|:34|12:345|123:45
-|12:34:56:78|12:34 12:34|3 pm 4 pm|| |-|never|4|4/5|4/5 12:00|May 2007|4//5/2007|-4/5/2007
-|15.04|15.04.05 24/5/2007|24/5/2007 15.04:05|24/5/2007 15:04.05.06|24/5/2007 15.4.|24/5/2007 15.|3 p|3 p.|3 x.m.
-|4/5/20070|4/5/99999999999999999999|2007-05-04T12:34:56Z|4/5/2007 noon|4 May 2007)");
    for (std::string strLine, strTime, strText; std::getline(lines, strLine);) {
        std::istringstream texts(strLine);
        std::getline(texts, strTime, '|');
        while (std::getline(texts, strText, '|'))
            EXPECT_EQ(Parsed(strText), strTime) << strText;
    }
    EXPECT_EQ(Parsed(""), "-");
}

TEST(DateText, ADateThatIsNoneKeepsItsTimeOfDay)
{
    EXPECT_EQ(ParseDateText("31-Feb-07 06:00:00").m_dDays, 0.25) << "fixes of a logger without a date differ";
    EXPECT_FALSE(ParseDateText("31-Feb-07 06:00:00").IsValid());
    EXPECT_EQ(ParseDateText("nonsense"), DATE::MakeInvalid());
}

TEST(DateText, WritesTheFormThatEveryMachineReads)
{
    const auto At = [](int nYear, int nMonth, int nDay, double dSeconds) {
        return DATE::FromCalendar({.nYear = nYear, .nMonth = nMonth, .nDay = nDay})
            .Plus(dSeconds / SecondsPerDay);
    };
    const struct
    {
        DATE date;
        const char* pText;
    } cases[] = {
        {At(2007, 5, 4, 45296.0), "2007-05-04 12:34:56"},
        {At(2007, 5, 4, 0.0), "2007-05-04"},
        {At(1899, 12, 30, 45296.0), "12:34:56"},
        {At(1899, 12, 29, 45296.0), "1899-12-29 12:34:56"},
        {DATE(), "00:00:00"}, // still a time when it is read back
        {At(2007, 12, 31, 86399.5), "2008-01-01"},
        {At(2007, 5, 4, 1.5), "2007-05-04 00:00:02"},
        {At(100, 1, 1, 1.0), "0100-01-01 00:00:01"},
        {DATE::MakeInvalid(), ""},
        {DATE::MakeNull(), ""},
        {DATE(std::nan("")), ""},
        {DATE(1e9), ""},
    };
    for (const auto& test : cases)
        EXPECT_EQ(FormatDateText(test.date), test.pText);
}

TEST(DateText, ComesBackToTheSecond)
{
    // Steps that share no factor with the calendar, from before day 0 to beyond the two-digit years.
    for (double dSeconds = -4.0e9; dSeconds < 8.0e9; dSeconds += 8'765'431.0) {
        const DATE date(dSeconds / SecondsPerDay);
        const DATE again = ParseDateText(FormatDateText(date));
        ASSERT_EQ(FormatIsoMillisecond(again), FormatIsoMillisecond(date)) << FormatDateText(date);
    }
}

TEST(DateText, MonthAbbreviationsReadBack)
{
    for (int nMonth = 1; nMonth <= 12; ++nMonth) {
        const DATE date = ParseDateText("9-" + std::string(MonthAbbreviation(nMonth)) + "-07");
        EXPECT_EQ(date, DATE::FromCalendar({.nYear = 2007, .nMonth = nMonth, .nDay = 9})) << nMonth;
    }
}

} // namespace
} // namespace kestrabel
