#pragma once

#include "present/graph/GraphFields.h"
#include "present/scene/Scene.h"
#include "present/ViewSelection.h"

#include <string>
#include <vector>

namespace kestrabel {

/// The scale of a series that has no axis of its own: its values are fitted to the lines of the speed grid,
/// of which each stands for a whole number more.
struct SFittedScale
{
    double dLow = 0.0;     ///< at the lowest line
    double dPerLine = 1.0; ///< from line to line, at least 1
};

/// Texts beside the lines of the grid, from the lowest line on.
struct SLabelColumn
{
    SSceneColor color;
    double dRight = 0.0; ///< where the texts end, pixels
    std::vector<std::string> texts;
};

/// How the graph is divided into scales, labels and the plot.
struct SGraphLayout
{
    SSceneArea area;            ///< all of it
    SSceneArea plot;            ///< where the curves are; without size when the labels leave no room
    double dTop = 0.0;          ///< speed at the upper edge of the plot, in the display unit
    double dSpeedPerLine = 0.0; ///< 0: nobody moved, and there is no scale
    SFittedScale sats;
    SFittedScale hdop;
    SFittedScale altitude;
    std::vector<SLabelColumn> columns; ///< none without the grid

    /// A value of the series as a speed on the axis.
    double ToAxis(EGraphField field, double dValue) const;
};

/// The highest speed on the axis, in the display unit: a little more than anybody reached.
double GraphTop(const CViewSelection& selection);

SGraphLayout LayoutGraph(const SSceneArea& area, const CSceneTextSize& text, const CViewSelection& selection,
                         const CGridFields& fields);

} // namespace kestrabel
