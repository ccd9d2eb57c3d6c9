#pragma once

#include "model/NumberText.h"
#include "present/graph/ResultSpeedGraphView.h"
#include "present/scene/SceneWorld.h"

#include <initializer_list>

namespace kestrabel::test {

/// Fields of the graph of which these alone are shown.
inline CGridFields GraphFields(std::initializer_list<EGraphField> shown)
{
    CGridFields fields = DefaultFields(GraphFieldTable);
    for (CGridField& field : fields)
        field.m_bDisplay = false;
    for (const EGraphField field : shown)
        fields[static_cast<std::size_t>(field)].m_bDisplay = true;
    return fields;
}

/// A rider with track files of given speeds, one fix in a second, on a plot of 10 pixels per point and one
/// pixel per km/h.
struct SGraphWorld : SSceneWorld
{
    CSeries& AddSpeeds(const std::vector<double>& speeds, double dFirstSecond = 0.0)
    {
        CSeries& series = AddLine(static_cast<int>(speeds.size()));
        for (CTrackPoint* pPoint : series.m_points) {
            pPoint->m_dSpeed = speeds[static_cast<std::size_t>(pPoint->m_nTrack)];
            pPoint->m_time = pPoint->m_time.Plus(dFirstSecond * DaysPerSecond);
            pPoint->m_dDeltaTime = pPoint->m_nTrack == 0 ? 0.0 : DaysPerSecond;
        }
        selection.m_nSeries = event.m_persons[0].m_series.GetCount() == 1 ? 0 : -1;
        selection.ForgetPoints();
        return series;
    }
    /// The curves of the shown fields; x starts at pixel 0, 0 km/h is at pixel 100.
    SSceneLayer Curves(std::initializer_list<EGraphField> shown, bool bReduce = false)
    {
        const CGridFields fields = GraphFields(shown);
        const int nCount = selection.GetSeriesPoints(selection.m_nSeries).GetCount();
        layout.area = layout.plot = {0, 0, (nCount - 1) * 10, 100};
        layout.dTop = 100.0;
        layout.dSpeedPerLine = 10.0;
        transform.SetMapping(layout.plot, {0.0, 100.0, nCount - 1.0, 0.0});
        const SSceneSurface scene = {transform, text};
        return GraphCurveLayer({scene, layout, bReduce}, MakeGraphTracks(event, selection, fields),
                               IsShown(fields, EGraphField::Nodes));
    }

    CMapTransform transform{false};
    SGraphLayout layout;
};

/// All lines with their colours, as "ff0000 x,y x,y; ".
inline std::string CurvesText(const SSceneLayer& layer)
{
    std::string strText;
    const auto hex = [](int n) {
        return std::string{"0123456789abcdef"[n / 16], "0123456789abcdef"[n % 16]};
    };
    for (const SSceneLines& lines : layer.lines) {
        const SSceneColor& color = lines.pen.color;
        strText += hex(color.nRed) + hex(color.nGreen) + hex(color.nBlue);
        for (std::size_t i = 0; i < lines.ends.size(); ++i) {
            strText += " " + FormatNumber(lines.ends[i].dX, 1, true) + "," +
                       FormatNumber(lines.ends[i].dY, 1, true) + (i % 2 == 0 ? "" : ";");
        }
        strText += "\n";
    }
    return strText;
}

} // namespace kestrabel::test
