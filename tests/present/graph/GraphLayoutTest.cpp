#include "present/graph/GraphLayout.h"

#include "present/graph/GraphGrid.h"
#include "present/graph/GraphWorld.h"

#include <cmath>

namespace kestrabel::test {
namespace {

using testing::ElementsAre;

struct SGraphLayoutTest : SGraphWorld
{
    SGraphLayout LayoutOf(std::initializer_list<EGraphField> shown, int nHeight, double dMaxSpeed)
    {
        selection.m_dViewMaxSpeed = dMaxSpeed;
        return LayoutGraph({0, 0, 600, nHeight}, text, selection, GraphFields(shown));
    }
    /// The labels of the times, and where their ticks are.
    std::string Ticks(double dTimezone = 0.0, bool bZoom = false)
    {
        const CObjectArray<CTrackPoint>& points = selection.GetSeriesPoints(0);
        layout.area = {0, 0, 600, 120};
        layout.plot = {0, 0, 600, 106};
        transform.SetMapping(layout.plot, {0.0, 50.0, points.GetCount() - 1.0, 0.0});
        SSceneLayer layer;
        const bool bAny = AddTimeTicks({transform, text}, layout, points, dTimezone, bZoom, layer);
        EXPECT_EQ(bAny, !layer.texts.empty());
        std::string strText;
        for (std::size_t i = 0; i < layer.texts.size(); ++i) {
            const double dTick = layer.lines.at(0).ends.at(2 * i).dX;
            EXPECT_EQ(layer.texts[i].at.dX, dTick + 3.0);
            strText += layer.texts[i].strText + "@" + FormatNumber(dTick, 1, true) + " ";
        }
        if (bAny) {
            EXPECT_EQ(layer.lines[0].pen.nWidth, 4);
        }
        return strText;
    }
};

TEST_F(SGraphLayoutTest, StepsOfTheGridLeaveRoomForTheLabels)
{
    // The font is 14 pixels high; with the grid 7 pixels are kept above the plot, 14 below.
    const struct
    {
        int nHeight;
        double dMaxSpeed;
        double dStep;
    } cases[] = {
        {321, 50.0, 5.0},  // 300 pixels for 51: 15 * 51 / 1500 = 0.51 fives
        {121, 50.0, 10.0}, // 1.53 fives
        {71, 50.0, 20.0},  // 3.06 fives, 20 of 51
        {51, 50.0, 11.0},  // 30 would be more than half of 51: a fifth, whole
        {121, 4.0, 1.0},   // 5 would be
        {121, 0.0, 0.0},   {20, 50.0, 0.0}, {121, HUGE_VAL, 0.0},
    };
    for (const auto& [nHeight, dMaxSpeed, dStep] : cases)
        EXPECT_EQ(LayoutOf({EGraphField::Grid}, nHeight, dMaxSpeed).dSpeedPerLine, dStep)
            << nHeight << " pixels, " << dMaxSpeed;
    EXPECT_EQ(LayoutOf({EGraphField::Grid}, 121, 50.0).dTop, 51.0);
    EXPECT_EQ(LayoutOf({}, 100, 50.0).plot, (SSceneArea{0, 0, 600, 100})) << "without labels, all is plot";
}

TEST_F(SGraphLayoutTest, OtherQuantitiesAreFittedToTheLinesOfSpeed)
{
    selection.m_dViewMaxSats = 11.0;
    selection.m_dViewMaxHdop = 3.2;
    selection.m_dViewMinAltitude = -4.0;
    selection.m_dViewMaxAltitude = 20.0;
    const auto all = {EGraphField::Grid, EGraphField::Altitude, EGraphField::Sats, EGraphField::Hdop};
    const SGraphLayout fitted = LayoutOf(all, 121, 50.0); // lines at 0 to 50
    EXPECT_EQ(fitted.sats.dPerLine, 3.0) << "12 on 5 lines";
    EXPECT_EQ(fitted.hdop.dPerLine, 1.0);
    EXPECT_EQ(fitted.altitude.dPerLine, 5.0) << "24 on 5 lines";
    EXPECT_EQ(fitted.altitude.dLow, -4.0);
    EXPECT_EQ(fitted.ToAxis(EGraphField::Sats, 6.0), 20.0);
    EXPECT_EQ(fitted.ToAxis(EGraphField::Altitude, -4.0), 0.0);
    EXPECT_EQ(fitted.ToAxis(EGraphField::Altitude, 1.0), 10.0);
    EXPECT_EQ(fitted.ToAxis(EGraphField::Hdop, 3.0), 30.0);
    EXPECT_EQ(fitted.ToAxis(EGraphField::Vmg, -2.5), -2.5);

    ASSERT_EQ(fitted.columns.size(), 4U);
    EXPECT_THAT(fitted.columns[0].texts, ElementsAre("0", "10", "20", "30", "40", "50"));
    EXPECT_THAT(fitted.columns[1].texts, ElementsAre("-4", "01", "06", "11", "16", "21"));
    EXPECT_THAT(fitted.columns[2].texts, ElementsAre("0", "3", "6", "9", "", "")) << "below 11";
    EXPECT_THAT(fitted.columns[3].texts, ElementsAre("0", "1", "2", "3", "", "")) << "below 3.2";
    for (std::size_t i = 1; i < 4; ++i)
        EXPECT_GT(fitted.columns[i].dRight, fitted.columns[i - 1].dRight);
    EXPECT_GT(fitted.plot.nLeft, LayoutOf({EGraphField::Grid}, 121, 50.0).plot.nLeft);
    EXPECT_GE(fitted.plot.nLeft, fitted.columns[3].dRight);
}

TEST_F(SGraphLayoutTest, QuantitiesThatNoPointTellsHaveNoLabels)
{
    const auto all = {EGraphField::Grid, EGraphField::Altitude};
    EXPECT_EQ(LayoutOf(all, 121, 50.0).columns.size(), 1U) << "no altitude yet: the maximum is the lowest";
    selection.m_dViewMinAltitude = selection.m_dViewMaxAltitude = 0.0;
    EXPECT_EQ(LayoutOf(all, 121, 50.0).columns.size(), 1U) << "all of them at sea";
    selection.m_dViewMinAltitude = selection.m_dViewMaxAltitude = 7.0;
    const SGraphLayout level = LayoutOf(all, 121, 50.0);
    EXPECT_EQ(level.columns.at(1).texts.at(0), "07");
    EXPECT_EQ(level.ToAxis(EGraphField::Altitude, 7.0), 0.0) << "no division by nothing";
}

TEST_F(SGraphLayoutTest, LinesAndLabelsShareTheirHeight)
{
    AddSpeeds(std::vector<double>(10, 20.0));
    layout = LayoutOf({EGraphField::Grid}, 121, 50.0);
    transform.SetMapping(layout.plot, {0.0, layout.dTop, 9.0, 0.0});
    SSceneLayer layer;
    AddSpeedGrid({transform, text}, layout, layer);
    ASSERT_EQ(layer.lines.size(), 2U);
    ASSERT_EQ(layer.lines[0].Count(), 6U);
    ASSERT_EQ(layer.texts.size(), 6U);
    EXPECT_EQ(layer.lines[0].ends[0].dY, layout.plot.nBottom);
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(layer.texts[i].at.dY, layer.lines[0].ends[2 * i].dY);
        EXPECT_LT(layer.texts[i].at.dX, layout.plot.nLeft);
    }
    EXPECT_EQ(layer.lines[1].pen.color, (SSceneColor{0, 0, 0})) << "the axes";
}

TEST_F(SGraphLayoutTest, TimesStandWhereMinutesChange)
{
    // Ten minutes from 10:00:00 on; a pixel per second.
    AddSpeeds(std::vector<double>(601, 20.0));
    EXPECT_EQ(Ticks(), "10:01@60 10:02@131 10:03@202 10:04@273 10:05@344 10:06@415 10:08@486 10:09@557 ")
        << "the first point of another minute that is more than ten characters behind the last";
    EXPECT_EQ(Ticks(0.0, true), "10:01@60 10:02@131 10:03@202 10:04@273 10:05@344 10:06@415 10:08@486 ")
        << "room for the zoom text";
    EXPECT_EQ(Ticks(-9.5).substr(0, 9), "00:31@60 ");
    EXPECT_EQ(Ticks(0.01).substr(0, 9), "10:01@24 ") << "36 seconds later";
}

TEST_F(SGraphLayoutTest, TimesAreFoundAcrossGapsAndBadClocks)
{
    AddSpeeds(std::vector<double>(601, 20.0));
    for (int i = 0; i < 601; ++i) {
        CTrackPoint& point = Series(0).m_points[i];
        if (i >= 100)
            point.m_time = point.m_time.Plus(0.25); // six hours later
        if (i >= 200 && i < 400)
            point.m_time = DATE::MakeInvalid();
    }
    // The first point 70 pixels behind a tick that has another minute, wherever in its minute that is.
    EXPECT_EQ(Ticks(), "10:01@60 16:02@131 16:06@400 16:07@471 16:09@542 ");
    for (CTrackPoint* pPoint : Series(0).m_points)
        pPoint->m_time = Series(0).m_points[0].m_time;
    EXPECT_EQ(Ticks(), "");
}

} // namespace
} // namespace kestrabel::test
