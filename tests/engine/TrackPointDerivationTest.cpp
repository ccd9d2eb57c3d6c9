#include "engine/TrackPointDerivation.h"

#include "engine/SeriesResults.h"
#include "engine/TestEvent.h"
#include "support/Track.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <tuple>
#include <vector>

// What the plain form does not show: edges worked out by hand, the whole file, the records of its results.

namespace kestrabel::test {
namespace {

class TrackFile : public testing::Test
{
protected:
    TrackFile()
    {
        m_event.m_dAccThreshold = m_event.m_dDeccThreshold = 1000.0;
        m_division.m_bOneResultPerRun = 0;
        m_division.m_nCalcUsing = CalcUsing::Doppler;
    }

    /// So many fixes, one a second, at 36 km/h by Doppler.
    void Ride(int nPoints)
    {
        for (int i = 0; i < nPoints; ++i)
            m_series.m_points.Add(MakePoint(i, -38.85 + 0.00009 * i, 146.16)).m_dDoppler = 36.0;
        CalculateTrackPoints(m_event, m_person, m_series, m_progress);
        m_progress.m_begun.clear();
    }

    /// The results of the division as "start-end", from the fastest.
    std::string Find()
    {
        CResultList results;
        CalculateSeriesResults(m_event, m_person, 0, m_division, results, m_progress);
        std::string strFound;
        for (int i = results.GetCount() - 1; i >= 0; --i)
            strFound +=
                std::to_string(results[i].m_nStartIndex) + "-" + std::to_string(results[i].m_nEndIndex) + " ";
        return strFound;
    }

    CEvent m_event{DATE(45444.0)};
    CPerson& m_person = AddPerson(m_event, "Ann");
    CSeries& m_series = AddSeries(m_person, "Morning");
    CDivision& m_division = AddDivision(m_event, "10 sec", DivisionKind::Time);
    CProgressRecord m_progress;
};

TEST_F(TrackFile, FewerThanTwoPointsOnlyResetTheFile)
{
    m_series.m_dTotalDistance = m_series.m_dMinResultSats = 7.0;
    m_series.m_points.Add(MakePoint(0, 1, 1)).m_dSpeed = 5.0;
    EXPECT_FALSE(CalculateTrackPoints(m_event, m_person, m_series, m_progress));
    EXPECT_EQ(m_series.m_dTotalDistance + m_series.m_dMinResultSats, 0.0);
    EXPECT_EQ(m_series.m_rcBounds, CGeoRect::Empty());
    EXPECT_EQ(m_series.m_points[0].m_dSpeed, 5.0);
    m_series.m_points.RemoveAll();
    EXPECT_FALSE(CalculateTrackPoints(m_event, m_person, m_series, m_progress));
}

TEST_F(TrackFile, IndexesAreFoundByNameWithoutRegardToCase)
{
    AddPerson(m_event, "Ben");
    CPerson other;
    AddSeries(other, "Morning");
    AddSeries(other, "Evening");
    CWayPoint& wayPoint = other.m_combined.m_waypoints.Add(std::make_unique<CWayPoint>());
    wayPoint.m_position = MakePosition(60.0, 10.0);
    wayPoint.m_dProximity = 1.1112; // 0.01° of latitude
    for (const auto& [strName, strSeries, nIndex] : {std::tuple("BEN", "EVENING", 1), {"Cid", "none", -1}}) {
        other.m_strName = strName;
        other.m_combined.m_strName = strSeries;
        CalculateTrackPoints(m_event, other, other.m_combined, m_progress);
        EXPECT_EQ(other.m_combined.m_nPersonIndex, nIndex);
        EXPECT_EQ(other.m_combined.m_nSeriesIndex, nIndex);
    }
    EXPECT_NEAR(wayPoint.m_rcExtent.m_dEast, 10.02, 1e-12) << "checkpoints get a box around them";
}

TEST_F(TrackFile, TenSecondsHaveAMillisecondOfTolerance)
{
    Ride(11);
    for (const double dEnd : {10.0, 9.999, 9.998}) {
        m_series.m_points[10].m_time = MakePoint(dEnd, 0, 0)->m_time;
        m_series.m_divisions.RemoveAll();
        EXPECT_EQ(Find(), dEnd > 9.9985 ? "0-10 " : "") << dEnd;
    }
}

TEST_F(TrackFile, ADistanceThatIsNoNumberBeatsNone)
{
    Ride(21);
    const auto [from, to] = FindLostPair();
    m_series.m_points[0].m_position = from;
    m_series.m_points[10].m_position = to;
    m_division.m_nCalcUsing = CalcUsing::Trackpoints;
    m_division.m_bAccumulation = 0;
    for (const std::uint8_t nAverage : std::initializer_list<std::uint8_t>{1, 5}) {
        m_division.m_nAverageRuns = nAverage;
        m_series.m_divisions.RemoveAll();
        CResultList results;
        CalculateSeriesResults(m_event, m_person, 0, m_division, results, m_progress);
        EXPECT_GT(results.Best()->m_dSpeed, 0.0);
        EXPECT_EQ(std::isnan(results[0].m_dSpeed), nAverage == 1) << "the window that this is about";
    }
    m_series.m_points[9].m_position = from;
    CalculateTrackPoints(m_event, m_person, m_series, m_progress);
    EXPECT_EQ(m_series.m_points[10].m_nInvalidFlags, InvalidFlag::NoPosition);
    EXPECT_TRUE(std::isfinite(m_series.m_dTotalDistance));
}

TEST_F(TrackFile, EachDivisionIsCalculatedOnce)
{
    Ride(26);
    m_series.m_points[5].m_nAltitude = 3;
    m_series.m_points[15].m_nAltitude = 10;
    const std::string strFound = Find();
    EXPECT_EQ(strFound, "15-25 5-15 ") << "of equal windows the later first; they may touch";
    const CResult& first = m_series.m_divisions[0].m_results[0];
    EXPECT_EQ(first.m_strCompetitor + first.m_strDivision + first.m_strSeries, "Ann10 secMorning");
    EXPECT_EQ(first.m_dAltitude + 100.0 * first.m_dAltChange, 703.0);
    EXPECT_EQ(first.m_timeStart, m_series.m_points[5].m_time);
    EXPECT_EQ(first.m_posEnd, m_series.m_points[15].m_position);
    m_division.m_strName = "10 SEC"; // the same record
    EXPECT_EQ(Find(), strFound);
    EXPECT_EQ(m_progress.m_begun, std::vector<std::string>{"Calculating 10 sec"});
    m_division.m_strName = "100 sec"; // finding nothing is remembered too
    m_division.m_nSeconds = 100;
    EXPECT_EQ(Find() + Find(), "");
    EXPECT_EQ(m_progress.m_begun.size(), 2u);
}

TEST_F(TrackFile, RecalculatingEmptiesTheRecordsOfTheFileAlone)
{
    CSeries& other = AddSeries(m_person, "Evening");
    AddFound(m_series, "500 m", 30, 0, 10);
    AddFound(other, "500 m", 31, 0, 10);
    AddFound(m_person.m_combined, "500 m", 32, 0, 10);
    m_person.m_results.Borrow(other.m_divisions[0].m_results[0]);
    RecalculateTrackPoints(m_event, m_person, m_series, m_progress);
    EXPECT_TRUE(m_series.m_divisions.IsEmpty()) << "an empty record would never be calculated again";
    EXPECT_TRUE(m_person.m_combined.m_divisions.IsEmpty() && m_person.m_results.IsEmpty());
    EXPECT_EQ(other.m_divisions.GetCount(), 1);
}

} // namespace
} // namespace kestrabel::test
