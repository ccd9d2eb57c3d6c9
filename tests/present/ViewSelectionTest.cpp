#include "present/ViewSelection.h"

#include "engine/TrackPointDerivation.h"
#include "support/Track.h"

#include <gmock/gmock.h>

namespace kestrabel {
namespace {

using testing::ElementsAre;

/// Two riders; the first has two files that overlap in time, the second one.
struct SSelection : testing::Test, CPane
{
    SSelection()
    {
        const auto addDivision = [&](const char* pName, std::uint8_t nKind, std::int32_t nSeconds) {
            CDivision& division = event.m_divisions.Add(std::make_unique<CDivision>());
            division.m_strName = pName;
            division.m_nKind = nKind;
            division.m_nSeconds = nSeconds;
            division.m_dMetres = 60.0;
            division.m_bAccumulation = 1;
            division.m_bOneResultPerRun = 0;
        };
        addDivision("2 sec", DivisionKind::Time, 2);
        addDivision("splits", DivisionKind::Splits, 0);
        AddRider("Ann", {{0, 20, 5e-5}, {10, 20, 1e-4}});
        AddRider("Ben", {{0, 20, 1.5e-4}});
        hub.Attach(*this);
    }
    struct SSailed
    {
        double dStart;
        int nSeconds;
        double dStep; ///< degrees of latitude a second, faster in the middle
    };
    void AddRider(const char* pName, const std::vector<SSailed>& files)
    {
        CPerson& person = event.m_persons.Add(std::make_unique<CPerson>());
        person.m_strName = pName;
        for (const CDivision* pDivision : event.m_divisions)
            person.Enter(pDivision->m_strName);
        for (const SSailed& file : files) {
            CSeries& series = person.m_series.Add(std::make_unique<CSeries>());
            series.m_strName = pName + std::to_string(person.m_series.GetCount());
            double dLatitude = 52.0;
            for (int i = 0; i < file.nSeconds; ++i) {
                dLatitude += file.dStep * (i == 12 ? 1.2 : 1.0);
                series.m_points.Add(test::MakePoint(file.dStart + i, dLatitude, 5.0)).m_nAltitude = i;
            }
            CalculateTrackPoints(event, person, series, NoProgress());
        }
    }
    void OnUpdate(EUpdateHint hint) override { hints.push_back(hint); }
    std::vector<EUpdateHint> TakeHints() { return std::exchange(hints, {}); }

