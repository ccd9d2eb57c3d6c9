#include "cli/DisplayText.h"
#include "cli/JsonMembers.h"
#include "cli/ResultTable.h"
#include "cli/TerminalProgress.h"
#include "support/TemporaryFolder.h"

#include <cmath>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace kestrabel {
namespace {

/// What `print(output)` writes.
template <class TPrint>
std::string PrintedText(TPrint&& print)
{
    const test::CTemporaryFolder folder;
    const int nHandle = ::open(folder.Path("printed").c_str(), O_WRONLY | O_CREAT, 0600);
    COutput output(nHandle);
    print(output);
    output.Finish();
    ::close(nHandle);
    return test::CTemporaryFolder::Read(folder.Path("printed"));
}

/// The object that `write(json)` fills.
template <class TWrite>
std::string Document(TWrite&& write)
{
    return PrintedText([&](COutput& output) {
        CJsonWriter json(output);
        json.BeginObject();
        write(json);
        json.EndObject();
    });
}

TEST(JsonWriter, NumbersAreTheShortestThatReadBackAndTextsAreUtf8)
{
    // 2e23 is a usual fault: 1.9999999999999998e+23 reads back too.
    const auto write = [](CJsonWriter& json) {
        for (const double d : {45444.416666666664, 5e-324, 2e23, -0.0, std::nan(""), HUGE_VAL})
            json.Number("d", d);
    };
    EXPECT_EQ(Document(write), R"({"d":45444.416666666664,"d":5e-324,"d":2e+23,"d":-0,"d":null,"d":null})"
                               "\n");
    const std::pair<std::string, std::string> texts[] = {
        {"quote \" and \\", "quote \" and \\"},
        {std::string("\0\x01\x1f\x7f\r\n\t", 7), std::string("\0\x01\x1f\x7f\r\n\t", 7)},
        {"Zo\xeb", "Zoë"},            // Windows-1252
        {"\xed\xa0\x80", "í\u00a0€"}, // a surrogate is no UTF-8
    };
    for (const auto& [strGiven, strRead] : texts) {
        const std::string strText = Document([&](CJsonWriter& json) { json.Text("v", strGiven); });
        EXPECT_EQ(nlohmann::json::parse(strText)["v"], strRead) << strText;
    }
}

TEST(JsonMembers, EveryFieldOfAResultHasItsName)
{
    int nLast = 0;
    const auto fill = [&](auto&... fields) {
        ((fields = static_cast<std::remove_reference_t<decltype(fields)>>(++nLast)), ...);
    };
    CResult r;
    fill(r.m_nRank, r.m_nStartIndex, r.m_nEndIndex, r.m_nSeriesIndex, r.m_nPersonIndex, r.m_nWaypoint,
         r.m_nWaypoint2, r.m_posStart.m_dLatitude, r.m_posStart.m_dLongitude, r.m_timeStart.m_dDays,
         r.m_posEnd.m_dLatitude, r.m_posEnd.m_dLongitude, r.m_timeEnd.m_dDays, r.m_dDistance, r.m_dSeconds,
         r.m_dSpeed, r.m_dMinSpeed, r.m_dMaxSpeed, r.m_dDirection, r.m_dWindAngle, r.m_dAltitude,
         r.m_dAltChange, r.m_dHDOPMax, r.m_nSatsMin, r.m_nRun, r.m_dDopplerError, r.m_dPosError,
         r.m_dClaimed);
    r.m_strCompetitor = "C";
    r.m_strDivision = "D";
    r.m_strSeries = "S";
    r.m_strWaypoint = "W";
    EXPECT_EQ(Document([&](CJsonWriter& json) { WriteResultMembers(json, r); }),
              R"({"rank":1,"startIndex":2,"endIndex":3,"seriesIndex":4,"personIndex":5,)"
              R"("competitor":"C","division":"D","trackFile":"S","waypoint":"W","waypointIndex":6,)"
              R"("waypointIndex2":7,"startLatitude":8,"startLongitude":9,"startDay":10,)"
              R"("startTime":"1900-01-09T00:00:00.000","endLatitude":11,"endLongitude":12,)"
              R"("endDay":13,"endTime":"1900-01-12T00:00:00.000","distanceKm":14,"seconds":15,)"
              R"("speedKmh":16,"minSpeedKmh":17,"maxSpeedKmh":18,"directionRad":19,)"
              R"("windAngleRad":20,"altitudeM":21,"altChangeM":22,"hdopMax":23,"satsMin":24,)"
              R"("run":25,"dopplerErrorKmh":26,"posErrorKm":27,"claimedKmh":28})"
              "\n");
}

TEST(ResultTable, ClaimsAndGatesAppearNumbersStandOnTheirPointAndLongNamesAreCut)
{
    CEvent event;
    CDivision division;
    division.m_strName = "Alpha 500";
    std::vector<SDivisionResults> leaderboards(1);
    leaderboards[0].pDivision = &division;
    CResult results[3];
    for (CResult& result : results) {
        result.m_nStartIndex = 0;
        result.m_nRank = 3 - leaderboards[0].results.GetCount(); // the fastest stands last
        result.m_strCompetitor = "Ann";
        result.m_strSeries = "run";
        result.m_dSpeed = 1.852 * 30.0;
        result.m_dDistance = 0.25;
        result.m_dSeconds = 12.5;
        result.m_timeStart = DATE(45444.5);
        leaderboards[0].results.Append(result);
    }
    results[0].m_dClaimed = 1.852 * 0.03;
    results[1].m_strWaypoint = "A-B";
    results[2].m_dSpeed = std::nan("");
    const auto print = [&](COutput& output) { WriteLeaderboardTable(event, leaderboards, output); };
    EXPECT_EQ(PrintedText(print),
              "Rank  Competitor    Speed  Claimed  Start         Seconds  Distance  Gates  Track\n"
              "                  (knots)  (knots)                              (m)         file\n"
              "\nAlpha 500\n"
              "   1  Ann           -         0     12:00:00.000   12.500    250.00  -      run\n"
              "   2  Ann          30.000     0     12:00:00.000   12.500    250.00  A-B    run\n"
              "   3  Ann          30.000      .03  12:00:00.000   12.500    250.00  -      run\n");
    event.m_nSpeedPrecision = event.m_nDistancePrecision = 30;
    for (CResult& result : results)
        result.m_strCompetitor = result.m_strSeries = result.m_strWaypoint = "éééééééééééééééééééé";
    results[0].m_timeStart = DATE(45440.5);
    EXPECT_TRUE(PrintedText(print).ends_with("   3  ééééééééé…   30.000      .03  2024-05-28  12:00:00.000   "
                                             "12.500   250.000  ééééééé…  éééééééé…\n"));
}

TEST(DisplayText, OneLineNeverSteersAndCutsKeepWholeCharacters)
{
    EXPECT_EQ(OneLine("a\nb\r\tc\x1b[31m\xc2\x9b!\x7f 船 \U0001F3C4"), "a?b??c?[31m?!? 船 \U0001F3C4");
    EXPECT_EQ(CutEnd("abcdef", 6) + CutEnd("abcdef", 5) + CutEnd("ééé", 2), "abcdefabcd…é…");
    EXPECT_EQ(CutStart("abcdef", 6) + CutStart("abcdef", 5) + CutStart("ééé", 2), "abcdef…cdef…é");
}

TEST(TerminalProgress, DrawsAndLeavesNothingBehind)
{
    std::ostringstream terminal;
    CTerminalProgress patient(terminal, std::chrono::hours(1));
    patient.Begin("Short operation");
    patient.Show(0.5);
    CTerminalProgress progress(terminal, std::chrono::milliseconds(-1));
    progress.Begin("Outer operation");
    progress.Show(0.5);
    progress.Begin("In");
    progress.Show(2.0);
    progress.End();
    EXPECT_EQ(terminal.str(), "\rOuter operation [###############...............]"
                              "\rIn [##############################]             "
                              "\r                                                \r");
}

} // namespace
} // namespace kestrabel
