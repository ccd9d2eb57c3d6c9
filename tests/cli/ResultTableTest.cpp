#include "cli/ResultTable.h"

#include "cli/PrintedText.h"
#include "platform/Text.h"

#include <cmath>
#include <gtest/gtest.h>
#include <sstream>

namespace kestrabel {
namespace {

using test::PrintedText;

/// A leaderboard of results that the test makes up.
class ResultTable : public testing::Test
{
protected:
    ResultTable()
    {
        m_division.m_strName = "Alpha 500";
        for (CResult& result : m_results) {
            result.m_nStartIndex = 0;
            result.m_strCompetitor = "Ann";
            result.m_strSeries = "run";
            result.m_dSpeed = 1.852 * 30.0;
            result.m_dDistance = 0.25;
            result.m_dSeconds = 12.5;
            result.m_timeStart = DATE(45444.5);
        }
        m_results[0].m_nRank = 2; // the fastest stands last
        m_results[1].m_nRank = 1;
    }

    std::string Printed()
    {
        std::vector<SDivisionResults> leaderboards;
        SDivisionResults& leaderboard = leaderboards.emplace_back();
        leaderboard.pDivision = &m_division;
        for (CResult& result : m_results)
            leaderboard.results.Append(result);
        return PrintedText([&](COutput& output) { WriteLeaderboardTable(m_event, leaderboards, output); });
    }

    CEvent m_event;
    CDivision m_division;
    CResult m_results[2];
};

TEST_F(ResultTable, ClaimsAndGatesAppearWhenThereAreAny)
{
    EXPECT_EQ(Printed(), "Rank  Competitor    Speed  Start         Seconds  Distance  Track\n"
                         "                  (knots)                              (m)  file\n"
                         "\n"
                         "Alpha 500\n"
                         "   1  Ann          30.000  12:00:00.000   12.500    250.00  run\n"
                         "   2  Ann          30.000  12:00:00.000   12.500    250.00  run\n");
    m_results[0].m_dClaimed = 1.852 * 29.5;
    m_results[1].m_strWaypoint = "A-B";
    EXPECT_EQ(Printed(), "Rank  Competitor    Speed  Claimed  Start         Seconds  Distance  Gates  Track\n"
                         "                  (knots)  (knots)                              (m)         file\n"
                         "\n"
                         "Alpha 500\n"
                         "   1  Ann          30.000    0      12:00:00.000   12.500    250.00  A-B    run\n"
                         "   2  Ann          30.000   29.500  12:00:00.000   12.500    250.00  -      run\n");
}

TEST_F(ResultTable, TheFullestTableStillFits)
{
    const std::string strLong(70, 'w');
    m_event.m_nSpeedPrecision = m_event.m_nDistancePrecision = 30;
    for (CResult& result : m_results) {
        result.m_strCompetitor = result.m_strSeries = result.m_strWaypoint = strLong;
        result.m_dClaimed = 1234.56789;
        result.m_dDistance = 123.456789;
        result.m_dSeconds = 12345.0;
    }
    m_results[0].m_timeStart = DATE(45440.5);
    std::istringstream text(Printed());
    for (std::string strLine; std::getline(text, strLine);)
        EXPECT_LE(CountCharacters(strLine), 100U) << strLine;
}

TEST_F(ResultTable, WhatIsNotANumberIsADash)
{
    m_results[1].m_dSpeed = std::nan("");
    EXPECT_NE(Printed().find("   1  Ann           -      12:00"), std::string::npos) << Printed();
}

} // namespace
} // namespace kestrabel
