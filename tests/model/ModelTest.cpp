#include "model/ClassRegistry.h"
#include "model/Event.h"

#include "support/Track.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

using CFlags = decltype(CTrackPoint::m_nInvalidFlags);

TEST(ClassRegistry, EveryStoredClassHasItsNameAndSchema)
{
    const struct
    {
        const char* pName;
        int nSchema;
    } cases[] = {
        {"CTrackPoint", 10}, {"CSeries", 11},        {"CEvent", 10},  {"CDivision", 10},
        {"CPerson", 2},      {"CSeriesDivision", 3}, {"CResult", 14}, {"CWayPoint", 2},
    };
    for (const auto& test : cases) {
        const CClassRecord* pClass = FindClass(test.pName);
        ASSERT_NE(pClass, nullptr) << test.pName;
        EXPECT_EQ(pClass->nSchema, test.nSchema) << test.pName;
        const std::unique_ptr<CPersistent> pObject = CreateByClassName(test.pName);
        ASSERT_NE(pObject, nullptr);
        EXPECT_EQ(pObject->ClassRecord().strName, test.pName);
        EXPECT_EQ(&pObject->ClassRecord(), pClass);
    }
    EXPECT_NE(dynamic_cast<CWayPoint*>(CreateByClassName("CWayPoint").get()), nullptr);
    for (const char* pName : {"", "CSeriesX", "CSerie", "cseries", "CPosition", "CPersistent"}) {
        EXPECT_EQ(FindClass(pName), nullptr) << pName;
        EXPECT_EQ(CreateByClassName(pName), nullptr) << pName;
    }
}

TEST(Model, NewObjectsHaveTheirDefaults)
{
    const CDivision division;
    EXPECT_EQ(division.m_nKind, 1);
    EXPECT_EQ(division.m_dMetres, 500.0);
    EXPECT_EQ(division.m_nSeconds, 10);
    EXPECT_EQ(division.m_nAverageRuns, 1);
    EXPECT_EQ(division.m_bAccumulation, 0);
    EXPECT_EQ(division.m_bOneResultPerRun, 1);
    EXPECT_EQ(division.m_bUseAltitude, 0);
    EXPECT_EQ(division.m_dProximity, 0.05);
    EXPECT_EQ(division.m_nCalcUsing, 0);
    EXPECT_EQ(division.m_bStrict, 1);
    EXPECT_EQ(division.m_dMinCalcInterval, 0.0);
    EXPECT_EQ(division.m_nStartAt, 0);
    EXPECT_EQ(division.m_dFurther1, 0.0);
    EXPECT_EQ(division.m_dFurther2, 0.0);
    EXPECT_EQ(division.m_dateFrom, DATE(0.0));
    EXPECT_EQ(division.m_dateTo, DATE(0.0));
    EXPECT_TRUE(division.m_waypoints.IsEmpty());

    const CSeries series;
    EXPECT_EQ(series.m_ellipsoid.m_nEllipsoid, 1);
    EXPECT_EQ(series.m_nSeriesIndex, -1);
    EXPECT_EQ(series.m_nPersonIndex, -1);
    EXPECT_EQ(series.m_dMinAltitude, 0.0);
    EXPECT_EQ(series.m_dMaxAltitude, 0.0);
    EXPECT_EQ(series.m_cReserved, 0);
    EXPECT_EQ(series.m_bManaged + series.m_bModified + series.m_bHasDoppler + series.m_nLogRate, 0);
    EXPECT_EQ(series.m_date, DATE(0.0));
    EXPECT_TRUE(series.m_points.Owns() && series.m_divisions.Owns() && series.m_waypoints.Owns());

    const CResult result;
    for (const std::int32_t nIndex :
         {result.m_nRank, result.m_nStartIndex, result.m_nEndIndex, result.m_nSeriesIndex,
          result.m_nPersonIndex, result.m_nWaypoint, result.m_nWaypoint2})
        EXPECT_EQ(nIndex, -1);
    EXPECT_EQ(result.m_nRun, 0);
    EXPECT_EQ(result.m_nSatsMin, 0);
    EXPECT_EQ(result.m_dSpeed + result.m_dSeconds + result.m_dClaimed, 0.0);

    EXPECT_EQ(CWayPoint().m_dProximity, 0.005);
    EXPECT_EQ(CSeriesDivision().m_bFlag, 1);
    const CPerson person;
    EXPECT_TRUE(person.m_divisionNames.empty() && person.m_series.IsEmpty());
    EXPECT_TRUE(person.m_series.Owns());
    EXPECT_FALSE(person.m_results.Owns());

    const CTrackPoint point;
    EXPECT_EQ(point.m_nInvalidFlags, 0U);
    EXPECT_EQ(point.m_time, DATE(0.0));
    EXPECT_EQ(point.m_position, CPosition());
    EXPECT_EQ(point.m_nSeriesIndex, 0);
}

