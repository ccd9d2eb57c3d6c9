#include "engine/Compare.h"
#include "engine/DistanceTimeResults.h"
#include "engine/PathTrack.h"
#include "engine/PlainWindows.h"

#include <gtest/gtest.h>
#include <limits>

// Windows of accumulators that rescan, where the running totals alone cannot tell their ends: against the
// plain form, which adds every point anew for every start.

namespace kestrabel::test {
namespace {

class WindowSums : public testing::Test
{
protected:
    WindowSums()
    {
        m_track.event.m_nShowTopRows = 1000;
        m_track.division.m_bAccumulation = 1;
    }

    /// All ways of measuring that rescan, for runs and for any window. Returns the number of results.
    int ExpectSameAsPlain()
    {
        int nFound = 0;
        CDivision& division = m_track.division;
        for (int i = 0; i < 16; ++i) {
            division.m_nCalcUsing = (i & 1) != 0 ? CalcUsing::Doppler : CalcUsing::Trackpoints;
            division.m_bUseAltitude = (i & 2) != 0 ? 1 : 0;
            division.m_bStrict = (i & 4) != 0 ? 1 : 0;
            division.m_bOneResultPerRun = (i & 8) != 0 ? 1 : 0;
            CObjectArray<CResult> results;
            CalculateWindowResults(m_track.event, m_track.person, m_track.series, division, results,
                                   NoProgress());
            const std::vector<CResult> plain =
                PlainWindowResults({m_track.event, m_track.person, m_track.series, division});
            EXPECT_EQ(results.GetCount(), static_cast<int>(plain.size())) << i;
            for (int n = 0; n < results.GetCount() && n < static_cast<int>(plain.size()); ++n)
                EXPECT_EQ(Difference(results[n], plain[static_cast<std::size_t>(n)]), NoDifference) << i;
            nFound += results.GetCount();
        }
        return nFound;
    }

    void ForDistance(double dMetres)
    {
        m_track.division.m_nKind = DivisionKind::Distance;
        m_track.division.m_dMetres = dMetres;
    }

    CPathTrack m_track;
};

TEST_F(WindowSums, SumsThatShouldMeetTheTargetExactly)
{
    // Ten times a tenth is not one when it is summed; whether the target is met hangs on the last bit.
    for (const double dMetresPerSecond : {10.0, 100.0, 0.1, 7.0, 0.3}) {
        m_track.Start(0, 0).Ride(250, dMetresPerSecond);
        m_track.event.m_dStopRunSpeed = 0.0;
        for (const int nSteps : {1, 3, 10, 50, 70, 200}) {
            ForDistance(dMetresPerSecond * nSteps);
            EXPECT_GT(ExpectSameAsPlain(), 0) << dMetresPerSecond << " m/s, " << nSteps << " s";
        }
    }
}

TEST_F(WindowSums, ARestInTheMiddle)
{
    m_track.Ride(20, 15.6).Ride(400, 0.2).Ride(40, 31.3).Ride(100, 0.2).Ride(60, 15.6, 0.2);
    for (int i = 0; i < m_track.series.m_points.GetCount(); ++i)
        m_track.Point(i).m_nAltitude = i % 3;
    for (const double dMetres : {100.0, 500.0, 1000.0}) {
        ForDistance(dMetres);
        EXPECT_GT(ExpectSameAsPlain(), 0) << dMetres;
    }
    m_track.division.m_nKind = DivisionKind::Time;
    for (const int nSeconds : {0, 2, 60, 300, 5000}) {
        m_track.division.m_nSeconds = nSeconds;
        EXPECT_EQ(ExpectSameAsPlain() > 0, nSeconds < 5000) << nSeconds;
    }
}

TEST_F(WindowSums, ADistanceThatIsNoNumberIsNeverReachedAgain)
{
    const auto [from, to] = FindLostPair();
    m_track.Ride(100, 15.6);
    m_track.Point(50).m_position = from;
    m_track.Point(51).m_nInvalidFlags = InvalidFlag::User; // skipped, so that the pair is measured
    m_track.Point(52).m_position = to;
    ForDistance(200.0);
    EXPECT_GT(ExpectSameAsPlain(), 0);
    m_track.Point(80).m_nInvalidFlags = InvalidFlag::User; // behind it a window is given up
    m_track.Point(81).m_nInvalidFlags = InvalidFlag::User;
    EXPECT_GT(ExpectSameAsPlain(), 0);
    m_track.division.m_nKind = DivisionKind::Time;
    EXPECT_GT(ExpectSameAsPlain(), 0);
}

TEST_F(WindowSums, StepsThatAreNoOrdinaryOnes)
{
    const auto AfterChange = [&](const char* pWhat, auto&& change) {
        SCOPED_TRACE(pWhat);
        m_track.Start(0, 0).Ride(150, 15.6);
        change();
        for (const double dMetres : {15.0, 200.0}) {
            ForDistance(dMetres);
            ExpectSameAsPlain();
        }
        m_track.division.m_nKind = DivisionKind::Time;
        ExpectSameAsPlain();
    };
    const double dInfinity = std::numeric_limits<double>::infinity();
    AfterChange("a clock that goes back", [&] {
        for (int i = 70; i < 151; ++i)
            m_track.Point(i).m_time = m_track.Point(i).m_time.Plus(-30.0 * DaysPerSecond);
        m_track.Point(70).m_dDeltaTime = -29.0 * DaysPerSecond;
    });
    AfterChange("fixes of one moment", [&] {
        for (int i = 60; i < 80; ++i) {
            m_track.Point(i).m_time = m_track.Point(60).m_time;
            m_track.Point(i).m_dDeltaTime = 0.0;
        }
    });
    AfterChange("backwards by Doppler", [&] {
        for (int i = 60; i < 80; ++i)
            m_track.Point(i).m_dDoppler = -112.5;
    });
    AfterChange("two weeks between two fixes", [&] {
        for (int i = 70; i < 151; ++i)
            m_track.Point(i).m_time = m_track.Point(i).m_time.Plus(14.0);
        m_track.Point(70).m_dDeltaTime = 14.0;
    });
    AfterChange("a position on another continent",
                [&] { m_track.Point(70).m_position = MakePosition(40.0, -70.0); });
    AfterChange("a speed beyond all bounds", [&] { m_track.Point(70).m_dDoppler = dInfinity; });
    AfterChange("a step beyond all bounds", [&] { m_track.Point(70).m_dDistance = dInfinity; });
}

} // namespace
} // namespace kestrabel::test
