#pragma once

#include "present/scene/Scene.h"

#include <vector>

namespace kestrabel {

/// Turns the corners of a curve, whose points come from left to right, into the lines to be drawn.
///
/// With `bReduce` the lines within one column of pixels are drawn as one, from the lowest to the highest
/// point that they reach; where some of them have another pen, one for each stretch of a pen, but none that
/// what follows in the column draws over. No pixel changes by this, so no peak, gap or invalid stretch is
/// lost, and a million points come down to a few lines for each column.
class CCurveLines
{
public:
    /// Lines are cut at the left and right edges of the plot. Above and below they may leave it up to the
    /// edges of `area`: climb rates below zero are drawn, too.
    CCurveLines(const SSceneArea& plot, const SSceneArea& area, bool bReduce, SSceneLayer& layer);
    ~CCurveLines() { Flush(); }
    CCurveLines(const CCurveLines&) = delete;
    CCurveLines& operator=(const CCurveLines&) = delete;

    /// Pixels, finite. Without a line.
    void MoveTo(const SScenePoint& to)
    {
        m_from = to;
        m_bNewRun = true;
    }
    void LineTo(const SScenePoint& to, const SScenePen& pen)
    {
        const int nColumn = ColumnOf(to.dX);
        if (m_bReduce && nColumn == ColumnOf(m_from.dX)) {
            if (nColumn != m_nColumn)
                Flush();
            m_nColumn = nColumn;
            Extend(to.dY, pen);
        } else {
            Flush();
            AddLine(m_from, to, pen);
        }
        m_from = to;
    }

private:
    /// Lines that follow each other in one column with one pen.
    struct SRun
    {
        const SScenePen* pPen;
        double dTop;
        double dBottom;
    };

    static int ColumnOf(double dX)
    {
        // Cutting off rounds to the nearest for what is not negative.
        constexpr int Offset = 1 << 24;
        return static_cast<int>(dX + (Offset + 0.5)) - Offset;
    }
    void Extend(double dY, const SScenePen& pen)
    {
        if (m_bNewRun || m_runs.empty() || m_runs.back().pPen != &pen) {
            m_runs.push_back({&pen, m_from.dY, m_from.dY});
            m_bNewRun = false;
        }
        SRun& run = m_runs.back();
        run.dTop = dY < run.dTop ? dY : run.dTop;
        run.dBottom = dY > run.dBottom ? dY : run.dBottom;
    }
    void Flush()
    {
        if (!m_runs.empty())
            AddRuns();
        m_bNewRun = true;
    }
    void AddRuns();
    void AddLine(SScenePoint from, SScenePoint to, const SScenePen& pen);

    SSceneLayer& m_layer;
    double m_dLeft;
    double m_dTop;
    double m_dRight;
    double m_dBottom;
    bool m_bReduce;
    SScenePoint m_from;
    int m_nColumn = 0; ///< of the runs
    std::vector<SRun> m_runs;
    bool m_bNewRun = true;
    const SScenePen* m_pLastPen = nullptr; ///< of the last lines of the layer, null for those of others
};

} // namespace kestrabel