TEST(Model, TheSettingsOfANewEvent)
{
    const DATE now(45444.5);
    const CEvent event(now);
    EXPECT_EQ(event.m_strDescription + event.m_strLocation + event.m_strDataFolder, "");
    EXPECT_EQ(event.m_dateStart, now);
    EXPECT_EQ(event.m_dateEnd, now);
    EXPECT_EQ(event.m_posNorthWest, MakePosition(-38.83, 146.155));
    EXPECT_EQ(event.m_posSouthEast, MakePosition(-38.86, 146.175));
    const struct
    {
        const char* pWhat;
        double dValue, dDefault;
    } cases[] = {
        {"top rows", static_cast<double>(event.m_nShowTopRows), 10},
        {"smoothing", static_cast<double>(event.m_nSmoothing), 1},
        {"timezone", event.m_dTimezone, 0},
        {"zoom", event.m_dZoom, 1.3},
        {"speed unit", static_cast<double>(event.m_nSpeedUnits), 0},
        {"speed precision", static_cast<double>(event.m_nSpeedPrecision), 3},
        {"time precision", static_cast<double>(event.m_nTimePrecision), 0},
        {"distance precision", static_cast<double>(event.m_nDistancePrecision), 2},
        {"lat/long precision", static_cast<double>(event.m_nLatLongPrecision), 7},
        {"time threshold", static_cast<double>(event.m_nTimeThreshold), 200},
        {"speed threshold", event.m_dSpeedThreshold, 92.6},
        {"acceleration", event.m_dAccThreshold, 9.26},
        {"deceleration", event.m_dDeccThreshold, 18.52},
        {"HDOP", event.m_dMaxHDOP, 1000.0},
        {"satellites", static_cast<double>(event.m_nMinSats), 0},
        {"stop speed", event.m_dStopRunSpeed, 18.52},
        {"stop angle", event.m_dStopRunAngle, 1.5707963267948966},
        {"Doppler error", event.m_dDopplerError, 0},
        {"trackpoint error", event.m_dTrackpointError, 0},
        {"flags",
         static_cast<double>(event.m_bCaptureFocus + event.m_bConstrainDates + event.m_bConstrainRegion), 0},
        {"reserved", static_cast<double>(event.m_nReserved), 0},
        {"ellipsoid", static_cast<double>(event.m_ellipsoid.m_nEllipsoid), 1},
    };
    for (const auto& test : cases)
        EXPECT_EQ(test.dValue, test.dDefault) << test.pWhat;
    EXPECT_LT(std::abs(CEvent().m_dateStart.m_dDays - DATE::Now().m_dDays), 10.0 * DaysPerSecond);
}

TEST(Model, CopyingAResultLeavesTheWaypointNames)
{
    CResult source;
    source.m_nRank = 3;
    source.m_strCompetitor = "A";
    source.m_strDivision = "D";
    source.m_strSeries = "S";
    source.m_strWaypoint = "from source";
    source.m_timeEnd = DATE(2.0);
    source.m_dDopplerError = 0.5;
    source.m_nWaypoint = 1;
    source.m_nWaypoint2 = 2;
    CResult target;
    target.m_strWaypoint = "kept";
    target = source;
    EXPECT_EQ(target.m_strWaypoint, "kept");
    EXPECT_EQ(target.m_nRank, 3);
    EXPECT_EQ(target.m_strCompetitor + target.m_strDivision + target.m_strSeries, "ADS");
    EXPECT_EQ(target.m_timeEnd, DATE(2.0));
    EXPECT_EQ(target.m_dDopplerError, 0.5);
    EXPECT_EQ(target.m_nWaypoint + target.m_nWaypoint2, 3);
    const CResult copy(source);
    EXPECT_EQ(copy.m_strWaypoint, "");
    EXPECT_EQ(copy.m_nWaypoint2, 2);
}

