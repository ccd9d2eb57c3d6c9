#include "engine/ResultsExport.h"

#include "engine/TestEvent.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace kestrabel::test {
namespace {

using Lines = std::vector<std::string>;

const std::string Header = "Competitor, Division, WayPoint, Series, \"Start Time\", \"End Time\", Seconds, "
                           "\"Distance (m)\", Speed(knots), Claimed(knots)";

class ResultsExport : public testing::Test
{
protected:
    CLineSink Sink()
    {
        m_lines.clear();
        return [this](std::string_view strLine) { m_lines.emplace_back(strLine); };
    }

    Lines ForCompetitor(int nPerson, int nSeries)
    {
        const std::vector<const CDivision*> divisions(m_event.m_divisions.begin(), m_event.m_divisions.end());
        WriteCompetitorResults(m_event, nPerson, nSeries, divisions, Sink(), m_progress);
        return m_lines;
    }

    Lines ForDivisions(const std::vector<const CDivision*>& divisions)
    {
        WriteDivisionResults(m_event, divisions, Sink(), m_progress);
        return m_lines;
    }

    Lines ForAll(int nPerson, int nSeries)
    {
        WriteAllDivisions(m_event, nPerson, nSeries, Sink(), m_progress);
        return m_lines;
    }

    /// A result from 10:15:30 on.
    CResult& AddResult(CSeries& series, std::string_view strDivision, double dSpeed, double dSecond)
    {
        constexpr double dStart = (10 * 60 + 15) * 60 + 30;
        CResult& result = AddFound(series, strDivision, dSpeed, dStart + dSecond, dStart + dSecond + 32.0);
        result.m_dSeconds = 32.0;
        result.m_dDistance = 0.5123;
        return result;
    }

