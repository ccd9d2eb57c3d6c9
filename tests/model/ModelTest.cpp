#include "model/ClassRegistry.h"
#include "model/Event.h"

#include "support/Track.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

using CFlags = decltype(CTrackPoint::m_nInvalidFlags);

TEST(ClassRegistry, EveryStoredClassHasItsNameAndSchema)
{
    const std::pair<const char*, int> cases[] = {
        {"CTrackPoint", 10}, {"CSeries", 11},        {"CEvent", 10},  {"CDivision", 10},
        {"CPerson", 2},      {"CSeriesDivision", 3}, {"CResult", 14}, {"CWayPoint", 2},
    };
    for (const auto& [pName, nSchema] : cases) {
        ASSERT_NE(FindClass(pName), nullptr) << pName;
        EXPECT_EQ(FindClass(pName)->nSchema, nSchema) << pName;
        EXPECT_EQ(&CreateByClassName(pName)->ClassRecord(), FindClass(pName));
    }
    for (const char* pName : {"", "CSeriesX", "CSerie", "cseries", "CPosition"})
        EXPECT_EQ(CreateByClassName(pName), nullptr) << pName;
}

TEST(Model, NewObjectsHaveTheirDefaults)
{
    const CEvent e(DATE(45444.5));
    EXPECT_EQ(std::tuple(e.m_dateStart.m_dDays, e.m_nShowTopRows, e.m_dTimezone, e.m_nSpeedUnits,
                         e.m_nSpeedPrecision, e.m_nTimePrecision, e.m_nDistancePrecision,
                         e.m_nLatLongPrecision, e.m_nTimeThreshold, e.m_dSpeedThreshold, e.m_dAccThreshold,
                         e.m_dDeccThreshold, e.m_dMaxHDOP, e.m_nMinSats, e.m_dStopRunSpeed, e.m_dStopRunAngle,
                         e.m_dDopplerError, e.m_dTrackpointError, e.m_bConstrainDates, e.m_bConstrainRegion,
                         e.m_ellipsoid.m_nEllipsoid),
              std::tuple(45444.5, 10, 0.0, 0, 3, 0, 2, 7, 200, 92.6, 9.26, 18.52, 1000.0, 0, 18.52,
                         1.5707963267948966, 0.0, 0.0, 0, 0, 1));
    const CDivision d;
    EXPECT_EQ(std::tuple(d.m_nKind, d.m_dMetres, d.m_nSeconds, d.m_nAverageRuns, d.m_bAccumulation,
                         d.m_bOneResultPerRun, d.m_bUseAltitude, d.m_dProximity, d.m_nCalcUsing, d.m_bStrict,
                         d.m_dMinCalcInterval, d.m_nStartAt, d.m_dFurther1, d.m_dFurther2),
              std::tuple(1, 500.0, 10, 1, 0, 1, 0, 0.05, 0, 1, 0.0, 0, 0.0, 0.0));
    EXPECT_EQ(std::tuple(CResult().m_nRank, CResult().m_nStartIndex, CSeries().m_ellipsoid.m_nEllipsoid,
                         CSeries().m_nSeriesIndex, CSeries().m_nPersonIndex, CWayPoint().m_dProximity,
                         CSeriesDivision().m_bFlag, CPerson().m_results.Owns()),
              std::tuple(-1, -1, 1, -1, -1, 0.005, 1, false));
}

TEST(Model, CopyingAResultLeavesTheWaypointNames)
{
    CResult source, target;
    source.m_strCompetitor = "A";
    source.m_strWaypoint = "from source";
    target.m_strWaypoint = "kept";
    target = source;
    EXPECT_EQ(target.m_strCompetitor + target.m_strWaypoint, "Akept");
    EXPECT_EQ(CResult(source).m_strCompetitor + CResult(source).m_strWaypoint, "A");
}

TEST(Model, ResultsThatOnlyTouchDoNotOverlap)
{
    const auto overlap = [](double dFrom, double dTo) {
        CResult run, other;
        run.m_timeStart = DATE(10);
        run.m_timeEnd = DATE(20);
        other.m_timeStart = DATE(dFrom);
        other.m_timeEnd = DATE(dTo);
        return run.Overlaps(other) && other.Overlaps(run);
    };
    EXPECT_FALSE(overlap(0, 10) || overlap(20, 30));
    EXPECT_TRUE(overlap(0, 11) && overlap(19, 30) && overlap(12, 13));
}