    CEvent event;
    CUpdateHub hub;
    CViewSelection selection{event, hub, NoProgress()};
    std::vector<EUpdateHint> hints;
};

TEST_F(SSelection, OneFileAllFilesAndNobody)
{
    selection.SelectSeries(1, false, true);
    EXPECT_EQ(selection.m_strCaption, "Ann2");
    EXPECT_THAT(TakeHints(), ElementsAre(HINT_POINTS_CHANGED));
    const double dOne = selection.m_dViewMaxSpeed;
    EXPECT_NEAR(dOne, 1.2e-4 * 111.2 * 3600 / 1.852, 0.5) << "knots";
    selection.SelectSeries(-1, true, false);
    EXPECT_EQ(selection.m_strCaption, "Ann");
    EXPECT_EQ(selection.m_nSeries, -1);
    EXPECT_THAT(TakeHints(), ElementsAre(HINT_RESULTS_CHANGED));
    EXPECT_EQ(selection.m_dViewMaxSpeed, dOne) << "of the faster file";
    EXPECT_EQ(selection.m_dViewMaxAltitude, 18.0);
    EXPECT_EQ(selection.GetSeriesPoints(-1).GetCount(), 40);
    selection.SelectSeries(7, false, true, true);
    EXPECT_EQ(selection.m_nSeries, -1);
    EXPECT_THAT(TakeHints(), ElementsAre(HINT_ALL));

    event.m_persons[0].m_series.RemoveAt(1);
    selection.ForgetPoints();
    selection.SelectSeries(-1, false, true);
    EXPECT_EQ(selection.m_nSeries, 0) << "the only one";
    selection.Reset();
    event.m_persons.RemoveAll();
    TakeHints();
    selection.SelectSeries(0, false, true);
    EXPECT_EQ(selection.m_strCaption, "All Results");
    EXPECT_EQ(selection.m_nCompetitor, -1);
    EXPECT_THAT(TakeHints(), ElementsAre(HINT_POINTS_CHANGED));
    selection.RefreshResults(true);
    EXPECT_THAT(TakeHints(), ElementsAre(HINT_ALL));
    EXPECT_TRUE(selection.GetSeriesPoints(-1).IsEmpty());
}

TEST_F(SSelection, MergedPointsAreFoundBothWays)
{
    selection.SelectSeries(-1, false, true);
    for (const int nIndex : {0, 10, 11, 39}) {
        int nSeries = -1;
        const int nPoint = selection.MergedPointOrigin(nIndex, nSeries);
        EXPECT_EQ(selection.FindMergedPoint(nSeries, nPoint), nIndex);
    }
    int nSeries = 0;
    EXPECT_EQ(selection.MergedPointOrigin(40, nSeries), -1);
    EXPECT_EQ(nSeries, -1);
    EXPECT_EQ(selection.FindMergedPoint(0, 20), -1);
    EXPECT_EQ(selection.FindMergedPoint(2, 0), -1);
}

TEST_F(SSelection, TheFocusIsRoundedClampedAndShown)
{
    event.m_nTimePrecision = 1;
    event.m_dTimezone = 2.0;
    selection.SelectSeries(0, false, true);
    const std::array<std::string, 6> none = {"SPEED", "AVG", "DIST", "LATITUDE", "LONGITUDE", "TIME"};
    EXPECT_EQ(selection.m_statusTexts, none);
    selection.SetFocusPoint(0, 4.5);
    EXPECT_EQ(selection.m_dFocusPoint, 5.0);
    EXPECT_THAT(selection.m_statusTexts, ElementsAre("10.814", "AVG", "27.82", "52.0003", "5", "12:00:05.0"));
    selection.SetFocusPoint(0, 1000.0);
    EXPECT_EQ(selection.m_dFocusPoint, 19.0);
    selection.SetFocusPoint(0, -1.0);
    EXPECT_EQ(selection.m_statusTexts, none);
    selection.SetFocusPoint(5, 3.0);
    EXPECT_EQ(selection.m_dFocusPoint, 19.0 - 16.0) << "no such file: the merged points";
}

TEST_F(SSelection, APickedResultShowsItsRunWhosesoeverItIs)
{
    selection.SelectSeries(0, false, true);
    selection.ShowDivisionResults(0);
    EXPECT_EQ(selection.m_strCaption, "2 sec");
    const CResult& best = *selection.m_Results.Best();
    EXPECT_EQ(best.m_strCompetitor, "Ben");
    selection.SelectResult(&best);
    EXPECT_EQ(selection.m_nCompetitor, 1);
    EXPECT_EQ(selection.m_strCaption, "Ben1");
    EXPECT_EQ(selection.m_nRunKind, DivisionKind::Time);
    EXPECT_EQ(selection.m_dFocusPoint, best.m_nStartIndex) << "a time's first point";
    EXPECT_EQ(selection.m_nFocusSeries, 0);

    selection.ShowDivisionResults(1);
    const CResult* pSplit = nullptr;
    for (const CResult* pResult : selection.m_Results) {
        if (pResult->m_nStartIndex <= 12 && pResult->m_nEndIndex >= 12 && pResult->m_nPersonIndex == 1)
            pSplit = pResult;
    }
    ASSERT_NE(pSplit, nullptr);
    selection.SelectResult(pSplit);
    EXPECT_EQ(selection.m_dFocusPoint, 12.0) << "a split's fastest point";
    TakeHints();
    selection.PickResult(this, nullptr);
    EXPECT_EQ(selection.m_nRunStart, -1);
    EXPECT_EQ(selection.m_dFocusPoint, -1.0);
    EXPECT_THAT(TakeHints(), ElementsAre()) << "the sender does not hear of it";
}

TEST_F(SSelection, RecalculateKeepsOrClearsTheFocus)
{
    selection.SelectSeries(0, false, true);
    selection.SetFocusPoint(0, 19.0);
    event.m_persons[0].m_series[0].m_points.RemoveAt(19);
    selection.ForgetPoints();
    TakeHints();
    selection.Recalculate(false, true);
    EXPECT_EQ(selection.m_dFocusPoint, 18.0);
    EXPECT_THAT(TakeHints(), ElementsAre(HINT_POINTS_CHANGED));
    selection.ShowDivisionResults(1);
    selection.Recalculate(true, false);
    EXPECT_EQ(selection.m_dFocusPoint, -1.0);
    for (const CResult* pResult : selection.m_Results)
        EXPECT_EQ(pResult->m_strDivision, "splits") << "the list stays the division's";
}

} // namespace
} // namespace kestrabel
