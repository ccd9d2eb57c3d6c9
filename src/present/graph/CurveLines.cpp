#include "present/graph/CurveLines.h"

#include "present/scene/PixelCover.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

constexpr double Margin = CPixelCover::Margin; // pens of some width still end outside

} // namespace

CCurveLines::CCurveLines(const SSceneArea& plot, const SSceneArea& area, bool bReduce, SSceneLayer& layer)
    : m_layer(layer),
      // A column of pixels reaches from half a pixel before its middle to half a pixel behind it.
      m_dLeft(plot.nLeft - 0.5),
      m_dTop(area.nTop - Margin),
      m_dRight(std::nextafter(plot.nRight + 0.5, 0.0)),
      m_dBottom(area.nBottom + Margin),
      m_bReduce(bReduce)
{
}

void CCurveLines::AddRuns()
{
    // From the last on: what is drawn last stays.
    double dCoveredTop = HUGE_VAL;
    double dCoveredBottom = -HUGE_VAL;
    for (auto it = m_runs.rbegin(); it != m_runs.rend(); ++it) {
        SRun& run = *it;
        const double dTop = std::floor(run.dTop + 0.5);
        const double dBottom = std::floor(run.dBottom + 0.5);
        if (dTop >= dCoveredTop && dBottom <= dCoveredBottom) {
            run.pPen = nullptr;
        } else if (dCoveredTop > dCoveredBottom || (dTop <= dCoveredBottom && dBottom >= dCoveredTop)) {
            dCoveredTop = std::min(dCoveredTop, dTop);
            dCoveredBottom = std::max(dCoveredBottom, dBottom);
        }
    }
    const auto dX = static_cast<double>(m_nColumn);
    for (const SRun& run : m_runs) {
        if (run.pPen != nullptr)
            AddLine({dX, run.dTop}, {dX, run.dBottom}, *run.pPen);
    }
    m_runs.clear();
}

void CCurveLines::AddLine(SScenePoint from, SScenePoint to, const SScenePen& pen)
{
    if (!ClipLine(m_dLeft, m_dTop, m_dRight, m_dBottom, from, to))
        return;
    if (m_pLastPen != &pen) {
        m_layer.lines.push_back({pen, {}});
        m_pLastPen = &pen;
    }
    m_layer.lines.back().Add(from, to);
}

} // namespace kestrabel