TEST(Model, ResultsThatOnlyTouchDoNotOverlap)
{
    const auto Run = [](double dFrom, double dTo) {
        CResult result;
        result.m_timeStart = DATE(dFrom);
        result.m_timeEnd = DATE(dTo);
        return result;
    };
    const CResult run = Run(10, 20);
    const struct
    {
        double dFrom, dTo;
        bool bOverlaps;
    } cases[] = {{0, 10, false}, {20, 30, false}, {0, 11, true},
                 {19, 30, true}, {12, 13, true},  {0, 30, true}};
    for (const auto& test : cases) {
        EXPECT_EQ(run.Overlaps(Run(test.dFrom, test.dTo)), test.bOverlaps) << test.dFrom;
        EXPECT_EQ(Run(test.dFrom, test.dTo).Overlaps(run), test.bOverlaps) << test.dFrom;
    }
}

TEST(Model, LettersStandInTheirOwnOrder)
{
    const struct
    {
        CFlags nFlags;
        const char* pLetters;
    } cases[] = {
        {0x00, ""},  {0x01, "P"}, {0x02, "S"},  {0x04, "D"},  {0x08, "L"},       {0x10, "H"},
        {0x20, "A"}, {0x40, "T"}, {0x12, "SH"}, {0x06, "DS"}, {0x7f, "DSTPLAH"}, {0x80, ""},
    };
    for (const auto& test : cases)
        EXPECT_EQ(InvalidLetters(test.nFlags), test.pLetters) << test.nFlags;
}

TEST(Model, InvalidPointsAreDeletedByTheMaskOfTheFix)
{
    CSeries series;
    for (CFlags nFlags = 0; nFlags < 0x80; ++nFlags) {
        auto pPoint = test::MakePoint(nFlags, 50.0, 1.0);
        pPoint->m_nInvalidFlags = nFlags;
        series.m_points.Add(std::move(pPoint));
    }
    EXPECT_EQ(series.DeleteInvalidPoints(), 124);
    std::vector<CFlags> kept;
    for (const CTrackPoint* pPoint : series.m_points)
        kept.push_back(pPoint->m_nInvalidFlags);
    EXPECT_EQ(kept, (std::vector<CFlags>{0x00, 0x02, 0x04, 0x06})) << "spikes stay";
    EXPECT_EQ(CSeries().DeleteInvalidPoints(), 0);
}

TEST(Model, GapAtThresholdIsInclusive)
{
    const auto pPrevious = test::MakePoint(0.0, 50.0, 1.0);
    const struct
    {
        const char* pWhat;
        double dSecond, dStoredStep;
        bool bGap;
    } cases[] = {
        {"at the threshold", 200.0, 200.0, true},
        {"a millisecond below", 199.999, 199.999, false},
        {"rounded up to it", 199.9996, 199.9996, true},
        {"a fresh gap point stores no step", 500.0, 0.0, true},
        {"the stored step alone", 1.0, 200.0, true},
        {"time runs backwards", -500.0, 0.0, false},
        {"no step at all", 0.0, 0.0, false},
    };
    for (const auto& test : cases) {
        const auto pPoint = test::MakePoint(test.dSecond, 50.0, 1.0);
        pPoint->m_dDeltaTime = test.dStoredStep * DaysPerSecond;
        EXPECT_EQ(StartsGap(pPrevious.get(), *pPoint, 200), test.bGap) << test.pWhat;
        EXPECT_FALSE(StartsGap(nullptr, *pPoint, 200)) << test.pWhat;
    }
}

