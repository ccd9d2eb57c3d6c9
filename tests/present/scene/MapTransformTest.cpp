#include "present/scene/MapTransform.h"

#include "present/map/MapScroll.h"

#include <cmath>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

constexpr SSceneArea Device = {0, 0, 400, 200};

CGeoRect Around(double dLatitude, double dWidth, double dHeight)
{
    return {.m_dWest = 5.0 - dWidth / 2.0,
            .m_dNorth = dLatitude + dHeight / 2.0,
            .m_dEast = 5.0 + dWidth / 2.0,
            .m_dSouth = dLatitude - dHeight / 2.0};
}

TEST(MapTransform, TheWholeExtentFitsAndAKilometreIsEquallyLongBothWays)
{
    const double dInfinity = HUGE_VAL;
    const struct
    {
        CGeoRect world;
        double dUnitsX;
        double dUnitsY;
    } cases[] = {
        {Around(0.0, 4.0, 1.0), 0.01, -0.01}, // wide
        {Around(0.0, 4.0, 4.0), 0.02, -0.02}, // high
        {Around(60.0, 4.0, 1.0), 0.02, -0.01},  {Around(60.0, 1.0, 4.0), 0.04, -0.02},
        {Around(-60.0, 0.0, 4.0), 0.04, -0.02}, // straight to the north
    };
    CMapTransform transform;
    for (const auto& [world, dUnitsX, dUnitsY] : cases) {
        transform.SetMapping(Device, world); // whatever was mapped before
        EXPECT_NEAR(transform.m_dUnitsPerPixelX, dUnitsX, 1e-15);
        EXPECT_NEAR(transform.m_dUnitsPerPixelY, dUnitsY, 1e-15);
        EXPECT_TRUE(transform.IsUsable());
        const CGeoRect visible = transform.VisibleWorld();
        EXPECT_LE(visible.m_dWest, world.m_dWest + 1e-12);
        EXPECT_GE(visible.m_dEast, world.m_dEast - 1e-12);
        EXPECT_GE(visible.m_dNorth, world.m_dNorth - 1e-12);
        EXPECT_LE(visible.m_dSouth, world.m_dSouth + 1e-12);
        EXPECT_EQ(transform.WorldToDevice(world.Centre()), (SScenePoint{200.0, 100.0}));
    }

    // Beyond the poles there is no map, but no division by zero either.
    transform.SetMapping(Device, {.m_dWest = 0.0, .m_dNorth = 200.0, .m_dEast = 200.0, .m_dSouth = 0.0});
    EXPECT_GT(transform.m_dUnitsPerPixelX, 0.0);
    EXPECT_LT(transform.m_dUnitsPerPixelX, dInfinity);
    transform.SetMapping(Device, Around(52.0, 0.0, 0.0));
    EXPECT_FALSE(transform.IsUsable()) << "one point";
    transform.SetMapping({0, 0, 400, 0}, Around(52.0, 1.0, 1.0));
    EXPECT_FALSE(transform.IsUsable()) << "no height";

    CMapTransform plane(false);
    plane.SetMapping(Device, Around(60.0, 4.0, 4.0));
    EXPECT_DOUBLE_EQ(plane.m_dUnitsPerPixelX, 0.01);
    EXPECT_DOUBLE_EQ(plane.m_dUnitsPerPixelY, -0.02);
    plane.ZoomBy(0.5);
    EXPECT_DOUBLE_EQ(plane.m_dUnitsPerPixelX, 0.005);
    EXPECT_DOUBLE_EQ(plane.m_dUnitsPerPixelY, -0.02) << "a plane's heights stay";
}

TEST(MapTransform, PixelsAndDegreesLeadToEachOther)
{
    CMapTransform transform;
    transform.SetMapping({10, 20, 411, 221}, Around(52.0, 1.0, 1.0));
    EXPECT_EQ(transform.m_dDevAnchorX, 211.0) << "half a pixel away from zero";
    EXPECT_EQ(transform.m_dDevAnchorY, 121.0);
    transform.AnchorAt({37.4, 99.5});
    EXPECT_EQ(transform.m_dDevAnchorX, 37.0);
    EXPECT_EQ(transform.m_dDevAnchorY, 100.0);
    EXPECT_NEAR(transform.m_dAnchorFracX, 27.0 / 401.0, 1e-15);
    for (int i = 0; i < 3; ++i)
        transform.ZoomIn();
    for (const SScenePoint& pixel : {SScenePoint{10.0, 20.0}, {411.0, 221.0}, {37.0, 100.0}, {-5000.0, 77.0}})
        EXPECT_EQ(transform.WorldToDevice(transform.DeviceToWorld(pixel)), pixel);
    const CPosition place = transform.DeviceToWorld({300.4, 99.6});
    EXPECT_EQ(transform.WorldToDevice(place), (SScenePoint{300.0, 100.0})) << "rounded";
    EXPECT_NEAR(transform.Project(place).dX, 300.4, 1e-9);
}

