#include "formats/TrackLine.h"

#include "formats/PointText.h"

#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

int Layout(std::string_view strLine)
{
    const auto layout = FindTrackLayout(strLine);
    return layout ? static_cast<int>(*layout) : 0;
}

TEST(TrackLine, LayoutsAndTheirPoints)
{
    const struct
    {
        const char* pLine;
        int nLayout;
        const char* pPoint;
    } cases[] = {
        {"T N33 2.1234 W096 12.1234 Fri Jan 12 10:12:00 2001", 9, "2001-01-12T10:12:00 33.03539 -96.2020567"},
        {"T N33 2.1234 W096 12.1234 Jan 12 10:12:00 2001", 8, "2001-01-12T10:12:00 33.03539 -96.2020567"},
        {"T N33.5 W96.25 Fri Jan 12 10:12:00 2001", 7, "2001-01-12T10:12:00 33.5 -96.25"},
        {"T a, b, -33.5, 151.25, 2007/05/04, 12:34:56", 6, "2007-05-04T12:34:56 -33.5 151.25"},
        // Hemispheres and signs; minutes count away from the equator.
        {"T S33 30 E096 15 Fri Jan 12 10:12:00 2001", 9, "2001-01-12T10:12:00 -33.5 96.25"},
        {"T -33 30 +096 15 Jan 12 10:12:00 2001", 8, "2001-01-12T10:12:00 -33.5 96.25"},
        {"T .5 -.25 Fri Jan 12 10:12:00 2001", 7, "2001-01-12T10:12:00 .5 -.25"},
        {"T s33.5 w96.25 Fri Jan 12 10:12:00 2001", 7, "2001-01-12T10:12:00 0 0"}, // upper case only
        // Dates and times.
        {"T 1 2 x February 29 23:59:59 2000", 7, "2000-02-29T23:59:59 1 2"},
        {"T 1 2 x 5 4 00:00:00 07", 7, "2007-05-04T00:00:00 1 2"},
        {"T 1 2 x Foo 1 23:59:59 2000", 7, "invalid 1 2"},
        {"T,,1", 0, ""},
        {"T a,b,1,2,4.5.2007,3:04:05 PM", 6, "2007-05-04T15:04:05 1 2"},
        {"T a,b,1 ,2 ,2007-05-04 ,12:34:56 ", 6, "2007-05-04T12:34:56 1 2"},
        {"T a, b, 1, 2, 2007-05-04, 12:34:56, more", 7,
         "invalid 0 0"}, // seven words come before six at commas
        // Too few items.
        {"T a, b, 1, 2, 2007-05-04,", 0, ""},
        {"T a,, 1, 2, 2007-05-04, 12:34:56", 0, ""},
        {"T 1 2 x Jan 1 12:34:56", 0, ""},
        {"T", 0, ""},
        // Further text does not matter.
        {"T N33 2.1234 W096 12.1234 Jan 12 10:12:00 2001 x", 9, "invalid 33.03539 -96.2020567"},
        {"T 1 2 x Jan 1 12:34:56 2001 and so on", 7, "2001-01-01T12:34:56 1 2"},
    };
    for (const auto& test : cases) {
        ASSERT_EQ(Layout(test.pLine), test.nLayout) << test.pLine;
        if (test.nLayout == 0)
            continue;
        CTrackPoint point;
        point.m_nAltitude = 7;
        ASSERT_TRUE(ParseTrackLine(test.pLine, static_cast<ETrackLayout>(test.nLayout), point)) << test.pLine;
        EXPECT_EQ(PointText(point), test.pPoint) << test.pLine;
    }
}

TEST(TrackLine, AnotherLayoutDoesNotFit)
{
    const std::pair<int, std::string_view> lines[] = {
        {9, "T N33 2.1234 W096 12.1234 Fri Jan 12 10:12:00 2001"},
        {8, "T N33 2.1234 W096 12.1234 Jan 12 10:12:00 2001"},
        {7, "T N33.5 W96.25 Fri Jan 12 10:12:00 2001"},
        {6, "T a, b, -33.5, 151.25, 2007/05/04, 12:34:56"},
    };
    for (const auto& [nLayout, strLine] : lines) {
        for (const int nOther : {9, 8, 7, 6}) {
            CTrackPoint point;
            // A line of more items holds those of one with fewer, whatever they then mean.
            const bool bFits = nOther == nLayout || (nOther < nLayout && nOther != 6 && nLayout != 6);
            EXPECT_EQ(ParseTrackLine(strLine, static_cast<ETrackLayout>(nOther), point), bFits)
                << strLine << nOther;
        }
    }
}

} // namespace
} // namespace kestrabel::test
