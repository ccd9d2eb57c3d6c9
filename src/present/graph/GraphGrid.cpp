#include "present/graph/GraphGrid.h"

#include "model/TimeText.h"
#include "present/scene/SceneParts.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

constexpr SScenePen TickPen = {ESceneRole::Grid, ScenePen::Grid.color, 4};
constexpr double TextBesideTick = 3.0; // pixels of the screen

// Times in widths of a character.
constexpr double TickDistance = 10.0;
constexpr double FreeAtEnd = 5.0;
constexpr double FreeForZoom = 12.0;

constexpr std::size_t MinutesText = 5; // "HH:MM"

/// -1 when the time is none.
int MinuteOfDay(const DATE& time)
{
    const std::optional<SCalendar> calendar = time.ToCalendar();
    return calendar ? calendar->nHour * 60 + calendar->nMinute : -1;
}

void AddTime(const SSceneSurface& surface, const SGraphLayout& layout, double dX, std::string strText,
             SSceneLayer& layer)
{
    layer.texts.push_back({ESceneRole::Grid,
                           ScenePen::Grid.color,
                           {dX + TextBesideTick * surface.dScale, static_cast<double>(layout.area.nBottom)},
                           ESceneAlign::Low,
                           ESceneAlign::High,
                           std::move(strText)});
}

} // namespace

void AddSpeedGrid(const SSceneSurface& surface, const SGraphLayout& layout, SSceneLayer& layer)
{
    if (layout.columns.empty())
        return;
    const SSceneArea& plot = layout.plot;
    SSceneLines lines = {ScenePen::Grid, {}};
    for (std::size_t i = 0; i < layout.columns.front().texts.size(); ++i) {
        const double dSpeed = static_cast<double>(i) * layout.dSpeedPerLine;
        const double dY = surface.transform.WorldToDevice({0.0, dSpeed}).dY;
        lines.Add({static_cast<double>(plot.nLeft), dY}, {static_cast<double>(plot.nRight), dY});
        for (const SLabelColumn& column : layout.columns) {
            if (!column.texts[i].empty())
                layer.texts.push_back({ESceneRole::Grid,
                                       column.color,
                                       {column.dRight, dY},
                                       ESceneAlign::High,
                                       ESceneAlign::Middle,
                                       column.texts[i]});
        }
    }
    layer.lines.push_back(std::move(lines));
    SSceneLines axes = {ScenePen::Track, {}};
    const SScenePoint corner = {static_cast<double>(plot.nLeft), static_cast<double>(plot.nBottom)};
    axes.Add({corner.dX, static_cast<double>(plot.nTop)}, corner);
    axes.Add(corner, {static_cast<double>(plot.nRight), corner.dY});
    layer.lines.push_back(std::move(axes));
}

SShownPoints ShownPoints(const CMapTransform& transform, int nCount)
{
    if (!transform.IsUsable())
        return {};
    const CGeoRect visible = transform.VisibleWorld();
    return {.nFirst = static_cast<int>(std::clamp(std::ceil(visible.m_dWest), 0.0, nCount + 0.0)),
            .nLast = static_cast<int>(std::clamp(std::floor(visible.m_dEast), -1.0, nCount - 1.0))};
}

bool AddTimeTicks(const SSceneSurface& surface, const SGraphLayout& layout,
                  const CObjectArray<CTrackPoint>& points, double dTimezone, bool bZoom, SSceneLayer& layer)
{
    const CMapTransform& transform = surface.transform;
    const SShownPoints shown = ShownPoints(transform, points.GetCount());
    if (shown.nFirst > shown.nLast)
        return false;
    const double dCharacter = surface.text.Width("0");
    const double dEnd = layout.plot.nRight - (bZoom ? FreeForZoom : FreeAtEnd) * dCharacter;
    const auto timeOf = [&](int i) { return ShiftToTimezone(points[i].m_time, dTimezone); };

    SSceneLines ticks = {TickPen, {}};
    int nMinute = MinuteOfDay(timeOf(shown.nFirst));
    DATE last = points[shown.nFirst].m_time;
    for (int i = shown.nFirst + 1; i <= shown.nLast; ++i) {
        const double dX = transform.WorldToDevice({static_cast<double>(i), 0.0}).dX;
        if (dX >= dEnd)
            break;
        if (points[i].m_time == last)
            continue; // a clock that stands still
        last = points[i].m_time;
        const int nNow = MinuteOfDay(timeOf(i));
        if (nNow == -1 || nNow == nMinute)
            continue;
        nMinute = nNow;
        ticks.Add({dX, layout.plot.nBottom + 0.0}, {dX, layout.area.nBottom + 0.0});
        AddTime(surface, layout, dX, FormatTimeOfDay(timeOf(i), 0).substr(0, MinutesText), layer);
        // Those between here and the next place for a text need not be looked at.
        const double dNext = dX + TickDistance * dCharacter;
        const double dSkip = transform.DeviceToWorld({dNext, 0.0}).m_dLongitude;
        i = std::max(i, static_cast<int>(std::clamp(std::floor(dSkip), 0.0, shown.nLast + 0.0)));
    }
    if (ticks.ends.empty())
        return false;
    layer.lines.push_back(std::move(ticks));
    return true;
}

void AddTimeOfPoint(const SSceneSurface& surface, const SGraphLayout& layout,
                    const CObjectArray<CTrackPoint>& points, int nPoint, double dTimezone, SSceneLayer& layer)
{
    const std::string strText = FormatTimeOfDay(ShiftToTimezone(points[nPoint].m_time, dTimezone), 0);
    const double dX = surface.transform.WorldToDevice({static_cast<double>(nPoint), 0.0}).dX;
    // At the end of the plot it stands left of the point rather than nowhere.
    const double dLast = layout.plot.nRight - surface.text.Width(strText) - TextBesideTick * surface.dScale;
    AddTime(surface, layout, std::min(dX, dLast), strText, layer);
}

} // namespace kestrabel