TEST(MapTransform, ZoomStepsBackToTheWholeExtent)
{
    for (const double dStep : {1.3, 2.0, 3.0}) {
        CMapTransform transform;
        transform.m_dZoomStep = dStep;
        transform.SetMapping(Device, Around(52.0, 1.0, 1.0));
        const double dUnits = transform.m_dUnitsPerPixelX;
        for (int i = 0; i < 7; ++i)
            transform.ZoomIn();
        EXPECT_NEAR(transform.m_dZoomFactor, std::pow(dStep, -7), 1e-12);
        EXPECT_NEAR(transform.m_dUnitsPerPixelX / dUnits, std::pow(dStep, -7), 1e-12);
        transform.AnchorAt({3.0, 7.0});
        for (int i = 0; i < 7; ++i) {
            EXPECT_TRUE(transform.IsZoomed());
            transform.ZoomOut();
        }
        EXPECT_EQ(transform.m_dZoomFactor, 1.0);
        EXPECT_EQ(transform.m_dUnitsPerPixelX, dUnits);
        EXPECT_EQ(transform.m_dAnchorFracX, 0.5);
        transform.ZoomOut();
        EXPECT_EQ(transform.m_dUnitsPerPixelX, dUnits) << "no further";
    }
    CMapTransform transform;
    transform.SetMapping(Device, Around(52.0, 1.0, 1.0));
    for (const double dNothing : {0.0, std::nan(""), HUGE_VAL})
        transform.ZoomBy(dNothing);
    EXPECT_EQ(transform.m_dZoomFactor, 1.0);
    for (int i = 0; i < 1000; ++i)
        transform.ZoomIn();
    EXPECT_TRUE(transform.IsUsable());
    const SScenePoint pixel = {17.0, 55.0};
    EXPECT_EQ(transform.WorldToDevice(transform.DeviceToWorld(pixel)), pixel) << "pixels can still be told";
}

TEST(MapTransform, AnotherRectangleShowsTheSameWorldOrTheSameScale)
{
    CMapTransform transform;
    transform.SetMapping(Device, Around(60.0, 4.0, 1.0));
    transform.ZoomBy(0.25);
    const CGeoRect visible = transform.VisibleWorld();
    transform.SetDeviceRect({100, 100, 4100, 2100}, true); // a page
    EXPECT_EQ(transform.m_dZoomFactor, 0.25);
    const CGeoRect printed = transform.VisibleWorld();
    EXPECT_NEAR(printed.m_dWest, visible.m_dWest, 1e-9);
    EXPECT_NEAR(printed.m_dSouth, visible.m_dSouth, 1e-9);
    EXPECT_NEAR(printed.m_dEast, visible.m_dEast, 1e-9);
    transform.SetDeviceRect({0, 0, 100, 2000}, true); // a narrow one
    EXPECT_NEAR(transform.VisibleWorld().m_dWest, visible.m_dWest, 1e-9);
    EXPECT_GT(transform.VisibleWorld().m_dNorth, visible.m_dNorth + 1.0);
    EXPECT_NEAR(transform.m_dUnitsPerPixelX / -transform.m_dUnitsPerPixelY, 2.0, 1e-9);

    const double dUnits = transform.m_dUnitsPerPixelX;
    transform.SetDeviceRect(Device, false);
    EXPECT_EQ(transform.m_dUnitsPerPixelX, dUnits);
    EXPECT_EQ(transform.m_dDevAnchorX, 200.0);
    EXPECT_EQ(transform.m_dDevAnchorY, 100.0);
}

TEST(MapScroll, BarsTellAndChangeWhereTheViewIs)
{
    const CGeoRect extent = Around(0.0, 4.0, 2.0); // as the device is shaped
    CMapTransform transform;
    transform.SetMapping(Device, extent);
    EXPECT_EQ(ScrollOf(transform, extent, EScrollBar::Horizontal),
              (SScrollBar{false, MapScrollRange, MapScrollRange, 0}));
    transform.ZoomBy(0.25);
    EXPECT_EQ(ScrollOf(transform, extent, EScrollBar::Horizontal),
              (SScrollBar{true, MapScrollRange, 250, 375}));
    EXPECT_EQ(ScrollOf(transform, extent, EScrollBar::Vertical),
              (SScrollBar{true, MapScrollRange, 250, 375}));

    const struct
    {
        EScroll scroll;
        int nThumb;
        int nPosition;
    } steps[] = {
        {EScroll::LineOn, 0, 376},  {EScroll::LineBack, 0, 375}, {EScroll::PageOn, 0, 625},
        {EScroll::PageOn, 0, 750},  {EScroll::LineOn, 0, 750},   {EScroll::PageBack, 0, 500},
        {EScroll::First, 0, 0},     {EScroll::PageBack, 0, 0},   {EScroll::Last, 0, 750},
        {EScroll::Thumb, 100, 100}, {EScroll::Thumb, 999, 750},
    };
    for (const EScrollBar bar : {EScrollBar::Horizontal, EScrollBar::Vertical}) {
        for (const auto& [scroll, nThumb, nPosition] : steps) {
            ScrollMap(transform, extent, bar, scroll, nThumb);
            EXPECT_EQ(ScrollOf(transform, extent, bar).nPosition, nPosition) << static_cast<int>(scroll);
        }
    }
    EXPECT_NEAR(transform.VisibleWorld().m_dEast, extent.m_dEast, 1e-12);
    EXPECT_NEAR(transform.VisibleWorld().m_dSouth, extent.m_dSouth, 1e-12);
    EXPECT_EQ(transform.m_dZoomFactor, 0.25);

    // Dragged beyond the extent the bar is at its end, and the next step comes back from there.
    transform.m_dWorldAnchorX += 10.0;
    EXPECT_EQ(ScrollOf(transform, extent, EScrollBar::Horizontal).nPosition, 750);
    ScrollMap(transform, extent, EScrollBar::Horizontal, EScroll::LineBack);
    EXPECT_NEAR(transform.VisibleWorld().m_dWest, extent.m_dWest + 4.0 * 0.749, 1e-12);
    const CGeoRect line = Around(0.0, 4.0, 0.0);
    EXPECT_EQ(ScrollOf(transform, line, EScrollBar::Vertical).nPosition, 0) << "an extent without height";
}

} // namespace
} // namespace kestrabel
