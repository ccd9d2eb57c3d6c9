#pragma once

#include "model/Event.h"
#include "platform/Progress.h"
#include "present/Grid.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace kestrabel {

/// The columns of the track-point grid, in table order; the values number them.
enum class EPointColumn : int
{
    Track,
    Latitude,
    Longitude,
    Date,
    Time,
    Seconds,
    Distance,
    Speed,
    Direction,
    WindAngle,
    Vmg,
    Altitude,
    VertSpeed,
    Hdop,
    Invalid,
    Sats,
    Doppler,
    TotalDistance,
    TotalDopplerDistance,
    Run,
    DopplerRun,
    PosError,
    DopplerError,
    Usog,
    Ucog,
};

std::span<const SGridColumn> TrackPointColumns();

/// The text of one cell, in display units. `pPrevious` is the point before it in the list, null for the
/// first. The first point, and one that starts a gap, show only the columns up to "Time".
std::string TrackPointCell(const CEvent& event, const CTrackPoint* pPrevious, const CTrackPoint& point,
                           EPointColumn column);

/// The rows for the points from `nFirst` up to `nLast` or the end of the list: indices in the list, with a
/// `CGrid::Separator` before each that starts a gap.
std::vector<int> FillPoints(const CEvent& event, const CObjectArray<CTrackPoint>& points, int nFirst,
                            int nLast, CProgressDisplay& progress);

/// The grid of the points of the selected track file, or of all merged. Its settings are called
/// "Trackpoints".
class CTrackPointGrid : public CGrid
{
public:
    /// The event, the hub, the selection, the settings and the progress display outlive it.
    CTrackPointGrid(const CEvent& event, CUpdateHub& hub, CViewSelection& selection, CSettingsStore& settings,
                    CProgressDisplay& progress);
    ~CTrackPointGrid() override { m_hub.Detach(*this); }

    void OnUpdate(EUpdateHint hint) override;

    /// The points of rows, without separators.
    std::vector<CTrackPoint*> PointsOf(std::span<const int> rows) const;
    /// The shown columns, for exports of what the grid shows.
    std::vector<EPointColumn> ShownPointColumns() const;
    /// The index in the list of a row's point, for commands at one point; -1 for a separator.
    int PointIndexOf(int nRow) const { return ObjectOf(nRow); }

protected:
    std::vector<int> MakeRows() override;
    std::string Text(int nObject, int nField) const override;
    SSortKey SortKey(int nObject, int nField) const override;
    bool IsText(int /*nField*/) const override { return false; }
    void Pick(int nObject) override;
    int FocusRow() const override;

private:
    const CObjectArray<CTrackPoint>& Points() const
    {
        return m_selection.GetSeriesPoints(m_selection.m_nSeries);
    }

    const CEvent& m_event;
    CUpdateHub& m_hub;
    CProgressDisplay& m_progress;
};

/// The heading of the printed grid: the document's title, then the distance of the shown files.
std::string PrintHeading(const CEvent& event, const CViewSelection& selection, std::string_view strTitle);

/// The grid as comma-separated lines: the titles of the columns, then one line per point; every field is
/// followed by a comma. Lines come without their terminator (CR LF in a file).
void WriteGrid(const CEvent& event, const CObjectArray<CTrackPoint>& points,
               std::span<const EPointColumn> columns,
               const std::function<void(std::string_view strLine)>& writeLine);

} // namespace kestrabel