TEST(Model, InvalidFlagsHaveLettersAndMasks)
{
    EXPECT_TRUE(test::MakePoint(0.0, 1.0, 2.0)->HasPosition());
    EXPECT_FALSE(test::MakePoint(0.0, 1.0, 0.0)->HasPosition()) << "one zero is enough";
    std::string strLetters;
    for (const int nFlags : {1, 2, 4, 8, 16, 32, 64, 127, 128})
        strLetters += InvalidLetters(static_cast<CFlags>(nFlags)) + " ";
    EXPECT_EQ(strLetters, "P S D L H A T DSTPLAH  ");
    CSeries series;
    for (CFlags nFlags = 0; nFlags < 0x80; ++nFlags) {
        CTrackPoint& point = series.m_points.Add(test::MakePoint(nFlags, 50.0, 1.0));
        point.m_nInvalidFlags = nFlags;
        EXPECT_EQ(point.IsValidFor(InvalidMask::Trackpoint), (nFlags & 0x7bU) == 0) << nFlags;
        EXPECT_EQ(point.IsValidFor(InvalidMask::Doppler), (nFlags & 0x75U) == 0) << nFlags;
    }
    EXPECT_EQ(series.DeleteInvalidPoints(), 124);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(series.m_points[i].m_nInvalidFlags, static_cast<CFlags>(2 * i)) << "spikes stay";
}

TEST(Model, GapAtThresholdIsInclusive)
{
    const auto pPrevious = test::MakePoint(0.0, 50.0, 1.0);
    // Seconds behind it, the stored step, whether it is a gap.
    const std::tuple<double, double, bool> cases[] = {
        {200.0, 0.0, true}, {199.999, 199.999, false}, {199.9996, 199.9996, true}, // rounded up to it
        {1.0, 200.0, true}, {-500.0, 0.0, false},
    };
    for (const auto& [dSecond, dStoredStep, bGap] : cases) {
        const auto pPoint = test::MakePoint(dSecond, 50.0, 1.0);
        pPoint->m_dDeltaTime = dStoredStep * DaysPerSecond;
        EXPECT_EQ(StartsGap(pPrevious.get(), *pPoint, 200), bGap) << dSecond;
        EXPECT_FALSE(StartsGap(nullptr, *pPoint, 200)) << dSecond;
    }
}

TEST(Model, ClearingResultsOfAFileKeepsTheOtherFiles)
{
    CPerson person;
    const auto addRecord = [](CSeries& series) {
        CSeriesDivision* pRecord = &series.m_divisions.Add(std::make_unique<CSeriesDivision>());
        pRecord->m_results.Add(std::make_unique<CResult>());
        return pRecord;
    };
    const CSeriesDivision* pFirst = addRecord(person.m_series.Add(std::make_unique<CSeries>()));
    const CSeriesDivision* pSecond = addRecord(person.m_series.Add(std::make_unique<CSeries>()));
    const CSeriesDivision* pCombined = addRecord(person.m_combined);
    person.m_results.Borrow(pFirst->m_results[0]);
    person.ClearResultsOf(person.m_series[0]);
    EXPECT_TRUE(person.m_results.IsEmpty() && pFirst->m_results.IsEmpty() && pCombined->m_results.IsEmpty() &&
                !pSecond->m_results.IsEmpty());
    person.ClearResults();
    EXPECT_TRUE(pSecond->m_results.IsEmpty());
}

TEST(Model, EntriesGoByName)
{
    CPerson person;
    for (const char* pName : {"10 sec", "10 sec", "Alpha"})
        person.Enter(pName);
    EXPECT_EQ(person.m_divisionNames, (std::vector<std::string>{"10 sec", "Alpha"}));
    EXPECT_TRUE(person.TakesPartIn("Alpha") && !person.TakesPartIn("alpha"));
}

} // namespace
} // namespace kestrabel
