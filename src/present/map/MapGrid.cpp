#include "present/map/MapGrid.h"

#include "geo/Angle.h"
#include "model/NumberText.h"
#include "present/map/MapColors.h"
#include "present/scene/SceneParts.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

constexpr double MostSteps = 4.0; // on the shorter side, before the step is doubled
constexpr double DistanceFactor = 1.852;
constexpr double MilesPerDegree = 60.0;
constexpr double MarksOfDistance = 100.0; // a distance is told to a hundredth of the step
constexpr double MostDecimals = 9.0;
constexpr double BesideLine = 2.0; // pixels of the screen

struct SStep
{
    double dStep = 0.0; ///< 0: no grid
    int nDecimals = 0;
};

/// Doubles the step until the lines are few, and further apart than two characters.
void Widen(double& dStep, double dSpan, double dCharWidth, double dCharHeight)
{
    if (dSpan / dStep > MostSteps)
        dStep *= 2.0;
    while (2.0 * dCharWidth >= dStep)
        dStep *= 2.0;
    while (2.0 * dCharHeight >= dStep)
        dStep *= 2.0;
}

/// The lines of one direction: where each is in degrees, and its label.
struct SLine
{
    double dDegrees;
    std::string strLabel;
};

/// The multiples of the step from `dFrom` up to `dTo`; the steps are in degrees times `dFactor`.
template <class TLabel>
std::vector<SLine> Lines(double dFrom, double dTo, double dFactor, double dStep, TLabel&& label)
{
    std::vector<SLine> lines;
    const double dFirst = std::floor(dFrom * dFactor / dStep);
    for (int i = 0;; ++i) {
        const double dValue = (dFirst + i) * dStep;
        if (dValue >= dTo * dFactor)
            return lines;
        if (dValue >= dFrom * dFactor)
            lines.push_back({dValue / dFactor, label(dValue, static_cast<int>(lines.size()))});
    }
}

class CGridDrawing
{
public:
    CGridDrawing(const SSceneSurface& surface, SSceneLayer& layer, bool bFarEdges)
        : m_surface(surface), m_layer(layer), m_bFarEdges(bFarEdges)
    {
        m_lines.pen = ScenePen::Grid;
    }
    ~CGridDrawing()
    {
        if (!m_lines.ends.empty())
            m_layer.lines.push_back(std::move(m_lines));
    }
    CGridDrawing(const CGridDrawing&) = delete;
    CGridDrawing& operator=(const CGridDrawing&) = delete;

    void Vertical(const std::vector<SLine>& lines)
    {
        const SSceneArea& area = m_surface.transform.m_rcDevice;
        double dLast = -HUGE_VAL;
        for (const SLine& line : lines) {
            const double dX = m_surface.transform.WorldToDevice({line.dDegrees, 0.0}).dX;
            m_lines.Add({dX, static_cast<double>(area.nTop)}, {dX, static_cast<double>(area.nBottom)});
            if (dX - dLast < 2.0 * m_surface.text.Width(line.strLabel))
                continue;
            dLast = dX;
            // Beside the line, which would hide a leading decimal point.
            Label({dX + BesideLine * m_surface.dScale,
                   static_cast<double>(m_bFarEdges ? area.nBottom : area.nTop)},
                  ESceneAlign::Low, m_bFarEdges ? ESceneAlign::High : ESceneAlign::Low, line.strLabel);
        }
    }
    void Horizontal(const std::vector<SLine>& lines)
    {
        const SSceneArea& area = m_surface.transform.m_rcDevice;
        double dLast = HUGE_VAL;
        for (const SLine& line : lines) {
            const double dY = m_surface.transform.WorldToDevice({0.0, line.dDegrees}).dY;
            m_lines.Add({static_cast<double>(area.nLeft), dY}, {static_cast<double>(area.nRight), dY});
            if (dLast - dY < 2.0 * m_surface.text.Height())
                continue;
            dLast = dY;
            Label({static_cast<double>(m_bFarEdges ? area.nRight : area.nLeft), dY},
                  m_bFarEdges ? ESceneAlign::High : ESceneAlign::Low, ESceneAlign::High, line.strLabel);
        }
    }

private:
    void Label(const SScenePoint& at, ESceneAlign horizontal, ESceneAlign vertical,
               const std::string& strText)
    {
        m_layer.texts.push_back({ESceneRole::Grid, ScenePen::Grid.color, at, horizontal, vertical, strText});
    }

