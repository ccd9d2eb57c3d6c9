#pragma once

#include "platform/SettingsStore.h"
#include "present/graph/GraphLayers.h"
#include "present/scene/SceneView.h"
#include "present/ViewSelection.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace kestrabel {

/// The layers of the graph's scene, from the lowest to the highest.
enum EGraphLayer : std::size_t
{
    GraphRun,
    GraphGrid, ///< with the labels and the times
    GraphFocus,
    GraphCurves, ///< and the zoom text
    GraphLayers,
};

/// The speed graph: the shown track file, or all files merged by time, point by point from left to right.
/// Zooming and panning move along the points; the speeds always go from 0 to a little above the highest.
class CResultSpeedGraphView : public CSceneView
{
public:
    /// Keeps what it shows in the settings. The event, the hub, the selection and the settings outlive it.
    CResultSpeedGraphView(const CEvent& event, CUpdateHub& hub, CViewSelection& selection,
                          CSettingsStore& settings);
    ~CResultSpeedGraphView() override;
    CResultSpeedGraphView(const CResultSpeedGraphView&) = delete;
    CResultSpeedGraphView& operator=(const CResultSpeedGraphView&) = delete;

    void OnUpdate(EUpdateHint hint) override;

    void OnSize(int nWidth, int nHeight) override;
    void Refresh() override;

    const SScene& Scene(const CSceneTextSize& text) override;
    SScene PrintScene(const SSceneArea& area, double dScale, const CSceneTextSize& text) override;

    /// Counts points; the vertical one is never shown.
    SScrollBar ScrollBar(EScrollBar bar) const override;
    void OnScroll(EScrollBar bar, EScroll scroll, int nThumb = 0) override;

    /// Puts the focus on the point there; with Ctrl zooms in there, with Shift moves that place to the
    /// middle.
    void OnLButtonDown(const SScenePoint& point, SModifiers modifiers) override;

    bool OnKeyDown(EViewKey key, SModifiers modifiers) override;

    /// New waypoints are at the focus point.
    std::optional<CPosition> PlaceForNewPoint() override { return std::nullopt; }

    SGridFieldsDialog FieldsDialog() const override { return SGridFieldsDialog::From(m_fields); }
    void ApplyFields(const SGridFieldsDialog& dialog) override;

    /// Of the plot: x is the index in the shown list, y the speed in the display unit.
    const CMapTransform& Transform() const { return m_transform; }

private:
    const CObjectArray<CTrackPoint>& Points() const
    {
        return m_selection.GetSeriesPoints(m_selection.m_nSeries);
    }
    std::optional<int> FocusIndex() const;
    /// All points, and all speeds, as a rectangle of the transform.
    CGeoRect Extent() const;
    void ShowAll();
    void ShowInMiddle(double dIndex);
    void ShowFrom(double dFirst);
    void ZoomAt(const SScenePoint& point, bool bIn) override;
    void ZoomAll() override;
    void ShowPointer(const SScenePoint& point) override;
    void Drag(const SScenePoint& from, const SScenePoint& to) override;
    /// Scrolls by a page when the focus left the visible points, and shows it in the middle when that is not
    /// enough.
    void FollowFocus(bool bOn);
    void UpdateTracks();
    /// The plot has its place within the labels.
    void UpdateLayout(const CSceneTextSize& text);
    SSceneLayer GridLayer(const SGraphSurface& surface, bool& bTicks) const;
    SSceneLayer FocusLayer(const SGraphSurface& surface, std::optional<int> focus, bool bTicks) const;
    SSceneLayer CurveLayer(const SGraphSurface& surface) const;
    void SetLayer(EGraphLayer layer, SSceneLayer now);

    CUpdateHub& m_hub;
    CViewSelection& m_selection;
    CSettingsStore& m_settings;
    CGridFields m_fields;

    SSceneArea m_area; ///< the client area
    CMapTransform m_transform{false};

    // What is kept from scene to scene.
    std::vector<SGraphTrack> m_tracks;
    SGraphLayout m_layout;
    bool m_bTracksStale = true;
    bool m_bAllStale = true;
    bool m_bTicks = false; ///< the times of minutes are there
    CViewSelection::CRunKey m_shownRun = {};
    std::optional<int> m_shownFocus;
    SScene m_scene;
};

} // namespace kestrabel
