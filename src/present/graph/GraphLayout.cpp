#include "present/graph/GraphLayout.h"

#include "model/NumberText.h"
#include "present/scene/SceneParts.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

constexpr double RoomAboveSpeed = 1.02;
constexpr double WholeSpeeds = 5.0; // a step of the grid is a multiple of these
constexpr double MostOfTop = 0.5;   // a larger step leaves hardly a line
constexpr double FewLines = 0.2;    // then a fifth of the axis

/// Lines that stand as closely as their labels allow.
double SpeedPerLine(double dTop, double dPlotHeight, double dTextHeight)
{
    if (!(dTop > 0.0) || !std::isfinite(dTop) || dPlotHeight <= 0.0)
        return 0.0;
    const double dStep = WholeSpeeds * std::ceil((dTextHeight + 1.0) * dTop / (dPlotHeight * WholeSpeeds));
    return dStep > dTop * MostOfTop ? std::ceil(dTop * FewLines) : dStep;
}

/// Whole numbers from line to line, so that `dRange` is reached within `nLines`.
double PerLine(double dRange, int nLines)
{
    return std::max(1.0, std::ceil(dRange / nLines));
}

/// A column right of the last one, or at the left edge.
template <class TText>
void AddColumn(SGraphLayout& layout, const CSceneTextSize& text, const SSceneColor& color, int nLines,
               TText&& textOf)
{
    SLabelColumn column = {color, 0.0, {}};
    double dWidth = 0.0;
    for (int i = 0; i <= nLines; ++i) {
        column.texts.push_back(textOf(i));
        dWidth = std::max(dWidth, text.Width(column.texts.back()));
    }
    const double dGap = text.Width("0") / 2.0;
    const double dLeft = layout.columns.empty() ? layout.area.nLeft : layout.columns.back().dRight;
    column.dRight = dLeft + dGap + std::ceil(dWidth);
    layout.columns.push_back(std::move(column));
}

void AddColumns(SGraphLayout& layout, const CSceneTextSize& text, const CViewSelection& selection,
                const CGridFields& fields, int nLines)
{
    const auto whole = [](double dValue) { return FormatNumber(dValue, 0, true); };
    AddColumn(layout, text, ScenePen::Grid.color, nLines,
              [&](int i) { return whole(i * layout.dSpeedPerLine); });
    if (IsShown(fields, EGraphField::Altitude) && selection.m_dViewMaxAltitude != 0.0 &&
        selection.m_dViewMinAltitude <= selection.m_dViewMaxAltitude)
        AddColumn(layout, text, SeriesOf(EGraphField::Altitude).color, nLines, [&](int i) {
            return FormatPadded(layout.altitude.dLow + i * layout.altitude.dPerLine, 2, 0);
        });
    const auto addBelow = [&](EGraphField field, const SFittedScale& scale, double dLimit) {
        if (!IsShown(fields, field))
            return;
        AddColumn(layout, text, SeriesOf(field).color, nLines, [&](int i) {
            const double dValue = i * scale.dPerLine;
            return dValue < dLimit ? whole(dValue) : std::string();
        });
    };
    addBelow(EGraphField::Sats, layout.sats, selection.m_dViewMaxSats);
    addBelow(EGraphField::Hdop, layout.hdop, selection.m_dViewMaxHdop);
}

} // namespace

double GraphTop(const CViewSelection& selection)
{
    return selection.m_dViewMaxSpeed * RoomAboveSpeed;
}

double SGraphLayout::ToAxis(EGraphField field, double dValue) const
{
    const auto fitted = [&](const SFittedScale& scale) {
        return (dValue - scale.dLow) / scale.dPerLine * dSpeedPerLine;
    };
    switch (field) {
    case EGraphField::Sats: return fitted(sats);
    case EGraphField::Hdop: return fitted(hdop);
    case EGraphField::Altitude: return fitted(altitude);
    default: return dValue;
    }
}

SGraphLayout LayoutGraph(const SSceneArea& area, const CSceneTextSize& text, const CViewSelection& selection,
                         const CGridFields& fields)
{
    SGraphLayout layout;
    layout.area = area;
    layout.plot = area;
    layout.dTop = GraphTop(selection);
    const bool bGrid = IsShown(fields, EGraphField::Grid);
    if (bGrid) {
        // Half of the uppermost label above the plot, the times below it.
        layout.plot.nTop += static_cast<std::int32_t>(std::ceil(text.Height() / 2.0));
        layout.plot.nBottom -= static_cast<std::int32_t>(std::ceil(text.Height()));
    }
    layout.dSpeedPerLine = SpeedPerLine(layout.dTop, layout.plot.Height(), text.Height());
    if (layout.dSpeedPerLine == 0.0)
        return layout;

    const int nLines = static_cast<int>(layout.dTop / layout.dSpeedPerLine);
    const int nScaled = std::max(nLines, 1);
    const double dAltitudes = selection.m_dViewMaxAltitude - selection.m_dViewMinAltitude;
    layout.sats.dPerLine = PerLine(selection.m_dViewMaxSats + 1.0, nScaled);
    layout.hdop.dPerLine = PerLine(selection.m_dViewMaxHdop, nScaled);
    if (dAltitudes >= 0.0)
        layout.altitude = {selection.m_dViewMinAltitude, PerLine(dAltitudes, nScaled)};
    if (bGrid) {
        AddColumns(layout, text, selection, fields, nLines);
        const double dGap = text.Width("0") / 2.0;
        layout.plot.nLeft = static_cast<std::int32_t>(std::ceil(layout.columns.back().dRight + dGap));
    }
    return layout;
}

} // namespace kestrabel
