#include "engine/ResultsExport.h"

#include "engine/TestEvent.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace kestrabel::test {
namespace {

const std::string Header = "Competitor, Division, WayPoint, Series, \"Start Time\", \"End Time\", Seconds, "
                           "\"Distance (m)\", Speed";
constexpr double Start = (10 * 60 + 15) * 60 + 30;

TEST(ResultsExport, ALineHasTenFields)
{
    CEvent event(DATE(45444.0));
    EXPECT_EQ(ResultsHeader(event), Header + "(knots), Claimed(knots)");
    struct SCase
    {
        int nUnit;
        double dTimezone;
        double dSecond; ///< behind 10:15:30
        const char* strName;
        double dSpeed;
        const char* strExpected;
    };
    for (const SCase& c : std::initializer_list<SCase>{
             {0, 0, 0.6004, "Ann", 36, "Ann, D, , , 10:15:30.600, 00:00:00.000, 0, 0, 19.4, 19.4"},
             {1, 0, 0.9996, "Ann Lee", 0.52, "\"Ann Lee\", D, , , 10:15:31.000, 00:00:00.000, 0, 0, .5, .5"},
             {1, 0, 0.9994, "Lee,Ann", 0.04, "\"Lee,Ann\", D, , , 10:15:30.999, 00:00:00.000, 0, 0, 0, 0"},
             {2, -2.5, 0, "the \"Fox\"", 36,
              "\"the \"Fox\"\", D, , , 07:45:30.000, 21:30:00.000, 0, 0, 10, 10"},
             {3, 14, 0, "\"Fox\";", 36, "\"Fox\";, D, , , 00:15:30.000, 14:00:00.000, 0, 0, 22.4, 22.4"},
             {1, -11, 0, "", NAN, ", D, , , 23:15:30.000, 13:00:00.000, 0, 0, 0, 0"}})
    {
        event.m_nSpeedUnits = c.nUnit;
        event.m_dTimezone = c.dTimezone;
        CResult result;
        result.m_timeStart = DATE(45444.0 + (Start + c.dSecond) / SecondsPerDay);
        result.m_dSpeed = result.m_dClaimed = c.dSpeed;
        EXPECT_EQ(ResultLine(event, result, c.strName, "D"), c.strExpected);
    }
}

TEST(ResultsExport, ListsOfCompetitorsAndDivisions)
{
    CEvent event(DATE(45444.0));
    event.m_nSpeedUnits = 2;
    CPerson& ann = AddPerson(event, "Ann");
    CPerson& ben = AddPerson(event, "Ben Orr");
    CSeries& annOne = AddSeries(ann, "a1");
    CSeries& benOne = AddSeries(ben, "b1");
    AddPerson(event, "Cid");
    const std::vector<const CDivision*> divisions = {&AddDivision(event, "500"), &AddDivision(event, "10")};
    for (CResult* pResult :
         {&AddFound(annOne, "500", 36, Start, Start + 32),
          &AddFound(annOne, "500", 54, Start + 100, Start + 132),
          &AddFound(benOne, "500", 72, Start, Start + 32), &AddFound(benOne, "10", 90, Start, Start + 32)})
    {
        pResult->m_dSeconds = 32.0;
        pResult->m_dDistance = 0.5123;
        pResult->m_strWaypoint = "Gate 1";
    }
    const std::string strHeader = Header + "(m/s), Claimed(m/s)\n";
    const std::string strTimes = "10:15:30.000, 10:16:02.000, 32, 512.3, ";
    const std::string strAnnBest = "Ann, 500, \"Gate 1\", a1, 10:17:10.000, 10:17:42.000, 32, 512.3, 15, 0\n";
    const std::string strAnnNext = "Ann, 500, \"Gate 1\", a1, " + strTimes + "10, 0\n";
    const std::string strBen = "\"Ben Orr\", 500, \"Gate 1\", b1, " + strTimes + "20, 0\n";
    const std::string strBenTime = "\"Ben Orr\", 10, \"Gate 1\", b1, " + strTimes + "25, 0\n";
    const std::string strNothing = ", , , 00:00:00.000, 00:00:00.000, 0, 0, 0, 0\n";
    const std::string strOfDistance = strBen + strAnnBest + "Cid, 500" + strNothing;
    const std::string strOfTime = strBenTime + "Cid, 10" + strNothing + "Ann, 10" + strNothing;

    std::string strText;
    const CLineSink sink = [&](std::string_view strLine) { strText.append(strLine).append("\n"); };
    const auto ForCompetitor = [&](int nPerson, int nSeries) {
        strText.clear();
        WriteCompetitorResults(event, nPerson, nSeries, divisions, sink, NoProgress());
        return strText;
    };
    const auto ForAll = [&](int nPerson, int nSeries) {
        strText.clear();
        WriteAllDivisions(event, nPerson, nSeries, sink, NoProgress());
        return strText;
    };
    EXPECT_EQ(ForCompetitor(-1, -1),
              strHeader + strAnnBest + strAnnNext + "\n" + strBen + "\n" + strBenTime + "\n");
    EXPECT_EQ(ForCompetitor(1, 0), strHeader + strBen + "\n" + strBenTime + "\n");
    EXPECT_EQ(ForCompetitor(2, -1), strHeader);
    EXPECT_EQ(ForAll(-1, -1), strHeader + strOfDistance + strOfTime) << "no empty lines";
    EXPECT_EQ(ForAll(0, 0), strHeader + strAnnBest + "Ann, 10" + strNothing);
    EXPECT_EQ(ForAll(0, -1), strHeader) << "without a track file there is no best";
    CProgressRecord progress;
    strText.clear();
    WriteDivisionResults(event, divisions, sink, progress);
    EXPECT_EQ(strText, strHeader + strOfDistance + "\n" + strOfTime + "\n");
    EXPECT_EQ(progress.m_begun, std::vector<std::string>{"Exporting divisions"});
    event.m_persons.RemoveAt(2);
    event.m_persons.RemoveAt(1);
    strText.clear();
    WriteDivisionResults(event, divisions, sink, progress);
    EXPECT_EQ(strText, strHeader + strAnnBest + "Ann, 10" + strNothing) << "of one competitor no empty line";
}

} // namespace
} // namespace kestrabel::test
