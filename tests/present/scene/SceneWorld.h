#pragma once

#include "model/SpeedUnits.h"
#include "platform/FileSettings.h"
#include "present/scene/Scene.h"
#include "present/ViewSelection.h"
#include "support/Track.h"

#include <gmock/gmock.h>

namespace kestrabel::test {

/// A font of which every character is 7 pixels wide and 14 high.
class CFixedText : public CSceneTextSize
{
public:
    double Width(std::string_view strText) const override
    {
        return 7.0 * static_cast<double>(strText.size());
    }
    double Height() const override { return 14.0; }
};

/// A rider with track files at a place where a pixel is easily told: at the equator, where a degree of
/// longitude is as long as one of latitude.
struct SSceneWorld : testing::Test, CPane
{
    SSceneWorld()
    {
        event.m_persons.Add(std::make_unique<CPerson>());
        event.m_nSpeedUnits = SpeedUnit::KilometresPerHour;
        hub.Attach(*this);
    }
    ~SSceneWorld() override { hub.Detach(*this); }
    void OnUpdate(EUpdateHint hint) override { hints.push_back(hint); }

    CPerson& Person() { return event.m_persons[0]; }
    CSeries& Series(int nSeries) { return Person().m_series[nSeries]; }
    CSeries& AddFile(const std::vector<CPosition>& positions)
    {
        CSeries& series = Person().m_series.Add(std::make_unique<CSeries>());
        series.m_rcBounds = CGeoRect::Empty();
        for (const CPosition& position : positions) {
            const int nPoint = series.m_points.GetCount();
            CTrackPoint& point =
                series.m_points.Add(MakePoint(nPoint, position.m_dLatitude, position.m_dLongitude));
            point.m_nTrack = nPoint;
            point.m_nSeriesIndex = static_cast<std::uint16_t>(Person().m_series.GetCount() - 1);
            series.m_rcBounds.Extend(position);
        }
        selection.m_nCompetitor = 0;
        return series;
    }
    /// Fixes to the east along the equator, `dStep` degrees apart from 0.
    CSeries& AddLine(int nPoints, double dStep = 0.001)
    {
        std::vector<CPosition> positions;
        for (int i = 0; i < nPoints; ++i)
            positions.push_back({.m_dLongitude = i * dStep, .m_dLatitude = 0.0});
        return AddFile(positions);
    }

    CEvent event;
    CUpdateHub hub;
    CMemorySettings settings;
    CViewSelection selection{event, hub, NoProgress()};
    CFixedText text;
    std::vector<EUpdateHint> hints;
};

/// All ends of the lines of a role, as "x,y x,y; ".
inline std::string LinesText(const SSceneLayer& layer, ESceneRole role)
{
    std::string strText;
    for (const SSceneLines& lines : layer.lines) {
        for (std::size_t i = 0; lines.pen.role == role && i < lines.ends.size(); ++i) {
            strText += std::to_string(std::lround(lines.ends[i].dX)) + "," +
                       std::to_string(std::lround(lines.ends[i].dY)) + (i % 2 == 0 ? " " : "; ");
        }
    }
    return strText;
}

} // namespace kestrabel::test