    const SSceneSurface& m_surface;
    SSceneLayer& m_layer;
    bool m_bFarEdges;
    SSceneLines m_lines;
};

/// A character of the surface's font in degrees.
CPosition CharacterSize(const SSceneSurface& surface)
{
    return {.m_dLongitude = surface.text.Width("0") * surface.transform.m_dUnitsPerPixelX,
            .m_dLatitude = surface.text.Height() * -surface.transform.m_dUnitsPerPixelY};
}

SStep DegreeStep(double dSpan)
{
    for (int k = 1; k <= 11; ++k) {
        const double dStep = 100.0 / std::pow(10.0, k);
        if (dSpan / dStep >= 1.0)
            return {dStep, k - 1};
    }
    return {};
}

double DistanceStep(double dSpan)
{
    for (int k = -2; k <= 9; ++k) {
        const double dStep = 100.0 / std::pow(10.0, k);
        if (dSpan / dStep >= 1.0 && dSpan / dStep < 10.0)
            return dStep;
    }
    return dSpan / 10.0;
}

} // namespace

void AddDegreeGrid(const SSceneSurface& surface, SSceneLayer& layer)
{
    const CGeoRect visible = surface.transform.VisibleWorld();
    const double dSpan = std::min(visible.Width(), visible.Height());
    SStep step = DegreeStep(dSpan);
    if (!surface.transform.IsUsable() || step.dStep == 0.0)
        return;
    const CPosition character = CharacterSize(surface);
    Widen(step.dStep, dSpan, character.m_dLongitude, character.m_dLatitude);
    CGridDrawing drawing(surface, layer, false);
    const auto label = [&](double dValue, int) { return FormatNumber(dValue, step.nDecimals, true); };
    drawing.Vertical(Lines(visible.m_dWest, visible.m_dEast, 1.0, step.dStep, label));
    drawing.Horizontal(Lines(visible.m_dSouth, visible.m_dNorth, 1.0, step.dStep, label));
}

void AddDistanceGrid(const SSceneSurface& surface, SSceneLayer& layer)
{
    if (!surface.transform.IsUsable())
        return;
    const CGeoRect visible = surface.transform.VisibleWorld();
    const double dSpan = std::min(visible.Width(), visible.Height()) * DistanceFactor;
    double dStep = DistanceStep(dSpan);
    const CPosition character = CharacterSize(surface);
    Widen(dStep, dSpan, character.m_dLongitude * DistanceFactor, character.m_dLatitude * DistanceFactor);

    CGridDrawing drawing(surface, layer, true);
    const auto labels = [&](double dMilesPerUnit) {
        const double dMiles = dStep * dMilesPerUnit;
        const double dDigits = std::ceil(std::log10(MarksOfDistance / dMiles));
        const int nDecimals = static_cast<int>(std::clamp(dDigits, 0.0, MostDecimals));
        return [=](double, int i) { return FormatNumber(i * dMiles, nDecimals, true) + " nm"; };
    };
    const double dMiles = MilesPerDegree / DistanceFactor;
    const double dNarrow = std::cos(visible.Centre().m_dLatitude * DegreesToRadians);
    drawing.Vertical(
        Lines(visible.m_dWest, visible.m_dEast, DistanceFactor, dStep, labels(dMiles * std::abs(dNarrow))));
    drawing.Horizontal(Lines(visible.m_dSouth, visible.m_dNorth, DistanceFactor, dStep, labels(dMiles)));
}

} // namespace kestrabel
