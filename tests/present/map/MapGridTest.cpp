#include "present/map/MapGrid.h"

#include "geo/Angle.h"
#include "platform/NumberInput.h"
#include "present/map/MapColors.h"
#include "present/map/MapWorld.h"
#include "present/scene/SceneParts.h"

namespace kestrabel::test {
namespace {

constexpr double BesideLine = 2.0; // pixels from a vertical line to its label

/// The labels of the vertical lines, a bar, those of the horizontal ones; each with its pixel.
std::string Labels(const SSceneLayer& layer, bool bFar)
{
    std::string strX;
    std::string strY;
    for (const SSceneText& text : layer.texts) {
        const bool bVertical = text.vertical == (bFar ? ESceneAlign::High : ESceneAlign::Low) &&
                               text.horizontal == ESceneAlign::Low;
        std::string& strLine = bVertical ? strX : strY;
        strLine += text.strText + "@" +
                   std::to_string(std::lround(bVertical ? text.at.dX - BesideLine : text.at.dY)) + " ";
    }
    return strX + "| " + strY;
}

CMapTransform Map(int nWidth, int nHeight, const CGeoRect& world)
{
    CMapTransform transform;
    transform.SetMapping({0, 0, nWidth, nHeight}, world);
    return transform;
}

TEST(MapGrid, DegreesAreRoundAndTheirLabelsDoNotOverlap)
{
    const CFixedText text;
    const struct
    {
        CMapTransform transform;
        std::string strLabels;
    } cases[] = {
        // 3 degrees are three steps of one.
        {Map(600, 300, {-1.5, 1.5, 4.5, -1.5}), "-1@50 0@150 1@250 2@350 3@450 4@550 | -1@250 0@150 1@50 "},
        // More than four steps on the shorter side are doubled.
        {Map(600, 300, {0.5, 2.55, 10.7, -2.55}), "2@88 4@206 6@324 8@441 10@559 | -2@268 0@150 2@32 "},
        // A small map: lines are more than two characters apart.
        {Map(120, 60, {10.05, 0.15, 10.65, -0.15}), "10.2@30 10.6@110 | 0@30 "},
        // The label at 241 would be 82 pixels from the one before it; twice its width are 84.
        {Map(400, 400, {5.0, 52.0004, 5.0001, 52.0001}),
         "4.9999@77 5@159 5.0002@323 | 52.0001@400 52.0002@267 52.0003@133 "},
    };
    for (const auto& [transform, strLabels] : cases) {
        SSceneLayer layer;
        AddDegreeGrid({transform, text}, layer);
        ASSERT_EQ(layer.lines.size(), 1U);
        EXPECT_EQ(layer.lines[0].pen, ScenePen::Grid);
        EXPECT_EQ(Labels(layer, false), strLabels);
        for (const SScenePoint& end : layer.lines[0].ends) {
            EXPECT_GE(end.dX, 0.0);
            EXPECT_LE(end.dX, transform.m_rcDevice.Width());
        }
    }
    // So far in that no step is round any more, and no pixels at all.
    const CMapTransform transform = Map(600, 300, {0.0, 5e-10, 5e-10, 0.0});
    SSceneLayer layer;
    AddDegreeGrid({transform, text}, layer);
    const CMapTransform none = Map(0, 300, {0.0, 1.0, 1.0, 0.0});
    AddDegreeGrid({none, text}, layer);
    AddDistanceGrid({none, text}, layer);
    EXPECT_TRUE(layer.IsEmpty());
}

TEST(MapGrid, DistancesAreTrue)
{
    const CFixedText text;
    const double dMile = 1.0 / 60.0; // degrees
    for (const double dLatitude : {0.0, 60.0}) {
        const double dNarrow = std::cos(dLatitude * DegreesToRadians);
        const CMapTransform transform =
            Map(900, 600, {5.0, dLatitude + 6.0 * dMile, 5.0 + 18.0 * dMile, dLatitude - 6.0 * dMile});
        SSceneLayer layer;
        AddDistanceGrid({transform, text}, layer);
        int nVertical = 0;
        for (const SSceneText& label : layer.texts) {
            const bool bVertical = label.horizontal == ESceneAlign::Low;
            nVertical += bVertical ? 1 : 0;
            // The first label of either direction counts as 0.
            const SSceneText& first = *std::ranges::find_if(
                layer.texts, [&](const SSceneText& other) { return other.horizontal == label.horizontal; });
            const double dPixels = bVertical ? label.at.dX - first.at.dX : first.at.dY - label.at.dY;
            const double dMiles = bVertical ? dPixels * transform.m_dUnitsPerPixelX * 60.0 * dNarrow
                                            : dPixels * -transform.m_dUnitsPerPixelY * 60.0;
            const std::string strShown = label.strText.substr(0, label.strText.find(' '));
            EXPECT_NEAR(ReadDecimal(strShown), dMiles, 0.03) // half a pixel
                << label.strText;
            EXPECT_TRUE(label.strText.ends_with(" nm"));
        }
        EXPECT_GT(nVertical, 2);
        EXPECT_GT(layer.texts.size(), static_cast<std::size_t>(nVertical + 2));
    }
    // 4 minutes are 0.0667 degrees, times 1.852 is 0.1235: the step is 0.1.
    const CMapTransform transform = Map(600, 600, {-2.0 * dMile, 2.0 * dMile, 2.0 * dMile, -2.0 * dMile});
    SSceneLayer layer;
    AddDistanceGrid({transform, text}, layer);
    EXPECT_EQ(Labels(layer, true), "0 nm@300 | 0 nm@300 ");
}

TEST(MapColors, SpeedsOfEachFileHaveTheirMix)
{
    const struct
    {
        int nFile;
        double dFraction;
        SSceneColor color;
    } cases[] = {
        {0, 0.0, {0, 0, 200}}, {0, 0.5, {0, 100, 100}}, {0, 1.0, {0, 200, 0}},   {1, 0.999, {199, 199, 1}},
        {2, 0.5, {0, 65, 65}}, {2, 1.0, {0, 130, 0}},   {3, 0.0, {0, 130, 130}}, {3, 0.504, {100, 65, 65}},
        {3, 1.0, {200, 0, 0}}, {4, 0.7, {0, 0, 0}},     {9, 0.0, {0, 0, 0}},
    };
    for (const auto& [nFile, dFraction, color] : cases) {
        EXPECT_EQ(SpeedPen(nFile, dFraction).color, color) << nFile << " " << dFraction;
        EXPECT_EQ(SpeedPen(nFile, dFraction).role, nFile < 4 ? ESceneRole::Data : ESceneRole::Track);
    }
    const struct
    {
        double dSpeed;
        double dMax;
        double dFraction;
    } speeds[] = {{10.0, 40.0, 0.25},        {50.0, 40.0, 1.0}, {-1.0, 40.0, 0.0},
                  {std::nan(""), 40.0, 0.0}, {0.3, 0.5, 0.5},   {0.3, 0.6, 0.5}};
    for (const auto& [dSpeed, dMax, dFraction] : speeds)
        EXPECT_DOUBLE_EQ(SpeedFraction(dSpeed, dMax), dFraction) << dSpeed;
    // Fractions of one step have one colour, and of two steps two.
    for (int nFile = 0; nFile < 6; ++nFile) {
        for (int i = 1; i <= 2600; ++i) {
            const double dOne = (i - 1) / 2600.0;
            const double dOther = i / 2600.0;
            EXPECT_LE(SpeedStep(nFile, dOther), LastSpeedStep);
            EXPECT_EQ(SpeedStep(nFile, dOne) == SpeedStep(nFile, dOther),
                      SpeedPen(nFile, dOne) == SpeedPen(nFile, dOther))
                << nFile << " " << i;
        }
    }
}

} // namespace
} // namespace kestrabel::test
