#include "engine/TrackPointDerivation.h"
#include "model/SpeedUnits.h"
#include "platform/FileSettings.h"
#include "present/GridFieldsDialog.h"
#include "present/ResultGrid.h"
#include "present/TrackPointGrid.h"
#include "support/Track.h"

#include <cmath>
#include <gmock/gmock.h>

namespace kestrabel {
namespace {

using testing::ElementsAre;

constexpr int None = CGrid::Separator;

/// One rider with two files: 6 points with a gap before the fourth, and 3 points between its second and
/// third.
struct SGrids : testing::Test
{
    SGrids()
    {
        CPerson& person = event.m_persons.Add(std::make_unique<CPerson>());
        AddFile(person, "a", {0, 1, 10, 500, 501, 502});
        AddFile(person, "b", {2, 3, 4});
        selection.SelectSeries(0, false, true);
    }
    void AddFile(CPerson& person, const char* pName, const std::vector<double>& seconds)
    {
        CSeries& series = person.m_series.Add(std::make_unique<CSeries>());
        series.m_strName = pName;
        for (const double dSecond : seconds)
            series.m_points.Add(test::MakePoint(dSecond, 52.0 + 1e-4 * dSecond, 5.0));
        CalculateTrackPoints(event, person, series, NoProgress());
    }
    /// A result from one second to another, as if calculated.
    void AddResult(const char* pDivision, int nRank, double dSpeed, double dFrom, double dTo)
    {
        CResult& result = results.Add(std::make_unique<CResult>());
        result.m_strDivision = pDivision;
        result.m_nRank = nRank;
        result.m_dSpeed = dSpeed;
        result.m_timeStart = test::MakePoint(dFrom, 0, 0)->m_time;
        result.m_timeEnd = test::MakePoint(dTo, 0, 0)->m_time;
        result.m_nSeriesIndex = 0;
        result.m_nPersonIndex = 0;
        result.m_nStartIndex = static_cast<int>(dFrom);
        result.m_nEndIndex = static_cast<int>(dTo);
        selection.m_Results.Append(result);
    }
    static std::vector<int> Objects(const CGrid& grid)
    {
        std::vector<int> objects;
        for (int nRow = 0; nRow < grid.RowCount(); ++nRow)
            objects.push_back(grid.ObjectOf(nRow));
        return objects;
    }
    static int ColumnOf(const CGrid& grid, std::string_view strTitle)
    {
        int nColumn = 0;
        while (nColumn < grid.ColumnCount() && grid.Column(nColumn).m_strTitle != strTitle)
            ++nColumn;
        return nColumn;
    }