    CEvent m_event{DATE(45444.0)};
    CPerson& m_ann = AddPerson(m_event, "Ann");
    CSeries& m_annOne = AddSeries(m_ann, "a1");
    CProgressRecord m_progress;
    Lines m_lines;
};

TEST_F(ResultsExport, HeaderNamesTheUnit)
{
    EXPECT_EQ(ResultsHeader(m_event), Header);
    const std::vector<std::string> suffixes = {"(knots)", "(kph)", "(m/s)", "(mph)"};
    for (int nUnit = 0; nUnit < 4; ++nUnit) {
        m_event.m_nSpeedUnits = nUnit;
        const std::string& strSuffix = suffixes[static_cast<std::size_t>(nUnit)];
        EXPECT_TRUE(ResultsHeader(m_event).ends_with(", Speed" + strSuffix + ", Claimed" + strSuffix));
    }
}

TEST_F(ResultsExport, ALineHasTenFields)
{
    CResult& result = AddResult(m_annOne, "500 m", 36.0, 0.6);
    result.m_strWaypoint = "Gate 1,Gate 2";
    result.m_dClaimed = 35.5;
    EXPECT_EQ(ResultLine(m_event, result, "Ann", "500"),
              "Ann, 500, \"Gate 1,Gate 2\", a1, 10:15:30.600, 10:16:02.600, 32, 512.3, 19.4, 19.2");
}

TEST_F(ResultsExport, TextsAreQuotedWhenTheyHold)
{
    struct SCase
    {
        const char* strText;
        const char* strExpected;
    };
    CResult result;
    for (const SCase& c : std::initializer_list<SCase>{{"Ann", "Ann"},
                                                       {"Ann Lee", "\"Ann Lee\""},
                                                       {"Lee,Ann", "\"Lee,Ann\""},
                                                       {"the \"Fox\"", "\"the \"Fox\"\""},
                                                       {"\"Fox\"", "\"Fox\""},
                                                       {"a;b\tc", "a;b\tc"},
                                                       {" ", "\" \""},
                                                       {"", ""}})
    {
        const std::string strLine = ResultLine(m_event, result, c.strText, "D");
        EXPECT_EQ(strLine, std::string(c.strExpected) + ", D, , , 00:00:00.000, 00:00:00.000, 0, 0, 0, 0");
    }
}

TEST_F(ResultsExport, NumbersHaveOneDecimalAtMost)
{
    struct SCase
    {
        int nUnit;
        double dSpeed;
        const char* strExpected;
    };
    for (const SCase& c : std::initializer_list<SCase>{{0, 36.0, "19.4"},
                                                       {1, 36.0, "36"},
                                                       {2, 36.0, "10"},
                                                       {3, 36.0, "22.4"},
                                                       {1, 0.52, ".5"},
                                                       {1, 0.04, "0"},
                                                       {1, 99.96, "100"},
                                                       {1, -3.26, "-3.3"},
                                                       {1, std::numeric_limits<double>::quiet_NaN(), "0"}})
    {
        m_event.m_nSpeedUnits = c.nUnit;
        CResult result;
        result.m_dSpeed = result.m_dClaimed = c.dSpeed;
        const std::string strEnd = std::string(", 0, 0, ") + c.strExpected + ", " + c.strExpected;
        EXPECT_TRUE(ResultLine(m_event, result, "A", "D").ends_with(strEnd))
            << ResultLine(m_event, result, "A", "D") << " should end " << strEnd;
    }
}

TEST_F(ResultsExport, TimesAreThoseOfTheDisplayedTimezone)
{
    struct SCase
    {
        double dTimezone;
        double dSecond; ///< behind 10:15:30
        const char* strStart;
    };
    for (const SCase& c : std::initializer_list<SCase>{{0, 0, "10:15:30.000"},
                                                       {0, 0.6004, "10:15:30.600"},
                                                       {0, 0.5, "10:15:30.500"},
                                                       {0, 0.9994, "10:15:30.999"},
                                                       {0, 0.9996, "10:15:31.000"},
                                                       {0, 29.9996, "10:16:00.000"},
                                                       {-2.5, 0.25, "07:45:30.250"},
                                                       {9.5, 0.25, "19:45:30.250"},
                                                       {14, 0, "00:15:30.000"},
                                                       {-11, 0, "23:15:30.000"}})
    {
        m_event.m_dTimezone = c.dTimezone;
        CResult result;
        result.m_timeStart = DATE(45444.0 + ((10 * 60 + 15) * 60 + 30 + c.dSecond) / 86400.0);
        const std::string strLine = ResultLine(m_event, result, "A", "D");
        EXPECT_EQ(strLine.substr(10, 12), c.strStart)
            << c.dTimezone << " h, " << c.dSecond << " s: " << strLine;
    }
    // An empty result starts at the beginning of time, also before it.
    m_event.m_dTimezone = -2.5;
    EXPECT_EQ(ResultLine(m_event, CResult(), "A", "D").substr(10, 12), "21:30:00.000");
}

/// Two competitors, two divisions.
class ResultsExportOfTwo : public ResultsExport
{
protected:
    ResultsExportOfTwo()
    {
        AddResult(m_annOne, "500 m", 36, 0);
        AddResult(m_annOne, "500 m", 54, 100);
        AddResult(m_benOne, "500 m", 72, 0);
        AddResult(m_benOne, "10 sec", 90, 0);
        m_event.m_nSpeedUnits = 2;
    }

    /// The line of a result of that speed, m/s.
    static std::string Line(const std::string& strPerson, const std::string& strDivision,
                            const std::string& strSeries, const std::string& strSpeed, bool bLater = false)
    {
        return strPerson + ", \"" + strDivision + "\", , " + strSeries +
               (bLater ? ", 10:17:10.000, 10:17:42.000, " : ", 10:15:30.000, 10:16:02.000, ") +
               "32, 512.3, " + strSpeed + ", 0";
    }

    /// The line of a competitor without result.
    static std::string Nothing(const std::string& strPerson, const std::string& strDivision)
    {
        return strPerson + ", \"" + strDivision + "\", , , 00:00:00.000, 00:00:00.000, 0, 0, 0, 0";
    }