TEST(Model, ClearingResultsKeepsTheRecords)
{
    CEvent event(DATE(1.0));
    CPerson& person = event.m_persons.Add(std::make_unique<CPerson>());
    const auto AddRecord = [](CSeries& series) {
        CSeriesDivision& record = series.m_divisions.Add(std::make_unique<CSeriesDivision>());
        record.m_results.Add(std::make_unique<CResult>());
    };
    const auto Fill = [&] {
        person.m_series.RemoveAll();
        person.m_combined.m_divisions.RemoveAll();
        for (int i = 0; i < 2; ++i)
            AddRecord(person.m_series.Add(std::make_unique<CSeries>()));
        AddRecord(person.m_combined);
        person.m_results.Borrow(*person.m_series[0].m_divisions[0].m_results.Last());
    };
    const auto CountIn = [](const CSeries& series) { return series.m_divisions[0].m_results.GetCount(); };
    Fill();
    person.ClearResultsOf(person.m_series[0]);
    EXPECT_TRUE(person.m_results.IsEmpty());
    EXPECT_EQ(CountIn(person.m_series[0]), 0);
    EXPECT_EQ(CountIn(person.m_series[1]), 1) << "another file's stay";
    EXPECT_EQ(CountIn(person.m_combined), 0);
    Fill();
    person.ClearResults();
    EXPECT_TRUE(person.m_results.IsEmpty());
    EXPECT_EQ(CountIn(person.m_series[0]) + CountIn(person.m_series[1]) + CountIn(person.m_combined), 0);
}

TEST(Model, DivisionsGoByName)
{
    CEvent event(DATE(1.0));
    event.m_divisions.Add(std::make_unique<CDivision>()).m_strName = "10 sec";
    event.m_divisions.Add(std::make_unique<CDivision>()).m_strName = "Alpha";
    EXPECT_EQ(event.FindDivision("aLPHA"), &event.m_divisions[1]);
    EXPECT_EQ(event.FindDivision("Alph"), nullptr);
    CPerson person;
    person.Enter("10 sec");
    person.Enter("10 sec");
    person.Enter("Alpha");
    EXPECT_EQ(person.m_divisionNames, (std::vector<std::string>{"10 sec", "Alpha"}));
    EXPECT_TRUE(person.TakesPartIn("Alpha"));
    EXPECT_FALSE(person.TakesPartIn("alpha"));
    CDivision division;
    for (int nKind = 0; nKind < 8; ++nKind) {
        division.m_nKind = static_cast<std::uint8_t>(nKind);
        EXPECT_EQ(division.KeepsAllResults(), nKind >= 4 && nKind <= 6) << nKind;
    }
}

TEST(Model, DerivedValuesAreClearedMeasuredOnesStay)
{
    CTrackPoint point;
    point.m_nTrack = 5;
    point.m_dSpeed = point.m_dDistance = point.m_dDirection = point.m_dWindAngle = 7.0;
    point.m_dDoppler = point.m_dHDOP = point.m_dUCOG = 3.0;
    point.m_nSats = 9;
    point.m_position = MakePosition(1, 2);
    const CTrackPoint copy(point);
    EXPECT_EQ(copy.m_dSpeed + copy.m_dDoppler, 10.0);
    EXPECT_EQ(copy.m_position, MakePosition(1, 2));
    point.ClearDerived();
    EXPECT_EQ(point.m_nTrack + point.m_dSpeed + point.m_dDistance + point.m_dDirection + point.m_dWindAngle,
              0);
    EXPECT_EQ(point.m_dDoppler + point.m_dHDOP + point.m_dUCOG + point.m_nSats, 18.0);
    EXPECT_TRUE(point.HasPosition());
    EXPECT_FALSE(CTrackPoint().HasPosition());
    point.m_position.m_dLongitude = 0.0;
    EXPECT_FALSE(point.HasPosition()) << "one zero is enough";
    point.m_nInvalidFlags = InvalidFlag::DopplerSpike;
    EXPECT_TRUE(point.IsValidFor(InvalidMask::Trackpoint));
    EXPECT_FALSE(point.IsValidFor(InvalidMask::Doppler));
    EXPECT_FALSE(point.IsValidFor(InvalidMask::Any));
    EXPECT_EQ(InvalidMask::Trackpoint, 0x7bU);
    EXPECT_EQ(InvalidMask::Doppler, 0x75U);
    EXPECT_EQ(InvalidMask::Fix, 0x79U);
}

} // namespace
} // namespace kestrabel