    CEvent event;
    CUpdateHub hub;
    CViewSelection selection{event, hub, NoProgress()};
    CMemorySettings settings;
    CObjectArray<CResult> results;
};

TEST_F(SGrids, TheFirstUseShowsThreeMoreFieldsAndIsStored)
{
    {
        const CTrackPointGrid grid(event, hub, selection, settings, NoProgress());
        EXPECT_EQ(grid.Column(1).m_strTitle, "Latitude") << "not shown by default";
        EXPECT_EQ(grid.ColumnCount(), 17);
        EXPECT_EQ(settings.Read("Grid Fields/Trackpoints/Latitude", "Display"), "1");
        EXPECT_EQ(settings.Read("Grid Fields/Trackpoints/VMG", "Display"), "0");
    }
    {
        CResultGrid grid(event, hub, selection, settings);
        SGridFieldsDialog dialog = grid.FieldsDialog();
        dialog.Toggle(0), dialog.Toggle(14); // "Division" away, "VMG" shown
        bool bNewColumns = false;
        grid.SetListener({.onFilled = [&](bool bColumns) { bNewColumns = bColumns; }});
        grid.ApplyFields(dialog);
        EXPECT_TRUE(bNewColumns);
        EXPECT_EQ(grid.Column(0).m_strTitle, "Track File");
        EXPECT_TRUE(grid.HasDefaultWidth(0));
        grid.SetColumnWidth(0, 900);
        EXPECT_FALSE(grid.HasDefaultWidth(0));
        EXPECT_EQ(grid.ColumnWidth(0), 250) << "wider is cut in the results grid";
    }
    settings.Write("Grid Fields/Results/VMG", "Width", "damaged");
    const CResultGrid again(event, hub, selection, settings);
    EXPECT_EQ(again.Column(0).m_nWidth, 900);
    EXPECT_EQ(again.Column(ColumnOf(again, "VMG")).m_nWidth, 60);
}

TEST_F(SGrids, GapsStandApartAndSortingPutsThemLast)
{
    CTrackPointGrid grid(event, hub, selection, settings, NoProgress());
    EXPECT_THAT(Objects(grid), ElementsAre(0, 1, 2, None, 3, 4, 5));
    const int nSpeed = ColumnOf(grid, "Speed");
    EXPECT_EQ(grid.CellText(3, nSpeed), "");
    EXPECT_EQ(grid.CellText(4, nSpeed), "") << "behind a gap";
    EXPECT_NE(grid.CellText(5, nSpeed), "");
    const CObjectArray<CTrackPoint>& points = event.m_persons[0].m_series[0].m_points;
    for (int i = 0; i < 6; ++i)
        points[i].m_dSpeed = std::vector{5.0, 9.0, std::nan(""), 5.0, 1.0, 7.0}[static_cast<std::size_t>(i)];
    EXPECT_EQ(grid.ClickHeader(nSpeed, 1), 4) << "where the selected row went";
    EXPECT_THAT(Objects(grid), ElementsAre(4, 0, 3, 5, 1, 2, None));
    grid.ClickHeader(nSpeed);
    EXPECT_THAT(Objects(grid), ElementsAre(1, 5, 0, 3, 4, 2, None)) << "equal ones stay in their order";
    const int rows[] = {0, 6, 1};
    EXPECT_EQ(grid.PointsOf(rows), (std::vector{points.At(1), points.At(5)}));
    EXPECT_EQ(grid.RowsAsText(std::vector{1, 6}).substr(0, 2), "6\t");
    EXPECT_TRUE(grid.RowsAsText(std::vector{1, 6}).ends_with(std::string(16, '\t') + "\n"));
    // The next fill restores the order of the list.
    hub.UpdateAllViews(nullptr, HINT_POINTS_CHANGED);
    EXPECT_THAT(Objects(grid), ElementsAre(0, 1, 2, None, 3, 4, 5));
    EXPECT_THAT(FillPoints(event, points, 2, 5, NoProgress()), ElementsAre(2, None, 3, 4));
    EXPECT_THAT(FillPoints(event, points, -3, 99, NoProgress()), testing::SizeIs(7));
}

TEST_F(SGrids, TheFocusIsFoundInTheFileTheMergedListAndAnyOrder)
{
    CTrackPointGrid grid(event, hub, selection, settings, NoProgress());
    int nRow = -2;
    grid.SetListener({.onFollow = [&](int nNew) {
        nRow = nNew;
        grid.ClickRow(0); // the pane's own echo
    }});
    selection.MoveFocus(nullptr, 0, 4.0);
    EXPECT_EQ(nRow, 5) << "a separator before it";
    EXPECT_EQ(selection.m_dFocusPoint, 4.0) << "the echo is no click";
    grid.ClickHeader(ColumnOf(grid, "Time"));
    grid.ClickHeader(ColumnOf(grid, "Time"));
    selection.MoveFocus(nullptr, 0, 4.0);
    EXPECT_EQ(nRow, 1);
    selection.SelectSeries(-1, false, true);
    ASSERT_THAT(Objects(grid), ElementsAre(0, 1, 2, 3, 4, 5, None, 6, 7, 8));
    selection.MoveFocus(nullptr, 1, 2.0);
    EXPECT_EQ(nRow, 4);
    nRow = -2;
    selection.MoveFocus(&grid, 0, 0.0);
    EXPECT_EQ(nRow, -2) << "a pane does not hear of what it sent";
    grid.ClickRow(9);
    EXPECT_EQ(selection.m_nFocusSeries, 0);
    EXPECT_EQ(selection.m_dFocusPoint, 5.0) << "the index in the file, not in the list";
    selection.MoveFocus(nullptr, -1, -1.0);
    EXPECT_EQ(nRow, -1);
}

TEST_F(SGrids, ResultsStandBestFirstInGroupsOfRanks)
{
    selection.m_Results = CResultList();
    AddResult("10 sec", 2, 30.0, 0.0, 1.0);
    AddResult("10 sec", 1, 40.0, 1.0, 2.0);
    AddResult("500", 3, 20.0, 0.0, 2.0);
    AddResult("500", 2, std::nan(""), 0.0, 1.0);
    AddResult("500", 1, 35.0, 3.0, 5.0);
    results[3].m_dMinSpeed = std::nan("");
    results[4].m_strWaypoint = "gates";
    CResultGrid grid(event, hub, selection, settings);
    EXPECT_THAT(Objects(grid), ElementsAre(4, 2, None, 1, 0)) << "without a minimum speed: no row";
    const int nSpeed = ColumnOf(grid, "Speed");
    EXPECT_EQ(grid.CellText(0, nSpeed), "18.898");
    EXPECT_EQ(grid.CellText(0, ColumnOf(grid, "WayPoint")), "") << "no gate";
    results[4].m_nWaypoint = 0;
    EXPECT_EQ(grid.CellText(0, ColumnOf(grid, "WayPoint")), "gates");
    grid.ClickHeader(0);
    EXPECT_THAT(Objects(grid), ElementsAre(1, 0, 4, 2, None)) << "by name";
    grid.ClickHeader(nSpeed);
    EXPECT_THAT(Objects(grid), ElementsAre(2, 0, 4, 1, None));

    // The picked result's division tells which of the runs around the focus is followed.
    int nRow = -2;
    grid.SetListener({.onFollow = [&](int nNew) { nRow = nNew; }});
    grid.ClickRow(1);
    EXPECT_EQ(selection.m_nRunStart, 0);
    EXPECT_EQ(nRow, -2) << "its own pick";
    selection.MoveFocus(nullptr, 0, 1.0);
    EXPECT_EQ(nRow, 1) << "both runs touch here: the first row";
    selection.MoveFocus(nullptr, 0, 5.0);
    EXPECT_EQ(nRow, -1);
    selection.m_Results = CResultList(); // gone before the pane hears of it
    EXPECT_EQ(grid.CellText(0, 0), "");
    EXPECT_EQ(grid.ResultAt(0), nullptr);
}

TEST_F(SGrids, ResultCellsHaveTheUnitsAndPrecisionsOfTheEvent)
{
    CResult result;
    result.m_strDivision = "10 sec";
    result.m_strSeries = "a";
    result.m_posStart = MakePosition(52.123456789, -0.5);
    result.m_posEnd = MakePosition(-0.25, 180.0);
    result.m_timeStart = test::MakePoint(0.5, 0, 0)->m_time;
    result.m_timeEnd = test::MakePoint(10.25, 0, 0)->m_time;
    result.m_dSeconds = 9.75;
    result.m_dDistance = 0.25;
    result.m_dSpeed = 92.6;
    result.m_dDirection = 1.5707963267948966;
    result.m_dWindAngle = 2.0943951023931953; // 120 degrees
    result.m_dAltitude = 3.0;
    result.m_dAltChange = -1.0;
    result.m_dHDOPMax = 1.25;
    result.m_nSatsMin = 8;
    result.m_dClaimed = 90.0;
    result.m_dMinSpeed = 37.04;
    result.m_dMaxSpeed = 100.0;
    result.m_nRun = 4;
    result.m_dPosError = 0.0005;
    result.m_dDopplerError = 0.926;
    event.m_nTimePrecision = 2;
    event.m_dTimezone = 1.0;
    std::string strCells;
    for (int i = 0; i < 25; ++i)
        strCells += ResultCell(event, result, static_cast<EResultColumn>(i)) + "|";
    EXPECT_EQ(strCells,
              "10 sec|a||52.1234568|-.5|11:00:00.50|-.25|180|11:00:10.25|9.75|250|50|90|120|-25|3|-1|"
              "1.2|8|48.596|20|53.996|4|.5|.5|");
}

TEST_F(SGrids, ThePrintHeadingHasTheDistanceInTheSpeedsUnit)
{
    event.m_persons[0].m_series[0].m_dTotalDistance = 10.0;
    event.m_persons[0].m_series[1].m_dTotalDistance = 2.0;
    const char* expected[] = {"5.4nm", "10kms", "10000m", "6.2mi", "10000m"};
    for (event.m_nSpeedUnits = 0; event.m_nSpeedUnits < 5; ++event.m_nSpeedUnits)
        EXPECT_EQ(PrintHeading(event, selection, "Ride"),
                  "Ride  Distance=" + std::string(expected[event.m_nSpeedUnits]));
    event.m_nSpeedUnits = SpeedUnit::KilometresPerHour;
    selection.SelectSeries(-1, false, true);
    EXPECT_EQ(PrintHeading(event, selection, "Ride"), "Ride  Distance=12kms") << "of all files";
}

} // namespace
} // namespace kestrabel