    CPerson& m_ben = AddPerson(m_event, "Ben Orr");
    CSeries& m_benOne = AddSeries(m_ben, "b1");
    CPerson& m_cid = AddPerson(m_event, "Cid");
    CDivision& m_distance = AddDivision(m_event, "500 m");
    CDivision& m_time = AddDivision(m_event, "10 sec", DivisionKind::Time);
    const std::string m_strHeader =
        "Competitor, Division, WayPoint, Series, \"Start Time\", \"End Time\", Seconds, "
        "\"Distance (m)\", Speed(m/s), Claimed(m/s)";
};

TEST_F(ResultsExportOfTwo, CompetitorsHaveAnEmptyLineBehindEachDivision)
{
    const Lines ann = {Line("Ann", "500 m", "a1", "15", true), Line("Ann", "500 m", "a1", "10"), ""};
    const Lines ben = {Line("\"Ben Orr\"", "500 m", "b1", "20"), "",
                       Line("\"Ben Orr\"", "10 sec", "b1", "25"), ""};
    Lines all = {m_strHeader};
    all.insert(all.end(), ann.begin(), ann.end());
    all.insert(all.end(), ben.begin(), ben.end());
    EXPECT_EQ(ForCompetitor(-1, -1), all) << "in the event's order, and nothing of Cid who has no track file";
    Lines onlyBen = {m_strHeader};
    onlyBen.insert(onlyBen.end(), ben.begin(), ben.end());
    EXPECT_EQ(ForCompetitor(1, 0), onlyBen);
    EXPECT_EQ(ForCompetitor(2, -1), Lines{m_strHeader});
}

TEST_F(ResultsExportOfTwo, LeaderboardsListEveryCompetitor)
{
    const Lines distance = {Line("\"Ben Orr\"", "500 m", "b1", "20"), Line("Ann", "500 m", "a1", "15", true),
                            Nothing("Cid", "500 m")};
    const Lines time = {Line("\"Ben Orr\"", "10 sec", "b1", "25"), Nothing("Cid", "10 sec"),
                        Nothing("Ann", "10 sec")};
    Lines expected = {m_strHeader};
    expected.insert(expected.end(), distance.begin(), distance.end());
    expected.emplace_back();
    expected.insert(expected.end(), time.begin(), time.end());
    expected.emplace_back();
    EXPECT_EQ(ForDivisions({&m_distance, &m_time}), expected);
    EXPECT_EQ(m_progress.Count("Exporting divisions"), 1);

    expected = {m_strHeader};
    expected.insert(expected.end(), distance.begin(), distance.end());
    expected.insert(expected.end(), time.begin(), time.end());
    EXPECT_EQ(ForAll(-1, -1), expected) << "no empty lines";
    EXPECT_EQ(m_progress.Count("Exporting all divisions"), 1);
}

TEST_F(ResultsExportOfTwo, AllDivisionsOfOneCompetitorAreTheBestsOfATrackFile)
{
    EXPECT_EQ(ForAll(0, 0),
              (Lines{m_strHeader, Line("Ann", "500 m", "a1", "15", true), Nothing("Ann", "10 sec")}));
    EXPECT_EQ(ForAll(0, -1), Lines{m_strHeader}) << "without a track file there is no best";
    m_ben.m_divisionNames = {"10 sec"};
    EXPECT_EQ(ForAll(1, 0), (Lines{m_strHeader, Line("\"Ben Orr\"", "10 sec", "b1", "25")}));
}

TEST_F(ResultsExport, ALeaderboardOfOneCompetitorHasNoEmptyLine)
{
    CDivision& division = AddDivision(m_event, "500 m");
    EXPECT_EQ(ForDivisions({&division}),
              (Lines{Header, "Ann, \"500 m\", , , 00:00:00.000, 00:00:00.000, 0, 0, 0, 0"}));
}

} // namespace
} // namespace kestrabel::test
