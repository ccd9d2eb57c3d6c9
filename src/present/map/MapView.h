#pragma once

#include "platform/SettingsStore.h"
#include "present/map/MapLayers.h"
#include "present/map/MapScroll.h"
#include "present/scene/SceneView.h"
#include "present/ViewSelection.h"

#include <cstddef>
#include <optional>

namespace kestrabel {

/// The layers of the map's scene, from the lowest to the highest.
enum EMapLayer : std::size_t
{
    MapGround, ///< grids and tracks
    MapRun,    ///< the picked run and its gates
    MapNames,  ///< waypoints, the zoom text
    MapFocus,
    MapLayers,
};

/// The map: the shown track files, the picked run and the focus point, seen through a transform that mouse,
/// keys, scroll bars and commands change.
class CMapView : public CSceneView
{
public:
    /// Keeps what it shows in the settings. The event, the hub, the selection and the settings outlive it.
    CMapView(const CEvent& event, CUpdateHub& hub, CViewSelection& selection, CSettingsStore& settings);
    ~CMapView() override;
    CMapView(const CMapView&) = delete;
    CMapView& operator=(const CMapView&) = delete;

    void OnUpdate(EUpdateHint hint) override;

    /// What is in the middle stays there, and the zoom factor.
    void OnSize(int nWidth, int nHeight) override;
    void Refresh() override;

    const SScene& Scene(const CSceneTextSize& text) override;
    SScene PrintScene(const SSceneArea& area, double dScale, const CSceneTextSize& text) override;

    SScrollBar ScrollBar(EScrollBar bar) const override { return ScrollOf(m_transform, m_extent, bar); }
    void OnScroll(EScrollBar bar, EScroll scroll, int nThumb = 0) override;

    /// With Ctrl zooms in there, with Shift moves that place to the middle, else puts the focus on the point
    /// there.
    void OnLButtonDown(const SScenePoint& point, SModifiers modifiers) override;

    bool OnKeyDown(EViewKey key, SModifiers modifiers) override;

    void ShowNeighborhood(bool bShow);
    /// None when there is a track point at the place that was clicked, which is the focus now.
    std::optional<CPosition> PlaceForNewPoint() override;

    SGridFieldsDialog FieldsDialog() const override { return SGridFieldsDialog::From(m_fields); }
    void ApplyFields(const SGridFieldsDialog& dialog) override;

    const CMapTransform& Transform() const { return m_transform; }

private:
    /// The first point of what is shown within three pixels of the place; null when there is none.
    const CTrackPoint* PointAt(const SScenePoint& point);
    void FocusOn(const CTrackPoint& point, const CPane* pSender);
    void ShowAll();
    void ShowInMiddle(const CPosition& position);
    void ZoomAt(const SScenePoint& point, bool bIn) override;
    void ZoomAll() override;
    void ShowPointer(const SScenePoint& point) override;
    void Drag(const SScenePoint& from, const SScenePoint& to) override;
    void ScrollPage(EViewKey key);
    void UpdateTracks();
    void SetLayer(EMapLayer layer, SSceneLayer now);
    SMapOptions Options() const { return MapOptions(m_fields, m_bNeighborhood); }

    CUpdateHub& m_hub;
    CViewSelection& m_selection;
    CSettingsStore& m_settings;
    CGridFields m_fields;
    bool m_bNeighborhood = false;

    CMapTransform m_transform;
    CGeoRect m_extent = MapExtent(m_selection);

    // What is kept from scene to scene.
    std::vector<SMapTrack> m_tracks;
    bool m_bTracksStale = true;
    bool m_bGroundStale = true;
    CViewSelection::CRunKey m_shownRun = {};
    std::optional<CPosition> m_shownFocus;
    SScene m_scene;
};

} // namespace kestrabel
